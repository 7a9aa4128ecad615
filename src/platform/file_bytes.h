#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace platform {

/// The first `most` bytes of a file, or all when it is shorter. Others may read, write, rename and delete the
/// file meanwhile; it is closed on return. `spare` is how many more bytes the result has room for.
/// Throws Error.
std::vector<std::uint8_t> readFileBytes(const std::wstring& path, std::size_t most, std::size_t spare = 0);

}  // namespace platform
