#include "overview/bitmap_file.h"

#include <cstddef>
#include <cstdlib>
#include <limits>

namespace overview {

namespace {

constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kInfoHeader = 40;
constexpr std::size_t kHeaders = kFileHeader + kInfoHeader;
constexpr int kLongestSide = 4096;
constexpr unsigned kBytesPerPixel = 3;
constexpr unsigned kBytesPerWidePixel = 4;
constexpr unsigned kBitsPerByte = 8;

// Where the values stand, counted from the file's beginning.
constexpr std::size_t kSizeAt = 2;
constexpr std::size_t kPixelsAt = 10;
constexpr std::size_t kInfoSizeAt = 14;
constexpr std::size_t kWidthAt = 18;
constexpr std::size_t kHeightAt = 22;
constexpr std::size_t kPlanesAt = 26;
constexpr std::size_t kBitsAt = 28;
constexpr std::size_t kCompressionAt = 30;
constexpr std::size_t kDataSizeAt = 34;

// Rows end at a multiple of four bytes.
std::size_t rowBytes(int width, unsigned bytesPerPixel) {
    return (static_cast<std::size_t>(width) * bytesPerPixel + 3) / 4 * 4;
}

void put(std::vector<std::uint8_t>& bytes, std::size_t at, std::uint32_t value, std::size_t count = 4) {
    for (std::size_t i = 0; i < count; ++i) {
        bytes[at + i] = static_cast<std::uint8_t>(value >> (kBitsPerByte * i));
    }
}

std::uint32_t value(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t count = 4) {
    std::uint32_t result = 0;
    for (std::size_t i = 0; i < count; ++i) {
        result |= static_cast<std::uint32_t>(bytes[at + i]) << (kBitsPerByte * i);
    }
    return result;
}

}  // namespace

std::vector<std::uint8_t> encodeBitmap(const picture::Pixels& pixels) {
    const std::size_t row = rowBytes(pixels.width, kBytesPerPixel);
    const std::size_t data = row * static_cast<std::size_t>(pixels.height);
    std::vector<std::uint8_t> bytes(kHeaders + data);
    bytes[0] = 'B';
    bytes[1] = 'M';
    put(bytes, kSizeAt, static_cast<std::uint32_t>(bytes.size()));
    put(bytes, kPixelsAt, kHeaders);
    put(bytes, kInfoSizeAt, kInfoHeader);
    put(bytes, kWidthAt, static_cast<std::uint32_t>(pixels.width));
    put(bytes, kHeightAt, static_cast<std::uint32_t>(pixels.height));
    put(bytes, kPlanesAt, 1, 2);
    put(bytes, kBitsAt, kBytesPerPixel * kBitsPerByte, 2);
    put(bytes, kDataSizeAt, static_cast<std::uint32_t>(data));
    for (int y = 0; y < pixels.height; ++y) {
        std::size_t at = kHeaders + row * static_cast<std::size_t>(pixels.height - 1 - y);
        for (int x = 0; x < pixels.width; ++x) {
            put(bytes, at, pixels.row(y)[x], kBytesPerPixel);
            at += kBytesPerPixel;
        }
    }
    return bytes;
}

std::optional<picture::Pixels> decodeBitmap(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < kHeaders || bytes[0] != 'B' || bytes[1] != 'M' ||
        value(bytes, kInfoSizeAt) < kInfoHeader || value(bytes, kCompressionAt) != 0) {
        return std::nullopt;
    }
    const auto width = static_cast<std::int32_t>(value(bytes, kWidthAt));
    const auto signedHeight = static_cast<std::int32_t>(value(bytes, kHeightAt));
    const unsigned bits = value(bytes, kBitsAt, 2);
    if (width < 1 || width > kLongestSide || signedHeight == 0 ||
        signedHeight == std::numeric_limits<std::int32_t>::min() || std::abs(signedHeight) > kLongestSide ||
        (bits != kBytesPerPixel * kBitsPerByte && bits != kBytesPerWidePixel * kBitsPerByte)) {
        return std::nullopt;
    }
    const int height = std::abs(signedHeight);
    const unsigned pixelBytes = bits / kBitsPerByte;
    const std::size_t row = rowBytes(width, pixelBytes);
    const std::size_t begin = value(bytes, kPixelsAt);
    if (begin < kHeaders || begin > bytes.size() ||
        (bytes.size() - begin) / row < static_cast<std::size_t>(height)) {
        return std::nullopt;
    }
    picture::Pixels pixels(width, height);
    for (int y = 0; y < height; ++y) {
        std::size_t at = begin + row * static_cast<std::size_t>(signedHeight > 0 ? height - 1 - y : y);
        for (int x = 0; x < width; ++x) {
            pixels.row(y)[x] = value(bytes, at, kBytesPerPixel);
            at += pixelBytes;
        }
    }
    return pixels;
}

}  // namespace overview
