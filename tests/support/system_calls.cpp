#include "support/system_calls.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>

namespace support {

namespace {

SystemCalls* watching = nullptr;

std::string narrow(const wchar_t* text) {
    std::string result;
    for (; *text != 0; ++text) {
        result += static_cast<char>(*text);
    }
    return result;
}

BOOL WINAPI notifyIcon(DWORD operation, NOTIFYICONDATAA* record) {
    watching->trayRecord.assign(reinterpret_cast<const char*>(record), record->cbSize);
    watching->note(operation == NIM_ADD ? "tray add" : "tray delete");
    return TRUE;
}

// The pointer itself stays as it is: the count alone matters.
int WINAPI showCursor(BOOL show) {
    watching->pointer += show != FALSE ? 1 : -1;
    ++watching->pointerCalls;
    return watching->pointer;
}

BOOL WINAPI messageBeep(UINT) {
    watching->note("beep");
    return TRUE;
}

BOOL WINAPI createProcess(LPCWSTR, LPWSTR commandLine, LPSECURITY_ATTRIBUTES, LPSECURITY_ATTRIBUTES, BOOL,
                          DWORD, LPVOID, LPCWSTR, LPSTARTUPINFOW, LPPROCESS_INFORMATION made) {
    *made = {};
    if (watching->startFails) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return FALSE;
    }
    watching->started.emplace_back(commandLine);
    watching->note("start");
    return TRUE;
}

int WINAPI hookedRegion(HWND window, HRGN region, BOOL redraw) {
    watching->note("region");
    return watching->setWindowRgn().original<decltype(SetWindowRgn)>()(window, region, redraw);
}

BOOL WINAPI hookedShow(HWND window, int how) {
    if (how == SW_SHOWNA && GetWindow(window, GW_OWNER) == nullptr &&
        (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) == 0) {
        watching->note("show");
    }
    return watching->showWindow().original<decltype(ShowWindow)>()(window, how);
}

DWORD WINAPI hookedRead(LPCWSTR section, LPCWSTR key, LPCWSTR fallback, LPWSTR value, DWORD room,
                        LPCWSTR file) {
    watching->note("read " + narrow(section) + "/" + narrow(key));
    return watching->readProfile().original<decltype(GetPrivateProfileStringW)>()(section, key, fallback,
                                                                                  value, room, file);
}

}  // namespace

SystemCalls::SystemCalls()
    : tray_("Shell_NotifyIconA", &notifyIcon),
      showCursor_("ShowCursor", &showCursor),
      beep_("MessageBeep", &messageBeep),
      createProcess_("CreateProcessW", &createProcess),
      setWindowRgn_("SetWindowRgn", &hookedRegion),
      showWindow_("ShowWindow", &hookedShow),
      readProfile_("GetPrivateProfileStringW", &hookedRead) {
    watching = this;
}

SystemCalls::~SystemCalls() {
    watching = nullptr;
}

int SystemCalls::count(const std::string& call) const {
    return static_cast<int>(std::count(log.begin(), log.end(), call));
}

void SystemCalls::note(const std::string& call) {
    log.push_back(call);
    if (onCall) {
        onCall(call);
    }
}

}  // namespace support
