#include "picture/camera_notes.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "support/exif_bytes.h"

namespace picture {
namespace {

using support::Bytes;
using support::ExifBytes;
using Order = ExifBytes::Order;

constexpr std::uint32_t kAscii = 2;
constexpr std::uint32_t kShort = 3;
constexpr std::uint32_t kLong = 4;
constexpr std::uint32_t kFraction = 5;

/// What a camera's file tells, for tests to spoil one of it.
struct Told {
    std::string make = std::string("Canon\0\0\0\0\0", 10);
    std::string model = std::string("Canon EOS\0", 10);
    std::uint32_t above = 1;
    std::uint32_t below = 250;
    std::uint32_t sensitivity = 400;
    std::uint32_t fractionType = kFraction;
};

Bytes fileOf(Order order, const Told& told = {}) {
    constexpr std::uint32_t kFirst = 8;
    constexpr std::uint32_t kCamera = kFirst + 2 + 3 * 12 + 4;
    constexpr std::uint32_t kValues = kCamera + 2 + 4 * 12 + 4;
    const auto makeLength = static_cast<std::uint32_t>(told.make.size());
    const std::uint32_t fractions = kValues + makeLength + 10;
    ExifBytes exif(order);
    exif.add(3, 2).entry(0x010F, kAscii, makeLength, kValues);
    exif.entry(0x0110, kAscii, 10, kValues + makeLength).entry(0x8769, kLong, 1, kCamera).add(0, 4);
    exif.add(4, 2).entry(0x829A, told.fractionType, 1, fractions);
    exif.entry(0x829D, kFraction, 1, fractions + 8).entry(0x8827, kShort, 1, told.sensitivity);
    exif.entry(0x920A, kFraction, 1, fractions + 16).add(0, 4);
    exif.append(told.make).append(told.model);
    exif.add(told.above, 4).add(told.below, 4).add(28, 4).add(10, 4).add(50, 4).add(1, 4);
    const Bytes frame = support::jpegSegment(0xC0, {8, 0, 48, 0, 64, 3, 1, 0x11, 0});
    return support::jpegFile({support::exifSegment(exif), frame});
}

class CameraNotesTest : public testing::TestWithParam<Order> {};
INSTANTIATE_TEST_SUITE_P(Orders, CameraNotesTest, testing::Values(Order::Intel, Order::Motorola),
                         [](const auto& instance) {
                             return std::string(instance.param == Order::Intel ? "intel" : "motorola");
                         });

TEST_P(CameraNotesTest, ReadsWhatACameraTells) {
    const CameraNotes notes = readCameraNotes(fileOf(GetParam()));
    EXPECT_EQ(notes.make, "Canon");
    EXPECT_EQ(notes.model, "Canon EOS");
    EXPECT_DOUBLE_EQ(notes.exposureTime.value_or(0), 1.0 / 250);
    EXPECT_DOUBLE_EQ(notes.fNumber.value_or(0), 2.8);
    EXPECT_EQ(notes.sensitivity, 400);
    EXPECT_DOUBLE_EQ(notes.focalLength.value_or(0), 50);
}

TEST_P(CameraNotesTest, BlanksAndControlCharactersOfATextDoNotCount) {
    const struct {
        std::string stored;
        std::string expected;
    } cases[] = {
        {std::string("Canon \0xx", 9), "Canon"},
        {"  Canon  ", "Canon"},
        {"Ca\nn\x7Fn", "Ca n n"},
        {"          ", ""},
        {std::string(10, '\0'), ""},
        {std::string(300, 'x'), std::string(80, 'x')},
    };
    for (const auto& c : cases) {
        Told told;
        told.make = c.stored;
        EXPECT_EQ(readCameraNotes(fileOf(GetParam(), told)).make, c.expected) << c.stored;
    }
}

TEST_P(CameraNotesTest, AShortTextStandsInItsEntry) {
    ExifBytes exif(GetParam());
    exif.add(1, 2).add(0x010F, 2).add(kAscii, 2).add(4, 4).append(std::string("LG\0\0", 4)).add(0, 4);
    EXPECT_EQ(readCameraNotes(support::jpegFile({support::exifSegment(exif)})).make, "LG");
}

TEST_P(CameraNotesTest, NumbersThatMeanNothingAreMissing) {
    Told told;
    told.above = 0;
    EXPECT_FALSE(readCameraNotes(fileOf(GetParam(), told)).exposureTime);
    told = {};
    told.below = 0;
    EXPECT_FALSE(readCameraNotes(fileOf(GetParam(), told)).exposureTime);
    told = {};
    told.fractionType = kLong;
    EXPECT_FALSE(readCameraNotes(fileOf(GetParam(), told)).exposureTime);
    told = {};
    told.sensitivity = 0;
    EXPECT_FALSE(readCameraNotes(fileOf(GetParam(), told)).sensitivity);
    told = {};
    told.sensitivity = 65535;
    EXPECT_EQ(readCameraNotes(fileOf(GetParam(), told)).sensitivity, 65535);
}

/// A copy of exactly these bytes in memory of their own, so that reading past the end is seen.
void expectSound(const Bytes& bytes, std::size_t length) {
    const auto copy = std::make_unique<std::uint8_t[]>(length);
    std::copy_n(bytes.begin(), length, copy.get());
    const CameraNotes notes = readCameraNotes({copy.get(), length});
    EXPECT_LE(notes.make.size(), 80u);
    EXPECT_LE(notes.model.size(), 80u);
    EXPECT_GT(notes.exposureTime.value_or(1), 0);
    EXPECT_GT(notes.fNumber.value_or(1), 0);
    EXPECT_GT(notes.focalLength.value_or(1), 0);
    EXPECT_GT(notes.sensitivity.value_or(1), 0);
}

TEST_P(CameraNotesTest, SurvivesTruncationAndDamage) {
    const Bytes file = fileOf(GetParam());
    for (std::size_t length = 0; length <= file.size(); ++length) {
        expectSound(file, length);
    }
    std::mt19937 random(5);
    for (int run = 0; run < 20000; ++run) {
        Bytes damaged = file;
        for (unsigned i = 0; i < 1 + random() % 8; ++i) {
            constexpr std::uint8_t kExtremes[] = {0, 1, 0x7F, 0x80, 0xFE, 0xFF};
            damaged[random() % damaged.size()] = kExtremes[random() % std::size(kExtremes)];
        }
        expectSound(damaged, damaged.size());
    }
}

TEST(CameraNotes, FilesWithoutABlockTellNothing) {
    for (const Bytes& file : {Bytes{}, Bytes{0xFF, 0xD8}, Bytes(1000, 0xFF)}) {
        const CameraNotes notes = readCameraNotes(file);
        EXPECT_TRUE(notes.make.empty() && notes.model.empty());
        EXPECT_FALSE(notes.exposureTime || notes.fNumber || notes.sensitivity || notes.focalLength);
    }
}

}  // namespace
}  // namespace picture
