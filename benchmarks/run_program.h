#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "support/child_process.h"

namespace bench {

/// Asks the screen at `place` until its colour is `colour` within what a JPEG loses. Throws
/// std::runtime_error when the program ends before or a minute passes.
void waitForColour(const support::ChildProcess& program, POINT place, std::uint32_t colour);

/// The colour 0x00RRGGBB that the screen shows there, whoever painted it.
std::uint32_t screenColour(POINT place);

/// The program itself: PANORELL_EXE in the environment, as ./bench sets it, or the one of the same build.
std::wstring panorellExe();
/// The program that only opens a window.
std::wstring emptyWindowExe();

}  // namespace bench
