#include "overview/grid_panel.h"

#include "overview/box_picture.h"
#include "ui/control_ids.h"
#include "ui/drag_image.h"
#include "ui/theme.h"

namespace overview {

namespace {

constexpr LPARAM kFromKeyboard = -1;

}  // namespace

GridPanel::GridPanel(const ui::CreateArgs& args) : Control(args) {
    disconnect();
    create(styleFor(args, L"PanorellGrid", WS_CLIPCHILDREN));
    created();
}

void GridPanel::disconnect() {
    onScrollTo = [](int) {};
    onScrollBy = [](int, int) {};
    onWheelTurned = [](int, bool) {};
    onKey = [](int) { return false; };
    onMenuKey = [] {};
    onResized = [] {};
    onGroundPressed = [](const ui::MouseEvent&) {};
    onDragged = [](POINT) {};
    onReleased = [](POINT) {};
    onCaptureLost = [] {};
}

void GridPanel::setScroll(int position, int viewHeight, int contentHeight) {
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    info.nMax = contentHeight > viewHeight ? contentHeight - 1 : 0;
    info.nPage = static_cast<UINT>(contentHeight > viewHeight ? viewHeight : 1);
    info.nPos = position;
    SetScrollInfo(hwnd(), SB_VERT, &info, TRUE);
}

int GridPanel::scrollBarWidth() const {
    return GetSystemMetricsForDpi(SM_CXVSCROLL, static_cast<UINT>(dpi()));
}

SIZE GridPanel::fullSize() const {
    RECT window{};
    GetWindowRect(hwnd(), &window);
    return {window.right - window.left, window.bottom - window.top};
}

void GridPanel::onPaint(HDC dc, const RECT& area) {
    const ui::DragImage::Hidden hidden;
    SetDCBrushColor(dc, ui::colorref(kGroundColour));
    FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

bool GridPanel::onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    result = 0;
    switch (message) {
        case WM_VSCROLL:
            scrolled(LOWORD(w));
            return true;
        case WM_MOUSEWHEEL:
            turned(GET_WHEEL_DELTA_WPARAM(w), (LOWORD(w) & MK_CONTROL) != 0);
            return true;
        case WM_CONTEXTMENU:
            // A click of the right button on the ground tells its place, and belongs to no item.
            if (l == kFromKeyboard) {
                onMenuKey();
            }
            return true;
        case WM_CAPTURECHANGED:
            onCaptureLost();
            return true;
        default:
            return false;
    }
}

// Fine wheels and touch pads turn by parts of a notch.
void GridPanel::turned(int delta, bool control) {
    wheel_ += delta;
    const int notches = wheel_ / WHEEL_DELTA;
    wheel_ -= notches * WHEEL_DELTA;
    if (notches != 0) {
        onWheelTurned(notches, control);
    }
}

void GridPanel::scrolled(int code) {
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    GetScrollInfo(hwnd(), SB_VERT, &info);
    switch (code) {
        case SB_LINEUP:
            return onScrollBy(-1, 0);
        case SB_LINEDOWN:
            return onScrollBy(1, 0);
        case SB_PAGEUP:
            return onScrollBy(0, -1);
        case SB_PAGEDOWN:
            return onScrollBy(0, 1);
        case SB_TOP:
            return onScrollTo(0);
        case SB_BOTTOM:
            return onScrollTo(info.nMax);
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            return onScrollTo(info.nTrackPos);
        default:
            return;
    }
}

// Enter that answered a box and is still held down opens nothing.
bool GridPanel::onKeyDown(int key, bool repeated) {
    return (key == VK_RETURN && repeated) || onKey(key);
}

bool GridPanel::onMouseDown(const ui::MouseEvent& event) {
    onGroundPressed(event);
    return true;
}

POINT GridPanel::onScreen(const ui::MouseEvent& event) const {
    POINT place{event.x, event.y};
    ClientToScreen(hwnd(), &place);
    return place;
}

bool GridPanel::onMouseMove(const ui::MouseEvent& event) {
    if (GetCapture() == hwnd()) {
        onDragged(onScreen(event));
    }
    return false;
}

bool GridPanel::onMouseUp(const ui::MouseEvent& event) {
    if (event.button == ui::MouseButton::Left && GetCapture() == hwnd()) {
        onReleased(onScreen(event));
    }
    return false;
}

void GridPanel::onSize(int, int) {
    onResized();
}

}  // namespace overview
