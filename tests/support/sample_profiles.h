#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "picture/matrix3.h"
#include "picture/tone_curve.h"
#include "support/profile_bytes.h"

namespace support {

/// Chromaticities x, y of red, green and blue.
using Primaries = std::array<std::array<double, 2>, 3>;
inline constexpr Primaries kStandardPrimaries = {{{0.64, 0.33}, {0.30, 0.60}, {0.15, 0.06}}};
inline constexpr Primaries kP3Primaries = {{{0.68, 0.32}, {0.265, 0.69}, {0.15, 0.06}}};
inline constexpr Primaries kAdobePrimaries = {{{0.64, 0.33}, {0.21, 0.71}, {0.15, 0.06}}};

/// The matrix from light of these primaries, whose white is D65, to XYZ under D50 (Bradford's method).
inline picture::Matrix3 matrixOf(const Primaries& primaries) {
    const picture::Matrix3 bradford = {{{1.0479298, 0.0229469, -0.0501923},
                                        {0.0296278, 0.9904344, -0.0170738},
                                        {-0.0092430, 0.0150552, 0.7518743}}};
    const std::array<double, 3> white = {0.3127 / 0.3290, 1, (1 - 0.3127 - 0.3290) / 0.3290};
    picture::Matrix3 matrix{};
    for (std::size_t i = 0; i < 3; ++i) {
        const auto [x, y] = primaries[i];
        matrix[0][i] = x / y;
        matrix[1][i] = 1;
        matrix[2][i] = (1 - x - y) / y;
    }
    const picture::Matrix3 back = *picture::inverse(matrix);
    for (std::size_t i = 0; i < 3; ++i) {
        const double scale = back[i][0] * white[0] + back[i][1] * white[1] + back[i][2] * white[2];
        for (auto& row : matrix) {
            row[i] *= scale;
        }
    }
    return picture::product(bradford, matrix);
}

/// A profile of a matrix and one curve for all three channels.
inline ProfileBytes matrixProfile(const picture::Matrix3& matrix, const Bytes& curve) {
    ProfileBytes profile;
    constexpr std::array<std::string_view, 3> kColours = {"rXYZ", "gXYZ", "bXYZ"};
    constexpr std::array<std::string_view, 3> kCurves = {"rTRC", "gTRC", "bTRC"};
    profile.set("wtpt", xyzElement(0.9642, 1, 0.8249));
    for (std::size_t i = 0; i < 3; ++i) {
        profile.set(kColours[i], xyzElement(matrix[0][i], matrix[1][i], matrix[2][i]));
        profile.set(kCurves[i], curve);
    }
    return profile;
}

inline ProfileBytes standardRgb() {
    return matrixProfile(matrixOf(kStandardPrimaries), standardCurve());
}
inline ProfileBytes displayP3() {
    return matrixProfile(matrixOf(kP3Primaries), standardCurve());
}
/// Its exponent stands as 563 / 256.
inline ProfileBytes adobeRgb() {
    return matrixProfile(matrixOf(kAdobePrimaries), tableCurve({563}));
}

/// The same colours as a table of them (type "mft2"): three curves of 256 entries that make light of the
/// values, and the light's eight corners.
inline ProfileBytes tableProfile(const picture::Matrix3& matrix, const picture::ToneCurve& curve) {
    Bytes element = elementOf("mft2");
    const auto append = [&element](double value) {
        ProfileBytes::appendNumber(element, static_cast<std::uint32_t>(std::lround(value)), 2);
    };
    // Three channels in, three out, two corners along each.
    for (const std::uint32_t number : {3U, 3U, 2U, 0U}) {
        ProfileBytes::appendNumber(element, number, 1);
    }
    for (int i = 0; i < 9; ++i) {
        appendFixed(element, i % 4 == 0 ? 1 : 0);
    }
    append(256);
    append(2);
    for (int i = 0; i < 3 * 256; ++i) {
        append(65535 * curve.at(i % 256 / 255.0));
    }
    for (unsigned corner = 0; corner < 8; ++corner) {
        for (const auto& row : matrix) {
            append(32768 * (row[0] * (corner >> 2) + row[1] * (corner >> 1 & 1) + row[2] * (corner & 1)));
        }
    }
    for (int channel = 0; channel < 3; ++channel) {
        append(0);
        append(65535);
    }
    ProfileBytes profile;
    profile.set("wtpt", xyzElement(0.9642, 1, 0.8249));
    return profile.set("A2B0", element);
}

inline ProfileBytes adobeRgbAsTables() {
    picture::ToneCurve curve;
    curve.gamma = 563 / 256.0;
    return tableProfile(matrixOf(kAdobePrimaries), curve);
}

}  // namespace support
