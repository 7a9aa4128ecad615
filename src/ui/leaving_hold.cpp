#include "ui/leaving_hold.h"

#include "ui/form.h"

namespace ui {

namespace {

BOOL CALLBACK collectForms(HWND window, LPARAM target) {
    if (IsWindowVisible(window) != FALSE && dynamic_cast<Form*>(Window::from(window)) != nullptr) {
        reinterpret_cast<std::vector<HWND>*>(target)->push_back(window);
    }
    return TRUE;
}

}  // namespace

LeavingHold::LeavingHold(EventLoop& loop, const std::wstring& reason) : loop_(loop) {
    loop_.hold();
    EnumThreadWindows(GetCurrentThreadId(), collectForms, reinterpret_cast<LPARAM>(&windows_));
    for (const HWND window : windows_) {
        ShutdownBlockReasonCreate(window, reason.c_str());
    }
}

LeavingHold::~LeavingHold() {
    for (const HWND window : windows_) {
        ShutdownBlockReasonDestroy(window);
    }
    loop_.release();
}

}  // namespace ui
