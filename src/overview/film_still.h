#pragma once

#include <optional>
#include <string>

#include "media/media_control.h"
#include "picture/pixels.h"
#include "ui/picture_box.h"

namespace overview {

/// A film's thumbnail: its first frame by the fit rule on black, marked "==>" in bold red. `Pic2` is the
/// hidden box that the film is opened in, under VIDEO, from the first command to the last without an event
/// between. None where the film gives no frame.
std::optional<picture::Pixels> filmStill(media::MediaControl& control, const ui::PictureBox& Pic2,
                                         const std::wstring& path, int width, int height);

/// The pixels with the mark of a film; its letters are large enough for a DPI and no wider than half of the
/// pixels.
picture::Pixels markedAsFilm(const picture::Pixels& pixels, int dpi);

}  // namespace overview
