#include "run_program.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <thread>

namespace bench {

namespace {

constexpr int kPollMs = 2;
constexpr int kColourTolerance = 24;

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

void waitForColour(const support::ChildProcess& program, POINT place, std::uint32_t colour) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!isClose(screenColour(place), colour)) {
        if (!program.running()) {
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
