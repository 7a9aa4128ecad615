#pragma once

namespace show {

/// A rectangle on a surface, in pixels; left and top may be negative where a picture overhangs it.
struct PixelRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// Width : height of the screen that the show was designed for.
inline constexpr double kDesignShape = 4.0 / 3.0;

/// Where a picture lies on a surface: the one rule for the show, the preview, the thumbnails and the
/// enlarged view.
///
/// With k = pictureHeight / pictureWidth * shape:
///   k < 0.9  full width, height in proportion, centred vertically (top is negative when it overhangs);
///   k > 1.1  full height, width in proportion, centred horizontally;
///   else     stretched over the whole surface.
///
/// All sizes are in pixels and positive; a size that is not gives an empty rectangle.
/// `shape` is the width : height of the frame a picture is compared with: kDesignShape, or the
/// surface's own shape to keep every picture within 10 % of its proportion.
PixelRect fitPicture(int pictureWidth, int pictureHeight, int surfaceWidth, int surfaceHeight,
                     double shape = kDesignShape);

}  // namespace show
