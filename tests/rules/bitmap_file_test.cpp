#include "overview/bitmap_file.h"

#include <gtest/gtest.h>

namespace overview {
namespace {

picture::Pixels pattern(int width, int height) {
    picture::Pixels pixels(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            pixels.row(y)[x] = static_cast<std::uint32_t>(x * 65536 + y * 256 + (x ^ y));
        }
    }
    return pixels;
}

TEST(BitmapFile, RoundTrips) {
    for (const auto& [width, height] : {std::pair{1, 1}, {2, 3}, {3, 2}, {5, 5}, {160, 120}, {201, 151}}) {
        const picture::Pixels pixels = pattern(width, height);
        const auto read = decodeBitmap(encodeBitmap(pixels));
        ASSERT_TRUE(read) << width << " x " << height;
        EXPECT_EQ(read->width, width);
        EXPECT_EQ(read->height, height);
        EXPECT_EQ(read->data, pixels.data) << width << " x " << height;
    }
}

TEST(BitmapFile, IsTheFileThatEverybodyReads) {
    picture::Pixels pixels(1, 2);
    pixels.data = {0x112233, 0x445566};
    const std::vector<std::uint8_t> expected{
        'B', 'M', 62, 0, 0, 0, 0, 0,  0, 0, 54, 0,    0,    0,    40, 0,    0,    0,    1, 0, 0,
        0,   2,   0,  0, 0, 1, 0, 24, 0, 0, 0,  0,    0,    0,    8,  0,    0,    0,    0, 0, 0,
        0,   0,   0,  0, 0, 0, 0, 0,  0, 0, 0,  0x66, 0x55, 0x44, 0,  0x33, 0x22, 0x11, 0};
    std::vector<std::uint8_t> bytes = encodeBitmap(pixels);
    ASSERT_EQ(bytes.size(), 62U);
    EXPECT_TRUE(std::equal(bytes.begin(), bytes.begin() + 30, expected.begin()));
    EXPECT_TRUE(std::equal(bytes.end() - 8, bytes.end(), expected.end() - 8));
}

TEST(BitmapFile, ReadsWideAndUpsideDownOnes) {
    const picture::Pixels pixels = pattern(3, 2);
    std::vector<std::uint8_t> bytes = encodeBitmap(pixels);
    bytes.resize(54);
    bytes[28] = 32;
    bytes[22] = 0xFE;
    bytes[23] = bytes[24] = bytes[25] = 0xFF;
    for (const std::uint32_t pixel : pixels.data) {
        for (const int shift : {0, 8, 16}) {
            bytes.push_back(static_cast<std::uint8_t>(pixel >> shift));
        }
        bytes.push_back(0xAB);
    }
    const auto read = decodeBitmap(bytes);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->data, pixels.data);
}

TEST(BitmapFile, DamagedOnesGiveNothing) {
    const std::vector<std::uint8_t> sound = encodeBitmap(pattern(5, 4));
    for (std::size_t length = 0; length < sound.size(); ++length) {
        EXPECT_FALSE(decodeBitmap(std::span(sound).first(length))) << length;
    }
    const struct {
        std::size_t at;
        std::uint8_t value;
    } cases[] = {{0, 'X'},   {10, 13}, {11, 1}, {14, 12},   {18, 0}, {20, 1},
                 {21, 0x80}, {22, 0},  {24, 1}, {25, 0x80}, {28, 8}, {30, 1}};
    for (const auto& c : cases) {
        std::vector<std::uint8_t> bytes = sound;
        bytes[c.at] = c.value;
        EXPECT_FALSE(decodeBitmap(bytes)) << c.at;
    }
}

}  // namespace
}  // namespace overview
