#include "picture/picture_decoder.h"

#include <windows.h>

#include <wincodec.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <span>
#include <thread>
#include <utility>

#include "picture/area_average.h"
#include "picture/colour_match.h"
#include "picture/embedded_profile.h"
#include "picture/jpeg_header.h"
#include "picture/jpeg_picture.h"
#include "picture/picture_size.h"
#include "picture/wic_picture.h"
#include "platform/com.h"
#include "platform/error.h"
#include "platform/file_bytes.h"

namespace picture {

namespace {

constexpr std::uint64_t kBudgetBytes = 250'000'000;
/// How many times the target size a picture is that Windows has reduced: the last halving is always the
/// scaler's, since Windows leaves a fine pattern other traces than the mean would.
constexpr int kReducedAtLeast = 2;
/// The surface for a picture and the picture's place on it.
struct Layout {
    Canvas surface;
    Placement placement;
};
/// Makes the surface where there is none yet.
using LayoutRule = std::function<Layout(int pictureWidth, int pictureHeight)>;

struct Decoded : LaidPicture {
    Canvas surface;
};

[[noreturn]] void failAs(HRESULT code) {
    throw platform::Error("decoding a picture", static_cast<unsigned long>(code));
}

/// What the beginning of a file tells.
struct Head {
    bool isJpeg = false;
    std::optional<PictureSize> size;
    bool empty = false;  ///< a JPEG without picture data
    ExifInfo exif;
    std::vector<JpegSegment> profileParts;
};

Head readHead(std::span<const std::uint8_t> bytes) {
    Head head;
    head.isJpeg = bytes.size() >= 3 && bytes[0] == 0xFF && bytes[1] == 0xD8 && bytes[2] == 0xFF;
    if (!head.isJpeg) {
        head.size = readPictureSize(bytes);
        return head;
    }
    JpegHead jpeg = readJpegHead(bytes);
    if (jpeg.header) {
        head.size = PictureSize{jpeg.header->width, jpeg.header->height};
        head.empty = jpeg.header->dataLength == 0;
    }
    head.exif = jpeg.exif;
    head.profileParts = std::move(jpeg.profileParts);
    return head;
}

/// Refuses what a decoder would make a grey or an enormous picture of.
void check(const Head& head) {
    if (head.size && decodeBytes(head.size->width, head.size->height) / kBytesPerPixel > kMostPixels) {
        failAs(WINCODEC_ERR_IMAGESIZEOUTOFRANGE);
    }
    if (head.empty) {
        failAs(WINCODEC_ERR_BADIMAGE);
    }
}

/// Scales an opened picture to its place. `prepare` is told the size it is scaled to, before the first row is
/// read; the picture may then have another size.
template <typename Picture, typename Prepare>
Decoded layOut(Picture& picture, Orientation orientation, const LayoutRule& rule, const Prepare& prepare) {
    Decoded decoded;
    decoded.nativeWidth = exchangesSides(orientation) ? picture.height() : picture.width();
    decoded.nativeHeight = exchangesSides(orientation) ? picture.width() : picture.height();

    const Layout layout = rule(decoded.nativeWidth, decoded.nativeHeight);
    decoded.placement = layout.placement;
    decoded.surface = layout.surface;
    const StoredPart part = storedPart(orientation, layout.placement, layout.surface);
    if (part.visible.width > 0 && part.visible.height > 0) {
        prepare(part.width, part.height);
        scalePicture({{0, 0, picture.width(), picture.height()}, part.width, part.height, part.visible},
                     picture, part.view);
    }
    return decoded;
}

/// The JPEG in `bytes`; none when it is of a kind that only Windows may know.
std::unique_ptr<JpegPicture> openJpeg(std::span<const std::uint8_t> bytes) {
    try {
        return std::make_unique<JpegPicture>(bytes);
    } catch (const JpegError&) {
        return nullptr;
    }
}

Decoded decodeJpeg(JpegPicture& picture, Orientation orientation, const LayoutRule& rule) {
    std::optional<DecodeBudget::Share> share;
    try {
        return layOut(picture, orientation, rule, [&](int width, int height) {
            picture.reduceFor(width, height);
            share = decodeBudget().take(picture.memory());
        });
    } catch (const JpegError&) {
        failAs(WINCODEC_ERR_BADIMAGE);
    }
}

Decoded decodeWithWindows(std::vector<std::uint8_t>& bytes, const Head& head, const LayoutRule& rule) {
    const DecodeBudget::Share share =
        decodeBudget().take(head.size ? decodeBytes(head.size->width, head.size->height)
                                      : std::numeric_limits<std::uint64_t>::max());
    if (head.isJpeg) {
        // One that ends too early is decoded as far as it goes once it has an end.
        bytes.insert(bytes.end(), {0xFF, 0xD9});
    }
    const platform::ComApartment apartment;
    WicPicture picture(bytes);
    return layOut(picture, head.exif.orientation, rule, [&](int width, int height) {
        picture.reduce(kReducedAtLeast * width, kReducedAtLeast * height);
    });
}

/// Decodes a file's bytes, which are then of no more use.
Decoded decodeWhole(std::vector<std::uint8_t>& bytes, const Head& head, const LayoutRule& rule) {
    check(head);
    if (head.isJpeg) {
        if (const std::unique_ptr<JpegPicture> jpeg = openJpeg(bytes)) {
            return decodeJpeg(*jpeg, head.exif.orientation, rule);
        }
    }
    return decodeWithWindows(bytes, head, rule);
}

/// The profile that a file's colours are meant in; empty where it has none.
std::vector<std::uint8_t> profileOf(std::span<const std::uint8_t> bytes, const Head& head) {
    return readEmbeddedProfile(bytes, head.profileParts).value_or(std::vector<std::uint8_t>());
}

LaidPicture decodeFile(const std::wstring& path, const LayoutRule& rule, const ColourTarget& colours) {
    constexpr std::size_t kMostBytes = std::size_t{1} << 30;
    std::vector<std::uint8_t> bytes = platform::readFileBytes(path, kMostBytes, 2);
    const Head head = readHead(bytes);
    const auto profile = colours ? profileOf(bytes, head) : std::vector<std::uint8_t>();
    const Decoded decoded = decodeWhole(bytes, head, rule);
    if (colours) {
        // The target is smaller than most pictures.
        colourMatch().convert(decoded.surface, decoded.placement, profile, *colours);
    }
    return decoded;
}

/// Whether two sizes have the same shape, as near as rounding the smaller one allows.
bool sameShape(PictureSize picture, PictureSize thumbnail) {
    const double expected = static_cast<double>(thumbnail.width) * picture.height / picture.width;
    return std::abs(expected - thumbnail.height) <= 1.0;
}

}  // namespace

bool sameTarget(const ColourTarget& one, const ColourTarget& other) {
    return one == other || (one && other && *one == *other);
}

LaidPicture decodeOnto(const Canvas& surface, const std::wstring& path, const PlacementRule& rule,
                       const ColourTarget& colours) {
    return decodeFile(
        path,
        [&](int width, int height) {
            return Layout{surface, rule(width, height)};
        },
        colours);
}

DecodedPicture decodeOntoSurface(const std::wstring& path, int surfaceWidth, int surfaceHeight,
                                 const PlacementRule& rule, const ColourTarget& colours) {
    Pixels pixels;
    const LayoutRule onNew = [&](int width, int height) {
        pixels = Pixels(surfaceWidth, surfaceHeight);
        return Layout{pixels, rule(width, height)};
    };
    const LaidPicture laid = decodeFile(path, onNew, colours);
    return {laid, std::move(pixels)};
}

DecodedPicture decodeScaledToFit(const std::wstring& path, int maxWidth, int maxHeight,
                                 const ColourTarget& colours) {
    Pixels pixels;
    const LayoutRule fitting = [&](int width, int height) {
        const double scale =
            std::min({1.0, static_cast<double>(maxWidth) / width, static_cast<double>(maxHeight) / height});
        const int fitWidth = std::clamp(static_cast<int>(std::lround(width * scale)), 1, maxWidth);
        const int fitHeight = std::clamp(static_cast<int>(std::lround(height * scale)), 1, maxHeight);
        pixels = Pixels(fitWidth, fitHeight);
        return Layout{pixels, {0, 0, fitWidth, fitHeight}};
    };
    const LaidPicture laid = decodeFile(path, fitting, colours);
    return {laid, std::move(pixels)};
}

std::optional<DecodedPicture> decodeEmbeddedThumbnail(const std::wstring& path, int surfaceWidth,
                                                      int surfaceHeight, const PlacementRule& rule,
                                                      const ColourTarget& colours) {
    // The camera's notes and the picture's size stand within the first segments, of 64 KB each.
    constexpr std::size_t kHeadBytes = std::size_t{256} * 1024;
    std::vector<std::uint8_t> first = platform::readFileBytes(path, kHeadBytes);
    const Head picture = readHead(first);
    if (!picture.exif.thumbnail || !picture.size) {
        return std::nullopt;
    }
    const auto begin = first.begin() + static_cast<std::ptrdiff_t>(picture.exif.thumbnail->offset);
    std::vector<std::uint8_t> bytes(begin,
                                    begin + static_cast<std::ptrdiff_t>(picture.exif.thumbnail->length));
    // The thumbnail has no profile of its own.
    const auto profile = colours ? profileOf(first, picture) : std::vector<std::uint8_t>();
    first.clear();
    Head thumbnail = readHead(bytes);
    if (!thumbnail.size || !sameShape(*picture.size, *thumbnail.size)) {
        return std::nullopt;
    }
    thumbnail.exif.orientation = picture.exif.orientation;
    const bool exchanged = exchangesSides(picture.exif.orientation);
    const int width = exchanged ? picture.size->height : picture.size->width;
    const int height = exchanged ? picture.size->width : picture.size->height;
    const Placement placement = rule(width, height);
    if (placement.width > (exchanged ? thumbnail.size->height : thumbnail.size->width) ||
        placement.height > (exchanged ? thumbnail.size->width : thumbnail.size->height)) {
        return std::nullopt;
    }
    try {
        Pixels pixels(surfaceWidth, surfaceHeight);
        decodeWhole(bytes, thumbnail, [&](int, int) { return Layout{pixels, placement}; });
        if (colours) {
            colourMatch().convert(pixels, placement, profile, *colours);
        }
        return DecodedPicture{{width, height, placement}, std::move(pixels)};
    } catch (const platform::Error&) {
        return std::nullopt;
    }
}

DecodeBudget& decodeBudget() {
    static DecodeBudget budget(kBudgetBytes, static_cast<int>(std::thread::hardware_concurrency()));
    return budget;
}

}  // namespace picture
