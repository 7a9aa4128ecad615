#include "ui/clstt.h"

#include <commctrl.h>

#include <array>
#include <cstdint>

#include "platform/code_page.h"
#include "platform/records.h"
#include "platform/wine.h"

namespace ui {

namespace {

// The tooltip takes the low 32 bits of an address for a width with a sign. An address that is negative so
// would mean "no bound", after which it would not even break lines at CR. So the value whose address is
// handed over lies in the lowest 2 GB; the page is kept for the program's life.
LONG* makeLowValue() {
    constexpr std::uintptr_t kFirst = 0x10000000;
    constexpr std::uintptr_t kEnd = 0x7F000000;
    constexpr std::uintptr_t kGranularity = 0x10000;
    for (std::uintptr_t at = kFirst; at < kEnd; at += kGranularity) {
        void* page =
            VirtualAlloc(reinterpret_cast<void*>(at), sizeof(LONG), MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
        if (page != nullptr) {
            return static_cast<LONG*>(page);
        }
    }
    static LONG anywhere = 0;
    return &anywhere;
}

LPARAM addressOf(int value) {
    static LONG* const low = makeLowValue();
    *low = value;
    return reinterpret_cast<LPARAM>(low);
}

// The sides in the order of their numbers; null for another number.
LONG* sideOf(RECT& margin, int side) {
    const std::array<LONG*, 4> sides{&margin.left, &margin.top, &margin.right, &margin.bottom};
    return side >= 0 && side < 4 ? sides[static_cast<std::size_t>(side)] : nullptr;
}

}  // namespace

clstt::~clstt() {
    if (window_ != nullptr) {
        DestroyWindow(window_);
    }
}

namespace {

// On Windows nothing ever gives a tip the keyboard. Under Wine the window manager takes it for a window like
// any other and does so, unless its style says that it is none.
void keepInactiveUnderWine(HWND tip) {
    if (tip != nullptr && platform::runsUnderWine()) {
        const LONG_PTR style = GetWindowLongPtrW(tip, GWL_EXSTYLE);
        SetWindowLongPtrW(tip, GWL_EXSTYLE, style | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE);
    }
}

}  // namespace

bool clstt::Create(HWND owner) {
    if (window_ == nullptr) {
        owner_ = owner;
        InitCommonControls();
        window_ = CreateWindowExA(0, TOOLTIPS_CLASSA, nullptr, TTS_ALWAYSTIP, 0, 0, 0, 0, owner, nullptr,
                                  GetModuleHandleW(nullptr), nullptr);
        keepInactiveUnderWine(window_);
    }
    return window_ != nullptr;
}

LRESULT clstt::send(UINT message, WPARAM w, LPARAM l) const {
    return window_ != nullptr ? SendMessageA(window_, message, w, l) : 0;
}

void clstt::sendTool(UINT message, HWND control, const std::wstring& text) const {
    std::string bytes = platform::toCodePage(text);
    TOOLINFOA tool{};
    tool.cbSize = static_cast<UINT>(platform::kToolRecordSize);
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = owner_;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = bytes.data();
    send(message, 0, reinterpret_cast<LPARAM>(&tool));
}

void clstt::AddTool(HWND control, const std::wstring& text) {
    if (window_ != nullptr && !text.empty()) {
        sendTool(TTM_ADDTOOLA, control, text);
        texts_[control] = text;
    }
}

void clstt::RemoveTool(HWND control) {
    sendTool(TTM_DELTOOLA, control, {});
    texts_.erase(control);
}

std::wstring clstt::ToolText(HWND control) const {
    const auto at = texts_.find(control);
    return at != texts_.end() ? at->second : std::wstring();
}

void clstt::setToolText(HWND control, const std::wstring& text) {
    sendTool(TTM_UPDATETIPTEXTA, control, text);
    if (const auto at = texts_.find(control); at != texts_.end()) {
        at->second = text;
    }
}

int clstt::ToolCount() const {
    return static_cast<int>(send(TTM_GETTOOLCOUNT));
}

COLORREF clstt::BackColor() const {
    return static_cast<COLORREF>(send(TTM_GETTIPBKCOLOR, 0, addressOf(0)));
}

void clstt::setBackColor(COLORREF colour) {
    send(TTM_SETTIPBKCOLOR, colour);
}

COLORREF clstt::ForeColor() const {
    return static_cast<COLORREF>(send(TTM_SETTIPTEXTCOLOR, 0, addressOf(0)));
}

void clstt::setForeColor(COLORREF colour) {
    send(TTM_SETTIPTEXTCOLOR, colour);
}

int clstt::DelayTime(int which) const {
    return static_cast<int>(send(TTM_GETDELAYTIME, static_cast<WPARAM>(which)));
}

void clstt::setDelayTime(int which, int ms) {
    constexpr int kWhichBits = 3;
    send(TTM_SETDELAYTIME, static_cast<WPARAM>(which & kWhichBits), ms);
}

int clstt::Margin(int side) const {
    RECT margin{};
    send(TTM_GETMARGIN, 0, reinterpret_cast<LPARAM>(&margin));
    const LONG* value = sideOf(margin, side);
    return value != nullptr ? static_cast<int>(*value) : 0;
}

void clstt::setMargin(int side, int value) {
    RECT margin{};
    send(TTM_GETMARGIN, 0, reinterpret_cast<LPARAM>(&margin));
    if (LONG* changed = sideOf(margin, side)) {
        *changed = value;
    }
    send(TTM_SETMARGIN, 0, reinterpret_cast<LPARAM>(&margin));
}

int clstt::MaxTipWidth() const {
    return static_cast<int>(send(TTM_GETMAXTIPWIDTH));
}

void clstt::setMaxTipWidth(int width) {
    send(TTM_SETMAXTIPWIDTH, 0, addressOf(width < 1 ? -1 : width));
}

}  // namespace ui
