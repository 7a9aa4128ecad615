#include "picture/exif.h"

#include "picture/exif_block.h"
#include "picture/jpeg_header.h"

namespace picture {

namespace {

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

/// "YYYY:MM:DD hh:mm:ss"
std::optional<ExifDate> parseDate(std::span<const std::uint8_t> digits) {
    const auto year = decimal(digits.subspan(0, 4));
    const auto month = decimal(digits.subspan(5, 2));
    const auto day = decimal(digits.subspan(8, 2));
    const auto hour = decimal(digits.subspan(11, 2));
    const auto minute = decimal(digits.subspan(14, 2));
    const auto second = decimal(digits.subspan(17, 2));
    if (!year || !month || !day || !hour || !minute || !second) {
        return std::nullopt;
    }
    const ExifDate date{*year, *month, *day, *hour, *minute, *second};
    return text::isInCalendar(date) ? std::optional(date) : std::nullopt;
}

std::optional<ExifDate> findDate(const ExifBlock& block, std::size_t directory, ExifTag tag) {
    constexpr std::size_t kLength = 19;
    const auto digits = block.findText(directory, tag);
    return digits && digits->size() >= kLength ? parseDate(digits->first(kLength)) : std::nullopt;
}

std::optional<ByteRange> findThumbnail(const ExifBlock& block, std::size_t directory) {
    const auto offset = block.findNumber(directory, ExifTag::ThumbnailOffset);
    const auto length = block.findNumber(directory, ExifTag::ThumbnailLength);
    const std::size_t size = block.bytes().size();
    if (!offset || !length || *length < 4 || *offset > size || size - *offset < *length ||
        block.bytes()[*offset] != 0xFF || block.bytes()[*offset + 1] != 0xD8) {
        return std::nullopt;
    }
    return ByteRange{*offset, *length};
}

ExifInfo readBlock(const ExifBlock& block) {
    ExifInfo info;
    const auto first = block.firstDirectory();
    if (!first) {
        return info;
    }
    if (const auto value = block.findNumber(*first, ExifTag::Orientation)) {
        info.orientation = orientationFromValue(*value).value_or(Orientation::Upright);
    }
    if (const auto camera = block.findNumber(*first, ExifTag::CameraDirectory)) {
        info.date = findDate(block, *camera, ExifTag::DateTimeOriginal);
    }
    if (!info.date) {
        info.date = findDate(block, *first, ExifTag::DateTime);
    }
    if (const auto second = block.following(*first)) {
        info.thumbnail = findThumbnail(block, *second);
    }
    return info;
}

}  // namespace

std::optional<ExifInfo> readExifSegment(std::span<const std::uint8_t> file, const JpegSegment& segment) {
    const auto range = exifBlockIn(file, segment);
    if (!range) {
        return std::nullopt;
    }
    ExifInfo info = readBlock(ExifBlock(file.subspan(range->offset, range->length)));
    if (info.thumbnail) {
        info.thumbnail->offset += range->offset;
    }
    return info;
}

ExifInfo readExif(std::span<const std::uint8_t> file) {
    return readJpegHead(file).exif;
}

}  // namespace picture
