#include "program/support/input.h"

#include <vector>

#include "program/support/wait.h"

namespace program {
namespace {

constexpr ULONGLONG kMoveAgain = 200;
constexpr UINT kAnswerMs = 1000;

INPUT keyEvent(WORD key, DWORD flags) {
    INPUT event = {};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
    event.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    const bool extended = key >= VK_PRIOR && key <= VK_DOWN;
    event.ki.dwFlags = flags | (extended ? KEYEVENTF_EXTENDEDKEY : 0);
    return event;
}

/// A character without a key of its own. A display that reports its keyboard's state, as it does whenever a
/// window gets the focus, would take back a Shift key that is only simulated.
INPUT characterEvent(wchar_t character, DWORD flags) {
    INPUT event = {};
    event.type = INPUT_KEYBOARD;
    event.ki.wScan = static_cast<WORD>(character);
    event.ki.dwFlags = flags | KEYEVENTF_UNICODE;
    return event;
}

INPUT mouseEvent(POINT place, DWORD flags) {
    // Absolute places are given in 65536ths of the screen; half a pixel more keeps the rounding inside it.
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    INPUT event = {};
    event.type = INPUT_MOUSE;
    event.mi.dx = (place.x * 65536 + 32768) / width;
    event.mi.dy = (place.y * 65536 + 32768) / height;
    event.mi.dwFlags = flags | MOUSEEVENTF_ABSOLUTE;
    return event;
}

testing::AssertionResult send(std::vector<INPUT> events) {
    const UINT count = static_cast<UINT>(events.size());
    if (SendInput(count, events.data(), sizeof(INPUT)) != count) {
        return testing::AssertionFailure() << "SendInput failed with code " << GetLastError();
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult ownsKeyboard(HWND form) {
    const HWND foreground = GetForegroundWindow();
    if (foreground == form) {
        return testing::AssertionSuccess();
    }
    wchar_t name[64] = {};
    GetClassNameW(foreground, name, 64);
    return testing::AssertionFailure()
           << "the keyboard belongs to another window, class " << testing::PrintToString(std::wstring(name));
}

// As the system finds it: from one that lets the pointer through to the next sibling that lies there too.
HWND clickedAt(POINT place) {
    HWND window = WindowFromPoint(place);
    for (HWND next = window; next != nullptr; next = GetWindow(next, GW_HWNDNEXT)) {
        RECT area{};
        GetWindowRect(next, &area);
        if (IsWindowVisible(next) == FALSE || PtInRect(&area, place) == FALSE) {
            continue;
        }
        window = next;
        DWORD_PTR hit = HTNOWHERE;
        SendMessageTimeoutW(next, WM_NCHITTEST, 0, MAKELPARAM(place.x, place.y), SMTO_ABORTIFHUNG, kAnswerMs,
                            &hit);
        if (static_cast<LRESULT>(static_cast<LONG>(hit)) != HTTRANSPARENT) {
            break;
        }
    }
    return window;
}

}  // namespace

testing::AssertionResult bringToFront(HWND form) {
    return waitFor(
        [form] {
            if (GetForegroundWindow() == form && focusIn(form)) {
                return true;
            }
            SetForegroundWindow(form);
            return false;
        },
        kPatience, "the window comes to the front");
}

testing::AssertionResult pressKey(HWND form, WORD key) {
    const auto owned = ownsKeyboard(form);
    return owned ? send({keyEvent(key, 0), keyEvent(key, KEYEVENTF_KEYUP)}) : owned;
}

testing::AssertionResult typeText(HWND form, const std::wstring& text) {
    for (const wchar_t character : text) {
        const auto owned = ownsKeyboard(form);
        if (!owned) {
            return owned;
        }
        const SHORT scan = VkKeyScanW(character);
        const bool plainKey = scan != -1 && HIBYTE(scan) == 0;
        const auto sent =
            plainKey ? send({keyEvent(LOBYTE(scan), 0), keyEvent(LOBYTE(scan), KEYEVENTF_KEYUP)})
                     : send({characterEvent(character, 0), characterEvent(character, KEYEVENTF_KEYUP)});
        if (!sent) {
            return sent;
        }
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult movePointer(POINT place) {
    // A window that has just come up may let the display report the old place once more: then move again.
    ULONGLONG nextMove = 0;
    return waitFor(
        [&] {
            POINT now = {};
            GetCursorPos(&now);
            const bool arrived = nextMove != 0 && now.x == place.x && now.y == place.y;
            if (!arrived && GetTickCount64() >= nextMove) {
                nextMove = GetTickCount64() + kMoveAgain;
                send({mouseEvent(place, MOUSEEVENTF_MOVE)});
            }
            return arrived;
        },
        kPatience, "the pointer arrives");
}

testing::AssertionResult clickAt(POINT place, MouseButton button) {
    const auto moved = movePointer(place);
    if (!moved) {
        return moved;
    }
    const bool left = button == MouseButton::Left;
    return send({mouseEvent(place, left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN),
                 mouseEvent(place, left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP)});
}

testing::AssertionResult click(const Control& target, MouseButton button) {
    if (!target.visible()) {
        return testing::AssertionFailure() << "the control to click is not visible";
    }
    const POINT place = target.centre();
    const HWND there = clickedAt(place);
    if (there != target.handle() && !IsChild(target.handle(), there)) {
        wchar_t name[64] = {};
        GetClassNameW(there, name, 64);
        return testing::AssertionFailure() << "another window lies over the control, class "
                                           << testing::PrintToString(std::wstring(name));
    }
    return clickAt(place, button);
}

testing::AssertionResult beginDrag(POINT from, POINT to) {
    auto done = movePointer(from);
    done = done ? send({mouseEvent(from, MOUSEEVENTF_LEFTDOWN)}) : done;
    constexpr int kSteps = 5;
    for (int i = 1; i <= kSteps && done; ++i) {
        done = movePointer({from.x + (to.x - from.x) * i / kSteps, from.y + (to.y - from.y) * i / kSteps});
    }
    return done;
}

testing::AssertionResult release(POINT place) {
    return send({mouseEvent(place, MOUSEEVENTF_LEFTUP)});
}

HWND focusIn(HWND form) {
    GUITHREADINFO info = {};
    info.cbSize = sizeof(info);
    return GetGUIThreadInfo(GetWindowThreadProcessId(form, nullptr), &info) ? info.hwndFocus : nullptr;
}

bool pointerVisible() {
    CURSORINFO info = {};
    info.cbSize = sizeof(info);
    return GetCursorInfo(&info) && (info.flags & CURSOR_SHOWING) != 0;
}

}  // namespace program
