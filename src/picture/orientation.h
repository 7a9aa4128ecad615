#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "picture/pixels.h"

namespace picture {

/// How a camera stored a picture; the values are those of the EXIF tag. The name tells what has to be done
/// with the stored picture to see it upright (turns are clockwise).
enum class Orientation {
    Upright = 1,
    MirrorHorizontally = 2,
    Turn180 = 3,
    MirrorVertically = 4,
    Transpose = 5,
    Turn90 = 6,
    Transverse = 7,
    Turn270 = 8,
};

/// The orientation with that EXIF value, or none for a value outside 1 to 8.
std::optional<Orientation> orientationFromValue(unsigned value);

/// Whether width and height of the upright picture are those of the stored one exchanged.
bool exchangesSides(Orientation orientation);

/// A rectangle of pixels; left and top may be negative where a picture overhangs its surface.
struct Placement {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const Placement&, const Placement&) = default;
};

/// The part of `placement` that lies on `surface`; empty (width and height 0) when none does.
Placement visiblePart(const Placement& placement, const Canvas& surface);

/// Pixels addressed by two steps, so that a picture can be written turned or mirrored at no extra cost:
/// pixel (x, y) is origin[x * xStep + y * yStep].
struct PixelView {
    std::uint32_t* origin = nullptr;
    std::ptrdiff_t xStep = 1;
    std::ptrdiff_t yStep = 0;

    std::uint32_t* at(int x, int y) const { return origin + x * xStep + y * yStep; }
};

/// The part of a placed picture that a surface shows, as the scaler needs it.
struct StoredPart {
    /// Size of the whole scaled picture, before it is made upright.
    int width = 0;
    int height = 0;
    /// The part of it that lies on the surface; empty (width 0) when none does.
    Placement visible;
    /// Writes stored pixel (visible.left, visible.top) at (0, 0) to where it belongs on the surface.
    PixelView view;
};

/// `placement` is where the upright picture lies on `surface`.
StoredPart storedPart(Orientation orientation, const Placement& placement, const Canvas& surface);

}  // namespace picture
