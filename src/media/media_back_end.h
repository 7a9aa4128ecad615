#pragma once

#include <memory>

#include "media/media_control.h"

namespace media {

/// What carries the media commands out.
enum class BackEnd {
    Mci,         ///< the system's media control interface; what it cannot open goes to a graph
    DirectShow,  ///< the program's own reader of the commands, on filter graphs
};

/// The back-end for this system. The media control interface, but for Wine: there it can neither place nor
/// grab nor mute a film.
BackEnd preferredBackEnd();

/// The one place where a back-end is made. Lives on the window thread, until after the last window.
std::unique_ptr<MediaControl> createMediaControl(BackEnd backEnd = preferredBackEnd());

}  // namespace media
