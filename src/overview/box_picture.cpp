#include "overview/box_picture.h"

#include <algorithm>

#include "picture/area_average.h"

namespace overview {

namespace {

constexpr float kMarkPart = 32.0F;  // of the image's height
constexpr float kThinnestMark = 1.5F;

/// Pixels in memory, as the scaler reads them.
class PixelRows : public picture::RowSource {
  public:
    explicit PixelRows(const picture::Pixels& pixels) : pixels_(pixels) {}

    void read(int x, int y, int width, int rows, std::uint8_t* target, std::size_t stride) override {
        for (int row = 0; row < rows; ++row) {
            const std::uint32_t* from = pixels_.row(y + row) + x;
            std::uint8_t* to = target + stride * static_cast<std::size_t>(row);
            for (int i = 0; i < width; ++i) {
                *to++ = static_cast<std::uint8_t>(from[i]);
                *to++ = static_cast<std::uint8_t>(from[i] >> 8U);
                *to++ = static_cast<std::uint8_t>(from[i] >> 16U);
            }
        }
    }

  private:
    const picture::Pixels& pixels_;
};

void fillRect(picture::Pixels& target, int left, int top, int width, int height, ui::Rgb colour) {
    const int right = std::min(target.width, left + width);
    const int bottom = std::min(target.height, top + height);
    for (int y = std::max(0, top); y < bottom; ++y) {
        if (right > std::max(0, left)) {
            std::fill(target.row(y) + std::max(0, left), target.row(y) + right, colour);
        }
    }
}

void frameRect(picture::Pixels& target, const ImagePlace& around, int width, ui::Rgb colour) {
    fillRect(target, around.left - width, around.top - width, around.width + 2 * width,
             around.height + 2 * width, colour);
}

void copyImage(picture::Pixels& target, const picture::Pixels& image, const ImagePlace& place) {
    for (int y = 0; y < place.height; ++y) {
        std::copy_n(image.row(y), place.width, target.row(place.top + y) + place.left);
    }
}

void drawMark(picture::Pixels& target, const ImagePlace& place, ui::Rgb colour) {
    picture::Pixels part(place.width, place.height);
    for (int y = 0; y < place.height; ++y) {
        std::copy_n(target.row(place.top + y) + place.left, place.width, part.row(y));
    }
    const auto width = static_cast<float>(place.width);
    const auto height = static_cast<float>(place.height);
    ui::fill({part.data.data(), part.width, part.height, 0, 0},
             ui::Path().line({0, height}, {width, 0}, std::max(kThinnestMark, height / kMarkPart)), colour);
    copyImage(target, part, place);
}

void drawLanding(picture::Pixels& target, const ImagePlace& place, Landing landing, int gap) {
    const int width = std::max(2, gap);
    const int left = landing == Landing::Before ? 0 : target.width - width;
    fillRect(target, left, place.top, width, place.height, kLandingColour);
}

}  // namespace

ImagePlace imagePlace(int boxWidth, int boxHeight, int gap) {
    return {gap / 2, gap / 2, std::max(1, boxWidth - gap), std::max(1, boxHeight - gap)};
}

picture::Pixels composeBox(int width, int height, const picture::Pixels& image, const BoxLook& look) {
    picture::Pixels box(width, height);
    if (box.empty()) {
        return box;
    }
    std::fill(box.data.begin(), box.data.end(), kGroundColour);
    const ImagePlace place = imagePlace(width, height, look.gap);
    const int line = std::max(1, (look.gap + 1) / 3);
    if (look.hot) {
        frameRect(box, place, line, kHotColour);
    } else if (look.selected) {
        frameRect(box, place, line, kSelectionColour);
    }
    if (image.empty() || look.deleted) {
        fillRect(box, place.left, place.top, place.width, place.height, kEmptyColour);
    } else if (image.width == place.width && image.height == place.height) {
        copyImage(box, image, place);
    } else {
        copyImage(box, scaledTo(image, place.width, place.height), place);
    }
    if (look.deleted || look.locked) {
        drawMark(box, place, look.deleted ? kDeletionColour : kLockColour);
    }
    if (look.landing != Landing::None) {
        drawLanding(box, place, look.landing, look.gap);
    }
    return box;
}

picture::Pixels scaledTo(const picture::Pixels& image, int width, int height) {
    picture::Pixels scaled(width, height);
    PixelRows rows(image);
    picture::scalePicture({{0, 0, image.width, image.height}, width, height, {0, 0, width, height}}, rows,
                          {scaled.data.data(), 1, width});
    return scaled;
}

}  // namespace overview
