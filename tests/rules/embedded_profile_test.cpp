#include "picture/embedded_profile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "picture/jpeg_header.h"
#include "support/profile_bytes.h"

namespace picture {
namespace {

using support::Bytes;
using support::jpegFile;
using support::profileChunk;

const Bytes kScan = support::jpegSegment(0xDA, {1, 1, 0, 0, 63, 0});

Bytes counted(std::size_t size, std::uint8_t first) {
    Bytes bytes(size);
    std::iota(bytes.begin(), bytes.end(), first);
    return bytes;
}

Bytes joined(const std::vector<Bytes>& parts) {
    Bytes all;
    for (const Bytes& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

std::optional<Bytes> profileIn(std::span<const std::uint8_t> file) {
    return readEmbeddedProfile(file, readJpegHead(file).profileParts);
}

TEST(EmbeddedProfile, NoneInAFileWithout) {
    EXPECT_FALSE(profileIn({}));
    EXPECT_FALSE(profileIn(jpegFile({kScan})));
    EXPECT_FALSE(profileIn(jpegFile({support::jpegSegment(0xE2, {'M', 'P', 'F', 0, 1, 2})})));
    Bytes other = support::profileSegment(counted(50, 1));
    other[1] = 0xE1;
    EXPECT_FALSE(profileIn(jpegFile({other}))) << "another marker";
    EXPECT_FALSE(profileIn(support::profileSegment(counted(50, 1)))) << "no JPEG";
}

TEST(EmbeddedProfile, ReadsOneChunk) {
    const Bytes profile = counted(300, 7);
    EXPECT_EQ(profileIn(jpegFile({support::profileSegment(profile), kScan})), profile);
}

TEST(EmbeddedProfile, ReadsChunksInAnyOrder) {
    const std::vector<Bytes> parts = {counted(100, 1), counted(90, 50), counted(1, 200), counted(40, 90)};
    std::vector<unsigned> order = {0, 1, 2, 3};
    do {
        std::vector<Bytes> segments;
        for (const unsigned index : order) {
            segments.push_back(profileChunk(parts[index], index + 1, 4));
            segments.push_back(support::jpegSegment(0xE1, {'E', 'x', 'i', 'f', 0, 0}));
        }
        EXPECT_EQ(profileIn(jpegFile(segments)), joined(parts));
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST(EmbeddedProfile, ReadsTheMostChunks) {
    std::vector<Bytes> parts;
    std::vector<Bytes> segments;
    for (unsigned number = 255; number >= 1; --number) {
        segments.push_back(profileChunk(counted(10, static_cast<std::uint8_t>(number)), number, 255));
    }
    for (unsigned number = 1; number <= 255; ++number) {
        parts.push_back(counted(10, static_cast<std::uint8_t>(number)));
    }
    EXPECT_EQ(profileIn(jpegFile(segments)), joined(parts));
}

TEST(EmbeddedProfile, OnePartTooManyIsRemembered) {
    std::vector<Bytes> segments;
    for (unsigned number = 1; number <= 255; ++number) {
        segments.push_back(profileChunk(counted(10, 1), number, 255));
    }
    ASSERT_TRUE(profileIn(jpegFile(segments)));
    segments.insert(segments.end(), 1000, segments.front());
    const Bytes file = jpegFile(segments);
    EXPECT_EQ(readJpegHead(file).profileParts.size(), kMostProfileParts + 1);
    EXPECT_FALSE(profileIn(file));
}

TEST(EmbeddedProfile, IgnoresChunksThatDoNotFit) {
    const Bytes part = counted(60, 3);
    const std::pair<const char*, std::vector<Bytes>> cases[] = {
        {"missing first", {profileChunk(part, 2, 2)}},
        {"missing last", {profileChunk(part, 1, 2)}},
        {"missing between", {profileChunk(part, 1, 3), profileChunk(part, 3, 3)}},
        {"doubled", {profileChunk(part, 1, 2), profileChunk(part, 2, 2), profileChunk(part, 2, 2)}},
        {"doubled instead of another", {profileChunk(part, 1, 2), profileChunk(part, 1, 2)}},
        {"two profiles", {profileChunk(part, 1, 1), profileChunk(part, 1, 1)}},
        {"number 0", {profileChunk(part, 0, 1)}},
        {"count 0", {profileChunk(part, 1, 0)}},
        {"both 0", {profileChunk(part, 0, 0)}},
        {"number beyond the count", {profileChunk(part, 1, 2), profileChunk(part, 3, 2)}},
        {"counts differ", {profileChunk(part, 1, 2), profileChunk(part, 2, 3)}},
        {"a second one with another count", {profileChunk(part, 1, 1), profileChunk(part, 2, 2)}},
        {"empty", {profileChunk({}, 1, 1)}},
    };
    for (const auto& [name, segments] : cases) {
        EXPECT_FALSE(profileIn(jpegFile(segments))) << name;
    }
}

TEST(EmbeddedProfile, IsNotReadBeyondItsLimit) {
    const auto file = [](std::size_t total) {
        constexpr std::size_t kPart = 65000;
        const auto count = static_cast<unsigned>((total + kPart - 1) / kPart);
        std::vector<Bytes> segments;
        for (unsigned number = 1; number <= count; ++number) {
            const std::size_t size = std::min(kPart, total - (number - 1) * kPart);
            segments.push_back(profileChunk(Bytes(size, 1), number, count));
        }
        return jpegFile(segments);
    };
    const auto most = profileIn(file(kMostProfileBytes));
    ASSERT_TRUE(most);
    EXPECT_EQ(most->size(), kMostProfileBytes);
    EXPECT_FALSE(profileIn(file(kMostProfileBytes + 1)));
}

/// A file that ends within a chunk gives less than the whole profile, which its own length then tells.
TEST(EmbeddedProfile, EveryTruncationGivesNoneOrABeginning) {
    const std::vector<Bytes> parts = {counted(40, 1), counted(30, 100)};
    const Bytes all = joined(parts);
    const Bytes file = jpegFile({profileChunk(parts[0], 1, 2), profileChunk(parts[1], 2, 2)});
    for (std::size_t size = 0; size < file.size(); ++size) {
        const auto found = profileIn(std::span(file).first(size));
        if (found) {
            ASSERT_LT(found->size(), all.size());
            EXPECT_GT(size, file.size() - parts[1].size() - 1);
            EXPECT_TRUE(std::equal(found->begin(), found->end(), all.begin()));
        }
    }
}

}  // namespace
}  // namespace picture
