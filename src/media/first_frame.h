#pragma once

#include <optional>
#include <string>

#include "media/media_control.h"
#include "picture/surface.h"
#include "ui/picture_box.h"

namespace media {

/// The first frame of a film, in the film's own size where that is known, else in the box's. Whatever was
/// open under VIDEO is closed before, and the film afterwards; it lies in `box`, which may be hidden, and
/// does not play. None where the film cannot be opened or gives no frame.
std::optional<picture::Surface> firstFrame(MediaControl& control, const ui::PictureBox& box,
                                           const std::wstring& path);

}  // namespace media
