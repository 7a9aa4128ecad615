#include "media/media_back_end.h"

#include "media/direct_show_media_control.h"
#include "media/fallback_media_control.h"
#include "media/mci_media_control.h"
#include "platform/wine.h"

namespace media {

BackEnd preferredBackEnd() {
    return platform::runsUnderWine() ? BackEnd::DirectShow : BackEnd::Mci;
}

std::unique_ptr<MediaControl> createMediaControl(BackEnd backEnd) {
    if (backEnd == BackEnd::DirectShow) {
        return std::make_unique<DirectShowMediaControl>();
    }
    // A codec that the media control interface lacks may be there for a graph all the same.
    return std::make_unique<FallbackMediaControl>(std::make_unique<MciMediaControl>(),
                                                  [] { return std::make_unique<DirectShowMediaControl>(); });
}

}  // namespace media
