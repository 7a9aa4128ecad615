#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "picture/orientation.h"
#include "text/date_time.h"

namespace picture {

struct JpegSegment;

/// A moment by the camera's clock; it is in the calendar.
using ExifDate = text::DateTime;

/// A stretch of bytes that lies wholly within the file.
struct ByteRange {
    std::size_t offset = 0;
    std::size_t length = 0;
    friend bool operator==(const ByteRange&, const ByteRange&) = default;
};

/// What a camera noted beside a picture.
struct ExifInfo {
    Orientation orientation = Orientation::Upright;
    /// The small JPEG that the camera stored with the picture (it starts with FF D8), turned like the
    /// picture.
    std::optional<ByteRange> thumbnail;
    /// When the picture was taken, or else when the file was last changed by the camera.
    std::optional<ExifDate> date;
};

/// Reads the EXIF block in one segment of a JPEG file, in either byte order. None when the segment is another
/// one; whatever in it is damaged, illegal or missing has the defaults.
std::optional<ExifInfo> readExifSegment(std::span<const std::uint8_t> file, const JpegSegment& segment);

/// The first EXIF block of a JPEG file. A file without one gives the defaults; no input fails.
ExifInfo readExif(std::span<const std::uint8_t> file);

}  // namespace picture
