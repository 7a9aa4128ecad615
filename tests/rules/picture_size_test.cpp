#include "picture/picture_size.h"

#include <gtest/gtest.h>

#include "picture/jpeg_header.h"
#include "support/exif_bytes.h"
#include "support/profile_bytes.h"

namespace picture {
namespace {

using support::Bytes;
using support::jpegFile;
using support::jpegSegment;

const Bytes kTables = jpegSegment(0xDB, Bytes(65, 1));
const Bytes kScan = jpegSegment(0xDA, {1, 1, 0, 0, 63, 0});

Bytes frame(std::uint8_t marker, int width, int height, std::uint8_t components = 3) {
    const auto high = [](int value) { return static_cast<std::uint8_t>(value >> 8); };
    const auto low = [](int value) { return static_cast<std::uint8_t>(value); };
    return jpegSegment(marker, {8, high(height), low(height), high(width), low(width), components});
}

TEST(JpegHeader, ReadsEveryKindOfFrame) {
    for (int marker = 0xC0; marker <= 0xCF; ++marker) {
        const Bytes file = jpegFile({kTables, frame(static_cast<std::uint8_t>(marker), 6000, 4000)});
        const auto header = readJpegHeader(file);
        const bool isFrame = marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        ASSERT_EQ(header.has_value(), isFrame) << std::hex << marker;
        if (header) {
            EXPECT_EQ(header->width, 6000);
            EXPECT_EQ(header->height, 4000);
            EXPECT_EQ(header->dataLength, 0U);
        }
    }
}

// A file of many megabytes is walked through once.
TEST(JpegHeader, OnePassReadsAllThatStandsBeforeTheData) {
    constexpr int kShort = 3;
    support::ExifBytes exif(support::ExifBytes::Order::Intel);
    exif.add(1, 2).entry(0x0112, kShort, 1, 6).add(0, 4);
    const Bytes file =
        jpegFile({support::exifSegment(exif), support::profileChunk(Bytes(9, 1), 2, 2), kTables,
                  frame(0xC0, 600, 400), support::profileChunk(Bytes(9, 2), 1, 2), kScan, Bytes(5, 0)});
    const JpegHead head = readJpegHead(file);
    ASSERT_TRUE(head.header);
    EXPECT_EQ(head.header->width, 600);
    EXPECT_EQ(head.header->dataLength, 5U);
    EXPECT_EQ(head.exif.orientation, Orientation::Turn90);
    EXPECT_EQ(head.profileParts.size(), 2U);
}

TEST(JpegHeader, TellsHowMuchPictureDataThereIs) {
    const Bytes file = jpegFile({kTables, frame(0xC2, 16000, 9, 4), kScan, Bytes(77, 0)});
    const auto header = readJpegHeader(file);
    ASSERT_TRUE(header);
    EXPECT_EQ(header->dataLength, 77U);
}

TEST(JpegHeader, PictureThatEndsAtOnceHasNoData) {
    const auto header = readJpegHeader(jpegFile({frame(0xC0, 10, 10), kScan, Bytes{0xFF, 0xD9}}));
    ASSERT_TRUE(header);
    EXPECT_EQ(header->dataLength, 0U);
}

TEST(JpegHeader, SizeOfAnEmbeddedPictureIsNotTaken) {
    const Bytes inner = jpegFile({frame(0xC0, 160, 120)});
    const auto header = readJpegHeader(jpegFile({jpegSegment(0xE1, inner), frame(0xC0, 600, 400)}));
    ASSERT_TRUE(header);
    EXPECT_EQ(header->width, 600);
}

TEST(JpegHeader, NothingWithoutASize) {
    for (const Bytes& file : {Bytes{}, Bytes{0xFF, 0xD8}, jpegFile({kTables}), jpegFile({frame(0xC0, 0, 10)}),
                              jpegFile({frame(0xC0, 10, 0)}), jpegFile({kScan, frame(0xC0, 10, 10)}),
                              jpegFile({Bytes{0xFF, 0xD9}, frame(0xC0, 10, 10)}),
                              jpegFile({Bytes{0xFF, 0xC0, 0, 1, 8, 0, 1, 0, 1, 3}})}) {
        EXPECT_FALSE(readJpegHeader(file)) << file.size();
    }
}

TEST(JpegHeader, SurvivesTruncationAtEveryByte) {
    const Bytes file = jpegFile({kTables, frame(0xC0, 600, 400), kScan, Bytes(5, 0)});
    const std::size_t told = 2 + kTables.size() + 4 + 6;
    for (std::size_t length = 0; length <= file.size(); ++length) {
        const Bytes part(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_EQ(readJpegHeader(part).has_value(), length >= told) << length;
    }
}

struct Case {
    const char* name;
    Bytes file;
    std::optional<PictureSize> expected;
};

class PictureSizes : public testing::TestWithParam<Case> {};

TEST_P(PictureSizes, AreTold) {
    EXPECT_EQ(readPictureSize(GetParam().file), GetParam().expected);
}

const Bytes kPng = {0x89, 'P', 'N', 'G', 13, 10, 26, 10, 0, 0, 0, 13,
                    'I',  'H', 'D', 'R', 0,  0,  1,  2,  0, 1, 0, 3};

Bytes bitmap(std::int32_t width, std::int32_t height) {
    Bytes bytes(18, 0);
    bytes[0] = 'B';
    bytes[1] = 'M';
    for (const std::int32_t value : {width, height}) {
        for (int shift = 0; shift < 32; shift += 8) {
            bytes.push_back(static_cast<std::uint8_t>(static_cast<std::uint32_t>(value) >> shift));
        }
    }
    return bytes;
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, PictureSizes,
    testing::Values(Case{"jpeg", jpegFile({frame(0xC0, 600, 400)}), PictureSize{600, 400}},
                    Case{"png", kPng, PictureSize{258, 65539}},
                    Case{"png_cut", Bytes(kPng.begin(), kPng.end() - 1), std::nullopt},
                    Case{"bmp", bitmap(640, 480), PictureSize{640, 480}},
                    Case{"bmp_top_down", bitmap(640, -480), PictureSize{640, 480}},
                    Case{"bmp_lowest_height", bitmap(640, INT32_MIN), std::nullopt},
                    Case{"bmp_empty", bitmap(0, 480), std::nullopt},
                    Case{"bmp_cut", Bytes{'B', 'M', 0, 0}, std::nullopt},
                    Case{"gif", Bytes{'G', 'I', 'F', '8', '9', 'a', 1, 2, 3, 0}, PictureSize{513, 3}},
                    Case{"text", Bytes{'h', 'e', 'l', 'l', 'o'}, std::nullopt},
                    Case{"nothing", Bytes{}, std::nullopt}),
    [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
}  // namespace picture
