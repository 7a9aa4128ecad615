#include "picture/picture_decoder.h"

#include <windows.h>

#include <wincodec.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <thread>
#include <utility>

#include "picture/area_average.h"
#include "picture/jpeg_header.h"
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
/// Larger pictures are refused: a few damaged bytes can ask for more memory than there is.
constexpr std::uint64_t kMostPixels = 500'000'000;

/// The surface for a picture and the picture's place on it.
struct Layout {
    int surfaceWidth = 0;
    int surfaceHeight = 0;
    Placement placement;
};
using LayoutRule = std::function<Layout(int pictureWidth, int pictureHeight)>;

[[noreturn]] void failAs(HRESULT code) {
    throw platform::Error("decoding a picture", static_cast<unsigned long>(code));
}

/// Refuses what the decoder would make a grey or an enormous picture of.
void checkBytes(std::span<const std::uint8_t> bytes) {
    const auto size = readPictureSize(bytes);
    if (size && decodeBytes(size->width, size->height) / kBytesPerPixel > kMostPixels) {
        failAs(WINCODEC_ERR_IMAGESIZEOUTOFRANGE);
    }
    const auto jpeg = readJpegHeader(bytes);
    if (jpeg && jpeg->dataLength == 0) {
        failAs(WINCODEC_ERR_BADIMAGE);
    }
}

/// A JPEG that ends too early is decoded as far as it goes once it has an end.
void endJpeg(std::vector<std::uint8_t>& bytes) {
    if (bytes.size() >= 2 && bytes[0] == 0xFF && bytes[1] == 0xD8) {
        bytes.insert(bytes.end(), {0xFF, 0xD9});
    }
}

DecodedPicture decodeBytesAs(std::span<std::uint8_t> bytes, Orientation orientation, const LayoutRule& rule) {
    const platform::ComApartment apartment;
    WicPicture picture(bytes);
    DecodedPicture decoded;
    decoded.nativeWidth = exchangesSides(orientation) ? picture.height() : picture.width();
    decoded.nativeHeight = exchangesSides(orientation) ? picture.width() : picture.height();

    const Layout layout = rule(decoded.nativeWidth, decoded.nativeHeight);
    decoded.placement = layout.placement;
    decoded.pixels = Pixels(layout.surfaceWidth, layout.surfaceHeight);
    const StoredPart part = storedPart(orientation, layout.placement, decoded.pixels);
    if (part.visible.width > 0 && part.visible.height > 0) {
        picture.reduce(kReducedAtLeast * part.width, kReducedAtLeast * part.height);
        scalePicture({{0, 0, picture.width(), picture.height()}, part.width, part.height, part.visible},
                     picture, part.view);
    }
    return decoded;
}

DecodedPicture decodeFile(const std::wstring& path, const LayoutRule& rule) {
    constexpr std::size_t kMostBytes = std::size_t{1} << 30;
    std::vector<std::uint8_t> bytes = platform::readFileBytes(path, kMostBytes, 2);
    checkBytes(bytes);
    const auto size = readPictureSize(bytes);
    const DecodeBudget::Share share = decodeBudget().take(size ? decodeBytes(size->width, size->height)
                                                               : std::numeric_limits<std::uint64_t>::max());
    const Orientation orientation = readExif(bytes).orientation;
    endJpeg(bytes);
    return decodeBytesAs(bytes, orientation, rule);
}

LayoutRule surfaceLayout(int surfaceWidth, int surfaceHeight, const PlacementRule& rule) {
    return [surfaceWidth, surfaceHeight, &rule](int width, int height) {
        return Layout{surfaceWidth, surfaceHeight, rule(width, height)};
    };
}

/// Whether two sizes have the same shape, as near as rounding the smaller one allows.
bool sameShape(PictureSize picture, PictureSize thumbnail) {
    const double expected = static_cast<double>(thumbnail.width) * picture.height / picture.width;
    return std::abs(expected - thumbnail.height) <= 1.0;
}

}  // namespace

DecodedPicture decodeOntoSurface(const std::wstring& path, int surfaceWidth, int surfaceHeight,
                                 const PlacementRule& rule) {
    return decodeFile(path, surfaceLayout(surfaceWidth, surfaceHeight, rule));
}

DecodedPicture decodeScaledToFit(const std::wstring& path, int maxWidth, int maxHeight) {
    return decodeFile(path, [maxWidth, maxHeight](int width, int height) {
        const double scale =
            std::min({1.0, static_cast<double>(maxWidth) / width, static_cast<double>(maxHeight) / height});
        const int fitWidth = std::clamp(static_cast<int>(std::lround(width * scale)), 1, maxWidth);
        const int fitHeight = std::clamp(static_cast<int>(std::lround(height * scale)), 1, maxHeight);
        return Layout{fitWidth, fitHeight, {0, 0, fitWidth, fitHeight}};
    });
}

std::optional<DecodedPicture> decodeEmbeddedThumbnail(const std::wstring& path, int surfaceWidth,
                                                      int surfaceHeight, const PlacementRule& rule) {
    // The camera's notes and the picture's size stand within the first segments, of 64 KB each.
    constexpr std::size_t kHeadBytes = std::size_t{256} * 1024;
    std::vector<std::uint8_t> head = platform::readFileBytes(path, kHeadBytes);
    const ExifInfo exif = readExif(head);
    const auto picture = readPictureSize(head);
    if (!exif.thumbnail || !picture) {
        return std::nullopt;
    }
    const auto first = head.begin() + static_cast<std::ptrdiff_t>(exif.thumbnail->offset);
    std::vector<std::uint8_t> bytes(first, first + static_cast<std::ptrdiff_t>(exif.thumbnail->length));
    head.clear();
    const auto thumbnail = readPictureSize(bytes);
    if (!thumbnail || !sameShape(*picture, *thumbnail)) {
        return std::nullopt;
    }
    const bool exchanged = exchangesSides(exif.orientation);
    const int width = exchanged ? picture->height : picture->width;
    const int height = exchanged ? picture->width : picture->height;
    const Placement placement = rule(width, height);
    if (placement.width > (exchanged ? thumbnail->height : thumbnail->width) ||
        placement.height > (exchanged ? thumbnail->width : thumbnail->height)) {
        return std::nullopt;
    }
    try {
        checkBytes(bytes);
        endJpeg(bytes);
        const DecodeBudget::Share share =
            decodeBudget().take(decodeBytes(thumbnail->width, thumbnail->height));
        DecodedPicture decoded = decodeBytesAs(bytes, exif.orientation, [&](int, int) {
            return Layout{surfaceWidth, surfaceHeight, placement};
        });
        decoded.nativeWidth = width;
        decoded.nativeHeight = height;
        return decoded;
    } catch (const platform::Error&) {
        return std::nullopt;
    }
}

DecodeBudget& decodeBudget() {
    static DecodeBudget budget(kBudgetBytes, static_cast<int>(std::thread::hardware_concurrency()));
    return budget;
}

}  // namespace picture
