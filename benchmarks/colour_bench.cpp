// Converting the colours of a picture that fills the screen.

#include <stdexcept>

#include "bench_main.h"
#include "picture/colour_match.h"
#include "picture/colour_profile.h"
#include "support/sample_profiles.h"

namespace bench {

namespace {

using picture::ColourMatch;
using picture::Pixels;

constexpr picture::Placement kScreen = {0, 0, 1920, 1080};

/// A picture in which neighbours are alike and all colours occur, with some noise.
Pixels photographLike() {
    Pixels pixels(kScreen.width, kScreen.height);
    std::uint32_t seed = 1;
    for (int y = 0; y < pixels.height; ++y) {
        for (int x = 0; x < pixels.width; ++x) {
            seed = seed * 1664525U + 1013904223U;
            const auto noise = [&seed](int shift) { return seed >> shift & 0xF; };
            const auto red = static_cast<std::uint32_t>(x / 8 % 240) + noise(8);
            const auto green = static_cast<std::uint32_t>(y / 5 % 240) + noise(16);
            const auto blue = static_cast<std::uint32_t>((x + y) / 13 % 240) + noise(24);
            pixels.row(y)[x] = red << 16 | green << 8 | blue;
        }
    }
    return pixels;
}

/// One conversion; working out the pair of profiles is left out.
double convert(const support::Bytes& profile, ColourMatch::Road expected) {
    static const Pixels original = photographLike();
    Pixels one(1, 1);
    if (picture::colourMatch().convert(one, {0, 0, 1, 1}, profile, {}) != expected) {
        throw std::runtime_error("another road was taken");
    }
    Pixels pixels = original;
    return milliseconds([&] { picture::colourMatch().convert(pixels, kScreen, profile, {}); });
}

/// Reading two profiles and making the tables between them, which a new camera costs.
double workOut() {
    const support::Bytes profile = support::displayP3().bytes();
    return milliseconds([&] {
        Pixels one(1, 1);
        ColourMatch().convert(one, {0, 0, 1, 1}, profile, {});
    });
}

const Figure kRule("colour_1920x1080_by_rule", "ms", 9,
                   [] { return convert(support::displayP3().bytes(), ColourMatch::Road::Rule); });
const Figure kSystem("colour_1920x1080_by_system", "ms", 5,
                     [] { return convert(support::adobeRgbAsTables().bytes(), ColourMatch::Road::System); });
const Figure kSame("colour_1920x1080_same_space", "ms", 9,
                   [] { return convert(support::standardRgb().bytes(), ColourMatch::Road::None); });
const Figure kNewPair("colour_new_pair_of_profiles", "ms", 9, workOut);

}  // namespace

}  // namespace bench
