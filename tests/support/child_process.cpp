#include "support/child_process.h"

#include <psapi.h>

#include <utility>

#include "platform/error.h"

namespace support {

namespace {

constexpr DWORD kPatienceMs = 20'000;

/// Everything in it ends when this program does.
HANDLE familyJob() {
    static const platform::Object job = [] {
        platform::Object created(CreateJobObjectW(nullptr, nullptr));
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(created.get(), JobObjectExtendedLimitInformation, &limits, sizeof(limits));
        return created;
    }();
    return job.get();
}

/// A start that goes wrong inside the system says ERROR_INTERNAL_ERROR. Under Wine that is chance (its loader
/// found an address taken that it needs), and the next start finds other addresses: it is worth another try.
constexpr int kStarts = 3;

PROCESS_INFORMATION startSuspended(const std::wstring& exe, std::wstring commandLine,
                                   const std::wstring& folder) {
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started{};
    for (int start = 1;
         CreateProcessW(exe.c_str(), commandLine.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
                        folder.empty() ? nullptr : folder.c_str(), &startup, &started) == FALSE;
         ++start) {
        const DWORD error = GetLastError();
        if (error != ERROR_INTERNAL_ERROR || start == kStarts) {
            throw platform::Error("CreateProcessW", error);
        }
    }
    return started;
}

struct WindowSearch {
    DWORD process;
    const wchar_t* className;
    HWND found;
};

BOOL CALLBACK findWindow(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<WindowSearch*>(parameter);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    if (owner != search.process || IsWindowVisible(window) == FALSE ||
        lstrcmpW(name, search.className) != 0) {
        return TRUE;
    }
    search.found = window;
    return FALSE;
}

}  // namespace

ChildProcess::ChildProcess(const std::wstring& exe, const std::wstring& arguments,
                           const std::wstring& folder) {
    std::wstring commandLine = L"\"" + exe + L"\"";
    if (!arguments.empty()) {
        commandLine += L" " + arguments;
    }
    const PROCESS_INFORMATION started = startSuspended(exe, commandLine, folder);
    process_ = platform::Object(started.hProcess);
    id_ = started.dwProcessId;
    const platform::Object thread(started.hThread);
    AssignProcessToJobObject(familyJob(), process_.get());
    ResumeThread(thread.get());
}

ChildProcess::ChildProcess(DWORD id) : process_(OpenProcess(PROCESS_ALL_ACCESS, FALSE, id)), id_(id) {}

ChildProcess::~ChildProcess() {
    end();
}

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept {
    if (this != &other) {
        end();
        process_ = std::move(other.process_);
        id_ = other.id_;
    }
    return *this;
}

void ChildProcess::end() {
    if (running()) {
        TerminateProcess(process_.get(), 1);
        WaitForSingleObject(process_.get(), kPatienceMs);
    }
}

bool ChildProcess::running() const {
    return process_ && WaitForSingleObject(process_.get(), 0) == WAIT_TIMEOUT;
}

std::optional<DWORD> ChildProcess::exitCode() const {
    DWORD code = 0;
    if (!process_ || running() || GetExitCodeProcess(process_.get(), &code) == FALSE) {
        return std::nullopt;
    }
    return code;
}

HWND ChildProcess::window(const wchar_t* className) const {
    WindowSearch search{id_, className, nullptr};
    EnumWindows(findWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

ChildProcess::Memory ChildProcess::memory() const {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof(counters);
    if (K32GetProcessMemoryInfo(process_.get(), &counters, sizeof(counters)) == FALSE) {
        return {};
    }
    return {counters.WorkingSetSize, counters.PeakWorkingSetSize};
}

}  // namespace support
