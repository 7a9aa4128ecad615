#pragma once

#include <string>

namespace platform {

/// Starts a command line (program path, blank, arguments; the system looks for the end of an unquoted path)
/// in a normal window and does not wait for it. False when it cannot be started.
bool startProcess(const std::wstring& commandLine);

/// Ends this process at once: nothing else runs.
[[noreturn]] void endProcess();

}  // namespace platform
