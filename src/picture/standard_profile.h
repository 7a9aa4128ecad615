#pragma once

#include <cstdint>
#include <vector>

namespace picture {

/// sRGB as the bytes of an ICC profile, version 2, for those who take nothing else: a matrix and a curve of
/// 1024 entries, which is how most photographs carry it.
std::vector<std::uint8_t> standardProfileBytes();

}  // namespace picture
