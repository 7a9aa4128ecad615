#pragma once

#include <cstdint>

namespace files {

/// What tells one state of a file from another, and one file from another of the same name.
struct FileStamp {
    std::uint64_t size = 0;     ///< bytes
    std::uint64_t written = 0;  ///< time of the last write: units of 100 ns since 1601, UTC
    std::uint64_t number = 0;   ///< the file system's own number of the file; 0 where it keeps none
};

/// Whether both can be the same, unchanged file: the sizes are equal, so are the numbers where both are
/// known, and the times lie within 2 s, or within 2 s of a whole number of hours up to a day: FAT rounds
/// times to 2 s and keeps local ones, which shift with daylight saving and the zone.
bool sameFile(const FileStamp& one, const FileStamp& other);

}  // namespace files
