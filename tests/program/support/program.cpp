#include "program/support/program.h"

#include "platform/error.h"
#include "program/support/processes.h"

namespace program {

Program::Program(const std::wstring& source) : exe_(folder_.file(L"Panorell.exe")) {
    if (!CopyFileW(source.c_str(), exe_.c_str(), TRUE)) {
        throw platform::Error("CopyFileW", GetLastError());
    }
}

Program::~Program() {
    endAll();
}

void Program::start(const std::wstring& arguments) {
    process_ = support::ChildProcess(exe_, arguments, folder_.path());
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

std::vector<DWORD> Program::successors() const {
    std::vector<DWORD> others = processesOf(exe_);
    std::erase(others, processId());
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
        process_ = support::ChildProcess(found.front());
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
