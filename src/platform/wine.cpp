#include "platform/wine.h"

#include <windows.h>

namespace platform {

bool runsUnderWine() {
    const HMODULE system = GetModuleHandleW(L"ntdll.dll");
    return system != nullptr && GetProcAddress(system, "wine_get_version") != nullptr;
}

void showPainted() {
    if (runsUnderWine()) {
        MsgWaitForMultipleObjectsEx(0, nullptr, 0, 0, 0);
    }
}

}  // namespace platform
