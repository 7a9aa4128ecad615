#include "program/support/program.h"

#include <psapi.h>

#include "platform/error.h"
#include "program/support/processes.h"

namespace program {
namespace {

/// Everything started from here ends with this test program, even when it is killed itself.
HANDLE familyJob() {
    static const Handle job = [] {
        Handle created(CreateJobObjectW(nullptr, nullptr));
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(created.get(), JobObjectExtendedLimitInformation, &limits, sizeof(limits));
        return created;
    }();
    return job.get();
}

struct WindowSearch {
    DWORD processId;
    const wchar_t* className;
    HWND found;
};

BOOL CALLBACK findWindow(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<WindowSearch*>(parameter);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    if (owner != search.processId || !IsWindowVisible(window) || lstrcmpW(name, search.className) != 0) {
        return TRUE;
    }
    search.found = window;
    return FALSE;
}

}  // namespace

Program::Program(const std::wstring& source) : exe_(folder_.file(L"Panorell.exe")) {
    if (!CopyFileW(source.c_str(), exe_.c_str(), TRUE)) {
        throw platform::Error("CopyFileW", GetLastError());
    }
}

Program::~Program() {
    endAll();
}

void Program::start(const std::wstring& arguments) {
    std::wstring commandLine = L"\"" + exe_ + L"\"";
    if (!arguments.empty()) {
        commandLine += L" " + arguments;
    }
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started = {};
    if (!CreateProcessW(exe_.c_str(), commandLine.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
                        folder_.path().c_str(), &startup, &started)) {
        throw platform::Error("CreateProcessW", GetLastError());
    }
    process_ = Handle(started.hProcess);
    processId_ = started.dwProcessId;
    const Handle thread(started.hThread);
    AssignProcessToJobObject(familyJob(), process_.get());
    ResumeThread(thread.get());
}

bool Program::running() const {
    return process_ && WaitForSingleObject(process_.get(), 0) == WAIT_TIMEOUT;
}

std::optional<DWORD> Program::exitCode() const {
    DWORD code = 0;
    if (!process_ || running() || !GetExitCodeProcess(process_.get(), &code)) {
        return std::nullopt;
    }
    return code;
}

testing::AssertionResult Program::ends(std::chrono::milliseconds timeout) const {
    return waitFor([this] { return exitCode().has_value(); }, timeout, "the program ends");
}

HWND Program::window(const wchar_t* className, std::chrono::milliseconds timeout) const {
    HWND found = nullptr;
    const auto foundOrEnded = [&] {
        found = windowNow(className);
        return found || !running();
    };
    return waitFor(foundOrEnded, timeout, "window") ? found : nullptr;
}

HWND Program::windowNow(const wchar_t* className) const {
    WindowSearch search{processId_, className, nullptr};
    EnumWindows(findWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

Program::Memory Program::memory() const {
    PROCESS_MEMORY_COUNTERS counters = {};
    counters.cb = sizeof(counters);
    if (!GetProcessMemoryInfo(process_.get(), &counters, sizeof(counters))) {
        return {};
    }
    return {counters.WorkingSetSize, counters.PeakWorkingSetSize};
}

std::vector<DWORD> Program::successors() const {
    std::vector<DWORD> others = processesOf(exe_);
    std::erase(others, processId_);
    return others;
}

testing::AssertionResult Program::followSuccessor(std::chrono::milliseconds timeout) {
    std::vector<DWORD> found;
    const auto replaced = [&] {
        found = successors();
        return found.size() == 1 && !running();
    };
    const auto result = waitFor(replaced, timeout, "the program replaces itself");
    if (result) {
        process_ = Handle(OpenProcess(PROCESS_ALL_ACCESS, FALSE, found.front()));
        processId_ = found.front();
    }
    return result;
}

testing::AssertionResult Program::leavesNoProcess(std::chrono::milliseconds timeout) const {
    return waitFor([this] { return processesOf(exe_).empty(); }, timeout, "no process is left");
}

void Program::endAll() {
    for (const DWORD id : processesOf(exe_)) {
        EXPECT_TRUE(endProcess(id)) << "process " << id << " could not be ended";
    }
}

bool responds(HWND window) {
    DWORD_PTR ignored = 0;
    return SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 1000, &ignored) != 0;
}

}  // namespace program
