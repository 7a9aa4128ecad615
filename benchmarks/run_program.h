#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "platform/handles.h"

namespace bench {

/// A program seen from outside. It is ended with this object.
class RunProgram {
  public:
    /// Starts the executable with these arguments as they stand. Throws platform::Error.
    explicit RunProgram(const std::wstring& exe, const std::wstring& arguments = {});
    ~RunProgram();
    RunProgram(const RunProgram&) = delete;
    RunProgram& operator=(const RunProgram&) = delete;

    bool running() const;
    /// A visible top-level window of that class that belongs to the program, or null.
    HWND window(const wchar_t* className) const;
    /// The most main memory that the program has used so far, and what it uses now; in bytes.
    std::size_t peakWorkingSet() const;
    std::size_t workingSet() const;
    /// Asks the screen at `place` until its colour is `colour` within what a JPEG loses. Throws
    /// std::runtime_error when the program ends before or a minute passes.
    void waitForColour(POINT place, std::uint32_t colour) const;

  private:
    platform::Object process_;
    DWORD id_ = 0;
};

/// The colour 0x00RRGGBB that the screen shows there, whoever painted it.
std::uint32_t screenColour(POINT place);

/// The program itself: PANORELL_EXE in the environment, as ./bench sets it, or the one of the same build.
std::wstring panorellExe();
/// The program that only opens a window.
std::wstring emptyWindowExe();

}  // namespace bench
