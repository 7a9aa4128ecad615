#pragma once

#include <windows.h>

#include <cstdint>

#include "picture/pixels.h"

namespace program {

/// The size of the primary screen in pixels, as this test program sees it.
SIZE screenSize();

/// What the whole primary screen shows now, whoever painted it; the pointer is not part of it.
/// Throws platform::Error.
picture::Pixels captureScreen();

/// The colour (0xRRGGBB) of one pixel of the screen.
std::uint32_t colourAt(POINT place);

}  // namespace program
