#include "overview/box_picture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace overview {
namespace {

constexpr std::uint32_t kBlue = 0x2040C0;

picture::Pixels plain(int width, int height, std::uint32_t colour = kBlue) {
    picture::Pixels pixels(width, height);
    std::fill(pixels.data.begin(), pixels.data.end(), colour);
    return pixels;
}

TEST(BoxPicture, TheImageLiesWithinItsShareOfTheGap) {
    const picture::Pixels box = composeBox(106, 81, plain(100, 75), {.gap = 6});
    EXPECT_EQ(box.row(0)[0], kGroundColour);
    EXPECT_EQ(box.row(2)[50], kGroundColour);
    EXPECT_EQ(box.row(3)[2], kGroundColour);
    EXPECT_EQ(box.row(3)[3], kBlue);
    EXPECT_EQ(box.row(77)[102], kBlue);
    EXPECT_EQ(box.row(78)[50], kGroundColour);
    EXPECT_EQ(box.row(40)[103], kGroundColour);
}

TEST(BoxPicture, WithoutAnImageItIsQuiet) {
    const picture::Pixels box = composeBox(106, 81, {}, {.gap = 6});
    EXPECT_EQ(box.row(40)[50], kEmptyColour);
    EXPECT_TRUE(composeBox(0, 0, {}, {}).empty());
}

TEST(BoxPicture, AnImageOfAnotherSizeIsScaled) {
    for (const auto& [width, height] : {std::pair{50, 38}, {400, 300}}) {
        const picture::Pixels box = composeBox(106, 81, plain(width, height), {.gap = 6});
        EXPECT_EQ(box.row(3)[3], kBlue);
        EXPECT_EQ(box.row(77)[102], kBlue);
        EXPECT_EQ(box.row(78)[103], kGroundColour);
    }
}

// The pointer is worth more than the selection, and neither touches the image.
TEST(BoxPicture, FramesLieInTheGap) {
    const struct {
        bool selected, hot;
        std::uint32_t expected;
    } cases[] = {{false, false, kGroundColour},
                 {true, false, kSelectionColour},
                 {false, true, kHotColour},
                 {true, true, kHotColour}};
    for (const int gap : {1, 2, 3, 6, 12}) {
        for (const auto& c : cases) {
            const picture::Pixels box = composeBox(100 + gap, 75 + gap, plain(100, 75),
                                                   {.gap = gap, .selected = c.selected, .hot = c.hot});
            const ImagePlace place = imagePlace(100 + gap, 75 + gap, gap);
            EXPECT_EQ(box.row(place.top + place.height)[50], c.expected) << gap;
            EXPECT_EQ(box.row(place.top)[place.left], kBlue) << gap;
            EXPECT_EQ(std::count(box.data.begin(), box.data.end(), kBlue), 7500) << gap;
        }
    }
}

TEST(BoxPicture, TheLockMarkGoesFromTheLowerLeftToTheUpperRight) {
    const picture::Pixels image = plain(100, 75);
    const picture::Pixels box = composeBox(106, 81, image, {.gap = 6, .locked = true});
    for (int i = 4; i < 96; ++i) {
        EXPECT_EQ(box.row(3 + 74 - i * 75 / 100)[3 + i], kLockColour) << i;
    }
    EXPECT_EQ(box.row(3)[3], kBlue);
    EXPECT_EQ(box.row(77)[102], kBlue);
    EXPECT_EQ(box.row(40)[103], kGroundColour) << "beside the image";
    EXPECT_EQ(image.row(37)[50], kBlue) << "the image itself stays as it is";
}

TEST(BoxPicture, ShowsWhereAnItemWillLand) {
    const picture::Pixels before =
        composeBox(106, 81, plain(100, 75), {.gap = 6, .landing = Landing::Before});
    EXPECT_EQ(before.row(40)[0], kLandingColour);
    EXPECT_NE(before.row(40)[105], kLandingColour);
    const picture::Pixels after = composeBox(106, 81, plain(100, 75), {.gap = 6, .landing = Landing::After});
    EXPECT_EQ(after.row(40)[105], kLandingColour);
    EXPECT_NE(after.row(40)[0], kLandingColour);
}

}  // namespace
}  // namespace overview
