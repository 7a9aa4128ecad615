#include "picture/colour_profile.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "picture/big_endian.h"

namespace picture {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t kHeaderBytes = 128;
constexpr std::size_t kTableStart = kHeaderBytes + 4;
constexpr std::size_t kEntryBytes = 12;
/// A count beyond this is damage; real profiles have up to some twenty.
constexpr std::uint32_t kMostTags = 1000;

/// The number that four letters are read as.
constexpr std::uint32_t signature(std::string_view letters) {
    std::uint32_t value = 0;
    for (const char letter : letters) {
        value = value << 8 | static_cast<std::uint8_t>(letter);
    }
    return value;
}

constexpr std::uint32_t kTablesOfColours[] = {
    signature("A2B0"), signature("A2B1"), signature("A2B2"), signature("B2A0"), signature("B2A1"),
    signature("B2A2"), signature("D2B0"), signature("D2B1"), signature("D2B2"), signature("D2B3"),
    signature("B2D0"), signature("B2D1"), signature("B2D2"), signature("B2D3"),
};

bool isOneOf(std::optional<std::uint32_t> value, std::initializer_list<std::string_view> signatures) {
    return std::any_of(signatures.begin(), signatures.end(),
                       [&](std::string_view letters) { return value == signature(letters); });
}

/// Where an element stands; empty when the profile has none of that tag or it lies outside.
Bytes findElement(Bytes profile, std::uint32_t tag) {
    const std::uint32_t count = bigEndian(profile, kHeaderBytes, 4).value_or(0);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = kTableStart + i * kEntryBytes;
        if (bigEndian(profile, entry, 4) != tag) {
            continue;
        }
        const auto offset = bigEndian(profile, entry + 4, 4);
        const auto length = bigEndian(profile, entry + 8, 4);
        if (!offset || !length || *offset > profile.size() || profile.size() - *offset < *length) {
            return {};
        }
        return profile.subspan(*offset, *length);
    }
    return {};
}

bool holdsTablesOfColours(Bytes profile, std::uint32_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const auto tag = bigEndian(profile, kTableStart + i * kEntryBytes, 4);
        if (std::find(std::begin(kTablesOfColours), std::end(kTablesOfColours), tag) !=
            std::end(kTablesOfColours)) {
            return true;
        }
    }
    return false;
}

/// The column of the matrix that an element of type "XYZ " holds.
std::optional<std::array<double, 3>> readXyz(Bytes element) {
    if (bigEndian(element, 0, 4) != signature("XYZ ")) {
        return std::nullopt;
    }
    std::array<double, 3> xyz{};
    for (std::size_t i = 0; i < 3; ++i) {
        const auto value = bigEndian(element, 8 + 4 * i, 4);
        if (!value) {
            return std::nullopt;
        }
        xyz[i] = static_cast<std::int32_t>(*value) / 65536.0;
    }
    return xyz;
}

/// The matrix and curves of sRGB: its primaries under D65 brought to D50 by Bradford's method.
ColourProfile makeStandardProfile() {
    ColourProfile profile;
    profile.toXyz = {
        {{0.436066, 0.385147, 0.143066}, {0.222488, 0.716873, 0.060608}, {0.013916, 0.097076, 0.714096}}};
    ToneCurve curve;
    curve.gamma = 2.4;
    curve.a = 1 / 1.055;
    curve.b = 0.055 / 1.055;
    curve.c = 1 / 12.92;
    curve.d = 0.04045;
    profile.curves = {curve, curve, curve};
    return profile;
}

/// Whether `b` lies within what `a` gives half a level below and above.
bool sameCurve(const ToneCurve& a, const ToneCurve& b) {
    constexpr double kHalfLevel = 0.5 / 255;
    // Where a curve is flat, half a level makes no difference, and rounding is all there is.
    constexpr double kRounding = 1.0 / 65535;
    for (int level = 0; level < 256; ++level) {
        const double value = level / 255.0;
        const double light = b.at(value);
        if (light < a.at(value - kHalfLevel) - kRounding || light > a.at(value + kHalfLevel) + kRounding) {
            return false;
        }
    }
    return true;
}

bool nearIdentity(const Matrix3& matrix) {
    constexpr double kTolerance = 0.001;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            if (std::abs(matrix[row][column] - (row == column ? 1 : 0)) > kTolerance) {
                return false;
            }
        }
    }
    return true;
}

}  // namespace

bool describesRgb(Bytes profile) {
    const auto size = bigEndian(profile, 0, 4);
    const std::uint32_t version = bigEndian(profile, 8, 1).value_or(0);
    if (!size || *size < kTableStart || *size > profile.size() || (version != 2 && version != 4)) {
        return false;
    }
    return isOneOf(bigEndian(profile, 12, 4), {"mntr", "scnr", "prtr", "spac"}) &&
           isOneOf(bigEndian(profile, 16, 4), {"RGB "}) &&
           isOneOf(bigEndian(profile, 20, 4), {"XYZ ", "Lab "}) &&
           isOneOf(bigEndian(profile, 36, 4), {"acsp"});
}

std::optional<ColourProfile> readColourProfile(Bytes profile) {
    if (!describesRgb(profile) || !isOneOf(bigEndian(profile, 20, 4), {"XYZ "})) {
        return std::nullopt;
    }
    // Behind the profile's own end a file may hold padding.
    const Bytes bytes = profile.first(*bigEndian(profile, 0, 4));
    const std::uint32_t count = *bigEndian(bytes, kHeaderBytes, 4);
    if (count > kMostTags || holdsTablesOfColours(bytes, count)) {
        return std::nullopt;
    }
    constexpr std::array<std::string_view, 3> kColours = {"rXYZ", "gXYZ", "bXYZ"};
    constexpr std::array<std::string_view, 3> kCurves = {"rTRC", "gTRC", "bTRC"};
    ColourProfile result;
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const auto xyz = readXyz(findElement(bytes, signature(kColours[channel])));
        auto curve = readToneCurve(findElement(bytes, signature(kCurves[channel])));
        if (!xyz || !curve) {
            return std::nullopt;
        }
        for (std::size_t row = 0; row < 3; ++row) {
            result.toXyz[row][channel] = (*xyz)[row];
        }
        result.curves[channel] = std::move(*curve);
    }
    return inverse(result.toXyz) ? std::optional(std::move(result)) : std::nullopt;
}

const ColourProfile& standardProfile() {
    static const ColourProfile profile = makeStandardProfile();
    return profile;
}

bool sameEffect(const ColourProfile& a, const ColourProfile& b) {
    const auto back = inverse(b.toXyz);
    if (!back || !nearIdentity(product(*back, a.toXyz))) {
        return false;
    }
    for (std::size_t channel = 0; channel < 3; ++channel) {
        if (!sameCurve(a.curves[channel], b.curves[channel])) {
            return false;
        }
    }
    return true;
}

}  // namespace picture
