#pragma once

#include <string>

namespace program {

/// The executable under test: PANORELL_EXE in the environment (a Windows path), else the Panorell.exe of the
/// same build tree. Empty when there is none.
std::wstring panorellExe();

/// The small program that the harness is proved on; it lies beside this test program.
std::wstring sampleExe();

/// Where screenshots of failures go: PANORELL_FAILURES in the environment, else "program-failures" in the
/// build folder. The folder is made when it does not exist.
std::wstring failureFolder();

}  // namespace program
