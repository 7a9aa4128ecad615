#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "picture/matrix3.h"
#include "picture/tone_curve.h"

namespace picture {

/// What red, green and blue of a picture or a monitor mean: each channel's curve makes light of its value,
/// and the matrix makes a colour of the light.
struct ColourProfile {
    /// Rows X, Y, Z under the light D50; columns red, green, blue.
    Matrix3 toXyz{};
    /// Of red, green and blue.
    std::array<ToneCurve, 3> curves;
};

/// Whether the bytes are a sound header of an ICC profile, version 2 or 4, for the red, green and blue of a
/// device; what the profile is made of does not matter. False for grey, CMYK and all else, and where bytes
/// are missing at the end.
bool describesRgb(std::span<const std::uint8_t> profile);

/// Reads an ICC profile that consists of a matrix and three curves. None where describesRgb() says no, for
/// profiles that hold tables of colours, which count more than a matrix beside them, and for damaged ones.
std::optional<ColourProfile> readColourProfile(std::span<const std::uint8_t> profile);

/// sRGB (IEC 61966-2-1), with the matrix that its usual ICC profiles have.
const ColourProfile& standardProfile();

/// Whether a picture looks the same with both: no channel's light differs by more than half of one of its 256
/// levels, and no colour by more than a thousandth of the full light. Profiles of one colour space by
/// different makers are that near.
bool sameEffect(const ColourProfile& a, const ColourProfile& b);

}  // namespace picture
