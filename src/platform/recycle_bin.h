#pragma once

#include <string>

namespace platform {

/// Whether the drive of a file has a recycle bin: those of the network and removable ones have none. Paths
/// too long for the shell cannot be put there either.
bool recycleBinTakes(const std::wstring& path);

/// Puts a file into the recycle bin, without a word to the user. Returns 0, or why not as an error number of
/// the system (ERROR_SHARING_VIOLATION for a file that is open elsewhere).
unsigned recycle(const std::wstring& path);

}  // namespace platform
