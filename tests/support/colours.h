#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "picture/pixels.h"

namespace support {

/// By how many levels the two colours 0x00RRGGBB differ where they differ most.
inline int colourDistance(std::uint32_t a, std::uint32_t b) {
    int most = 0;
    for (const int shift : {0, 8, 16}) {
        const int first = static_cast<int>(a >> shift & 0xFF);
        const int second = static_cast<int>(b >> shift & 0xFF);
        most = std::max(most, std::abs(first - second));
    }
    return most;
}

/// The same of all pixels of two pictures of one size.
inline int colourDistance(const picture::Pixels& a, const picture::Pixels& b) {
    int most = 0;
    for (std::size_t i = 0; i < a.data.size(); ++i) {
        most = std::max(most, colourDistance(a.data[i], b.data[i]));
    }
    return most;
}

/// A picture of 64 x 64 pixels with 16 levels of each channel in all combinations, from 0 to 255.
inline picture::Pixels colourGrid() {
    picture::Pixels pixels(64, 64);
    for (std::uint32_t i = 0; i < pixels.data.size(); ++i) {
        pixels.data[i] = (i >> 8) * 17 << 16 | (i >> 4 & 15) * 17 << 8 | (i & 15) * 17;
    }
    return pixels;
}

}  // namespace support
