#pragma once

#include <windows.h>

#include <string>

#include "media/media_control.h"
#include "overview/item_images.h"
#include "ui/picture_box.h"

namespace overview {

/// A film's thumbnails, sizes in pixels: its first frame by the fit rule on black, marked "==>" in bold red.
/// `Pic2` is the hidden box that the film is opened in, under VIDEO, from the first command to the last
/// without an event between. None where the film gives no frame.
ItemImages filmImages(media::MediaControl& control, const ui::PictureBox& Pic2, const std::wstring& path,
                      const SIZE& cell, const SIZE& kept);

}  // namespace overview
