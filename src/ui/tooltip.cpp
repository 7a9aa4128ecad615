#include "ui/tooltip.h"

#include <commctrl.h>

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
    // A window handle may come back for another window after the first one ended.
    if (tip == nullptr || IsWindow(tip->window_) == FALSE) {
        tip.reset(new Tooltip(owner));
    }
    return *tip;
}

Tooltip::Tooltip(HWND owner)
    : owner_(owner),
      window_(CreateWindowExW(
          WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
          CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr, GetModuleHandleW(nullptr), nullptr)) {
    SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, kWidestTip);
    SendMessageW(window_, TTM_SETDELAYTIME, TTDT_AUTOPOP, kShownForMs);
}

void Tooltip::set(HWND control, const std::wstring& text) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
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
