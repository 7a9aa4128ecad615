#include "ui/window.h"

#include <unordered_map>

#include "platform/error.h"
#include "platform/monitors.h"
#include "ui/theme.h"

namespace ui {

namespace {

// The objects behind the handles. A property of the window could tell as well, but every message asks, and
// Wine's server would have to answer.
std::unordered_map<HWND, Window*>& objects() {
    static std::unordered_map<HWND, Window*> all;
    return all;
}

HINSTANCE instance() {
    return GetModuleHandleW(nullptr);
}

// Only a window of its own has a place for an icon, and loading one takes its time.
enum class ClassIcon { None, Program };

void registerClass(const wchar_t* name, UINT style, ClassIcon icon, WNDPROC procedure) {
    WNDCLASSEXW existing{};
    existing.cbSize = sizeof(existing);
    if (GetClassInfoExW(instance(), name, &existing) != FALSE) {
        return;
    }
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.style = style;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = instance();
    windowClass.hIcon = icon == ClassIcon::Program ? LoadIconW(instance(), MAKEINTRESOURCEW(1)) : nullptr;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = name;
    if (RegisterClassExW(&windowClass) == 0) {
        throw platform::Error("RegisterClassExW", GetLastError());
    }
}

}  // namespace

Window::~Window() {
    destroy();
    if (hwnd_ != nullptr) {
        // It is being destroyed already, and this object ends in the middle of that.
        unbind();
    }
}

void Window::destroy() {
    if (hwnd_ != nullptr) {
        DestroyWindow(hwnd_);
    }
}

Window* Window::from(HWND window) {
    const auto at = objects().find(window);
    return at != objects().end() ? at->second : nullptr;
}

int Window::dpi() const {
    return hwnd_ != nullptr ? platform::Monitors::current().dpiOf(hwnd_) : USER_DEFAULT_SCREEN_DPI;
}

SIZE Window::clientSize() const {
    RECT area{};
    GetClientRect(hwnd_, &area);
    return {area.right, area.bottom};
}

Rgb Window::groundAt(POINT place) const {
    const HWND above = GetAncestor(hwnd_, GA_PARENT);
    const Window* parent = above != nullptr ? from(above) : nullptr;
    if (parent == nullptr) {
        return theme::kGround;
    }
    MapWindowPoints(hwnd_, above, &place, 1);
    return parent->groundAt(place);
}

void Window::create(const Style& style, UINT classStyle) {
    const ClassIcon icon = (style.style & WS_CHILD) != 0 ? ClassIcon::None : ClassIcon::Program;
    registerClass(style.className, classStyle | CS_DBLCLKS, icon, ownProc);
    const HWND window =
        CreateWindowExW(style.exStyle, style.className, style.text, style.style, style.left, style.top,
                        style.width, style.height, style.parent,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(style.id)), instance(), this);
    if (window == nullptr) {
        throw platform::Error("CreateWindowExW", GetLastError());
    }
}

void Window::createSystem(const Style& style) {
    const HWND window =
        CreateWindowExW(style.exStyle, style.className, style.text, style.style, style.left, style.top,
                        style.width, style.height, style.parent,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(style.id)), instance(), nullptr);
    if (window == nullptr) {
        throw platform::Error("CreateWindowExW", GetLastError());
    }
    bind(window);
    // Not by the subclassing of the common controls, which keeps its records in properties of the window and
    // looks them up for every message.
    system_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(systemProc)));
}

void Window::bind(HWND window) {
    hwnd_ = window;
    objects().insert_or_assign(window, this);
}

// Where somebody took a control's messages after us, he calls us, and taking ours away would end him too.
void Window::unbind() {
    if (GetWindowLongPtrW(hwnd_, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(systemProc)) {
        SetWindowLongPtrW(hwnd_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(system_));
    }
    objects().erase(hwnd_);
    hwnd_ = nullptr;
}

LRESULT Window::callSystem(UINT message, WPARAM w, LPARAM l) const {
    return hwnd_ != nullptr ? CallWindowProcW(system_, hwnd_, message, w, l) : 0;
}

LRESULT CALLBACK Window::ownProc(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
    if (message == WM_NCCREATE) {
        static_cast<Window*>(reinterpret_cast<CREATESTRUCTW*>(l)->lpCreateParams)->bind(window);
    }
    Window* self = from(window);
    LRESULT result = 0;
    if (self != nullptr && self->dispatch(message, w, l, result)) {
        return result;
    }
    if (message == WM_NCDESTROY && self != nullptr) {
        self->unbind();
    }
    return DefWindowProcW(window, message, w, l);
}

LRESULT CALLBACK Window::systemProc(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
    Window* control = from(window);
    if (control == nullptr) {
        // Somebody who took the control's messages after us still calls us at its very end.
        return DefWindowProcW(window, message, w, l);
    }
    LRESULT result = 0;
    if (control->dispatch(message, w, l, result)) {
        return result;
    }
    if (message == WM_NCDESTROY) {
        control->unbind();
    } else if (from(window) != control) {
        // The handler has ended the control, and perhaps its object.
        return 0;
    }
    return CallWindowProcW(control->system_, window, message, w, l);
}

}  // namespace ui
