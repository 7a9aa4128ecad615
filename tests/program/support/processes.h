#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace program {

/// The ids of all running processes whose executable is the file `exe` (full path, case ignored).
std::vector<DWORD> processesOf(const std::wstring& exe);

/// Ends a process at once and waits until it is gone. False when it could not be ended.
bool endProcess(DWORD processId);

/// True for the exit codes with which the system ends a process that crashed or could not be loaded.
bool isCrash(DWORD exitCode);

}  // namespace program
