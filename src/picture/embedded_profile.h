#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace picture {

struct JpegSegment;

/// A profile is cut into no more parts: their number is a byte.
inline constexpr std::size_t kMostProfileParts = 255;
/// Larger profiles are not read: those of monitors and cameras have a few KB, those of printers a few MB.
inline constexpr std::size_t kMostProfileBytes = std::size_t{4} << 20;

/// Whether a segment of a JPEG file holds a part of its ICC profile.
bool isProfilePart(std::span<const std::uint8_t> file, const JpegSegment& segment);

/// The ICC profile that a JPEG file carries, put together from its parts, which may stand in any order
/// (ICC.1:2022, annex B.4). None where there is none, where a part is missing, doubled or at odds with the
/// others about their number, and where there are more than kMostProfileBytes. What the bytes say is not
/// looked at.
std::optional<std::vector<std::uint8_t>> readEmbeddedProfile(std::span<const std::uint8_t> file,
                                                             std::span<const JpegSegment> parts);

}  // namespace picture
