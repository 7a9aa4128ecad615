#pragma once

#include <cstdint>
#include <string>

namespace media {

/// A window's or device context's handle in a command: an unsigned decimal of 32 bits, which is all that the
/// system uses of it, also in 64 bits.
template <typename Handle>
std::string handleText(Handle handle) {
    return std::to_string(static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(handle)));
}

/// A length in pixels in a command: the shortest decimal text; a whole number where it is one but for the
/// rounding of twips.
std::string pixelText(float pixels);

}  // namespace media
