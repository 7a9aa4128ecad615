#include "program/support/compare.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace program {
namespace {

constexpr std::uint32_t kColourBits = 0xFFFFFF;
constexpr double kEqual = 99.0;

int channel(std::uint32_t colour, int index) {
    return static_cast<int>((colour >> (8 * index)) & 0xFF);
}

bool comparable(const picture::Pixels& a, const picture::Pixels& b) {
    return !a.empty() && a.width == b.width && a.height == b.height;
}

}  // namespace

picture::Pixels cut(const picture::Pixels& picture, Area area) {
    picture::Pixels part(area.width, area.height);
    for (int y = 0; y < area.height; ++y) {
        std::copy_n(picture.row(area.top + y) + area.left, area.width, part.row(y));
    }
    return part;
}

double psnr(const picture::Pixels& a, const picture::Pixels& b) {
    if (!comparable(a, b)) {
        return 0;
    }
    double squares = 0;
    for (std::size_t i = 0; i < a.data.size(); ++i) {
        for (int c = 0; c < 3; ++c) {
            const int difference = channel(a.data[i], c) - channel(b.data[i], c);
            squares += difference * difference;
        }
    }
    const double mean = squares / (3.0 * static_cast<double>(a.data.size()));
    return mean > 0 ? std::min(kEqual, 10 * std::log10(255.0 * 255.0 / mean)) : kEqual;
}

double meanDifference(const picture::Pixels& a, const picture::Pixels& b) {
    if (!comparable(a, b)) {
        return 255;
    }
    double sum = 0;
    for (std::size_t i = 0; i < a.data.size(); ++i) {
        for (int c = 0; c < 3; ++c) {
            sum += std::abs(channel(a.data[i], c) - channel(b.data[i], c));
        }
    }
    return sum / (3.0 * static_cast<double>(a.data.size()));
}

bool similar(std::uint32_t a, std::uint32_t b, int tolerance) {
    for (int c = 0; c < 3; ++c) {
        if (std::abs(channel(a, c) - channel(b, c)) > tolerance) {
            return false;
        }
    }
    return true;
}

double shareOf(const picture::Pixels& picture, std::uint32_t colour, int tolerance) {
    const auto count = std::count_if(picture.data.begin(), picture.data.end(),
                                     [=](std::uint32_t pixel) { return similar(pixel, colour, tolerance); });
    return picture.empty() ? 0 : static_cast<double>(count) / static_cast<double>(picture.data.size());
}

bool isBlack(const picture::Pixels& picture) {
    return !picture.empty() && std::all_of(picture.data.begin(), picture.data.end(),
                                           [](std::uint32_t pixel) { return (pixel & kColourBits) == 0; });
}

}  // namespace program
