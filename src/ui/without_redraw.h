#pragma once

#include <windows.h>

namespace ui {

/// Keeps a window from painting itself and its children while they are placed, shown or hidden; all is
/// painted once at the end. What happens to the children then costs a fraction of its time as well. A hidden
/// window is left alone: painting again would mean that it is shown.
class WithoutRedraw {
  public:
    explicit WithoutRedraw(HWND window)
        : window_((GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0 ? window : nullptr) {
        if (window_ != nullptr) {
            SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
        }
    }
    ~WithoutRedraw() {
        if (window_ != nullptr) {
            SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
            RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
        }
    }
    WithoutRedraw(const WithoutRedraw&) = delete;
    WithoutRedraw& operator=(const WithoutRedraw&) = delete;

  private:
    HWND window_;
};

}  // namespace ui
