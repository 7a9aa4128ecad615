#include "picture/picture_size.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "picture/jpeg_header.h"

namespace picture {

namespace {

bool startsWith(std::span<const std::uint8_t> file, std::string_view signature) {
    return file.size() >= signature.size() &&
           std::equal(signature.begin(), signature.end(), file.begin(),
                      [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
}

std::int64_t littleEndian(std::span<const std::uint8_t> file, std::size_t offset, std::size_t bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = bytes; i-- > 0;) {
        value = value << 8 | file[offset + i];
    }
    return bytes == 4 ? static_cast<std::int32_t>(value) : static_cast<std::int64_t>(value);
}

std::int64_t bigEndian32(std::span<const std::uint8_t> file, std::size_t offset) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        value = value << 8 | file[offset + i];
    }
    return value;
}

std::optional<PictureSize> checked(std::int64_t width, std::int64_t height) {
    constexpr std::int64_t kMost = 1 << 24;
    if (width < 1 || height < 1 || width > kMost || height > kMost) {
        return std::nullopt;
    }
    return PictureSize{static_cast<int>(width), static_cast<int>(height)};
}

}  // namespace

std::optional<PictureSize> readPictureSize(std::span<const std::uint8_t> file) {
    if (const auto jpeg = readJpegHeader(file)) {
        return PictureSize{jpeg->width, jpeg->height};
    }
    if (startsWith(file, "\x89PNG\r\n\x1A\n") && file.size() >= 24) {
        return checked(bigEndian32(file, 16), bigEndian32(file, 20));
    }
    if (startsWith(file, "BM") && file.size() >= 26) {
        // A negative height means rows from top to bottom.
        const std::int64_t height = littleEndian(file, 22, 4);
        return checked(littleEndian(file, 18, 4), height < 0 ? -height : height);
    }
    if (startsWith(file, "GIF8") && file.size() >= 10) {
        return checked(littleEndian(file, 6, 2), littleEndian(file, 8, 2));
    }
    return std::nullopt;
}

}  // namespace picture
