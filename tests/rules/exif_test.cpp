#include "picture/exif.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "support/exif_bytes.h"

namespace picture {
namespace {

using support::Bytes;
using support::ExifBytes;
using Order = ExifBytes::Order;

constexpr std::uint32_t kShort = 3;
constexpr std::uint32_t kLong = 4;
constexpr std::uint32_t kAscii = 2;

Bytes withOrientation(Order order, std::uint32_t value, std::uint32_t type = kShort,
                      std::uint32_t count = 1) {
    ExifBytes exif(order);
    exif.add(1, 2).entry(0x0112, type, count, value).add(0, 4);
    return support::jpegFile({support::exifSegment(exif)});
}

class BothOrders : public testing::TestWithParam<Order> {};
INSTANTIATE_TEST_SUITE_P(Orders, BothOrders, testing::Values(Order::Intel, Order::Motorola),
                         [](const auto& instance) {
                             return std::string(instance.param == Order::Intel ? "intel" : "motorola");
                         });

TEST_P(BothOrders, ReadsEveryOrientation) {
    for (std::uint32_t value = 1; value <= 8; ++value) {
        for (const std::uint32_t type : {kShort, kLong}) {
            const ExifInfo info = readExif(withOrientation(GetParam(), value, type));
            EXPECT_EQ(static_cast<std::uint32_t>(info.orientation), value);
        }
    }
}

TEST_P(BothOrders, IgnoresIllegalOrientations) {
    for (const std::uint32_t value : {0U, 9U, 255U, 0x0600U, 0xFFFFU}) {
        EXPECT_EQ(readExif(withOrientation(GetParam(), value)).orientation, Orientation::Upright) << value;
    }
    EXPECT_EQ(readExif(withOrientation(GetParam(), 0x60006, kLong)).orientation, Orientation::Upright);
    EXPECT_EQ(readExif(withOrientation(GetParam(), 6, kAscii)).orientation, Orientation::Upright);
    EXPECT_EQ(readExif(withOrientation(GetParam(), 6, kShort, 2)).orientation, Orientation::Upright);
    EXPECT_EQ(readExif(withOrientation(GetParam(), 6, kShort, 0)).orientation, Orientation::Upright);
}

/// A block as cameras write it: orientation, dates, a directory of the camera's own and a thumbnail.
struct CameraFile {
    Bytes bytes;
    ByteRange thumbnail;
};

const Bytes kThumbnail = {0xFF, 0xD8, 0xFF, 0xDB, 1, 2, 3, 0xFF, 0xD9};

CameraFile cameraFile(Order order, const std::string& original = "2026:11:21 05:38:44") {
    constexpr std::uint32_t kFirst = 8;
    constexpr std::uint32_t kCamera = kFirst + 2 + 3 * 12 + 4;
    constexpr std::uint32_t kSecond = kCamera + 2 + 12 + 4;
    constexpr std::uint32_t kTexts = kSecond + 2 + 2 * 12 + 4;
    constexpr std::uint32_t kPicture = kTexts + 40;
    ExifBytes exif(order);
    exif.add(3, 2).entry(0x0112, kShort, 1, 8).entry(0x0132, kAscii, 20, kTexts);
    exif.entry(0x8769, kLong, 1, kCamera).add(kSecond, 4);
    exif.add(1, 2).entry(0x9003, kAscii, 20, kTexts + 20).add(0, 4);
    exif.add(2, 2).entry(0x0201, kLong, 1, kPicture);
    exif.entry(0x0202, kLong, 1, static_cast<std::uint32_t>(kThumbnail.size())).add(0, 4);
    exif.append(std::string("2024:02:29 23:59:58") + '\0').append(original + '\0').append(kThumbnail);
    const Bytes before = support::jpegSegment(0xE0, {'J', 'F', 'I', 'F', 0, 1, 1, 0, 0, 1, 0, 1, 0, 0});
    const Bytes frame = support::jpegSegment(0xC0, {8, 0, 48, 0, 64, 3, 1, 0x11, 0});
    return {support::jpegFile({before, support::exifSegment(exif), frame}),
            {2 + before.size() + 4 + 6 + kPicture, kThumbnail.size()}};
}

TEST_P(BothOrders, ReadsACamerasBlock) {
    const CameraFile file = cameraFile(GetParam());
    const ExifInfo info = readExif(file.bytes);
    EXPECT_EQ(info.orientation, Orientation::Turn270);
    EXPECT_EQ(info.thumbnail, file.thumbnail);
    EXPECT_EQ(info.date, (ExifDate{2026, 11, 21, 5, 38, 44}));
    ASSERT_TRUE(info.thumbnail);
    EXPECT_EQ(Bytes(file.bytes.begin() + static_cast<std::ptrdiff_t>(info.thumbnail->offset),
                    file.bytes.begin() +
                        static_cast<std::ptrdiff_t>(info.thumbnail->offset + info.thumbnail->length)),
              kThumbnail);
}

TEST_P(BothOrders, UnreadableMomentGivesWayToTheOtherOne) {
    for (const char* text :
         {"    :  :     :  :  ", "2026:13:01 00:00:00", "2026:00:01 00:00:00", "2026:02:29 00:00:00",
          "2026:04:31 00:00:00", "2026:01:00 00:00:00", "0000:01:01 00:00:00", "2026:01:01 24:00:00",
          "2026:01:01 00:60:00", "2026:01:01 00:00:60", "2026:01:01 00:00:0x"}) {
        EXPECT_EQ(readExif(cameraFile(GetParam(), text).bytes).date, (ExifDate{2024, 2, 29, 23, 59, 58}))
            << text;
    }
}

/// A copy of exactly these bytes in memory of their own, so that reading past the end is seen.
ExifInfo readAlone(const Bytes& bytes, std::size_t length) {
    const auto copy = std::make_unique<std::uint8_t[]>(length);
    std::copy_n(bytes.begin(), length, copy.get());
    return readExif({copy.get(), length});
}

void expectWithin(const ExifInfo& info, std::size_t length) {
    const int value = static_cast<int>(info.orientation);
    EXPECT_TRUE(value >= 1 && value <= 8) << value;
    if (info.thumbnail) {
        EXPECT_LE(info.thumbnail->offset, length);
        EXPECT_LE(info.thumbnail->length, length - info.thumbnail->offset);
    }
}

TEST_P(BothOrders, SurvivesTruncationAtEveryByte) {
    const CameraFile file = cameraFile(GetParam());
    for (std::size_t length = 0; length <= file.bytes.size(); ++length) {
        const ExifInfo info = readAlone(file.bytes, length);
        expectWithin(info, length);
        if (length < file.thumbnail.offset + file.thumbnail.length) {
            EXPECT_FALSE(info.thumbnail) << length;
        }
    }
}

TEST_P(BothOrders, SurvivesEveryValueOfEveryByte) {
    const CameraFile file = cameraFile(GetParam());
    for (std::size_t at = 0; at < file.bytes.size(); ++at) {
        for (int value = 0; value < 256; ++value) {
            Bytes damaged = file.bytes;
            damaged[at] = static_cast<std::uint8_t>(value);
            expectWithin(readAlone(damaged, damaged.size()), damaged.size());
        }
    }
}

TEST_P(BothOrders, SurvivesRandomDamage) {
    const CameraFile file = cameraFile(GetParam());
    std::mt19937 random(5);
    for (int run = 0; run < 20000; ++run) {
        Bytes damaged = file.bytes;
        for (unsigned i = 0; i < 1 + random() % 8; ++i) {
            constexpr std::uint8_t kExtremes[] = {0, 1, 0x7F, 0x80, 0xFE, 0xFF};
            damaged[random() % damaged.size()] = kExtremes[random() % std::size(kExtremes)];
        }
        expectWithin(readAlone(damaged, damaged.size()), damaged.size());
    }
}

TEST_P(BothOrders, ThumbnailOutsideTheBlockIsIgnored) {
    // Cameras have been seen to count the length up to the end of the file.
    constexpr std::uint32_t kPicture = 8 + 2 + 4 + 2 + 2 * 12 + 4;
    for (const auto& [offset, length] :
         std::initializer_list<std::pair<std::uint32_t, std::uint32_t>>{{kPicture, 10},
                                                                        {kPicture + 1, 9},
                                                                        {0xFFFFFFFF, 9},
                                                                        {kPicture, 0xFFFFFFFF},
                                                                        {kPicture, 3},
                                                                        {kPicture + 2, 7}}) {
        ExifBytes exif(GetParam());
        exif.add(0, 2).add(14, 4).add(2, 2).entry(0x0201, kLong, 1, offset);
        exif.entry(0x0202, kLong, 1, length).add(0, 4).append(kThumbnail);
        const Bytes after = support::jpegSegment(0xFE, Bytes(100, 'x'));
        EXPECT_FALSE(readExif(support::jpegFile({support::exifSegment(exif), after})).thumbnail)
            << offset << " " << length;
    }
}

TEST(Exif, FilesWithoutABlockGiveTheDefaults) {
    const Bytes other = support::jpegSegment(0xE1, {'h', 't', 't', 'p', ':', '/', '/', 'n', 's'});
    const Bytes noOrder = support::jpegSegment(0xE1, {'E', 'x', 'i', 'f', 0, 0, 'X', 'X', 0, 42, 0, 0, 0, 8});
    for (const Bytes& file : {Bytes{}, Bytes{0xFF}, Bytes{0xFF, 0xD8}, Bytes(1000, 0), Bytes(1000, 0xFF),
                              support::jpegFile({other}), support::jpegFile({noOrder})}) {
        const ExifInfo info = readExif(file);
        EXPECT_EQ(info.orientation, Orientation::Upright);
        EXPECT_FALSE(info.thumbnail);
        EXPECT_FALSE(info.date);
    }
}

TEST(Exif, BlockAfterOtherSegmentsAndFillBytesIsFound) {
    const Bytes file = withOrientation(Order::Motorola, 3);
    const Bytes block(file.begin() + 2, file.end());
    const Bytes other = support::jpegSegment(0xE1, {'h', 't', 't', 'p', ':', '/', '/', 'n', 's'});
    EXPECT_EQ(readExif(support::jpegFile({other, Bytes{0xFF, 0xFF}, block})).orientation,
              Orientation::Turn180);
}

TEST(Exif, BlockAfterThePictureDataIsNotRead) {
    const Bytes file = withOrientation(Order::Motorola, 3);
    const Bytes block(file.begin() + 2, file.end());
    const Bytes scan = support::jpegSegment(0xDA, {1, 1, 0, 0, 63, 0});
    EXPECT_EQ(readExif(support::jpegFile({scan, block})).orientation, Orientation::Upright);
}

}  // namespace
}  // namespace picture
