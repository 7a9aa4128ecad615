#include "platform/process.h"

#include <windows.h>

#include <cstdlib>

#include "platform/handles.h"
#include "platform/records.h"

namespace platform {

bool startProcess(const std::wstring& commandLine) {
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION made{};
    std::wstring writable = commandLine;
    if (CreateProcessW(nullptr, writable.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                       &made) == FALSE) {
        return false;
    }
    const Object process(made.hProcess);
    const Object thread(made.hThread);
    AllowSetForegroundWindow(made.dwProcessId);
    return true;
}

void endProcess() {
    TerminateProcess(GetCurrentProcess(), 0);
    std::abort();  // not reached
}

}  // namespace platform
