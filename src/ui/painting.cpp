#include "ui/painting.h"

#include <algorithm>

#include "ui/theme.h"

namespace ui {

Painting::Painting(const RECT& area, Rgb ground)
    : area_(area),
      surface_(std::max<int>(0, area.right - area.left), std::max<int>(0, area.bottom - area.top)) {
    if (!surface_.empty()) {
        surface_.fill(colorref(ground));
        SetViewportOrgEx(surface_.dc(), -area.left, -area.top, nullptr);
        SetBkMode(surface_.dc(), TRANSPARENT);
    }
}

void Painting::shape(const Path& path, Rgb colour, float opacity) {
    if (!surface_.empty()) {
        GdiFlush();
        fill({surface_.bits(), surface_.width(), surface_.height(), area_.left, area_.top}, path, colour,
             opacity);
    }
}

void Painting::text(const std::wstring& text, const RECT& place, HFONT font, Rgb colour, UINT format) {
    if (!surface_.empty()) {
        const platform::Selection selected(surface_.dc(), font);
        SetTextColor(surface_.dc(), colorref(colour));
        RECT area = place;
        DrawTextW(surface_.dc(), text.c_str(), static_cast<int>(text.size()), &area, format);
    }
}

void Painting::copyTo(HDC dc) const {
    if (!surface_.empty()) {
        BitBlt(dc, area_.left, area_.top, surface_.width(), surface_.height(), surface_.dc(), area_.left,
               area_.top, SRCCOPY);
    }
}

}  // namespace ui
