#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <vector>

#include "picture/area_average.h"
#include "picture/jpeg_library.h"

namespace picture {

/// A JPEG that cannot be decoded.
class JpegError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A JPEG picture as rows of blue, green and red, decoded while they are read: baseline or progressive, grey,
/// colour or inks. Rows for which a damaged or truncated file has no data are black.
class JpegPicture : public RowSource {
  public:
    /// Reads the header. `file` must outlive the object. Throws JpegError when it is no JPEG, of a kind that
    /// is not decoded here (12 bits, lossless), without picture data, or larger than kMostPixels.
    explicit JpegPicture(std::span<const std::uint8_t> file);

    int width() const { return library_.width(); }
    int height() const { return library_.height(); }

    /// Makes ready for scaling to `width` x `height` pixels (at least 1 x 1): the picture is decoded at a
    /// reduced size where the scaler, given that, comes to the same. width() and height() then tell that
    /// size. To be called before the first read().
    void reduceFor(int width, int height);

    /// Bytes that decoding takes besides the file: a band of rows, and all coefficients of a picture in
    /// several scans.
    std::uint64_t memory() const { return library_.memory(); }

    /// Throws JpegError when not even the first row can be decoded.
    void read(int x, int y, int width, int rows, std::uint8_t* target, std::size_t stride) override;

  private:
    void skipTo(int row);
    int readRows(int x, int width, int rows, std::uint8_t* target, std::size_t stride);
    int decodeRows(std::uint8_t** lines, int count);
    void copyPart(int x, int width, std::uint8_t* target) const;

    JpegLibrary library_;
    std::vector<std::uint8_t> line_;  ///< a row of which only a part is wanted, or in other colours
    int nextRow_ = 0;
    bool started_ = false;
    bool ended_ = false;  ///< all further rows are black
};

}  // namespace picture
