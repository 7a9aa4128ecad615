#include "ui/placement.h"

#include <gtest/gtest.h>

namespace ui {
namespace {

TEST(Placement, InTheMiddleButWithinBounds) {
    struct Case {
        Stretch over;
        int size;
        Stretch bounds;
        int begin;
    };
    constexpr Case cases[] = {
        {{100, 300}, 50, {0, 1000}, 175},   {{100, 301}, 50, {0, 1000}, 175},
        {{100, 300}, 400, {0, 1000}, 0},    {{900, 1000}, 400, {0, 1000}, 600},
        {{900, 1000}, 100, {0, 1000}, 900}, {{-500, -300}, 100, {-1000, 0}, -450},
        {{-50, 50}, 100, {0, 1000}, 0},     {{5000, 6000}, 100, {0, 1000}, 900},
        {{0, 1000}, 1200, {0, 1000}, 0},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(centredOver(one.over, one.size, one.bounds), one.begin)
            << one.over.begin << " to " << one.over.end << ", " << one.size;
    }
}

TEST(Placement, TheSideWithMoreRoom) {
    EXPECT_FALSE(moreRoomBefore({100, 200}, {0, 1000}));
    EXPECT_TRUE(moreRoomBefore({700, 900}, {0, 1000}));
    EXPECT_FALSE(moreRoomBefore({400, 600}, {0, 1000})) << "as much on both sides";
    EXPECT_TRUE(moreRoomBefore({401, 600}, {0, 1000}));
    EXPECT_TRUE(moreRoomBefore({-100, 0}, {-1000, 0}));
    EXPECT_FALSE(moreRoomBefore({-50, 1050}, {0, 1000}));
}

}  // namespace
}  // namespace ui
