#pragma once

#include <cstddef>
#include <cstdint>

#include "picture/orientation.h"

namespace picture {

/// Bytes of one pixel as the scaler reads it: blue, green, red.
inline constexpr int kBytesPerPixel = 3;

/// Hands out the rows of a picture of 24 bits a pixel. The scaler asks from top to bottom and for no row
/// twice, so a source need not hold the whole picture.
class RowSource {
  public:
    virtual ~RowSource() = default;
    /// Writes `rows` rows of `width` pixels, beginning at pixel (x, y), to `target`, one every `stride`
    /// bytes.
    virtual void read(int x, int y, int width, int rows, std::uint8_t* target, std::size_t stride) = 0;
};

/// Which part of a picture is brought to which size, and which part of that is wanted.
struct ScaleJob {
    /// The part of the source that is scaled, in source pixels; not empty.
    Placement source;
    /// The size it is brought to, in pixels, at least 1 x 1.
    int width = 0;
    int height = 0;
    /// The part of that size that is computed; it lies within it. Nothing is read for the rest.
    Placement visible;
};

/// Scales a picture and writes it as 0x00RRGGBB, pixel (visible.left, visible.top) to target (0, 0).
///
/// Scaling down, a target pixel is the mean of the source area under it, pixels at the area's edges counting
/// by the share that lies inside; exact to one level. That keeps fine patterns from turning into moire,
/// whatever the ratio. Scaling up, where a mean would show blocks of uneven width, pixels are interpolated
/// linearly between the centres of the source's; the outermost half pixel repeats the edge. Width and
/// height are scaled independently. An exception of the source passes through.
void scalePicture(const ScaleJob& job, RowSource& source, const PixelView& target);

}  // namespace picture
