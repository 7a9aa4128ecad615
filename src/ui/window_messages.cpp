#include <windowsx.h>

#include "ui/event_loop.h"
#include "ui/tooltip.h"
#include "ui/window.h"

namespace ui {

namespace {

MouseEvent mouseEvent(MouseButton button, WPARAM w, LPARAM l) {
    return {button, GET_X_LPARAM(l), GET_Y_LPARAM(l), (w & MK_SHIFT) != 0, (w & MK_CONTROL) != 0};
}

}  // namespace

// The trap around every handler. The end of a window is told even while the program is being left.
bool Window::dispatch(UINT message, WPARAM w, LPARAM l, LRESULT& result) noexcept {
    if (message == WM_DESTROY) {
        onDestroyed();
        return false;
    }
    if (message == WM_NCDESTROY || message == WM_NCCREATE) {
        return false;
    }
    bool used = false;
    EventLoop::current().guarded([&] { used = take(message, w, l, result); });
    return used;
}

bool Window::take(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) {
        Tooltip::relay(hwnd_, message, w, l);
    }
    if (onMessage(message, w, l, result) || reflect(message, w, l, result)) {
        return true;
    }
    switch (message) {
        case WM_PAINT:
            return paints() ? (paint(), true) : false;
        case WM_ERASEBKGND:
            result = onEraseBackground(reinterpret_cast<HDC>(w)) ? 1 : 0;
            return result != 0;
        case WM_SIZE:
            onSize(GET_X_LPARAM(l), GET_Y_LPARAM(l));
            return false;
        case WM_MOVE:
            onMove();
            return false;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            onFocus(message == WM_SETFOCUS);
            return false;
        case WM_ACTIVATE:
            onActivate(LOWORD(w) != WA_INACTIVE);
            return false;
        case WM_ENABLE:
            onEnabled(w != FALSE);
            return false;
        case WM_CLOSE:
            return onClose();
        case WM_NCHITTEST:
            return onHitTest({GET_X_LPARAM(l), GET_Y_LPARAM(l)}, result);
        case WM_SETCURSOR:
            result =
                LOWORD(l) == HTCLIENT && reinterpret_cast<HWND>(w) == hwnd_ && onSetCursor() ? TRUE : FALSE;
            return result != FALSE;
        case WM_DPICHANGED:
            onDpiChanged(HIWORD(w), *reinterpret_cast<const RECT*>(l));
            return true;
        default:
            return takeKeyboard(message, w, l) || takeMouse(message, w, l);
    }
}

bool Window::takeKeyboard(UINT message, WPARAM w, LPARAM l) {
    if (message == WM_KEYDOWN) {
        const bool repeated = (l & (1L << 30)) != 0;
        Window* form = outermost();
        return (form != nullptr && form->onKeyDownPreview(static_cast<int>(w), repeated)) ||
               onKeyDown(static_cast<int>(w), repeated);
    }
    if (message == WM_CHAR) {
        Window* form = outermost();
        return (form != nullptr && form->onCharPreview(static_cast<wchar_t>(w))) ||
               onChar(static_cast<wchar_t>(w));
    }
    return false;
}

bool Window::takeMouse(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_LBUTTONDOWN:
            return onMouseDown(mouseEvent(MouseButton::Left, w, l));
        case WM_RBUTTONDOWN:
            return onMouseDown(mouseEvent(MouseButton::Right, w, l));
        case WM_MBUTTONDOWN:
            return onMouseDown(mouseEvent(MouseButton::Middle, w, l));
        case WM_LBUTTONUP:
            return onMouseUp(mouseEvent(MouseButton::Left, w, l));
        case WM_RBUTTONUP:
            return onMouseUp(mouseEvent(MouseButton::Right, w, l));
        case WM_MBUTTONUP:
            return onMouseUp(mouseEvent(MouseButton::Middle, w, l));
        // The second press of two quick ones is a press as well, where a window makes no difference.
        case WM_LBUTTONDBLCLK:
            return onDoubleClick(mouseEvent(MouseButton::Left, w, l)) ||
                   onMouseDown(mouseEvent(MouseButton::Left, w, l));
        case WM_RBUTTONDBLCLK:
            return onDoubleClick(mouseEvent(MouseButton::Right, w, l)) ||
                   onMouseDown(mouseEvent(MouseButton::Right, w, l));
        case WM_MOUSEMOVE:
            return onMouseMove(mouseEvent(MouseButton::Left, w, l));
        case WM_MOUSELEAVE:
            onMouseLeave();
            return false;
        case WM_MOUSEWHEEL:
            return onWheel(GET_WHEEL_DELTA_WPARAM(w) / WHEEL_DELTA);
        default:
            return false;
    }
}

// Notifications about a control come to its parent; the control itself knows what to do.
bool Window::reflect(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    HWND source = nullptr;
    switch (message) {
        case WM_COMMAND:
        case WM_HSCROLL:
        case WM_VSCROLL:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORSCROLLBAR:
        case WM_CTLCOLORSTATIC:
            source = reinterpret_cast<HWND>(l);
            break;
        case WM_NOTIFY:
            source = reinterpret_cast<const NMHDR*>(l)->hwndFrom;
            break;
        case WM_DRAWITEM:
            source = reinterpret_cast<const DRAWITEMSTRUCT*>(l)->hwndItem;
            break;
        default:
            return false;
    }
    Window* control = source != nullptr ? from(source) : nullptr;
    return control != nullptr && control->onReflected(message, w, l, result);
}

void Window::paint() {
    PAINTSTRUCT paintStruct{};
    const HDC dc = BeginPaint(hwnd_, &paintStruct);
    EventLoop::current().guarded([&] { onPaint(dc, paintStruct.rcPaint); });
    EndPaint(hwnd_, &paintStruct);
}

Window* Window::outermost() const {
    HWND window = hwnd_;
    while ((GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0 && GetParent(window) != nullptr) {
        window = GetParent(window);
    }
    return from(window);
}

void Window::trackLeave() {
    TRACKMOUSEEVENT track{sizeof(track), TME_LEAVE, hwnd_, 0};
    TrackMouseEvent(&track);
}

bool Window::onMessage(UINT, WPARAM, LPARAM, LRESULT&) {
    return false;
}
bool Window::onReflected(UINT, WPARAM, LPARAM, LRESULT&) {
    return false;
}
void Window::onPaint(HDC, const RECT&) {}
bool Window::onEraseBackground(HDC) {
    return false;
}
void Window::onSize(int, int) {}
bool Window::onKeyDown(int, bool) {
    return false;
}
bool Window::onChar(wchar_t) {
    return false;
}
bool Window::onMouseDown(const MouseEvent&) {
    return false;
}
bool Window::onMouseUp(const MouseEvent&) {
    return false;
}
bool Window::onMouseMove(const MouseEvent&) {
    return false;
}
bool Window::onDoubleClick(const MouseEvent&) {
    return false;
}
bool Window::onWheel(int) {
    return false;
}
void Window::onFocus(bool) {}
void Window::onActivate(bool) {}
bool Window::onClose() {
    return false;
}
bool Window::onHitTest(POINT, LRESULT&) {
    return false;
}
bool Window::onSetCursor() {
    return false;
}
void Window::onDpiChanged(int, const RECT&) {}
bool Window::onKeyDownPreview(int, bool) {
    return false;
}
bool Window::onCharPreview(wchar_t) {
    return false;
}

}  // namespace ui
