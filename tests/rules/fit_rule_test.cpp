#include "show/fit_rule.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace show {
namespace {

struct Case {
    const char* name;
    int width, height, surfaceWidth, surfaceHeight;
    double shape;
    PixelRect expected;
};

class FitRule : public testing::TestWithParam<Case> {};

TEST_P(FitRule, PlacesPicture) {
    const Case& c = GetParam();
    EXPECT_EQ(fitPicture(c.width, c.height, c.surfaceWidth, c.surfaceHeight, c.shape), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, FitRule,
    testing::Values(
        Case{"same_shape_fills", 1600, 1200, 1024, 768, kDesignShape, {0, 0, 1024, 768}},
        Case{"wide_is_letterboxed", 1600, 1000, 1024, 768, kDesignShape, {0, 64, 1024, 640}},
        Case{"upright_gets_side_bars", 1200, 1600, 1024, 768, kDesignShape, {224, 0, 576, 768}},
        Case{"nearly_4_3_is_stretched", 1600, 1150, 1024, 768, kDesignShape, {0, 0, 1024, 768}},
        Case{"k_of_exactly_0_9_is_stretched", 4000, 2700, 400, 300, kDesignShape, {0, 0, 400, 300}},
        Case{"k_of_exactly_1_1_is_stretched", 4000, 3300, 400, 300, kDesignShape, {0, 0, 400, 300}},
        Case{"3_2_overhangs_a_wide_screen", 6000, 4000, 1920, 1080, kDesignShape, {0, -100, 1920, 1280}},
        Case{"4_3_is_stretched_on_a_wide_screen", 4000, 3000, 1920, 1080, kDesignShape, {0, 0, 1920, 1080}},
        Case{
            "4_3_keeps_its_shape_with_the_screens", 4000, 3000, 1920, 1080, 16.0 / 9.0, {240, 0, 1440, 1080}},
        Case{"screen_of_4_3_is_filled", 1600, 1200, 1600, 1200, 1600.0 / 1200, {0, 0, 1600, 1200}},
        Case{"letterboxed_on_it", 1600, 1000, 1600, 1200, 1600.0 / 1200, {0, 100, 1600, 1000}},
        Case{"side_bars_on_it", 1200, 1600, 1600, 1200, 1600.0 / 1200, {350, 0, 900, 1200}},
        Case{"stretched_on_it", 1600, 1150, 1600, 1200, 1600.0 / 1200, {0, 0, 1600, 1200}},
        Case{"3_2_on_a_wide_screen", 6000, 4000, 1920, 1080, 16.0 / 9, {150, 0, 1620, 1080}},
        Case{"upright_on_a_wide_screen", 3000, 4000, 1920, 1080, 16.0 / 9, {555, 0, 810, 1080}},
        Case{"16_9_fills_a_wide_screen", 3840, 2160, 1920, 1080, 16.0 / 9, {0, 0, 1920, 1080}},
        Case{"4_3_on_a_very_wide_screen", 4000, 3000, 3440, 1440, 3440.0 / 1440, {760, 0, 1920, 1440}},
        Case{"nothing_to_fit", 0, 10, 100, 100, kDesignShape, {}},
        Case{"no_surface", 10, 10, 100, 0, kDesignShape, {}}),
    [](const auto& instance) { return std::string(instance.param.name); });

// With the screen's own shape nothing is cut and nothing is distorted by more than 10 %, and on a 4:3 screen
// that is the same to the digit as with the shape of 4:3.
TEST(FitRuleOfTheScreen, CutsNothingAndHardlyDistorts) {
    for (const auto& [width, height] : {std::pair{1024, 768}, std::pair{1600, 1200}, std::pair{1920, 1080},
                                        std::pair{3440, 1440}, std::pair{1080, 1920}}) {
        for (int pictureWidth = 100; pictureWidth <= 4000; pictureWidth += 130) {
            for (int pictureHeight = 100; pictureHeight <= 4000; pictureHeight += 170) {
                const double shape = static_cast<double>(width) / height;
                const PixelRect place = fitPicture(pictureWidth, pictureHeight, width, height, shape);
                ASSERT_GE(place.left, 0);
                ASSERT_GE(place.top, 0);
                ASSERT_LE(place.left + place.width, width);
                ASSERT_LE(place.top + place.height, height);
                const double distortion =
                    static_cast<double>(place.width) / place.height * pictureHeight / pictureWidth;
                // Half a pixel of a side as narrow as 18 counts too.
                ASSERT_LE(std::max(distortion, 1 / distortion),
                          1.112 + 0.5 / std::min(place.width, place.height));
                if (width * 3 == height * 4) {
                    ASSERT_EQ(place, fitPicture(pictureWidth, pictureHeight, width, height, kDesignShape));
                }
            }
        }
    }
}

}  // namespace
}  // namespace show
