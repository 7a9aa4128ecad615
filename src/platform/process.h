#pragma once

#include <string>

#include "platform/handles.h"

namespace platform {

/// Starts a command line (program path, blank, arguments; the system looks for the end of an unquoted path)
/// in a normal window and does not wait for it. False when it cannot be started.
bool startProcess(const std::wstring& commandLine);

/// A program that was started to be waited for: its handle is signalled when it has ended.
struct StartedProcess {
    Object handle;           ///< none when it cannot be started
    unsigned long code = 0;  ///< the system's error code then
};

/// Starts a command line as startProcess does, and hands out what to wait for.
StartedProcess startAwaitedProcess(const std::wstring& commandLine);

}  // namespace platform
