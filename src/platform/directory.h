#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

struct DirectoryEntry {
    std::wstring name;
    bool folder = false;
    bool hidden = false;
    std::uint64_t size = 0;        ///< bytes
    std::uint64_t written = 0;     ///< time of the last write: units of 100 ns since 1601, UTC
    std::uint64_t number = 0;      ///< the file system's own, which a rename keeps; 0: not asked for, or none
    std::uint32_t attributes = 0;  ///< the system's bits
};

/// A path as the system takes it, however long it is.
std::wstring unlimitedPath(const std::wstring& path);

/// What a folder holds, read at once, "." and ".." left out, in the file system's order. Throws Error when
/// the folder is missing or cannot be read (a drive without a medium, no permission).
std::vector<DirectoryEntry> listDirectory(const std::wstring& folder);

/// The same with the files' numbers where the file system keeps them.
std::vector<DirectoryEntry> listDirectoryWithNumbers(const std::wstring& folder);

/// Whether a folder is there.
bool folderExists(const std::wstring& folder);

/// Whether a file is there that is no folder.
bool fileExists(const std::wstring& path);

/// `folder` + "\" + `name`, with one "\" only where the folder is a root.
inline std::wstring joinPath(std::wstring_view folder, std::wstring_view name) {
    std::wstring path(folder);
    if (path.empty() || path.back() != L'\\') {
        path += L'\\';
    }
    return path.append(name);
}

/// The full path of `path`, seen from the folder `current`: "\x" is on its drive, "x" in it, "C:" means the
/// root of the drive. Without "." and "..", without a "\" at the end unless it is a root.
std::wstring fullPath(const std::wstring& path, const std::wstring& current);

/// Explorer's order of names: numbers in them count as numbers, case does not count.
void sortNames(std::vector<std::wstring>& names);

}  // namespace platform
