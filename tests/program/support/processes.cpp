#include "program/support/processes.h"

#include <tlhelp32.h>

#include "program/support/handle.h"
#include "program/support/wait.h"

namespace program {
namespace {

std::wstring executableOf(DWORD processId) {
    const Handle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId));
    if (!process) {
        return {};
    }
    wchar_t path[1024] = {};
    DWORD length = 1024;
    if (!QueryFullProcessImageNameW(process.get(), 0, path, &length)) {
        return {};
    }
    return {path, length};
}

bool hasEnded(DWORD processId) {
    const Handle process(OpenProcess(SYNCHRONIZE, FALSE, processId));
    return !process || WaitForSingleObject(process.get(), 0) == WAIT_OBJECT_0;
}

}  // namespace

std::vector<DWORD> processesOf(const std::wstring& exe) {
    std::vector<DWORD> found;
    const Handle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof(entry);
    for (BOOL more = Process32FirstW(snapshot.get(), &entry); more;
         more = Process32NextW(snapshot.get(), &entry)) {
        const DWORD id = entry.th32ProcessID;
        if (lstrcmpiW(executableOf(id).c_str(), exe.c_str()) == 0 && !hasEnded(id)) {
            found.push_back(id);
        }
    }
    return found;
}

bool endProcess(DWORD processId) {
    const Handle process(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, processId));
    if (!process) {
        return true;
    }
    TerminateProcess(process.get(), 1);
    return WaitForSingleObject(process.get(), static_cast<DWORD>(kPatience.count())) == WAIT_OBJECT_0;
}

bool isCrash(DWORD exitCode) {
    constexpr DWORD kErrorStatus = 0xC0000000;
    return (exitCode & kErrorStatus) == kErrorStatus;
}

}  // namespace program
