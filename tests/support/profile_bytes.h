#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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
