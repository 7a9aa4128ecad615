#include "show/fit_rule.h"

#include <gtest/gtest.h>

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
        Case{"nothing_to_fit", 0, 10, 100, 100, kDesignShape, {}},
        Case{"no_surface", 10, 10, 100, 0, kDesignShape, {}}),
    [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
}  // namespace show
