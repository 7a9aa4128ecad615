// Items of the overview are put in another order by dragging them.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>

#include "support/app_stage.h"
#include "support/overview_stage.h"
#include "ui/clstt.h"

namespace overview {
namespace {

using support::alike;
using support::OverviewStage;
using testing::ElementsAre;

class OverviewOrderTest : public testing::Test {
  protected:
    OverviewOrderTest() {
        stage.picturesOf(kColours);
        stage.pictures.hide(L"e.jpg");
        EXPECT_TRUE(stage.open());
    }
    /// The items by number from 1, by what they show; names, tips and locks must tell the same.
    std::vector<int> order() {
        std::vector<int> result;
        for (int i = 0; i < 6; ++i) {
            const int number = stage.record(i).fileName[0] - L'a' + 1;
            EXPECT_TRUE(alike(stage.colour(i), kColours[static_cast<std::size_t>(number - 1)])) << i;
            EXPECT_EQ(stage.mentions(i, kLockColour), number == 5) << i;
            result.push_back(number);
        }
        return result;
    }
    bool untouched() {
        return !stage.overview->records().changed && order() == std::vector{1, 2, 3, 4, 5, 6};
    }

    const std::vector<std::uint32_t> kColours{0xC00000, 0x00C000, 0x0000C0, 0xC0C000, 0x00C0C0, 0xC000C0};
    OverviewStage stage;
};

TEST_F(OverviewOrderTest, DraggingBackPutsTheItemBeforeTheTarget) {
    stage.drag(4, 1);
    EXPECT_THAT(order(), ElementsAre(1, 5, 2, 3, 4, 6));
    EXPECT_TRUE(stage.overview->records().changed);
    EXPECT_EQ(stage.overview->records().pressedIndex, 1) << "the selection stays with the item";
}

TEST_F(OverviewOrderTest, DraggingOnPutsTheItemBehindTheTarget) {
    stage.drag(1, 4);
    EXPECT_THAT(order(), ElementsAre(1, 3, 4, 5, 2, 6));
}

TEST_F(OverviewOrderTest, ToTheEnds) {
    stage.drag(0, 5);
    EXPECT_THAT(order(), ElementsAre(2, 3, 4, 5, 6, 1));
    stage.drag(5, 0);
    EXPECT_THAT(order(), ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST_F(OverviewOrderTest, TipsFollowTheirItems) {
    std::vector<std::wstring> tips;
    for (int i = 0; i < 6; ++i) {
        stage.record(i).toolTip = L"tip " + std::to_wstring(i);
        stage.overview->grid().tipChanged(i);
    }
    stage.record(2).toolTip.clear();
    stage.overview->grid().tipChanged(2);
    stage.drag(0, 3);
    const ui::clstt& attached = stage.overview->tips();
    const auto shown = [&](int index) { return attached.ToolText(stage.box(index)); };
    EXPECT_EQ(attached.ToolCount(), 5);
    EXPECT_EQ(attached.DelayTime(TTDT_AUTOPOP), 10000);
    EXPECT_EQ(shown(0), L"tip 1");
    EXPECT_EQ(shown(1), L"") << "an item without a tip takes the one of its place away";
    EXPECT_EQ(shown(2), L"tip 3");
    EXPECT_EQ(shown(3), L"tip 0");
    EXPECT_EQ(shown(4), L"tip 4");
}

TEST_F(OverviewOrderTest, TipsEndWithTheirBoxes) {
    const ui::clstt& attached = stage.overview->tips();
    ASSERT_EQ(attached.ToolCount(), 6);
    stage.overview->reload();
    ASSERT_TRUE(stage.loaded());
    EXPECT_EQ(attached.ToolCount(), 6);
    stage.overview->grid().stop();
    stage.overview->grid().remove({0, 1});
    stage.overview->grid().resume();
    ASSERT_TRUE(stage.loaded());
    EXPECT_EQ(attached.ToolCount(), 4);
    EXPECT_EQ(attached.ToolText(stage.box(0)), stage.record(0).toolTip);
}

TEST_F(OverviewOrderTest, ADropOnItselfOrOutsideChangesNothing) {
    stage.drag(2, 2);
    EXPECT_TRUE(untouched());
    stage.press(2);
    stage.dragTo(stage.middleOf(0));
    RECT panel{};
    GetWindowRect(stage.panel(), &panel);
    stage.dropAt({panel.left + 1, panel.top + 1});
    EXPECT_TRUE(untouched());
    stage.press(2);
    stage.dropAt({panel.left - 40, stage.middleOf(0).y});
    EXPECT_TRUE(untouched());
}

TEST_F(OverviewOrderTest, ADragBeginsBehindTheSystemsDistance) {
    const POINT from = stage.middleOf(2);
    stage.press(2);
    stage.dragTo({from.x + GetSystemMetrics(SM_CXDRAG), from.y + GetSystemMetrics(SM_CYDRAG)});
    EXPECT_FALSE(stage.overview->drag().dragging());
    stage.dragTo({from.x + GetSystemMetrics(SM_CXDRAG) + 1, from.y});
    EXPECT_TRUE(stage.overview->drag().dragging());
    stage.dropAt(from);
    EXPECT_FALSE(stage.overview->drag().dragging());
    EXPECT_TRUE(untouched());
}

TEST_F(OverviewOrderTest, AMarkShowsWhereTheItemWillLand) {
    stage.press(4);
    stage.dragTo(stage.middleOf(1));
    stage.loop.settle();
    const auto landing = [&](int index) {
        const picture::Pixels box = stage.seen(index);
        const bool left = box.row(box.height / 4)[0] == kLandingColour;
        const bool right = box.row(box.height / 4)[box.width - 1] == kLandingColour;
        return left ? Landing::Before : right ? Landing::After : Landing::None;
    };
    EXPECT_EQ(landing(1), Landing::Before);
    stage.dragTo(stage.middleOf(5));
    EXPECT_EQ(landing(1), Landing::None);
    EXPECT_EQ(landing(5), Landing::After);
    stage.dragTo(stage.middleOf(4));
    EXPECT_EQ(landing(5), Landing::None);
    EXPECT_EQ(landing(4), Landing::None);
    stage.dropAt(stage.middleOf(4));
    EXPECT_TRUE(untouched());
}

TEST_F(OverviewOrderTest, EscapeEndsItAndSoDoesTheLossOfTheMouse) {
    stage.press(4);
    stage.dragTo(stage.middleOf(1));
    stage.key(VK_ESCAPE);
    EXPECT_FALSE(stage.overview->drag().dragging());
    stage.dropAt(stage.middleOf(1));
    EXPECT_TRUE(untouched());

    stage.press(4);
    stage.dragTo(stage.middleOf(1));
    SetCapture(stage.overview->form().hwnd());
    ReleaseCapture();
    EXPECT_FALSE(stage.overview->drag().dragging());
    stage.dropAt(stage.middleOf(1));
    EXPECT_TRUE(untouched());
}

TEST_F(OverviewOrderTest, TheWindowMayGoInTheMiddleOfIt) {
    stage.press(4);
    stage.dragTo(stage.middleOf(1));
    ASSERT_TRUE(stage.overview->drag().dragging());
    stage.overview.reset();
    stage.loop.settle();
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST(OverviewOrder, NothingIsDroppedWhereNoBoxIsYet) {
    OverviewStage stage;
    for (int i = 0; i < 150; ++i) {
        stage.pictures.file(L"p" + std::to_wstring(i + 100) + L".jpg", "");
    }
    stage.begin();
    stage.loop.advance(1);
    ASSERT_EQ(stage.overview->view().boxCount(), 100);
    EXPECT_EQ(stage.overview->view().itemAt(stage.middleOf(99)), 99);
    EXPECT_EQ(stage.overview->view().itemAt(stage.middleOf(100)), std::nullopt);
}

TEST(OverviewOrder, AResultFindsItsItemWhereverItLies) {
    OverviewStage stage;
    stage.picturesOf({0xC00000, 0x00C000, 0x0000C0, 0xC0C000});
    stage.begin();
    ASSERT_TRUE(stage.until([&] { return stage.overview->view().boxCount() == 4; }));
    stage.overview->grid().move(0, 3);
    stage.overview->grid().move(1, 0);
    ASSERT_TRUE(stage.loaded());
    EXPECT_THAT(stage.names(), ElementsAre(L"c.jpg", L"b.jpg", L"d.jpg", L"a.jpg"));
    EXPECT_TRUE(alike(stage.colour(0), 0x0000C0));
    EXPECT_TRUE(alike(stage.colour(1), 0x00C000));
    EXPECT_TRUE(alike(stage.colour(2), 0xC0C000));
    EXPECT_TRUE(alike(stage.colour(3), 0xC00000));
}

}  // namespace
}  // namespace overview
