#pragma once

#include <string>

#include "media/media_control.h"

namespace media {

/// Hands the commands to the system's media control interface.
class MciMediaControl : public MediaControl {
  public:
    MediaReply send(const std::string& command, int replySize = 0) override;
};

}  // namespace media
