#pragma once

#include <optional>
#include <string>

#include "media/media_control.h"
#include "picture/surface.h"
#include "ui/picture_box.h"

namespace media {

/// The frame on which the video stands that plays in a box, as a picture of the video's own size where that
/// is known, else of the box's. None where it cannot be had.
///
/// The device is asked first. A device that cannot paint its frame, or says so and paints nothing, still
/// shows it: where nothing lies over the box it is copied from the screen, else `path` is opened beside it,
/// silent and without a window, at the same place.
std::optional<picture::Surface> lastFrame(MediaControl& control, const ui::PictureBox& box,
                                          const std::wstring& path);

}  // namespace media
