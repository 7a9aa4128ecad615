#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace picture {

/// Larger pictures are refused: a few damaged bytes can ask for more memory than there is.
inline constexpr std::uint64_t kMostPixels = 500'000'000;

/// Width and height in pixels as stored, both at least 1.
struct PictureSize {
    int width = 0;
    int height = 0;
    friend bool operator==(const PictureSize&, const PictureSize&) = default;
};

/// The size of a JPEG, PNG, BMP or GIF picture, told from its first bytes without decoding it.
/// None when the file is of another kind or damaged.
std::optional<PictureSize> readPictureSize(std::span<const std::uint8_t> file);

}  // namespace picture
