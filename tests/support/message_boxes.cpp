#include "support/message_boxes.h"

namespace support {

namespace {

MessageBoxes* watching = nullptr;

constexpr int kTextId = 0xFFFF;
constexpr UINT kPollMs = 10;

BOOL CALLBACK findBox(HWND window, LPARAM target) {
    wchar_t name[16]{};
    GetClassNameW(window, name, 16);
    if (std::wstring(name) == L"#32770" && IsWindowVisible(window) != FALSE) {
        *reinterpret_cast<HWND*>(target) = window;
        return FALSE;
    }
    return TRUE;
}

std::wstring textOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

}  // namespace

MessageBoxes::MessageBoxes(std::function<void()> whileOpen) : whileOpen_(std::move(whileOpen)) {
    watching = this;
    timer_ = SetTimer(nullptr, 0, kPollMs, reinterpret_cast<TIMERPROC>(tick));
}

MessageBoxes::~MessageBoxes() {
    KillTimer(nullptr, timer_);
    watching = nullptr;
}

void CALLBACK MessageBoxes::tick(HWND, UINT, UINT_PTR, DWORD) noexcept {
    if (watching != nullptr) {
        watching->look();
    }
}

void MessageBoxes::look() {
    HWND box = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), findBox, reinterpret_cast<LPARAM>(&box));
    if (box == nullptr || box == last_) {
        return;
    }
    last_ = box;
    seen_.push_back({textOf(box), textOf(GetDlgItem(box, kTextId))});
    if (whileOpen_) {
        whileOpen_();
    } else {
        SendMessageW(box, WM_COMMAND, IDOK, 0);
    }
}

}  // namespace support
