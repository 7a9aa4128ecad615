#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "picture/exif.h"

namespace picture {

/// One marker segment of a JPEG file.
struct JpegSegment {
    std::uint8_t marker = 0;  ///< the byte after FF
    std::size_t offset = 0;   ///< of the payload, from the start of the file
    std::size_t length = 0;   ///< of the payload, cut off where the file ends
};

/// Walks through the marker segments between the start of a JPEG file and its first picture data.
class JpegSegments {
  public:
    explicit JpegSegments(std::span<const std::uint8_t> file);

    /// The next segment; none at the end, in a damaged place, after the start-of-scan segment, and in a
    /// file that is no JPEG.
    std::optional<JpegSegment> next();

  private:
    std::span<const std::uint8_t> file_;
    std::size_t position_ = 0;
    bool done_ = false;
};

/// What can be told about a JPEG picture without decoding it.
struct JpegHeader {
    int width = 0;   ///< pixels as stored, 1 to 65535
    int height = 0;  ///< likewise
    /// Bytes from the first picture data to the end of the file; 0 when there is no picture data.
    std::size_t dataLength = 0;
};

/// What stands in a JPEG file before its picture data, read in one pass.
struct JpegHead {
    std::optional<JpegHeader>
        header;     ///< none when the file is no JPEG or ends before the picture's size is told
    ExifInfo exif;  ///< of the first EXIF block
    /// The parts of its colour profile, in the order of the file; see readEmbeddedProfile.
    std::vector<JpegSegment> profileParts;
};
JpegHead readJpegHead(std::span<const std::uint8_t> file);

/// The header alone.
std::optional<JpegHeader> readJpegHeader(std::span<const std::uint8_t> file);

}  // namespace picture
