#pragma once

#include <cmath>

namespace ui {

/// Lengths of the program's windows: 1/1440 inch, so that a layout grows with the monitor's DPI.
using Twips = float;

inline constexpr float kTwipsPerInch = 1440.0F;

/// Twips that one pixel covers at a DPI (15 at 96 DPI).
constexpr float twipsPerPixel(int dpi) {
    return kTwipsPerInch / static_cast<float>(dpi);
}

/// The nearest whole pixel, halves away from zero.
inline int toPixels(Twips length, int dpi) {
    return static_cast<int>(std::lround(length * static_cast<float>(dpi) / kTwipsPerInch));
}

constexpr Twips toTwips(int pixels, int dpi) {
    return static_cast<float>(pixels) * twipsPerPixel(dpi);
}

/// A window's place in its parent, in twips.
struct TwipsRect {
    Twips left = 0;
    Twips top = 0;
    Twips width = 0;
    Twips height = 0;
    friend bool operator==(const TwipsRect&, const TwipsRect&) = default;
};

}  // namespace ui
