#include "program/support/overview_test_base.h"

#include <algorithm>

#include "overview/grid_rule.h"
#include "program/support/compare.h"
#include "program/support/input.h"
#include "program/support/screen.h"
#include "ui/control_ids.h"

namespace program {
namespace {

namespace id = ui::id;

BOOL CALLBACK collectBoxes(HWND window, LPARAM target) {
    if (GetDlgCtrlID(window) == id::kThumbnail && IsWindowVisible(window) != FALSE) {
        RECT place{};
        GetWindowRect(window, &place);
        reinterpret_cast<std::vector<RECT>*>(target)->push_back(place);
    }
    return TRUE;
}

/// The thumbnail in a box, which has half a gap around it.
Area imageArea(const RECT& box, int gap) {
    return {static_cast<int>(box.left) + gap / 2, static_cast<int>(box.top) + gap / 2,
            static_cast<int>(box.right - box.left) - gap, static_cast<int>(box.bottom - box.top) - gap};
}

}  // namespace

void OverviewTest::open(const PictureFolder& folder) {
    panorell_.keepShow(folder.path(), {});
    ASSERT_TRUE(panorell_.openSetUp());
    enter();
}

void OverviewTest::enter() {
    ASSERT_TRUE(panorell_.clickOn(id::kCTRL));
    ASSERT_NE(panorell_.window(L"Form2"), nullptr);
    ASSERT_TRUE(bringToFront(form()));
    ASSERT_TRUE(movePointer(beside()));
}

std::vector<RECT> OverviewTest::boxes() const {
    std::vector<RECT> found;
    EnumChildWindows(form(), collectBoxes, reinterpret_cast<LPARAM>(&found));
    std::sort(found.begin(), found.end(),
              [](const RECT& a, const RECT& b) { return a.top != b.top ? a.top < b.top : a.left < b.left; });
    return found;
}

std::vector<int> OverviewTest::shown(const std::vector<TestPicture>& pictures) const {
    const std::vector<RECT> places = boxes();
    std::vector<int> numbers;
    const auto layout = layoutOf(places);
    if (!layout) {
        return numbers;
    }
    const int gap = layout->gap;
    const Area first = imageArea(places.front(), gap);
    std::vector<Known> known;
    for (const TestPicture& picture : pictures) {
        known.push_back({picture.number, drawFitted(picture, first.width, first.height)});
    }
    const picture::Pixels screen = captureScreen();
    for (const RECT& box : places) {
        numbers.push_back(recognise(cut(screen, imageArea(box, gap)), known));
    }
    return numbers;
}

// Small pictures whose numbers look alike may both come near to what is seen.
int OverviewTest::recognise(const picture::Pixels& seen, const std::vector<Known>& known) {
    constexpr double kAlike = 22;
    double best = kAlike;
    int number = 0;
    for (const Known& one : known) {
        const double likeness = psnr(seen, one.expected);
        if (likeness > best) {
            best = likeness;
            number = one.number;
        }
    }
    return number;
}

testing::AssertionResult OverviewTest::becomes(const PictureFolder& folder,
                                               const std::vector<int>& expected) const {
    std::vector<int> seen;
    const auto result =
        waitFor([&] { return (seen = shown(folder.pictures())) == expected; }, kPatience, "order");
    return result ? result : testing::AssertionFailure() << "shown: " << testing::PrintToString(seen);
}

POINT OverviewTest::middle(int index) const {
    const RECT box = boxes()[static_cast<std::size_t>(index)];
    return {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
}

POINT OverviewTest::beside() const {
    const RECT window = Control(form()).rectangle();
    return {window.left + 4, window.bottom - 30};
}

// The gap is what makes the thumbnail 4:3; the rule knows it for the window's size.
std::optional<overview::GridLayout> OverviewTest::layoutOf(const std::vector<RECT>& all) const {
    const RECT grid = control(form(), id::kGrid).rectangle();
    const overview::GridLayout layout = overview::layoutGrid(
        {static_cast<int>(all.size()), static_cast<int>(grid.right - grid.left),
         static_cast<int>(grid.bottom - grid.top), static_cast<int>(GetDpiForSystem()), 0});
    const bool fits = !all.empty() && layout.cellWidth == all.front().right - all.front().left &&
                      layout.cellHeight == all.front().bottom - all.front().top;
    return fits ? std::optional(layout) : std::nullopt;
}

}  // namespace program
