#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "media/media_control.h"
#include "picture/surface.h"
#include "ui/picture_box.h"

namespace media {

/// A surface for the frame of the film that is open under VIDEO: in the film's own size where the device
/// tells one that a film can have, else in the size of its box; empty where that is nothing. Throws
/// platform::Error when there is no memory for it.
picture::Surface unpaintedFrame(MediaControl& control, const ui::PictureBox& box);

/// Whether a device has painted a frame that was unpainted: some say so and paint nothing.
bool isPainted(const picture::Surface& frame);

/// Has the device of an alias paint the frame on which it stands; false where it cannot.
bool updateFrame(MediaControl& control, const std::string& alias, const picture::Surface& frame);

/// Opens a film beside the one that is shown, silent and without a window, and paints its frame at the first
/// of the positions (ms) where it has one.
bool frameBeside(MediaControl& control, const std::wstring& path, const std::vector<int>& positions,
                 const picture::Surface& frame);

}  // namespace media
