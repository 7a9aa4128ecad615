#include "ui/tooltip.h"

#include <commctrl.h>
#include <windowsx.h>

#include <map>
#include <memory>

namespace ui {

namespace {

constexpr int kWidestTip = 400;
constexpr int kShownForMs = 10'000;

std::map<HWND, std::unique_ptr<Tooltip>>& all() {
    static std::map<HWND, std::unique_ptr<Tooltip>> tips;
    return tips;
}

}  // namespace

Tooltip& Tooltip::of(HWND owner) {
    std::unique_ptr<Tooltip>& tip = all()[owner];
    if (tip == nullptr || !tip->alive()) {
        tip.reset(new Tooltip(owner));
    }
    return *tip;
}

// Window handles may come back for other windows after the first ones ended.
bool Tooltip::alive() const {
    return GetWindow(window_, GW_OWNER) == owner_;
}

Tooltip::Tooltip(HWND owner)
    : owner_(owner),
      window_(CreateWindowExW(
          WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
          CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr, GetModuleHandleW(nullptr), nullptr)) {
    SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, kWidestTip);
    SendMessageW(window_, TTM_SETDELAYTIME, TTDT_AUTOPOP, kShownForMs);
}

void Tooltip::relay(HWND window, UINT message, WPARAM w, LPARAM l) {
    const auto at = all().find(GetAncestor(window, GA_ROOT));
    if (at != all().end() && at->second->alive()) {
        MSG told{};
        told.hwnd = window;
        told.message = message;
        told.wParam = w;
        told.lParam = l;
        told.time = static_cast<DWORD>(GetMessageTime());
        const DWORD pointer = GetMessagePos();
        told.pt = {GET_X_LPARAM(pointer), GET_Y_LPARAM(pointer)};
        SendMessageW(at->second->window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&told));
    }
}

void Tooltip::set(HWND control, const std::wstring& text) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    // Without TTF_SUBCLASS, which would look up a property of the control for each of its messages.
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = owner_;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    SendMessageW(window_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    if (!text.empty()) {
        std::wstring copy = text;
        tool.lpszText = copy.data();
        SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

}  // namespace ui
