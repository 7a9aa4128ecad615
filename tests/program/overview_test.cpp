// The overview of the real program: what its grid shows on the screen, and its order changed with the mouse.
#include <gmock/gmock.h>

#include <algorithm>

#include "overview/grid_rule.h"
#include "program/support/compare.h"
#include "program/support/files.h"
#include "program/support/input.h"
#include "program/support/panorell.h"
#include "program/support/picture_folder.h"
#include "program/support/screen.h"
#include "ui/control_ids.h"

namespace program {
namespace {

namespace id = ui::id;
using testing::ElementsAre;

BOOL CALLBACK collectBoxes(HWND window, LPARAM target) {
    if (GetDlgCtrlID(window) == id::kThumbnail && IsWindowVisible(window) != FALSE) {
        RECT place{};
        GetWindowRect(window, &place);
        reinterpret_cast<std::vector<RECT>*>(target)->push_back(place);
    }
    return TRUE;
}

class OverviewTest : public testing::Test {
  protected:
    void open(const PictureFolder& folder) {
        panorell_.keepShow(folder.path(), {});
        ASSERT_TRUE(panorell_.openSetUp());
        ASSERT_TRUE(panorell_.clickOn(id::kCTRL));
        ASSERT_NE(panorell_.window(L"Form2"), nullptr);
        ASSERT_TRUE(bringToFront(form()));
        // Beside all items, so that no frame lies around one of them.
        const RECT window = Control(form()).rectangle();
        ASSERT_TRUE(movePointer({window.left + 4, window.bottom - 30}));
    }
    HWND form() const { return panorell_.windowNow(L"Form2"); }
    /// The boxes' places on the screen in the order of the grid.
    std::vector<RECT> boxes() const {
        std::vector<RECT> found;
        EnumChildWindows(form(), collectBoxes, reinterpret_cast<LPARAM>(&found));
        std::sort(found.begin(), found.end(), [](const RECT& a, const RECT& b) {
            return a.top != b.top ? a.top < b.top : a.left < b.left;
        });
        return found;
    }
    /// Which pictures the boxes show on the screen, by number; 0 for none that is right to the pixel.
    std::vector<int> shown(const std::vector<TestPicture>& pictures) const {
        const picture::Pixels screen = captureScreen();
        std::vector<int> numbers;
        for (const RECT& box : boxes()) {
            numbers.push_back(shownAt(screen, box, pictures));
        }
        return numbers;
    }
    testing::AssertionResult becomes(const PictureFolder& folder, const std::vector<int>& expected) const {
        std::vector<int> seen;
        const auto result =
            waitFor([&] { return (seen = shown(folder.pictures())) == expected; }, kPatience, "order");
        return result ? result : testing::AssertionFailure() << "shown: " << testing::PrintToString(seen);
    }
    POINT middle(int index) const {
        const RECT box = boxes()[static_cast<std::size_t>(index)];
        return {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
    }

    Panorell panorell_;

  private:
    int shownAt(const picture::Pixels& screen, const RECT& box,
                const std::vector<TestPicture>& pictures) const {
        const int gap = gapOf(box);
        const Area area{static_cast<int>(box.left) + gap / 2, static_cast<int>(box.top) + gap / 2,
                        static_cast<int>(box.right - box.left) - gap,
                        static_cast<int>(box.bottom - box.top) - gap};
        const picture::Pixels seen = cut(screen, area);
        constexpr double kAlike = 22;
        for (const TestPicture& picture : pictures) {
            if (psnr(seen, drawFitted(picture, area.width, area.height)) > kAlike) {
                return picture.number;
            }
        }
        return 0;
    }
    // The gap is what makes the thumbnail 4:3; the rule knows it for the window's size.
    int gapOf(const RECT& box) const {
        const RECT grid = control(form(), id::kGrid).rectangle();
        const overview::GridLayout layout = overview::layoutGrid(
            {static_cast<int>(boxes().size()), static_cast<int>(grid.right - grid.left),
             static_cast<int>(grid.bottom - grid.top), static_cast<int>(GetDpiForSystem()), 0});
        EXPECT_EQ(layout.cellWidth, box.right - box.left);
        EXPECT_EQ(layout.cellHeight, box.bottom - box.top);
        return layout.gap;
    }
};

TEST_F(OverviewTest, TheGridShowsEveryItemInItsPlace) {
    for (const int count : {1, 4, 5, 10}) {
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
    const RECT window = Control(form()).rectangle();
    const POINT beside{window.left + 4, window.bottom - 30};

    ASSERT_TRUE(beginDrag(middle(4), middle(1)));
    ASSERT_TRUE(release(middle(1)));
    ASSERT_TRUE(movePointer(beside));
    EXPECT_TRUE(becomes(folder, {1, 5, 2, 3, 4, 6}));

    ASSERT_TRUE(beginDrag(middle(0), middle(5)));
    ASSERT_TRUE(release(middle(5)));
    ASSERT_TRUE(movePointer(beside));
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
    const RECT window = Control(form()).rectangle();
    ASSERT_TRUE(movePointer({window.left + 4, window.bottom - 30}));
    EXPECT_TRUE(becomes(folder, {1, 2, 3, 4}));
    EXPECT_TRUE(panorell_.running());
}

}  // namespace
}  // namespace program
