#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace picture {

/// The unsigned number of `length` bytes (1 to 4) at `offset`, highest byte first; none where it does not lie
/// wholly within `bytes`.
inline std::optional<std::uint32_t> bigEndian(std::span<const std::uint8_t> bytes, std::size_t offset,
                                              std::size_t length) {
    if (offset > bytes.size() || bytes.size() - offset < length) {
        return std::nullopt;
    }
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < length; ++i) {
        value = value << 8 | bytes[offset + i];
    }
    return value;
}

}  // namespace picture
