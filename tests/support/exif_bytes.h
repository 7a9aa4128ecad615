#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace support {

using Bytes = std::vector<std::uint8_t>;

/// Lays out the bytes of an EXIF block in either byte order, for tests.
class ExifBytes {
  public:
    enum class Order { Intel, Motorola };

    explicit ExifBytes(Order order) : order_(order) {
        bytes_ = order == Order::Intel ? Bytes{'I', 'I'} : Bytes{'M', 'M'};
        add(42, 2);
        add(8, 4);
    }

    ExifBytes& add(std::uint32_t value, int length) {
        for (int i = 0; i < length; ++i) {
            const int shift = 8 * (order_ == Order::Intel ? i : length - 1 - i);
            bytes_.push_back(static_cast<std::uint8_t>(value >> shift));
        }
        return *this;
    }

    /// An entry of a directory whose value is one number: type 3 has two bytes, type 4 has four.
    ExifBytes& entry(std::uint32_t tag, std::uint32_t type, std::uint32_t count, std::uint32_t value) {
        add(tag, 2).add(type, 2).add(count, 4);
        return type == 3 ? add(value, 2).add(0, 2) : add(value, 4);
    }

    ExifBytes& append(const Bytes& bytes) {
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
        return *this;
    }
    ExifBytes& append(const std::string& text) {
        std::transform(text.begin(), text.end(), std::back_inserter(bytes_),
                       [](char letter) { return static_cast<std::uint8_t>(letter); });
        return *this;
    }

    const Bytes& bytes() const { return bytes_; }

  private:
    Order order_;
    Bytes bytes_;
};

/// A marker segment of a JPEG file.
inline Bytes jpegSegment(std::uint8_t marker, const Bytes& payload) {
    const std::size_t length = payload.size() + 2;
    Bytes bytes(length + 2);
    bytes[0] = 0xFF;
    bytes[1] = marker;
    bytes[2] = static_cast<std::uint8_t>(length >> 8);
    bytes[3] = static_cast<std::uint8_t>(length);
    std::copy(payload.begin(), payload.end(), bytes.begin() + 4);
    return bytes;
}

/// The start of a JPEG file with these segments.
inline Bytes jpegFile(const std::vector<Bytes>& segments) {
    Bytes bytes = {0xFF, 0xD8};
    for (const Bytes& segment : segments) {
        bytes.insert(bytes.end(), segment.begin(), segment.end());
    }
    return bytes;
}

inline Bytes exifSegment(const ExifBytes& exif) {
    Bytes payload = {'E', 'x', 'i', 'f', 0, 0};
    payload.insert(payload.end(), exif.bytes().begin(), exif.bytes().end());
    return jpegSegment(0xE1, payload);
}

}  // namespace support
