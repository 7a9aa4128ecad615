#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "picture/pixels.h"

namespace overview {

/// The bytes of a bitmap file (24 bits a pixel) that shows these pixels; they are not empty.
std::vector<std::uint8_t> encodeBitmap(const picture::Pixels& pixels);

/// The picture in a bitmap file of 24 or 32 bits a pixel without compression, from top to bottom or the other
/// way round. None where it is of another kind, damaged, cut off or larger than a thumbnail can be (4096
/// pixels a side).
std::optional<picture::Pixels> decodeBitmap(std::span<const std::uint8_t> bytes);

}  // namespace overview
