#pragma once

#include <windows.h>

#include "support/virtual_loop.h"
#include "ui/form.h"

namespace support {

/// A visible form on a loop with a virtual clock, and what a user would do to its controls.
class TestForm {
  public:
    TestForm() : form({.className = L"PanorellTestForm", .title = L"Test", .width = 9000, .height = 6000}) {
        form.show();
        loop.settle();
    }

    ui::CreateArgs args(int id, ui::TwipsRect place = {150, 150, 3000, 600}) {
        ui::CreateArgs made{.parent = form, .id = id, .place = place};
        made.tabStop = true;
        return made;
    }

    /// A left click in pixels of the control.
    void click(const ui::Control& control, int x = 4, int y = 4) {
        press(control, x, y);
        release(control, x, y);
    }
    void press(const ui::Control& control, int x = 4, int y = 4) {
        SendMessageW(control.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        loop.settle();
    }
    void release(const ui::Control& control, int x = 4, int y = 4) {
        SendMessageW(control.hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(x, y));
        loop.settle();
    }
    /// A key to the control with the focus, by way of the message queue.
    void key(int virtualKey) {
        PostMessageW(GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(virtualKey), 1);
        loop.settle();
        PostMessageW(GetFocus(), WM_KEYUP, static_cast<WPARAM>(virtualKey), static_cast<LPARAM>(0xC0000001));
        loop.settle();
    }
    void altLetter(wchar_t letter) {
        PostMessageW(GetFocus(), WM_SYSCHAR, letter, 1 << 29);
        loop.settle();
    }

    /// Lets events come until a state is there, for what the system or a window manager does in its own time.
    template <typename State>
    bool waitFor(State reached) {
        constexpr int kTries = 1000;
        for (int i = 0; i < kTries && !reached(); ++i) {
            loop.settle();
            Sleep(2);
        }
        return reached();
    }

    VirtualLoop loop;
    ui::Form form;
};

}  // namespace support
