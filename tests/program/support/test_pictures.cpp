#include "program/support/test_pictures.h"

#include <algorithm>
#include <array>

#include "show/fit_rule.h"

namespace program {
namespace {

constexpr std::uint32_t kLight = 0xF0F0E8;
constexpr double kFrame = 0.03;

// Rows of three cells from top to bottom, the highest bit at the left.
constexpr std::array<std::array<int, 5>, 10> kDigits = {{{7, 5, 5, 5, 7},
                                                         {2, 6, 2, 2, 7},
                                                         {7, 1, 7, 4, 7},
                                                         {7, 1, 3, 1, 7},
                                                         {5, 5, 7, 1, 1},
                                                         {7, 4, 7, 1, 7},
                                                         {7, 4, 7, 5, 7},
                                                         {7, 1, 2, 2, 2},
                                                         {7, 5, 7, 5, 7},
                                                         {7, 5, 7, 1, 7}}};

bool inDigit(int digit, double u, double v) {
    if (u < 0 || u >= 1 || v < 0 || v >= 1) {
        return false;
    }
    const auto& rows = kDigits[static_cast<std::size_t>(digit)];
    const int cells = rows[static_cast<std::size_t>(v * 5)];
    return ((cells >> (2 - static_cast<int>(u * 3))) & 1) != 0;
}

/// The colour at a place of the picture, both coordinates from 0 to 1.
std::uint32_t patternColour(int number, double u, double v) {
    const double edge = std::min({u, v, 1 - u, 1 - v});
    if (edge < kFrame) {
        return kLight;
    }
    const double y = (v - 0.25) / 0.5;
    const bool tens = inDigit(number / 10 % 10, (u - 0.2) / 0.25, y);
    const bool ones = inDigit(number % 10, (u - 0.55) / 0.25, y);
    return tens || ones ? kLight : groundColour(number);
}

void drawInto(picture::Pixels& surface, int number, const show::PixelRect& place) {
    const int right = std::min(surface.width, place.left + place.width);
    const int bottom = std::min(surface.height, place.top + place.height);
    for (int y = std::max(0, place.top); y < bottom; ++y) {
        const double v = (y - place.top + 0.5) / place.height;
        for (int x = std::max(0, place.left); x < right; ++x) {
            surface.row(y)[x] = patternColour(number, (x - place.left + 0.5) / place.width, v);
        }
    }
}

}  // namespace

std::uint32_t groundColour(int number) {
    // Steps of 5 in a circle of 12 hues, darker with every round: neighbours always differ clearly.
    constexpr std::array<std::uint32_t, 12> kHues = {0xC82828, 0xC87828, 0xC8C828, 0x78C828,
                                                     0x28C828, 0x28C878, 0x28C8C8, 0x2878C8,
                                                     0x2828C8, 0x7828C8, 0xC828C8, 0xC82878};
    const std::uint32_t hue = kHues[static_cast<std::size_t>(number * 5 % 12)];
    const int round = number / 12 % 3;
    return round == 0 ? hue : (hue >> round) & (0x7F7F7FU >> (round - 1));
}

picture::Pixels draw(const TestPicture& picture) {
    picture::Pixels drawn(picture.width, picture.height);
    drawInto(drawn, picture.number, {0, 0, picture.width, picture.height});
    return drawn;
}

picture::Pixels drawFitted(const TestPicture& picture, int surfaceWidth, int surfaceHeight) {
    picture::Pixels surface(surfaceWidth, surfaceHeight);
    drawInto(surface, picture.number,
             show::fitPicture(picture.width, picture.height, surfaceWidth, surfaceHeight,
                              static_cast<double>(surfaceWidth) / surfaceHeight));
    return surface;
}

}  // namespace program
