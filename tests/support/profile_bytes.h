#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "picture/matrix3.h"
#include "picture/tone_curve.h"
#include "support/exif_bytes.h"

namespace support {

/// Lays out the bytes of an ICC profile, for tests.
class ProfileBytes {
  public:
    /// Four letters each: what the profile is for, its numbers, and the space between profiles.
    explicit ProfileBytes(std::string_view kind = "mntr", std::string_view space = "RGB ",
                          std::string_view connection = "XYZ ", unsigned version = 4)
        : header_(kHeaderBytes) {
        header_[8] = static_cast<std::uint8_t>(version);
        put(header_, 12, kind);
        put(header_, 16, space);
        put(header_, 20, connection);
        put(header_, 36, "acsp");
        // The light of the connection space, D50, in 65536ths.
        const std::array<std::uint32_t, 3> white = {0xF6D6, 0x10000, 0xD32D};
        for (std::size_t i = 0; i < 3; ++i) {
            putNumber(header_, 68 + 4 * i, white[i], 4);
        }
    }

    /// Adds an element, or takes the place of the one with that tag.
    ProfileBytes& set(std::string_view tag, Bytes element) {
        for (auto& [name, bytes] : elements_) {
            if (name == tag) {
                bytes = std::move(element);
                return *this;
            }
        }
        elements_.emplace_back(tag, std::move(element));
        return *this;
    }

    Bytes bytes() const {
        Bytes result = header_;
        appendNumber(result, static_cast<std::uint32_t>(elements_.size()), 4);
        std::size_t offset = result.size() + 12 * elements_.size();
        for (const auto& [tag, element] : elements_) {
            append(result, tag);
            appendNumber(result, static_cast<std::uint32_t>(offset), 4);
            appendNumber(result, static_cast<std::uint32_t>(element.size()), 4);
            offset += padded(element.size());
        }
        for (const auto& [tag, element] : elements_) {
            result.insert(result.end(), element.begin(), element.end());
            result.resize(padded(result.size()));
        }
        putNumber(result, 0, static_cast<std::uint32_t>(result.size()), 4);
        return result;
    }

    static void append(Bytes& bytes, std::string_view letters) {
        for (const char letter : letters) {
            bytes.push_back(static_cast<std::uint8_t>(letter));
        }
    }
    static void appendNumber(Bytes& bytes, std::uint32_t value, std::size_t length) {
        bytes.resize(bytes.size() + length);
        putNumber(bytes, bytes.size() - length, value, length);
    }
    static void putNumber(Bytes& bytes, std::size_t offset, std::uint32_t value, std::size_t length) {
        for (std::size_t i = 0; i < length; ++i) {
            bytes[offset + i] = static_cast<std::uint8_t>(value >> (8 * (length - 1 - i)));
        }
    }

  private:
    static constexpr std::size_t kHeaderBytes = 128;

    static std::size_t padded(std::size_t size) { return (size + 3) / 4 * 4; }
    static void put(Bytes& bytes, std::size_t offset, std::string_view letters) {
        for (std::size_t i = 0; i < letters.size(); ++i) {
            bytes[offset + i] = static_cast<std::uint8_t>(letters[i]);
        }
    }

    Bytes header_;
    std::vector<std::pair<std::string, Bytes>> elements_;
};

/// The start of an element: its type and four bytes that are always 0.
inline Bytes elementOf(std::string_view type) {
    Bytes element;
    ProfileBytes::append(element, type);
    ProfileBytes::appendNumber(element, 0, 4);
    return element;
}

/// A number with 16 bits behind the point.
inline void appendFixed(Bytes& bytes, double value) {
    ProfileBytes::appendNumber(bytes, static_cast<std::uint32_t>(std::lround(value * 65536)), 4);
}

inline Bytes xyzElement(double x, double y, double z) {
    Bytes element = elementOf("XYZ ");
    for (const double value : {x, y, z}) {
        appendFixed(element, value);
    }
    return element;
}

/// A curve as a table; with one entry that is an exponent in 256ths.
inline Bytes tableCurve(const std::vector<std::uint16_t>& entries) {
    Bytes element = elementOf("curv");
    ProfileBytes::appendNumber(element, static_cast<std::uint32_t>(entries.size()), 4);
    for (const std::uint16_t entry : entries) {
        ProfileBytes::appendNumber(element, entry, 2);
    }
    return element;
}

/// A curve as formula 0 to 4 with its parameters.
inline Bytes formulaCurve(unsigned formula, const std::vector<double>& parameters) {
    Bytes element = elementOf("para");
    ProfileBytes::appendNumber(element, formula, 2);
    ProfileBytes::appendNumber(element, 0, 2);
    for (const double value : parameters) {
        appendFixed(element, value);
    }
    return element;
}

/// The curve of sRGB, which Display P3 has too.
inline Bytes standardCurve() {
    return formulaCurve(3, {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045});
}
inline Bytes powerCurve(double gamma) {
    return formulaCurve(0, {gamma});
}

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

/// One chunk of a profile as a JPEG segment: the `number`-th, counted from 1, of `count`.
inline Bytes profileChunk(const Bytes& part, unsigned number, unsigned count) {
    Bytes payload;
    ProfileBytes::append(payload, std::string_view("ICC_PROFILE\0", 12));
    payload.push_back(static_cast<std::uint8_t>(number));
    payload.push_back(static_cast<std::uint8_t>(count));
    payload.insert(payload.end(), part.begin(), part.end());
    return jpegSegment(0xE2, payload);
}

/// A profile that fits into one segment.
inline Bytes profileSegment(const Bytes& profile) {
    return profileChunk(profile, 1, 1);
}

}  // namespace support
