#include "picture/exif.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "picture/jpeg_header.h"

namespace picture {

namespace {

constexpr std::uint8_t kApp1 = 0xE1;
constexpr std::string_view kSignature("Exif\0\0", 6);

enum Tag : std::uint32_t {
    kOrientation = 0x0112,
    kDateTime = 0x0132,
    kThumbnailOffset = 0x0201,
    kThumbnailLength = 0x0202,
    kCameraDirectory = 0x8769,
    kDateTimeOriginal = 0x9003,
};

enum Type : std::uint32_t { kAscii = 2, kShort = 3, kLong = 4 };

/// One 12-byte entry of a directory; `value` is where its value or the offset of its value stands.
struct Entry {
    std::uint32_t tag = 0;
    std::uint32_t type = 0;
    std::uint32_t count = 0;
    std::size_t value = 0;
};

/// The block after the signature: a byte order, directories of entries and the values they point to. Every
/// offset counts from its first byte, and every read outside gives none.
class Block {
  public:
    explicit Block(std::span<const std::uint8_t> bytes) : bytes_(bytes) {
        const auto mark = number(0, 2);
        bigEndian_ = mark == 0x4D4D;
        valid_ = (bigEndian_ || mark == 0x4949) && number(2, 2) == 42;
    }

    bool valid() const { return valid_; }
    std::span<const std::uint8_t> bytes() const { return bytes_; }

    std::optional<std::uint32_t> number(std::size_t offset, std::size_t length) const {
        if (offset > bytes_.size() || bytes_.size() - offset < length) {
            return std::nullopt;
        }
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < length; ++i) {
            value = value << 8 | bytes_[offset + (bigEndian_ ? i : length - 1 - i)];
        }
        return value;
    }

    /// The directory's entry with that tag.
    std::optional<Entry> find(std::size_t directory, Tag tag) const {
        const auto count = number(directory, 2);
        for (std::size_t i = 0; count && i < *count; ++i) {
            const std::size_t at = directory + 2 + i * 12;
            const auto found = number(at, 2);
            const auto type = number(at + 2, 2);
            const auto values = number(at + 4, 4);
            if (!found || !type || !values || !number(at + 8, 4)) {
                return std::nullopt;
            }
            if (*found == tag) {
                return Entry{*found, *type, *values, at + 8};
            }
        }
        return std::nullopt;
    }

    /// An entry's single whole number.
    std::optional<std::uint32_t> findNumber(std::size_t directory, Tag tag) const {
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

    /// Where the directory after `directory` begins; none when it is the last.
    std::optional<std::size_t> following(std::size_t directory) const {
        const auto count = number(directory, 2);
        const auto next = count ? number(directory + 2 + std::size_t{*count} * 12, 4) : std::nullopt;
        if (!next || *next == 0) {
            return std::nullopt;
        }
        return *next;
    }

  private:
    std::span<const std::uint8_t> bytes_;
    bool bigEndian_ = true;
    bool valid_ = false;
};

/// The decimal number in `digits`; none when another character is among them.
std::optional<int> decimal(std::span<const std::uint8_t> digits) {
    int value = 0;
    for (const std::uint8_t digit : digits) {
        if (digit < '0' || digit > '9') {
            return std::nullopt;
        }
        value = value * 10 + (digit - '0');
    }
    return value;
}

int daysOf(int month, int year) {
    constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

/// "YYYY:MM:DD hh:mm:ss"
std::optional<ExifDate> parseDate(std::span<const std::uint8_t> text) {
    const auto year = decimal(text.subspan(0, 4));
    const auto month = decimal(text.subspan(5, 2));
    const auto day = decimal(text.subspan(8, 2));
    const auto hour = decimal(text.subspan(11, 2));
    const auto minute = decimal(text.subspan(14, 2));
    const auto second = decimal(text.subspan(17, 2));
    if (!year || !month || !day || !hour || !minute || !second) {
        return std::nullopt;
    }
    if (*year < 1 || *month < 1 || *month > 12 || *day < 1 || *day > daysOf(*month, *year) || *hour > 23 ||
        *minute > 59 || *second > 59) {
        return std::nullopt;
    }
    return ExifDate{*year, *month, *day, *hour, *minute, *second};
}

std::optional<ExifDate> findDate(const Block& block, std::size_t directory, Tag tag) {
    constexpr std::size_t kLength = 19;
    const auto entry = block.find(directory, tag);
    if (!entry || entry->type != kAscii || entry->count < kLength) {
        return std::nullopt;
    }
    const auto offset = block.number(entry->value, 4);
    if (!offset || *offset > block.bytes().size() || block.bytes().size() - *offset < kLength) {
        return std::nullopt;
    }
    return parseDate(block.bytes().subspan(*offset, kLength));
}

std::optional<ByteRange> findThumbnail(const Block& block, std::size_t directory) {
    const auto offset = block.findNumber(directory, kThumbnailOffset);
    const auto length = block.findNumber(directory, kThumbnailLength);
    const std::size_t size = block.bytes().size();
    if (!offset || !length || *length < 4 || *offset > size || size - *offset < *length ||
        block.bytes()[*offset] != 0xFF || block.bytes()[*offset + 1] != 0xD8) {
        return std::nullopt;
    }
    return ByteRange{*offset, *length};
}

ExifInfo readBlock(const Block& block) {
    ExifInfo info;
    const auto first = block.number(4, 4);
    if (!block.valid() || !first) {
        return info;
    }
    if (const auto value = block.findNumber(*first, kOrientation)) {
        info.orientation = orientationFromValue(*value).value_or(Orientation::Upright);
    }
    if (const auto camera = block.findNumber(*first, kCameraDirectory)) {
        info.date = findDate(block, *camera, kDateTimeOriginal);
    }
    if (!info.date) {
        info.date = findDate(block, *first, kDateTime);
    }
    if (const auto second = block.following(*first)) {
        info.thumbnail = findThumbnail(block, *second);
    }
    return info;
}

}  // namespace

std::optional<ExifInfo> readExifSegment(std::span<const std::uint8_t> file, const JpegSegment& segment) {
    const auto payload = file.subspan(segment.offset, segment.length);
    if (segment.marker != kApp1 || payload.size() < kSignature.size() ||
        !std::equal(kSignature.begin(), kSignature.end(), payload.begin(),
                    [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; })) {
        return std::nullopt;
    }
    ExifInfo info = readBlock(Block(payload.subspan(kSignature.size())));
    if (info.thumbnail) {
        info.thumbnail->offset += segment.offset + kSignature.size();
    }
    return info;
}

ExifInfo readExif(std::span<const std::uint8_t> file) {
    return readJpegHead(file).exif;
}

}  // namespace picture
