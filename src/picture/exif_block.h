#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "picture/exif.h"

namespace picture {

/// What an entry of an EXIF directory tells.
enum class ExifTag : std::uint32_t {
    Make = 0x010F,
    Model = 0x0110,
    Orientation = 0x0112,
    DateTime = 0x0132,
    ThumbnailOffset = 0x0201,
    ThumbnailLength = 0x0202,
    ExposureTime = 0x829A,
    FNumber = 0x829D,
    CameraDirectory = 0x8769,
    Sensitivity = 0x8827,
    DateTimeOriginal = 0x9003,
    FocalLength = 0x920A,
};

/// The EXIF block behind its signature: a byte order, directories of entries and the values they point to.
/// Every offset counts from its first byte, and every read outside gives none.
class ExifBlock {
  public:
    /// The bytes must outlive the object.
    explicit ExifBlock(std::span<const std::uint8_t> bytes);

    /// Whether it begins as such a block does.
    bool valid() const { return valid_; }
    std::span<const std::uint8_t> bytes() const { return bytes_; }

    /// The whole number of `length` bytes (up to 4) at `offset`.
    std::optional<std::uint32_t> number(std::size_t offset, std::size_t length) const;
    /// Where the first directory begins; none in a block that is not valid.
    std::optional<std::size_t> firstDirectory() const;
    /// Where the directory after `directory` begins; none when it is the last.
    std::optional<std::size_t> following(std::size_t directory) const;

    /// An entry's single whole number.
    std::optional<std::uint32_t> findNumber(std::size_t directory, ExifTag tag) const;
    /// The bytes of an entry's text, cut off where the block ends.
    std::optional<std::span<const std::uint8_t>> findText(std::size_t directory, ExifTag tag) const;
    /// The value of an entry's single fraction, above 0.
    std::optional<double> findFraction(std::size_t directory, ExifTag tag) const;

  private:
    /// One 12-byte entry of a directory; `value` is where its value or the offset of its value stands.
    struct Entry {
        std::uint32_t type = 0;
        std::uint32_t count = 0;
        std::size_t value = 0;
    };
    std::optional<Entry> find(std::size_t directory, ExifTag tag) const;

    std::span<const std::uint8_t> bytes_;
    bool bigEndian_ = true;
    bool valid_ = false;
};

/// Where the EXIF block lies in one segment of a JPEG file, its signature left out; none in other segments.
std::optional<ByteRange> exifBlockIn(std::span<const std::uint8_t> file, const JpegSegment& segment);

}  // namespace picture
