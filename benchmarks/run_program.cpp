#include "run_program.h"

#include <psapi.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <thread>

#include "platform/error.h"

namespace bench {

namespace {

constexpr int kPollMs = 2;
constexpr int kColourTolerance = 24;

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
    if (owner != search.process || !IsWindowVisible(window) || lstrcmpW(name, search.className) != 0) {
        return TRUE;
    }
    search.found = window;
    return FALSE;
}

PROCESS_MEMORY_COUNTERS countersOf(HANDLE process) {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof(counters);
    if (!GetProcessMemoryInfo(process, &counters, sizeof(counters))) {
        throw platform::Error("GetProcessMemoryInfo", GetLastError());
    }
    return counters;
}

bool isClose(std::uint32_t one, std::uint32_t other) {
    for (int shift = 0; shift < 24; shift += 8) {
        const int difference =
            static_cast<int>(one >> shift & 0xFF) - static_cast<int>(other >> shift & 0xFF);
        if (std::abs(difference) > kColourTolerance) {
            return false;
        }
    }
    return true;
}

/// The folder that this program lies in.
std::filesystem::path ownFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path();
}

}  // namespace

RunProgram::RunProgram(const std::wstring& exe, const std::wstring& arguments) {
    std::wstring commandLine = L"\"" + exe + L"\" " + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(exe.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &started)) {
        throw platform::Error("CreateProcessW", GetLastError());
    }
    CloseHandle(started.hThread);
    process_ = platform::Object(started.hProcess);
    id_ = started.dwProcessId;
}

RunProgram::~RunProgram() {
    constexpr DWORD kPatienceMs = 10'000;
    TerminateProcess(process_.get(), 0);
    WaitForSingleObject(process_.get(), kPatienceMs);
}

bool RunProgram::running() const {
    return WaitForSingleObject(process_.get(), 0) == WAIT_TIMEOUT;
}

HWND RunProgram::window(const wchar_t* className) const {
    WindowSearch search{id_, className, nullptr};
    EnumWindows(findWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::size_t RunProgram::peakWorkingSet() const {
    return countersOf(process_.get()).PeakWorkingSetSize;
}

std::size_t RunProgram::workingSet() const {
    return countersOf(process_.get()).WorkingSetSize;
}

void RunProgram::waitForColour(POINT place, std::uint32_t colour) const {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!isClose(screenColour(place), colour)) {
        if (!running()) {
            throw std::runtime_error("the program ended");
        }
        if (std::chrono::steady_clock::now() > deadline) {
            throw std::runtime_error("the screen never showed the colour");
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(kPollMs));
    }
}

std::uint32_t screenColour(POINT place) {
    const HDC screen = GetDC(nullptr);
    const COLORREF colour = GetPixel(screen, place.x, place.y);
    ReleaseDC(nullptr, screen);
    return static_cast<std::uint32_t>(GetRValue(colour)) << 16 |
           static_cast<std::uint32_t>(GetGValue(colour)) << 8 | GetBValue(colour);
}

std::wstring panorellExe() {
    const wchar_t* given = _wgetenv(L"PANORELL_EXE");
    return given != nullptr ? given : (ownFolder() / L"..\\src\\app\\Panorell.exe").wstring();
}

std::wstring emptyWindowExe() {
    return (ownFolder() / L"empty_window.exe").wstring();
}

}  // namespace bench
