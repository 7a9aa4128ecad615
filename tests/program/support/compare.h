#pragma once

#include <cstdint>

#include "picture/pixels.h"

namespace program {

/// A rectangle of a picture, in its pixels.
struct Area {
    int left, top, width, height;
};

/// A copy of the part of `picture` inside `area`, which must lie within it.
picture::Pixels cut(const picture::Pixels& picture, Area area);

/// Peak signal-to-noise ratio in dB over all three channels; 99 for equal pictures, 0 when the sizes differ.
double psnr(const picture::Pixels& a, const picture::Pixels& b);

/// Mean absolute difference of the channels, 0 to 255; 255 when the sizes differ.
double meanDifference(const picture::Pixels& a, const picture::Pixels& b);

/// Whether no channel of the two colours (0xRRGGBB) differs by more than `tolerance`.
bool similar(std::uint32_t a, std::uint32_t b, int tolerance = 12);

/// The share, 0 to 1, of pixels that are similar to `colour`.
double shareOf(const picture::Pixels& picture, std::uint32_t colour, int tolerance = 12);

/// Whether every pixel is exactly black.
bool isBlack(const picture::Pixels& picture);

}  // namespace program
