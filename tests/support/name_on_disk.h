#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

namespace support {

/// Whether the folder of `path` lists an entry under exactly the name in `path`, upper and lower case told
/// apart. Asking for a path is no proof of its name: it finds the file under any case, and a rename that
/// changes only case may report success and do nothing.
inline testing::AssertionResult hasExactName(const std::wstring& path) {
    const std::size_t end = path.find_last_of(L'\\');
    const std::wstring name = path.substr(end + 1);
    std::wstring other;
    WIN32_FIND_DATAW entry;
    const HANDLE listing = FindFirstFileW((path.substr(0, end) + L"\\*").c_str(), &entry);
    if (listing == INVALID_HANDLE_VALUE) {
        return testing::AssertionFailure() << "the folder cannot be listed";
    }
    bool found = false;
    do {
        found = found || name == entry.cFileName;
        if (CompareStringOrdinal(name.c_str(), -1, entry.cFileName, -1, TRUE) == CSTR_EQUAL) {
            other = entry.cFileName;
        }
    } while (FindNextFileW(listing, &entry));
    FindClose(listing);
    if (found) {
        return testing::AssertionSuccess();
    }
    if (other.empty()) {
        return testing::AssertionFailure() << "there is no such entry";
    }
    return testing::AssertionFailure() << "the entry is called " << testing::PrintToString(other);
}

}  // namespace support
