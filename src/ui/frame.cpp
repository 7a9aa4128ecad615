#include "ui/frame.h"

#include <algorithm>

#include "ui/painting.h"
#include "ui/theme.h"

namespace ui {

namespace {

constexpr Twips kCardRadius = 120;
constexpr Twips kCardEdge = 15;
constexpr Twips kCaptionLeft = 150;
constexpr Twips kCaptionTop = 90;

}  // namespace

void paintCard(Painting& painting, const RECT& place, int dpi) {
    const float scale = 1.0F / twipsPerPixel(dpi);
    const float edge = std::max(1.0F, kCardEdge * scale);
    const auto left = static_cast<float>(place.left);
    const auto top = static_cast<float>(place.top);
    const auto width = static_cast<float>(place.right - place.left);
    const auto height = static_cast<float>(place.bottom - place.top);
    painting.shape(Path().roundRect(left, top, width, height, kCardRadius * scale), theme::kEdge);
    painting.shape(Path().roundRect(left + edge, top + edge, width - 2 * edge, height - 2 * edge,
                                    kCardRadius * scale - edge),
                   theme::kCard);
}

Frame::Frame(const CreateArgs& args) : Control(args) {
    create(styleFor(args, L"PanorellFrame", WS_CLIPCHILDREN, WS_EX_CONTROLPARENT));
    created();
}

void Frame::setText(const std::wstring& text) {
    Control::setText(text);
    repaint();
}

Rgb Frame::groundAt(POINT) const {
    return theme::kCard;
}

void Frame::onPaint(HDC dc, const RECT& area) {
    paintTo(dc, area);
}

// Also asked for by children that draw see-through.
bool Frame::onEraseBackground(HDC dc) {
    RECT area{};
    GetClipBox(dc, &area);
    paintTo(dc, area);
    return true;
}

void Frame::paintTo(HDC dc, const RECT& area) {
    const SIZE size = clientSize();
    const int d = dpi();
    Painting painting(area, Control::groundAt({0, 0}));
    paintCard(painting, {0, 0, size.cx, size.cy}, d);
    const RECT caption{toPixels(kCaptionLeft, d), toPixels(kCaptionTop, d), size.cx, size.cy};
    painting.text(text(), caption, fontHandle(), theme::kMutedText, DT_LEFT | DT_TOP | DT_SINGLELINE);
    painting.copyTo(dc);
}

bool Frame::onHitTest(POINT, LRESULT& where) {
    where = HTTRANSPARENT;
    return true;
}

}  // namespace ui
