#pragma once

#include <windows.h>

#include <algorithm>

#include <optional>
#include <string>
#include <vector>

namespace support {

/// Chooses from the next popup menu of this thread by its keys, from inside the menu's own loop. One lives at
/// a time.
class MenuChoice {
  public:
    /// `caption`: of the item to be chosen, without "&"; empty leaves the menu by Escape.
    explicit MenuChoice(std::wstring caption = {}) : caption_(std::move(caption)) {
        one = this;
        timer_ = SetTimer(nullptr, 0, kPollMs, [](HWND, UINT, UINT_PTR, DWORD) { one->look(); });
    }
    ~MenuChoice() {
        KillTimer(nullptr, timer_);
        one = nullptr;
    }
    MenuChoice(const MenuChoice&) = delete;
    MenuChoice& operator=(const MenuChoice&) = delete;

    bool opened() const { return opened_; }
    /// What the menu showed, without lines: captions without "&", a blank before those that are off and "*"
    /// before those that are checked.
    const std::vector<std::wstring>& items() const { return items_; }
    /// Whether it showed an item that could be chosen.
    bool offered(const std::wstring& caption) const {
        return std::find(items_.begin(), items_.end(), caption) != items_.end();
    }

  private:
    static constexpr UINT kPollMs = 10;
    static constexpr UINT kGetMenuOfWindow = 0x01E1;  // MN_GETHMENU

    static HWND menuWindow() {
        HWND found = nullptr;
        EnumWindows(
            [](HWND window, LPARAM target) -> BOOL {
                wchar_t name[16]{};
                GetClassNameW(window, name, 16);
                if (std::wstring(name) != L"#32768" || IsWindowVisible(window) == FALSE ||
                    GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) {
                    return TRUE;
                }
                *reinterpret_cast<HWND*>(target) = window;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }

    void look() {
        const HWND window = menuWindow();
        if (opened_ || window == nullptr) {
            return;
        }
        opened_ = true;
        const auto place = readItems(reinterpret_cast<HMENU>(SendMessageW(window, kGetMenuOfWindow, 0, 0)));
        for (std::size_t i = 0; place && i <= *place; ++i) {
            post(VK_DOWN);
        }
        post(place ? VK_RETURN : VK_ESCAPE);
    }

    /// The place of the wanted item among those that the arrow keys reach.
    std::optional<std::size_t> readItems(HMENU menu) {
        std::optional<std::size_t> place;
        for (int i = 0; i < GetMenuItemCount(menu); ++i) {
            wchar_t text[100]{};
            GetMenuStringW(menu, static_cast<UINT>(i), text, 100, MF_BYPOSITION);
            const UINT state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
            std::wstring caption(text);
            if (caption.empty()) {
                continue;
            }
            std::erase(caption, L'&');
            if (caption == caption_) {
                place = items_.size();
            }
            caption.insert(0, (state & MF_CHECKED) != 0 ? L"*" : L"");
            caption.insert(0, (state & MF_GRAYED) != 0 ? L" " : L"");
            items_.push_back(caption);
        }
        return place;
    }

    static void post(int key) {
        GUITHREADINFO state{};
        state.cbSize = sizeof(state);
        GetGUIThreadInfo(GetCurrentThreadId(), &state);
        PostMessageW(state.hwndMenuOwner, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    }

    static inline MenuChoice* one = nullptr;
    std::wstring caption_;
    UINT_PTR timer_ = 0;
    bool opened_ = false;
    std::vector<std::wstring> items_;
};

}  // namespace support
