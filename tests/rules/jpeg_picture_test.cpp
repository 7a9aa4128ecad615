#include "picture/jpeg_picture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "picture/pixels.h"
#include "support/jpeg_file.h"

namespace picture {
namespace {

using support::Bytes;
using support::JpegKind;
using support::motley;
using support::readRows;
using support::writeJpeg;

constexpr int kWidth = 149;
constexpr int kHeight = 107;

class EveryJpegKind : public testing::TestWithParam<JpegKind> {};

TEST_P(EveryJpegKind, GivesTheRowsOfTheLibrary) {
    const Bytes file = writeJpeg(kWidth, kHeight, GetParam(), motley);
    const Bytes expected = support::plainDecode(file);
    for (const int band : {1, 7, 16, kHeight}) {
        JpegPicture picture(file);
        ASSERT_EQ(picture.width(), kWidth);
        ASSERT_EQ(picture.height(), kHeight);
        EXPECT_TRUE(readRows(picture, kWidth, kHeight, band) == expected) << band << " rows at a time";
    }
}

TEST_P(EveryJpegKind, PartEqualsPartOfTheWhole) {
    const Bytes file = writeJpeg(kWidth, kHeight, GetParam(), motley);
    const Bytes whole = support::plainDecode(file);
    JpegPicture picture(file);
    constexpr int kLeft = 13;
    constexpr int kTop = 21;
    constexpr int kPart = 100;
    constexpr int kRows = 40;
    constexpr std::size_t kStride = kPart * 3 + 5;
    Bytes part(kStride * kRows, 0x55);
    picture.read(kLeft, kTop, kPart, 9, part.data(), kStride);
    picture.read(kLeft, kTop + 9, kPart, kRows - 9, part.data() + 9 * kStride, kStride);
    for (int y = 0; y < kRows; ++y) {
        const auto row = part.begin() + static_cast<std::ptrdiff_t>(kStride) * y;
        const auto expected = whole.begin() + ((kTop + y) * kWidth + kLeft) * 3;
        ASSERT_TRUE(std::equal(row, row + kPart * 3, expected)) << "row " << y;
        ASSERT_TRUE(std::all_of(row + kPart * 3, row + kStride, [](int byte) { return byte == 0x55; }));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, EveryJpegKind,
    testing::Values(JpegKind{}, JpegKind{.name = "every_pixel", .across = 1, .down = 1},
                    JpegKind{.name = "half_across", .across = 2, .down = 1},
                    JpegKind{.name = "half_down", .across = 1, .down = 2},
                    JpegKind{.name = "quarter_across", .across = 4, .down = 1},
                    JpegKind{.name = "grey", .stored = JCS_GRAYSCALE, .across = 1, .down = 1},
                    JpegKind{.name = "red_green_blue", .stored = JCS_RGB, .across = 1, .down = 1},
                    JpegKind{.name = "progressive", .progressive = true},
                    JpegKind{.name = "grey_progressive", .stored = JCS_GRAYSCALE, .progressive = true},
                    JpegKind{.name = "arithmetic", .arithmetic = true},
                    JpegKind{.name = "arithmetic_progressive", .progressive = true, .arithmetic = true},
                    JpegKind{.name = "components_apart", .apart = true},
                    JpegKind{.name = "restarts", .restarts = 1},
                    JpegKind{.name = "restarts_progressive", .progressive = true, .restarts = 2}),
    [](const auto& instance) { return std::string(instance.param.name); });

class Inks : public testing::TestWithParam<JpegKind> {};

/// As Adobe writes them, 255 is no ink; otherwise it is full ink.
TEST_P(Inks, BecomeColours) {
    const bool inverted = GetParam().adobe;
    const int wanted[] = {200, 40, 120};
    const auto inks = [&](int x, int, int channel) {
        // Black ink takes half of the light in the right part.
        const int light = channel == 3 ? (x < 32 ? 255 : 128) : wanted[channel];
        return inverted ? light : 255 - light;
    };
    const Bytes file = writeJpeg(64, 32, GetParam(), inks);
    const Bytes plain = support::plainDecode(file, JCS_CMYK);
    JpegPicture picture(file);
    const Bytes rows = readRows(picture, 64, 32);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::uint8_t* pixel = plain.data() + i / 3 * 4;
        const auto light = [&](std::size_t ink) { return inverted ? pixel[ink] : 255 - pixel[ink]; };
        ASSERT_NEAR(rows[i], light(2 - i % 3) * light(3) / 255.0, 0.51) << i;
    }
    for (std::size_t channel = 0; channel < 3; ++channel) {
        EXPECT_NEAR(rows[(16 * 64 + 12) * 3 + 2 - channel], wanted[channel], 4) << channel;
        EXPECT_NEAR(rows[(16 * 64 + 52) * 3 + 2 - channel], wanted[channel] / 2, 4) << channel;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, Inks,
    testing::Values(
        JpegKind{.name = "cmyk_of_adobe", .stored = JCS_CMYK, .across = 1, .down = 1},
        JpegKind{.name = "ycck_of_adobe", .stored = JCS_YCCK, .across = 1, .down = 1},
        JpegKind{.name = "ycck_progressive", .stored = JCS_YCCK, .progressive = true},
        JpegKind{.name = "cmyk_of_others", .stored = JCS_CMYK, .across = 1, .down = 1, .adobe = false}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST(JpegPictures, SixteenThousandPixelsAreNotTooWide) {
    const Bytes file = writeJpeg(16000, 24, {}, motley);
    JpegPicture picture(file);
    ASSERT_EQ(picture.width(), 16000);
    EXPECT_TRUE(readRows(picture, 16000, 24) == support::plainDecode(file));
}

/// The size that is patched into the header of a file.
Bytes withSize(Bytes file, int width, int height) {
    std::size_t frame = support::findMarker(file, 0xC0);
    frame = frame == file.size() ? support::findMarker(file, 0xC2) : frame;
    for (const int value : {height, width}) {
        file[frame + 5] = static_cast<std::uint8_t>(value >> 8);
        file[frame + 6] = static_cast<std::uint8_t>(value);
        frame += 2;
    }
    return file;
}

struct Reduction {
    int width, height, wantedWidth, wantedHeight;
    int reducedWidth, reducedHeight;
};

class JpegReduction : public testing::TestWithParam<Reduction> {};

TEST_P(JpegReduction, LeavesTheScalerEnoughToDo) {
    const Reduction& r = GetParam();
    for (const bool progressive : {false, true}) {
        JpegPicture picture(
            withSize(writeJpeg(16, 16, {.progressive = progressive}, motley), r.width, r.height));
        picture.reduceFor(r.wantedWidth, r.wantedHeight);
        EXPECT_EQ(picture.width(), r.reducedWidth);
        EXPECT_EQ(picture.height(), r.reducedHeight);
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, JpegReduction,
                         testing::Values(Reduction{6000, 4000, 1620, 1080, 3000, 2000},
                                         Reduction{6001, 4003, 2000, 1334, 3001, 2002},
                                         Reduction{6001, 4003, 2001, 1334, 6001, 4003},
                                         Reduction{6000, 4000, 100, 1334, 6000, 4000},
                                         Reduction{6000, 4000, 1000, 666, 1500, 1000},
                                         Reduction{6000, 4000, 160, 120, 750, 500},
                                         Reduction{6000, 4000, 9000, 6000, 6000, 4000},
                                         Reduction{3840, 2160, 160, 120, 3840, 2160},
                                         Reduction{3841, 2160, 160, 90, 481, 270}));

double squaresBetween(const Pixels& a, const Pixels& b) {
    double sum = 0;
    for (std::size_t i = 0; i < a.data.size(); ++i) {
        for (int shift = 0; shift < 24; shift += 8) {
            const int off =
                static_cast<int>(a.data[i] >> shift & 0xFF) - static_cast<int>(b.data[i] >> shift & 0xFF);
            sum += off * off;
        }
    }
    return sum;
}

Pixels scaled(const Bytes& file, int width, int height, bool reduced) {
    JpegPicture picture(file);
    if (reduced) {
        picture.reduceFor(width, height);
    }
    EXPECT_EQ(picture.width() < 3900, reduced);
    Pixels target(width, height);
    scalePicture({{0, 0, picture.width(), picture.height()}, width, height, {0, 0, width, height}}, picture,
                 {target.data.data(), 1, width});
    return target;
}

/// A photograph: soft slopes with the grain of a sensor over them.
TEST(JpegReductions, PhotographEqualsTheMeanOfTheWhole) {
    constexpr int kLarge = 3900;
    std::mt19937 random(5);
    int grain = 0;
    const Bytes file = writeJpeg(kLarge, 2200, {.quality = 90}, [&](int x, int y, int channel) {
        grain = channel == 0 ? static_cast<int>(random() >> 28) - 8 : grain;
        const int slope = x * 160 / kLarge + ((y * 3 / 64) ^ (x / 64)) % 48 + grain + 16;
        return channel == 0 ? slope : channel == 1 ? slope * 7 / 8 : 255 - slope;
    });
    for (const auto& [width, height] : {std::pair{1300, 733}, std::pair{970, 547}, std::pair{325, 183}}) {
        const Pixels exact = scaled(file, width, height, false);
        const double squares = squaresBetween(scaled(file, width, height, true), exact);
        const double psnr =
            10 * std::log10(255.0 * 255.0 * 3 * static_cast<double>(exact.data.size()) / squares);
        EXPECT_GE(psnr, 49.0) << width;
    }
}

/// Half the size is the mean of two by two pixels, so even lines of one pixel stay exact.
TEST(JpegReductions, FinestLinesKeepTheirMean) {
    const Bytes file = writeJpeg(3904, 2200, {.stored = JCS_GRAYSCALE, .across = 1, .down = 1, .quality = 98},
                                 [](int x, int, int) { return x % 2 == 0 ? 220 : 40; });
    const Pixels reduced = scaled(file, 976, 550, true);
    for (const std::uint32_t pixel : reduced.data) {
        ASSERT_NEAR(static_cast<double>(pixel & 0xFF), 130, 2);
    }
}

/// What a decode takes is told before it begins: a band, or the coefficients, of two bytes each.
TEST(JpegPictures, TellTheMemoryTheyTake) {
    const Bytes baseline = withSize(writeJpeg(16, 16, {}, motley), 6000, 4000);
    EXPECT_LT(JpegPicture(baseline).memory(), 2'000'000U);
    const Bytes progressive = withSize(writeJpeg(16, 16, {.progressive = true}, motley), 6000, 4000);
    EXPECT_GE(JpegPicture(progressive).memory(), 72'000'000U);
    EXPECT_LT(JpegPicture(progressive).memory(), 74'000'000U);
    const Bytes full =
        withSize(writeJpeg(16, 16, {.across = 1, .down = 1, .apart = true}, motley), 6000, 4000);
    EXPECT_GE(JpegPicture(full).memory(), 144'000'000U);
}

TEST(JpegPictures, LargestPictureIsKnownByItsHeader) {
    const Bytes file = writeJpeg(16, 16, {}, motley);
    EXPECT_NO_THROW(JpegPicture(withSize(file, 25000, 20000)));
    EXPECT_THROW(JpegPicture(withSize(file, 25000, 20001)), JpegError);
}

}  // namespace
}  // namespace picture
