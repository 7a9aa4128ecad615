// The overview of the real program: what its grid shows on the screen, and its order changed with the mouse.
#include <gmock/gmock.h>

#include "overview/grid_rule.h"
#include "program/support/compare.h"
#include "program/support/files.h"
#include "program/support/input.h"
#include "program/support/overview_test_base.h"
#include "program/support/screen.h"

namespace program {
namespace {

TEST_F(OverviewTest, TheGridShowsEveryItemInItsPlace) {
    for (const int count : {1, 4, 5, 10, 137}) {
        PictureFolder folder(count);
        std::vector<int> all;
        for (int i = 1; i <= count; ++i) {
            all.push_back(i);
        }
        open(folder);
        EXPECT_TRUE(becomes(folder, all)) << count;
        EXPECT_FALSE(IsWindowVisible(panorell_.form())) << "the set-up is gone";
        const std::vector<RECT> places = boxes();
        ASSERT_EQ(places.size(), static_cast<std::size_t>(count));
        const int columns = overview::columnsFor(count);
        for (int i = 0; i < count; ++i) {
            EXPECT_EQ(places[static_cast<std::size_t>(i)].left,
                      places[0].left + i % columns * (places[0].right - places[0].left));
            EXPECT_EQ(places[static_cast<std::size_t>(i)].top,
                      places[0].top + i / columns * (places[0].bottom - places[0].top));
        }
        PostMessageW(form(), WM_CLOSE, 0, 0);
        ASSERT_TRUE(panorell_.followSuccessor());
        ASSERT_NE(panorell_.window(), nullptr) << "the set-up comes back";
        PostMessageW(panorell_.form(), WM_CLOSE, 0, 0);
        ASSERT_TRUE(panorell_.ends());
    }
}

TEST_F(OverviewTest, LockedAndDamagedItemsAreThereToo) {
    PictureFolder folder(3);
    hide(folder.file(pictureName(2)));
    folder.addDamaged(L"bild04.jpg");
    open(folder);
    EXPECT_TRUE(waitFor([&] { return shown(folder.pictures()).size() == 4; }, kPatience, "four boxes"));
    const auto marked = [&] {
        const RECT box = boxes()[1];
        const picture::Pixels seen =
            cut(captureScreen(),
                {static_cast<int>(box.left), static_cast<int>(box.top),
                 static_cast<int>(box.right - box.left), static_cast<int>(box.bottom - box.top)});
        return shareOf(seen, 0xFFFF00, 0) > 0.01;
    };
    EXPECT_TRUE(waitFor(marked, kPatience, "the lock mark"));
}

TEST_F(OverviewTest, TheMouseChangesTheOrder) {
    PictureFolder folder(6);
    open(folder);
    ASSERT_TRUE(becomes(folder, {1, 2, 3, 4, 5, 6}));
    ASSERT_TRUE(beginDrag(middle(4), middle(1)));
    ASSERT_TRUE(release(middle(1)));
    ASSERT_TRUE(movePointer(beside()));
    EXPECT_TRUE(becomes(folder, {1, 5, 2, 3, 4, 6}));

    ASSERT_TRUE(beginDrag(middle(0), middle(5)));
    ASSERT_TRUE(release(middle(5)));
    ASSERT_TRUE(movePointer(beside()));
    EXPECT_TRUE(becomes(folder, {5, 2, 3, 4, 6, 1}));
}

TEST_F(OverviewTest, ADragIsSeenAndEscapeTakesItBack) {
    PictureFolder folder(4);
    open(folder);
    ASSERT_TRUE(becomes(folder, {1, 2, 3, 4}));
    const POINT to = middle(3);
    ASSERT_TRUE(beginDrag(middle(0), to));
    const auto mark = [&] {
        const picture::Pixels screen = captureScreen();
        return shareOf(screen, 0x4C9BFF, 0) > 0.0005;
    };
    EXPECT_TRUE(waitFor(mark, kPatience, "the mark where it will land"));
    EXPECT_NE(shown(folder.pictures())[3], 4) << "the picture that is dragged lies over the target";
    ASSERT_TRUE(pressKey(form(), VK_ESCAPE));
    EXPECT_TRUE(waitFor([&] { return !mark(); }, kPatience, "the mark goes"));
    ASSERT_TRUE(release(to));
    ASSERT_TRUE(movePointer(beside()));
    EXPECT_TRUE(becomes(folder, {1, 2, 3, 4}));
    EXPECT_TRUE(panorell_.running());
}

}  // namespace
}  // namespace program
