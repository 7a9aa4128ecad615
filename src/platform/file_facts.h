#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

/// The three times of a file as the file system keeps them: units of 100 ns since 1601, UTC.
struct FileTimes {
    std::uint64_t created = 0;
    std::uint64_t accessed = 0;
    std::uint64_t written = 0;
    friend bool operator==(const FileTimes&, const FileTimes&) = default;
};

/// What the file system tells of a file.
struct FileFacts {
    std::uint64_t size = 0;    ///< bytes
    std::uint64_t number = 0;  ///< its own number of the file, which a rename keeps; 0 where it has none
    FileTimes times;
    bool hidden = false;
};

/// None when the file is missing or cannot be asked. Others may do anything with it meanwhile.
std::optional<FileFacts> readFileFacts(const std::wstring& path);

/// Sets the three times; a read-only or hidden file takes them as well. Gives the system's error code, 0 for
/// success. A file system may round them: FAT to 2 s, the access to a day.
unsigned long writeFileTimes(const std::wstring& path, const FileTimes& times);

/// Hides a file or shows it again, its other attributes as they were. False when that failed.
bool setFileHidden(const std::wstring& path, bool hidden);

}  // namespace platform
