#pragma once

#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include <cstddef>

namespace platform {

/// Sizes of records that go to the system. In 32 bits they are the ones that the program was designed with;
/// in 64 bits the same fields are wider.

/// The tray icon's record of the shell's first version: up to a tip of 64 characters.
struct TrayRecord {
    DWORD size;
    HWND window;
    UINT id;
    UINT flags;
    UINT callbackMessage;
    HICON icon;
    char tip[64];
};

/// The size of a tooltip's tool record without its reserved field.
inline constexpr std::size_t kToolRecordSize = offsetof(TOOLINFOA, lpReserved);

#ifndef _WIN64
static_assert(sizeof(TrayRecord) == 88);
static_assert(kToolRecordSize == 44);
static_assert(sizeof(STARTUPINFOW) == 68);
static_assert(sizeof(SHELLEXECUTEINFOW) == 60);
#endif
static_assert(offsetof(TrayRecord, tip) == offsetof(NOTIFYICONDATAA, szTip));
static_assert(offsetof(TrayRecord, icon) == offsetof(NOTIFYICONDATAA, hIcon));

}  // namespace platform
