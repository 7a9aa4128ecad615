// Where the editor of an item's entry comes up, and how it is laid out.
#include <gmock/gmock.h>

#include "support/entry_editor_stage.h"
#include "support/scaled_monitor.h"
#include "ui/control_ids.h"

namespace edit {
namespace {

constexpr int kControls[] = {
    ui::id::kEntryLabel1, ui::id::kEntryLabel1 + 1, ui::id::kEntryLabel1 + 2, ui::id::kEntryLabel1 + 3,
    ui::id::kUTT,         ui::id::kCombo1,          ui::id::kCombo2,          ui::id::kEntryCheck1,
    ui::id::kCombo3,      ui::id::kEntryOK,         ui::id::kEntryCANCEL,     ui::id::kIm1,
    ui::id::kIm2};

class EntryEditorPlaceTest : public testing::TestWithParam<int> {
  protected:
    bool apart(const RECT& one, const RECT& other) {
        RECT both{};
        return IntersectRect(&both, &one, &other) == FALSE;
    }
    bool within(const RECT& inner, const RECT& outer) {
        RECT both{};
        IntersectRect(&both, &inner, &outer);
        return EqualRect(&both, &inner) != FALSE;
    }
    RECT onScreen(HWND window) {
        RECT place{};
        GetWindowRect(window, &place);
        return place;
    }
    support::ScaledMonitor monitor{GetParam()};
    support::EntryEditorStage stage;
    RECT work = platform::Monitors::current().primaryWorkArea();
};

TEST_P(EntryEditorPlaceTest, BesideThumbnailsInAllCorners) {
    constexpr int kWidth = 240;
    constexpr int kHeight = 180;
    for (const bool right : {false, true}) {
        for (const bool below : {false, true}) {
            const LONG left = right ? work.right - kWidth : work.left;
            const LONG top = below ? work.bottom - kHeight : work.top;
            stage.thumbnail = {left, top, left + kWidth, top + kHeight};
            stage.open(L"Haus");
            // A window manager may move a window that was just shown, and puts it back when it is asked to.
            ASSERT_TRUE(stage.test.waitFor([&] { return apart(stage.place(), stage.thumbnail); }));
            const RECT place = stage.place();
            EXPECT_TRUE(within(place, work)) << place.left << ", " << place.top;
            EXPECT_EQ(place.left < left, right);
            const ui::Glyph& arrow = right ? stage.form->Im2 : stage.form->Im1;
            EXPECT_EQ(stage.form->Im1.visible(), !right);
            EXPECT_EQ(stage.form->Im2.visible(), right);
            const RECT arrowPlace = onScreen(arrow.hwnd());
            EXPECT_GE((arrowPlace.top + arrowPlace.bottom) / 2, stage.thumbnail.top);
            EXPECT_LE((arrowPlace.top + arrowPlace.bottom) / 2, stage.thumbnail.bottom);
            EXPECT_TRUE(within(arrowPlace, place));
        }
    }
}

TEST_P(EntryEditorPlaceTest, MovesToAnotherItemThatItIsOpenedFor) {
    stage.thumbnail = {work.left, 100, work.left + 100, 200};
    stage.open(L"Haus");
    const RECT before = stage.place();
    stage.thumbnail = {work.right - 100, 700, work.right, 800};
    stage.editor->open(1);
    ASSERT_TRUE(stage.test.waitFor([&] { return stage.place().left > before.left; }));
    EXPECT_TRUE(within(stage.place(), work));
    EXPECT_TRUE(stage.form->Im2.visible());
    EXPECT_FALSE(stage.form->Im1.visible());
}

TEST_P(EntryEditorPlaceTest, NothingIsCutOffOrOverlaps) {
    stage.open(L"Haus");
    RECT all{};
    GetClientRect(stage.form->hwnd(), &all);
    EXPECT_EQ(all.right, 448 * GetParam() / 96);
    MapWindowPoints(stage.form->hwnd(), nullptr, reinterpret_cast<POINT*>(&all), 2);
    std::vector<RECT> places;
    for (const int id : kControls) {
        const RECT place = onScreen(GetDlgItem(stage.form->hwnd(), id));
        EXPECT_TRUE(within(place, all)) << id;
        for (const RECT& other : places) {
            EXPECT_TRUE(apart(place, other)) << id;
        }
        places.push_back(place);
    }
    for (const ui::Label* label :
         {&stage.form->Label1, &stage.form->Label2, &stage.form->Label3, &stage.form->Label4}) {
        const SIZE wanted = ui::measureText(label->text(), ui::font(label->fontSpec(), GetParam()));
        EXPECT_LE(wanted.cx, label->clientSize().cx) << testing::PrintToString(label->text());
        EXPECT_LE(wanted.cy, label->clientSize().cy) << testing::PrintToString(label->text());
    }
}

// The window comes to a monitor of another scaling.
TEST_P(EntryEditorPlaceTest, IsPlacedAnewWhenTheScalingChanges) {
    stage.thumbnail = {work.right - 200, work.bottom - 150, work.right, work.bottom};
    stage.open(L"Haus");
    const int other = GetParam() == 192 ? 96 : 192;
    RECT suggested = stage.place();
    suggested.right = suggested.left + (suggested.right - suggested.left) * other / GetParam();
    suggested.bottom = suggested.top + (suggested.bottom - suggested.top) * other / GetParam();
    monitor.dpi = other;
    SendMessageW(stage.form->hwnd(), WM_DPICHANGED, static_cast<WPARAM>(MAKELONG(other, other)),
                 reinterpret_cast<LPARAM>(&suggested));
    ASSERT_TRUE(stage.test.waitFor([&] { return within(stage.place(), work); }));
    EXPECT_TRUE(apart(stage.place(), stage.thumbnail));
    EXPECT_NEAR(stage.place().right, stage.thumbnail.left - 6 * other / 96, 1);
    const RECT arrow = onScreen(stage.form->Im2.hwnd());
    EXPECT_EQ(arrow.bottom - arrow.top, 24 * other / 96);
    EXPECT_NEAR((arrow.top + arrow.bottom) / 2, work.bottom - 75, 1);
}

INSTANTIATE_TEST_SUITE_P(Scalings, EntryEditorPlaceTest, testing::Values(96, 144, 192));

}  // namespace
}  // namespace edit
