#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace support {

/// The colour of one pixel as 0xRRGGBB.
using PixelAt = std::function<std::uint32_t(int x, int y)>;

/// What filmFrame gives for the last frame of a film, which carries no number.
inline constexpr int kLastFrame = 1000;

/// Whether two colours differ by at most `tolerance` in every channel.
inline bool similarColour(std::uint32_t a, std::uint32_t b, int tolerance) {
    for (int shift = 0; shift <= 16; shift += 8) {
        const int difference = static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF);
        if (difference > tolerance || difference < -tolerance) {
            return false;
        }
    }
    return true;
}

/// Pure green, or what becomes of it where a decoder takes a large film's colours for those of HD television.
inline bool isGreen(std::uint32_t colour) {
    return (colour >> 16 & 0xFF) <= 24 && (colour >> 8 & 0xFF) >= 200 && (colour & 0xFF) <= 24;
}

/// Which frame of a test film a picture of `width` x `height` pixels shows: 0 to 127, kLastFrame for the
/// last one, nothing for anything that is no whole frame (tests/data/media/README.md tells how it is coded).
inline std::optional<int> filmFrame(const PixelAt& pixel, int width, int height) {
    constexpr int kCells = 8;
    int number = 0;
    int green = 0;
    bool whole = true;
    for (int cell = 0; cell < kCells; ++cell) {
        const int x = width * (2 * cell + 1) / (2 * kCells);
        const std::uint32_t above = pixel(x, height / 12);
        const std::uint32_t below = pixel(x, height * 11 / 12);
        green += isGreen(above) && isGreen(below) ? 1 : 0;
        const bool white = similarColour(below, 0xFFFFFF, 40) && similarColour(above, 0x000000, 40);
        const bool black = similarColour(below, 0x000000, 40) && similarColour(above, 0xFFFFFF, 40);
        whole = whole && (white || black);
        number = number << 1 | (white ? 1 : 0);
    }
    if (green == kCells && isGreen(pixel(width / 2, height / 2))) {
        return kLastFrame;
    }
    if (!whole || (number & 128) == 0) {
        return std::nullopt;
    }
    return number & 127;
}

}  // namespace support
