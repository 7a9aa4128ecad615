#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "picture/decode_budget.h"
#include "picture/exif.h"
#include "picture/orientation.h"
#include "picture/pixels.h"

namespace picture {

// Turns picture files into pixels. Every function may be called on any thread; JPEG files are
// decoded here, all others by Windows; a thread that decodes more than one of those should keep a
// ComApartment of its own. A file is held open only while it is read. The picture is shown upright as the
// camera noted it. A damaged or truncated file gives the part that could be decoded; the functions throw
// Error when there is none, when the file cannot be read, and when it is no picture. A call waits when other
// threads already decode as much as decodeBudget() allows.

/// Where a picture of that upright size (both at least 1) lies on a surface. Called on the thread that
/// decodes.
using PlacementRule = std::function<Placement(int pictureWidth, int pictureHeight)>;

/// The colours that a picture is shown in: the bytes of the monitor's ICC profile, empty for sRGB. Null
/// leaves the picture's own as they are.
using ColourTarget = std::shared_ptr<const std::vector<std::uint8_t>>;

/// Whether two targets give a picture the same colours.
bool sameTarget(const ColourTarget& one, const ColourTarget& other);

/// A picture that was laid onto a surface.
struct LaidPicture {
    /// The picture's own size in pixels, upright.
    int nativeWidth = 0;
    int nativeHeight = 0;
    /// Where it lies on the surface, as the rule gave it.
    Placement placement;
};

struct DecodedPicture : LaidPicture {
    /// The surface: the picture scaled to its place, black beside it.
    Pixels pixels;
};

/// Decodes the picture, scales it to the place that `rule` gives and lays it onto `surface`, which is not
/// empty and keeps what lies beside the picture. What overhangs the surface costs nothing. When a call fails,
/// the surface may hold a part of the picture.
LaidPicture decodeOnto(const Canvas& surface, const std::wstring& path, const PlacementRule& rule,
                       const ColourTarget& colours = nullptr);

/// The same onto a black surface of that size (both at least 1). What overhangs the surface costs nothing.
DecodedPicture decodeOntoSurface(const std::wstring& path, int surfaceWidth, int surfaceHeight,
                                 const PlacementRule& rule, const ColourTarget& colours = nullptr);

/// Decodes the picture at the largest size within `maxWidth` x `maxHeight` (both at least 1) that keeps its
/// shape; it is never enlarged. The surface is exactly the picture.
DecodedPicture decodeScaledToFit(const std::wstring& path, int maxWidth, int maxHeight,
                                 const ColourTarget& colours = nullptr);

/// Like decodeOntoSurface, from the thumbnail that the camera stored in the file: many times faster. None
/// when there is no readable thumbnail, when it has another shape than the picture, or when it is smaller
/// than its place. nativeWidth and nativeHeight are the picture's.
std::optional<DecodedPicture> decodeEmbeddedThumbnail(const std::wstring& path, int surfaceWidth,
                                                      int surfaceHeight, const PlacementRule& rule,
                                                      const ColourTarget& colours = nullptr);

/// The budget that all decodes of the process share: 250 MB and as many decodes as the machine has cores.
DecodeBudget& decodeBudget();

}  // namespace picture
