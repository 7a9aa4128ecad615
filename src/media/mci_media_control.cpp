#include "media/mci_media_control.h"

#include <windows.h>

#include <mmsystem.h>

#include <algorithm>

namespace media {

MediaReply MciMediaControl::send(const std::string& command, int replySize) {
    MediaReply reply;
    if (replySize <= 0) {
        reply.error = mciSendStringA(command.c_str(), nullptr, 0, nullptr);
        return reply;
    }
    reply.text.assign(static_cast<std::size_t>(replySize), ' ');
    reply.error =
        mciSendStringA(command.c_str(), reply.text.data(), static_cast<unsigned>(replySize), nullptr);
    if (reply.error != 0) {
        reply.text.clear();
    }
    reply.text.resize(std::min(reply.text.find('\0'), reply.text.size()));
    return reply;
}

}  // namespace media
