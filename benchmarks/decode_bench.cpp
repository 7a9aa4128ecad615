#include <cstring>
#include <string>
#include <vector>

#include "bench_main.h"
#include "photographs.h"
#include "picture/area_average.h"
#include "picture/jpeg_picture.h"
#include "picture/picture_decoder.h"
#include "platform/file_bytes.h"
#include "show/fit_rule.h"
#include "support/picture_writer.h"

namespace bench {

namespace {

using picture::Placement;

constexpr int kScreenWidth = 1920;
constexpr int kScreenHeight = 1080;

Placement fitted(int width, int height, int surfaceWidth, int surfaceHeight) {
    const show::PixelRect place = show::fitPicture(width, height, surfaceWidth, surfaceHeight);
    return {place.left, place.top, place.width, place.height};
}

double decode(const std::wstring& path) {
    return milliseconds([&] {
        picture::decodeOntoSurface(path, kScreenWidth, kScreenHeight, [](int width, int height) {
            return fitted(width, height, kScreenWidth, kScreenHeight);
        });
    });
}

/// The library's part of decoding: every row of the whole picture is taken once and thrown away.
double takeRows(const std::wstring& path) {
    return milliseconds([&] {
        const std::vector<std::uint8_t> bytes = platform::readFileBytes(path, std::size_t{1} << 30);
        picture::JpegPicture picture(bytes);
        constexpr int kBand = 16;
        const std::size_t stride = static_cast<std::size_t>(picture.width()) * 3;
        std::vector<std::uint8_t> band(stride * kBand);
        for (int y = 0; y + kBand <= picture.height(); y += kBand) {
            picture.read(0, y, picture.width(), kBand, band.data(), stride);
        }
    });
}

/// A decoded picture of 24 megapixels, as the decoder would hold it.
class Decoded : public picture::RowSource {
  public:
    static constexpr int kWidth = 6000;
    static constexpr int kHeight = 4000;

    Decoded() : bytes_(std::size_t{kWidth} * kHeight * 3) {
        std::uint32_t seed = 1;
        for (std::uint8_t& byte : bytes_) {
            seed = seed * 1664525U + 1013904223U;
            byte = static_cast<std::uint8_t>(seed >> 24);
        }
    }

    void read(int x, int y, int width, int rows, std::uint8_t* target, std::size_t stride) override {
        for (int row = 0; row < rows; ++row) {
            std::memcpy(target + static_cast<std::size_t>(row) * stride,
                        bytes_.data() +
                            (static_cast<std::size_t>(y + row) * kWidth + static_cast<std::size_t>(x)) * 3,
                        static_cast<std::size_t>(width) * 3);
        }
    }

  private:
    std::vector<std::uint8_t> bytes_;
};

double scale(int surfaceWidth, int surfaceHeight) {
    static Decoded decoded;
    picture::Pixels surface(surfaceWidth, surfaceHeight);
    const picture::StoredPart part =
        storedPart(picture::Orientation::Upright,
                   fitted(Decoded::kWidth, Decoded::kHeight, surfaceWidth, surfaceHeight), surface);
    return milliseconds([&] {
        scalePicture({{0, 0, Decoded::kWidth, Decoded::kHeight}, part.width, part.height, part.visible},
                     decoded, part.view);
    });
}

std::wstring turnedPhotograph() {
    const std::wstring path = temporaryFolder() + L"\\turned.jpg";
    std::vector<std::uint8_t> bytes = support::readBytes(photograph(24));
    support::writeBytes(path, bytes);
    support::insertSegment(path, support::cameraSegment(6));
    return path;
}

const Figure kDecode6("decode_06_megapixels", "ms", 7, [] { return decode(photograph(6)); });
const Figure kDecode12("decode_12_megapixels", "ms", 7, [] { return decode(photograph(12)); });
const Figure kDecode24("decode_24_megapixels", "ms", 7, [] { return decode(photograph(24)); });
const Figure kDecode48("decode_48_megapixels", "ms", 5, [] { return decode(photograph(48)); });
const Figure kTurned24("decode_24_megapixels_turned", "ms", 5, [] {
    static const std::wstring path = turnedPhotograph();
    return decode(path);
});
const Figure kRows24("decode_24_megapixels_without_scaling", "ms", 7,
                     [] { return takeRows(photograph(24)); });
const Figure kScaleFullHd("scale_24_megapixels_to_1920x1080", "ms", 9, [] { return scale(1920, 1080); });
const Figure kScale4k("scale_24_megapixels_to_3840x2160", "ms", 9, [] { return scale(3840, 2160); });

}  // namespace

}  // namespace bench
