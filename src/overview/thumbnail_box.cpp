#include "overview/thumbnail_box.h"

#include <windowsx.h>

#include <utility>

#include "platform/handles.h"
#include "ui/control_ids.h"
#include "ui/drag_image.h"
#include "ui/font.h"
#include "ui/theme.h"

namespace overview {

namespace {

constexpr wchar_t kClass[] = L"PanorellThumbnail";
constexpr ui::Rgb kNameColour = 0xB8B8B8;
constexpr float kNamePoints = 8.0F;

}  // namespace

ThumbnailBox::ThumbnailBox(ui::Window& parent, int index, const RECT& place, bool visible,
                           const BoxContent& content, const BoxEvents& events)
    : index_(index), content_(content), events_(events) {
    Style style;
    style.className = kClass;
    style.style = WS_CHILD | (visible ? DWORD{WS_VISIBLE} : 0);
    style.parent = parent.hwnd();
    style.id = ui::id::kThumbnail;
    style.left = place.left;
    style.top = place.top;
    style.width = place.right - place.left;
    style.height = place.bottom - place.top;
    create(style);
}

void ThumbnailBox::repaint() {
    InvalidateRect(hwnd(), nullptr, FALSE);
}

void ThumbnailBox::setSelected(bool selected) {
    if (std::exchange(look_.selected, selected) != selected) {
        repaint();
    }
}

void ThumbnailBox::setHot(bool hot) {
    if (std::exchange(look_.hot, hot) != hot) {
        repaint();
    }
}

void ThumbnailBox::setLanding(Landing landing) {
    if (std::exchange(look_.landing, landing) != landing) {
        repaint();
    }
}

void ThumbnailBox::onPaint(HDC dc, const RECT&) {
    const ui::DragImage::Hidden hidden;
    const SIZE size = clientSize();
    BoxLook look = look_;
    look.locked = content_.locked;
    look.deleted = content_.deleted;
    picture::Pixels box = composeBox(size.cx, size.cy, content_.image, look);
    if (box.empty()) {
        return;
    }
    if (events_.onDraw) {
        events_.onDraw(index_, box, imagePlace(size.cx, size.cy, look.gap));
    }
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = box.width;
    info.bmiHeader.biHeight = -box.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    SetDIBitsToDevice(dc, 0, 0, static_cast<DWORD>(box.width), static_cast<DWORD>(box.height), 0, 0, 0,
                      static_cast<UINT>(box.height), box.data.data(), &info, DIB_RGB_COLORS);
    if (!content_.failed.empty() && !look.deleted) {
        paintName(dc, size);
    }
}

void ThumbnailBox::paintName(HDC dc, const SIZE& size) const {
    const ImagePlace place = imagePlace(size.cx, size.cy, look_.gap);
    RECT area{place.left, place.top, place.left + place.width, place.top + place.height};
    const platform::Selection font(dc, ui::font({.points = kNamePoints}, dpi()));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, ui::colorref(kNameColour));
    DrawTextW(dc, content_.failed.c_str(), static_cast<int>(content_.failed.size()), &area,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
}

bool ThumbnailBox::onMessage(UINT message, WPARAM, LPARAM l, LRESULT& result) {
    if (message == WM_CONTEXTMENU) {
        events_.onMenu(index_, {GET_X_LPARAM(l), GET_Y_LPARAM(l)});
        result = 0;
        return true;
    }
    return false;
}

bool ThumbnailBox::onMouseDown(const ui::MouseEvent& event) {
    events_.onPressed(index_, event);
    return true;
}

bool ThumbnailBox::onMouseMove(const ui::MouseEvent&) {
    if (!std::exchange(over_, true)) {
        trackLeave();
        events_.onEntered(index_);
    }
    return false;
}

void ThumbnailBox::onMouseLeave() {
    over_ = false;
    events_.onLeft(index_);
}

bool ThumbnailBox::onDoubleClick(const ui::MouseEvent& event) {
    if (event.button != ui::MouseButton::Left) {
        return false;
    }
    events_.onDoubleClicked(index_);
    return true;
}

}  // namespace overview
