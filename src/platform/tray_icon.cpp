#include "platform/tray_icon.h"

#include <algorithm>
#include <utility>

#include "platform/records.h"

namespace platform {

namespace {

constexpr UINT kIconId = 1;
constexpr UINT kCallbackMessage = WM_USER + 1;

}  // namespace

TrayIcon::TrayIcon(HWND owner, HICON icon, std::string tip)
    : owner_(owner), icon_(icon), tip_(std::move(tip)) {}

bool TrayIcon::send(DWORD operation, UINT flags) const {
    TrayRecord record{};
    record.size = sizeof(record);
    record.window = owner_;
    record.id = kIconId;
    record.flags = flags;
    record.callbackMessage = kCallbackMessage;
    record.icon = icon_;
    tip_.copy(record.tip, std::min(tip_.size(), sizeof(record.tip) - 1));
    return Shell_NotifyIconA(operation, reinterpret_cast<NOTIFYICONDATAA*>(&record)) != FALSE;
}

void TrayIcon::add() {
    wanted_ = true;
    send(NIM_ADD, NIF_MESSAGE | NIF_ICON | NIF_TIP);
}

void TrayIcon::remove() {
    if (std::exchange(wanted_, false)) {
        send(NIM_DELETE, 0);
    }
}

UINT TrayIcon::taskBarCreated() {
    static const UINT message = RegisterWindowMessageW(L"TaskbarCreated");
    return message;
}

void TrayIcon::onOwnerMessage(UINT message) {
    if (wanted_ && message == taskBarCreated()) {
        add();
    }
}

}  // namespace platform
