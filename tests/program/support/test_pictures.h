#pragma once

#include <cstdint>

#include "picture/pixels.h"

namespace program {

/// A picture that can be told from all others at a glance: a ground colour of its own, a light frame along
/// the edges and a big two-digit number. The pattern has no resolution: it can be drawn at any size, so the
/// picture that a screen should show is drawn, not scaled.
struct TestPicture {
    int number = 0;  ///< 0 to 35
    int width = 0;
    int height = 0;
};

/// The colour (0xRRGGBB) most of the picture with this number has.
std::uint32_t groundColour(int number);

/// The picture in its own size.
picture::Pixels draw(const TestPicture& picture);

/// A black surface of this size with the picture where the fit rule puts it.
picture::Pixels drawFitted(const TestPicture& picture, int surfaceWidth, int surfaceHeight);

}  // namespace program
