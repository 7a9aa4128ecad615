#pragma once

#include <windows.h>

#include <string>

namespace platform {

/// Whether the drive of a file may have a recycle bin: those of the network and removable ones have none.
/// Paths too long for the shell cannot be put there either, and under Wine nothing where its host has no
/// trash and none can be made. A bin can still refuse a file, because the file is too large for it or because
/// it was switched off; only the shell knows.
bool recycleBinTakes(const std::wstring& path);

/// Puts a file into the recycle bin, without a word to the user. Where the bin does not take it the shell
/// asks, above `owner`, whether to destroy it; it is never destroyed without a yes. Returns 0 when the file
/// is gone, or why not as an error number of the system: ERROR_SHARING_VIOLATION for a file that is open
/// elsewhere, ERROR_CANCELLED for a no.
unsigned recycle(const std::wstring& path, HWND owner);

}  // namespace platform
