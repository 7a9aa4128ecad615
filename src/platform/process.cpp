#include "platform/process.h"

#include <windows.h>

namespace platform {

StartedProcess startAwaitedProcess(const std::wstring& commandLine) {
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION made{};
    std::wstring writable = commandLine;
    if (CreateProcessW(nullptr, writable.data(), nullptr, nullptr, FALSE, NORMAL_PRIORITY_CLASS, nullptr,
                       nullptr, &start, &made) == FALSE) {
        return {Object(), GetLastError()};
    }
    const Object thread(made.hThread);
    AllowSetForegroundWindow(made.dwProcessId);
    return {Object(made.hProcess), 0};
}

bool startProcess(const std::wstring& commandLine) {
    return startAwaitedProcess(commandLine).code == 0;
}

}  // namespace platform
