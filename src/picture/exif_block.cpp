#include "picture/exif_block.h"

#include <algorithm>
#include <string_view>

#include "picture/jpeg_header.h"

namespace picture {

namespace {

constexpr std::uint8_t kApp1 = 0xE1;
constexpr std::string_view kSignature("Exif\0\0", 6);

enum Type : std::uint32_t { kAscii = 2, kShort = 3, kLong = 4, kFraction = 5 };

}  // namespace

ExifBlock::ExifBlock(std::span<const std::uint8_t> bytes) : bytes_(bytes) {
    const auto mark = number(0, 2);
    bigEndian_ = mark == 0x4D4D;
    valid_ = (bigEndian_ || mark == 0x4949) && number(2, 2) == 42;
}

std::optional<std::uint32_t> ExifBlock::number(std::size_t offset, std::size_t length) const {
    if (offset > bytes_.size() || bytes_.size() - offset < length) {
        return std::nullopt;
    }
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < length; ++i) {
        value = value << 8 | bytes_[offset + (bigEndian_ ? i : length - 1 - i)];
    }
    return value;
}

std::optional<std::size_t> ExifBlock::firstDirectory() const {
    const auto first = valid_ ? number(4, 4) : std::nullopt;
    return first ? std::optional<std::size_t>(*first) : std::nullopt;
}

std::optional<std::size_t> ExifBlock::following(std::size_t directory) const {
    const auto count = number(directory, 2);
    const auto next = count ? number(directory + 2 + std::size_t{*count} * 12, 4) : std::nullopt;
    if (!next || *next == 0) {
        return std::nullopt;
    }
    return *next;
}

std::optional<ExifBlock::Entry> ExifBlock::find(std::size_t directory, ExifTag tag) const {
    const auto count = number(directory, 2);
    for (std::size_t i = 0; count && i < *count; ++i) {
        const std::size_t at = directory + 2 + i * 12;
        const auto found = number(at, 2);
        const auto type = number(at + 2, 2);
        const auto values = number(at + 4, 4);
        if (!found || !type || !values || !number(at + 8, 4)) {
            return std::nullopt;
        }
        if (*found == static_cast<std::uint32_t>(tag)) {
            return Entry{*type, *values, at + 8};
        }
    }
    return std::nullopt;
}

std::optional<std::uint32_t> ExifBlock::findNumber(std::size_t directory, ExifTag tag) const {
    const auto entry = find(directory, tag);
    if (!entry || entry->count != 1) {
        return std::nullopt;
    }
    switch (entry->type) {
        case kShort:
            return number(entry->value, 2);
        case kLong:
            return number(entry->value, 4);
        default:
            return std::nullopt;
    }
}

std::optional<std::span<const std::uint8_t>> ExifBlock::findText(std::size_t directory, ExifTag tag) const {
    constexpr std::size_t kInPlace = 4;  // bytes of a value that stands in the entry itself
    const auto entry = find(directory, tag);
    if (!entry || entry->type != kAscii) {
        return std::nullopt;
    }
    std::size_t offset = entry->value;
    if (entry->count > kInPlace) {
        const auto elsewhere = number(entry->value, 4);
        if (!elsewhere || *elsewhere > bytes_.size()) {
            return std::nullopt;
        }
        offset = *elsewhere;
    }
    return bytes_.subspan(offset, std::min<std::size_t>(entry->count, bytes_.size() - offset));
}

std::optional<double> ExifBlock::findFraction(std::size_t directory, ExifTag tag) const {
    const auto entry = find(directory, tag);
    if (!entry || entry->type != kFraction || entry->count != 1) {
        return std::nullopt;
    }
    const auto offset = number(entry->value, 4);
    const auto above = offset ? number(*offset, 4) : std::nullopt;
    const auto below = offset ? number(std::size_t{*offset} + 4, 4) : std::nullopt;
    if (!above || !below || *above == 0 || *below == 0) {
        return std::nullopt;
    }
    return static_cast<double>(*above) / static_cast<double>(*below);
}

std::optional<ByteRange> exifBlockIn(std::span<const std::uint8_t> file, const JpegSegment& segment) {
    const auto payload = file.subspan(segment.offset, segment.length);
    if (segment.marker != kApp1 || payload.size() < kSignature.size() ||
        !std::equal(kSignature.begin(), kSignature.end(), payload.begin(),
                    [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; })) {
        return std::nullopt;
    }
    return ByteRange{segment.offset + kSignature.size(), segment.length - kSignature.size()};
}

}  // namespace picture
