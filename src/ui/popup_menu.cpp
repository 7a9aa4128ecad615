#include "ui/popup_menu.h"

#include "platform/error.h"
#include "platform/handles.h"
#include "ui/event_loop.h"

namespace ui {

namespace {

UINT stateOf(const MenuItem& item) {
    return (item.enabled ? MF_ENABLED : MF_GRAYED) | (item.checked ? MF_CHECKED : MF_UNCHECKED);
}

// A submenu belongs to its menu as soon as it is in it, and ends with it.
platform::Menu makeMenu(const std::vector<MenuItem>& shown) {
    platform::Menu menu(CreatePopupMenu());
    if (!menu) {
        throw platform::Error("CreatePopupMenu", GetLastError());
    }
    for (const MenuItem& item : shown) {
        if (item.separator) {
            AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
        } else if (item.submenu.empty()) {
            AppendMenuW(menu.get(), MF_STRING | stateOf(item), static_cast<UINT_PTR>(item.id),
                        item.caption.c_str());
        } else {
            platform::Menu inner = makeMenu(item.submenu);
            if (AppendMenuW(menu.get(), MF_POPUP | stateOf(item), reinterpret_cast<UINT_PTR>(inner.get()),
                            item.caption.c_str()) != FALSE) {
                inner.detach();
            }
        }
    }
    return menu;
}

}  // namespace

std::optional<int> popupMenu(const Window& owner, const std::vector<MenuItem>& items, POINT screen) {
    const std::vector<MenuItem> shown = shownMenuItems(items);
    if (shown.empty()) {
        return std::nullopt;
    }
    const platform::Menu menu = makeMenu(shown);
    const HWND form = GetAncestor(owner.hwnd(), GA_ROOT);
    // A menu of a window behind others would not end when its user clicks elsewhere.
    SetForegroundWindow(form);
    const UINT flags = TPM_RETURNCMD | TPM_RIGHTBUTTON | TPM_LEFTALIGN | TPM_TOPALIGN;
    const int chosen = TrackPopupMenuEx(menu.get(), flags, screen.x, screen.y, form, nullptr);
    // Leaving ends each menu of the system, as it ends a window being moved.
    if (EventLoop::current().leaving()) {
        throw Leaving{};
    }
    return chosen > 0 ? std::optional<int>(chosen) : std::nullopt;
}

}  // namespace ui
