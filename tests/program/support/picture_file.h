#pragma once

#include <string>

#include "picture/pixels.h"

namespace program {

/// Writes a JPEG file at quality 0.92. Throws platform::Error.
void writeJpeg(const std::wstring& path, const picture::Pixels& picture);

/// Writes a PNG file. Throws platform::Error.
void writePng(const std::wstring& path, const picture::Pixels& picture);

/// Reads a picture file back whole. Throws platform::Error.
picture::Pixels readPicture(const std::wstring& path);

}  // namespace program
