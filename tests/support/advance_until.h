#pragma once

#include <windows.h>

#include <functional>

#include "support/virtual_loop.h"

namespace support {

/// Lets events, timers and worker threads run until something is reached; false after 20 seconds.
inline bool advanceUntil(VirtualLoop& loop, const std::function<bool()>& reached) {
    const ULONGLONG end = GetTickCount64() + 20'000;
    while (!reached()) {
        if (GetTickCount64() > end) {
            return false;
        }
        loop.advance(10);
        Sleep(1);
    }
    return true;
}

}  // namespace support
