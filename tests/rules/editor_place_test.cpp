#include "edit/editor_place.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace edit {
namespace {

constexpr ScreenArea kScreen{{0, 1920}, {0, 1080}};
constexpr int kGap = 8;

TEST(EditorPlace, BesideTheThumbnail) {
    struct Case {
        const char* what;
        ScreenArea thumbnail;
        int width, height;
        ScreenArea work;
        EditorPlace place;
    };
    constexpr Case cases[] = {
        {"left half", {{400, 600}, {400, 550}}, 432, 300, kScreen, {608, 325, true, 475}},
        {"right half", {{1400, 1600}, {400, 550}}, 432, 300, kScreen, {960, 325, false, 475}},
        {"in the middle", {{860, 1060}, {400, 550}}, 432, 300, kScreen, {1068, 325, true, 475}},
        {"top left", {{0, 200}, {0, 150}}, 432, 300, kScreen, {208, 0, true, 75}},
        {"top right", {{1720, 1920}, {0, 150}}, 432, 300, kScreen, {1280, 0, false, 75}},
        {"bottom left", {{0, 200}, {930, 1080}}, 432, 300, kScreen, {208, 780, true, 1005}},
        {"bottom right", {{1720, 1920}, {930, 1080}}, 432, 300, kScreen, {1280, 780, false, 1005}},
        {"a task bar at the left",
         {{64, 264}, {0, 150}},
         432,
         300,
         {{64, 1920}, {0, 1040}},
         {272, 0, true, 75}},
        {"a task bar below",
         {{0, 200}, {930, 1040}},
         432,
         300,
         {{0, 1920}, {0, 1040}},
         {208, 740, true, 985}},
        {"another monitor",
         {{-1900, -1700}, {-900, -750}},
         432,
         300,
         {{-1920, 0}, {-1000, 80}},
         {-1692, -975, true, -825}},
        {"half scrolled out above", {{400, 600}, {-100, 50}}, 432, 300, kScreen, {608, 0, true, 25}},
        {"all scrolled out above", {{400, 600}, {-400, -250}}, 432, 300, kScreen, {608, 0, true, 0}},
        {"all scrolled out below", {{400, 600}, {1300, 1450}}, 432, 300, kScreen, {608, 780, true, 1080}},
        {"as wide as the screen", {{0, 1920}, {0, 1080}}, 432, 300, kScreen, {1488, 390, true, 540}},
        {"hardly room at the left", {{300, 1900}, {100, 1000}}, 432, 300, kScreen, {0, 400, false, 550}},
        {"larger than the screen", {{0, 200}, {0, 150}}, 2000, 1200, kScreen, {0, 0, true, 75}},
    };
    for (const Case& one : cases) {
        const EditorPlace place = placeEditor(one.thumbnail, one.width, one.height, kGap, one.work);
        EXPECT_EQ(place, one.place) << one.what << ": " << place.left << ", " << place.top << ", "
                                    << place.rightOfThumbnail << ", " << place.pointedAt;
    }
}

// Wherever a thumbnail of a grid lies and whatever the scaling, the editor is all on the work area, beside
// the thumbnail, and the arrow points at it.
TEST(EditorPlace, OnTheWorkAreaAndClearOfTheThumbnailEverywhere) {
    const ScreenArea work{{100, 1920}, {30, 1050}};
    for (const int dpi : {96, 120, 144, 168, 192}) {
        const int width = 450 * dpi / 96;
        const int height = 310 * dpi / 96;
        for (int left = work.across.begin; left + 300 <= work.across.end; left += 20) {
            for (int top = work.down.begin; top + 225 <= work.down.end; top += 15) {
                const EditorPlace place =
                    placeEditor({{left, left + 300}, {top, top + 225}}, width, height, 4 * dpi / 96, work);
                ASSERT_GE(place.left, work.across.begin);
                ASSERT_LE(place.left + width, work.across.end);
                ASSERT_GE(place.top, work.down.begin);
                ASSERT_LE(place.top + height, work.down.end);
                ASSERT_GE(place.pointedAt, place.top);
                ASSERT_LE(place.pointedAt, place.top + height);
                const int room = std::max(left - work.across.begin, work.across.end - left - 300);
                if (room >= width + 4 * dpi / 96) {
                    ASSERT_TRUE(place.left >= left + 300 || place.left + width <= left)
                        << left << ", " << top << " at " << dpi;
                }
            }
        }
    }
}

}  // namespace
}  // namespace edit
