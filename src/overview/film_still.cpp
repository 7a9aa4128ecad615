#include "overview/film_still.h"

#include <algorithm>
#include <exception>

#include "media/first_frame.h"
#include "overview/box_picture.h"
#include "picture/surface.h"
#include "show/fit_rule.h"
#include "ui/font.h"

namespace overview {

namespace {

constexpr wchar_t kMark[] = L"==>";
constexpr COLORREF kMarkColour = RGB(255, 0, 0);
constexpr float kSmallestPoints = 5.0F;
constexpr float kLargestPoints = 14.0F;
constexpr int kMarkInset = 4;  // parts of the letters' height

picture::Pixels fitted(const picture::Pixels& frame, int width, int height) {
    const show::PixelRect place = show::fitPicture(frame.width, frame.height, width, height);
    picture::Surface surface(width, height);
    surface.put(scaledTo(frame, std::max(1, place.width), std::max(1, place.height)), place.left, place.top);
    return surface.pixels();
}

HFONT markFont(int mostWidth, int dpi) {
    float points = kLargestPoints;
    HFONT font = nullptr;
    do {
        font = ui::font({.points = points, .bold = true}, dpi);
        points -= 1;
    } while (ui::measureText(kMark, font).cx > mostWidth && points >= kSmallestPoints);
    return font;
}

// The letters are large enough for a DPI and no wider than half of the pixels.
picture::Pixels marked(const picture::Pixels& pixels, int dpi) {
    picture::Surface surface(pixels.width, pixels.height);
    surface.put(pixels);
    const HFONT font = markFont(pixels.width / 2, dpi);
    const platform::Selection selected(surface.dc(), font);
    SetBkMode(surface.dc(), TRANSPARENT);
    SetTextColor(surface.dc(), kMarkColour);
    const int inset = static_cast<int>(ui::measureText(kMark, font).cy) / kMarkInset;
    RECT place{inset, inset / 2, pixels.width, pixels.height};
    DrawTextW(surface.dc(), kMark, -1, &place, DT_LEFT | DT_TOP | DT_SINGLELINE | DT_NOPREFIX);
    return surface.pixels();
}

picture::Pixels stillOf(const picture::Pixels& frame, const SIZE& size, int dpi) {
    return marked(fitted(frame, static_cast<int>(size.cx), static_cast<int>(size.cy)), dpi);
}

}  // namespace

ItemImages filmImages(media::MediaControl& control, const ui::PictureBox& Pic2, const std::wstring& path,
                      const SIZE& cell, const SIZE& kept) {
    ItemImages images;
    try {
        const auto frame = media::firstFrame(control, Pic2, path);
        if (!frame) {
            return {};
        }
        const picture::Pixels pixels = frame->pixels();
        images.shown = stillOf(pixels, cell, Pic2.dpi());
        images.kept =
            kept.cx == cell.cx && kept.cy == cell.cy ? images.shown : stillOf(pixels, kept, Pic2.dpi());
    } catch (const std::exception&) {
        // Whatever a film does, the ones behind it are to be shown.
        return {};
    }
    return images;
}

}  // namespace overview
