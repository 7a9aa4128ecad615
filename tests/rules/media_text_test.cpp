#include "media/media_text.h"

#include <gtest/gtest.h>

namespace media {
namespace {

TEST(MediaText, HandlesAreUnsignedOf32Bits) {
    EXPECT_EQ(handleText(reinterpret_cast<void*>(std::uintptr_t{0x000101F2})), "66034");
    // A handle whose upper half is the sign of its lower one.
    EXPECT_EQ(handleText(reinterpret_cast<void*>(static_cast<std::uintptr_t>(0xFFFFFFFF9C010A21ULL))),
              "2617313825");
    EXPECT_EQ(handleText(static_cast<void*>(nullptr)), "0");
}

TEST(MediaText, PixelsAreWholeNumbersUnlessTheyAreNone) {
    EXPECT_EQ(pixelText(1920.0F), "1920");
    EXPECT_EQ(pixelText(1919.9999F), "1920");
    EXPECT_EQ(pixelText(1080.0001F), "1080");
    EXPECT_EQ(pixelText(100.5F), "100.5");
    EXPECT_EQ(pixelText(99.99F), "99.99");
    EXPECT_EQ(pixelText(0.0F), "0");
}

// As the twips of a surface of whole pixels give them on a monitor of 150 dots per inch.
TEST(MediaText, WholePixelsStayWholeAtEveryScaling) {
    for (const int dpi : {96, 120, 144, 150, 168, 192, 240, 288}) {
        const float twipsPerPixel = 1440.0F / static_cast<float>(dpi);
        for (const int pixels : {160, 1080, 1366, 1920, 2160, 3840, 7680}) {
            const float twips = static_cast<float>(pixels) * twipsPerPixel;
            EXPECT_EQ(pixelText(twips / twipsPerPixel), std::to_string(pixels)) << dpi;
        }
    }
}

}  // namespace
}  // namespace media
