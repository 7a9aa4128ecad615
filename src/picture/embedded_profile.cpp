#include "picture/embedded_profile.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "picture/jpeg_header.h"

namespace picture {

namespace {

constexpr std::uint8_t kApp2 = 0xE2;
/// The name ends in a NUL; behind it stand the chunk's number, counted from 1, and how many there are.
constexpr std::string_view kSignature("ICC_PROFILE\0", 12);
constexpr std::size_t kChunkHead = kSignature.size() + 2;

using Bytes = std::span<const std::uint8_t>;

}  // namespace

bool isProfilePart(Bytes file, const JpegSegment& segment) {
    const Bytes payload = file.subspan(segment.offset, segment.length);
    return segment.marker == kApp2 && payload.size() >= kChunkHead &&
           std::equal(kSignature.begin(), kSignature.end(), payload.begin(),
                      [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
}

std::optional<std::vector<std::uint8_t>> readEmbeddedProfile(Bytes file, std::span<const JpegSegment> parts) {
    std::map<int, Bytes> chunks;
    int expected = 0;
    std::size_t size = 0;
    for (const JpegSegment& part : parts) {
        const Bytes payload = file.subspan(part.offset, part.length);
        const int number = payload[kSignature.size()];
        const int count = payload[kSignature.size() + 1];
        if (expected == 0) {
            expected = count;
        }
        const Bytes chunk = payload.subspan(kChunkHead);
        size += chunk.size();
        if (count != expected || number < 1 || number > count || size > kMostProfileBytes ||
            !chunks.emplace(number, chunk).second) {
            return std::nullopt;
        }
    }
    if (size == 0 || chunks.size() != static_cast<std::size_t>(expected)) {
        return std::nullopt;
    }
    std::vector<std::uint8_t> profile;
    profile.reserve(size);
    for (const auto& [number, chunk] : chunks) {
        profile.insert(profile.end(), chunk.begin(), chunk.end());
    }
    return profile;
}

}  // namespace picture
