#pragma once

#include <string>

#include "files/file_system.h"

namespace files {

/// Removes a file of the cache, a write-protected one too: a folder copied from a CD holds such files, and
/// what can be made again needs no protection.
inline Failure removeCacheFile(FileSystem& fileSystem, const std::wstring& path) {
    const Failure result = fileSystem.remove(path);
    const bool freed = result == Failure::Denied && fileSystem.setAttributes(path, 0) == Failure::None;
    return freed ? fileSystem.remove(path) : result;
}

}  // namespace files
