#include "picture/jpeg_header.h"

#include <algorithm>

#include "picture/embedded_profile.h"

namespace picture {

namespace {

constexpr std::uint8_t kStartOfScan = 0xDA;
constexpr std::uint8_t kEndOfImage = 0xD9;

/// Markers that stand alone, without a length: TEM, the restarts and the start of the image.
bool standsAlone(std::uint8_t marker) {
    return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}

/// Start-of-frame markers; C4, C8 and CC lie in their range but mean something else.
bool startsFrame(std::uint8_t marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

int bigEndian16(std::span<const std::uint8_t> bytes, std::size_t offset) {
    return bytes[offset] << 8 | bytes[offset + 1];
}

std::optional<JpegHeader> readFrame(std::span<const std::uint8_t> file, const JpegSegment& segment) {
    JpegHeader header;
    header.height = bigEndian16(file, segment.offset + 1);
    header.width = bigEndian16(file, segment.offset + 3);
    return header.width > 0 && header.height > 0 ? std::optional(header) : std::nullopt;
}

/// How much of what follows the start of the scan is picture data.
std::size_t dataLength(std::span<const std::uint8_t> rest) {
    const bool ended = rest.size() >= 2 && rest[0] == 0xFF && rest[1] == kEndOfImage;
    return ended ? 0 : rest.size();
}

}  // namespace

JpegSegments::JpegSegments(std::span<const std::uint8_t> file) : file_(file) {
    done_ = file.size() < 2 || file[0] != 0xFF || file[1] != 0xD8;
    position_ = 2;
}

std::optional<JpegSegment> JpegSegments::next() {
    while (!done_) {
        // Like every decoder, skip what stands before the next marker, and fill bytes in front of it.
        while (position_ < file_.size() && file_[position_] != 0xFF) {
            ++position_;
        }
        while (position_ < file_.size() && file_[position_] == 0xFF) {
            ++position_;
        }
        if (position_ >= file_.size() || file_[position_] == kEndOfImage) {
            break;
        }
        const std::uint8_t marker = file_[position_++];
        if (marker == 0 || standsAlone(marker)) {
            continue;
        }
        if (file_.size() - position_ < 2) {
            break;
        }
        const int length = bigEndian16(file_, position_);
        if (length < 2) {
            break;
        }
        const std::size_t offset = position_ + 2;
        const std::size_t payload = std::min(static_cast<std::size_t>(length) - 2, file_.size() - offset);
        position_ = offset + payload;
        done_ = marker == kStartOfScan;
        return JpegSegment{marker, offset, payload};
    }
    done_ = true;
    return std::nullopt;
}

JpegHead readJpegHead(std::span<const std::uint8_t> file) {
    JpegHead head;
    bool framed = false;
    bool noted = false;
    JpegSegments segments(file);
    while (const auto segment = segments.next()) {
        if (segment->marker == kStartOfScan) {
            if (head.header) {
                head.header->dataLength = dataLength(file.subspan(segment->offset + segment->length));
            }
        } else if (startsFrame(segment->marker) && segment->length >= 6 && !framed) {
            framed = true;
            head.header = readFrame(file, *segment);
        } else if (isProfilePart(file, *segment)) {
            // One more than there may be tells enough of a file that has millions of them.
            if (head.profileParts.size() <= kMostProfileParts) {
                head.profileParts.push_back(*segment);
            }
        } else if (!noted) {
            const auto exif = readExifSegment(file, *segment);
            noted = exif.has_value();
            head.exif = exif.value_or(ExifInfo{});
        }
    }
    return head;
}

std::optional<JpegHeader> readJpegHeader(std::span<const std::uint8_t> file) {
    return readJpegHead(file).header;
}

}  // namespace picture
