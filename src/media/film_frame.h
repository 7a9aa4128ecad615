#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "media/media_control.h"
#include "picture/surface.h"

namespace media {

/// Width and height in the answer to "where", which is "x y width height"; 0 where there is none.
SIZE sourceSize(const std::string& reply);

/// A surface for a frame, of which isPainted() tells whether a device has painted it: some say so and paint
/// nothing.
picture::Surface unpaintedFrame(const SIZE& size);
bool isPainted(const picture::Surface& frame);

/// Has the device of an alias paint the frame on which it stands; false where it cannot.
bool updateFrame(MediaControl& control, const std::string& alias, const picture::Surface& frame);

/// Opens a film beside the one that is shown, silent and without a window, and paints its frame at the first
/// of the positions (ms) where it has one.
bool frameBeside(MediaControl& control, const std::wstring& path, const std::vector<int>& positions,
                 const picture::Surface& frame);

}  // namespace media
