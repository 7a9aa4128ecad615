// The harness proved on the sample program: does its input arrive, and does it see what a user sees?
#include <gmock/gmock.h>

#include "program/sample_ids.h"
#include "program/support/control.h"
#include "program/support/environment.h"
#include "program/support/input.h"
#include "program/support/program.h"
#include "program/support/screen.h"

namespace program {
namespace {

class HarnessInput : public testing::Test {
  protected:
    void SetUp() override {
        sample_.start();
        form_ = sample_.window();
        ASSERT_NE(form_, nullptr);
        ASSERT_TRUE(bringToFront(form_));
    }

    Control at(int id) const { return control(form_, id); }

    Program sample_{sampleExe()};
    HWND form_ = nullptr;
};

TEST_F(HarnessInput, TypedCharactersArrive) {
    const std::wstring text = L"a1B#?+-. 9";
    ASSERT_TRUE(typeText(form_, text));
    EXPECT_TRUE(waitFor([&] { return at(sample::kTyped).text() == text; }, kPatience, "the text arrives"))
        << testing::PrintToString(at(sample::kTyped).text());
}

TEST_F(HarnessInput, AKeyArrives) {
    ASSERT_TRUE(pressKey(form_, VK_ESCAPE));
    ASSERT_TRUE(sample_.ends());
    EXPECT_EQ(sample_.exitCode(), 0U);
}

TEST_F(HarnessInput, RefusesToTypeIntoAnotherWindow) {
    Program second(sampleExe());
    second.start();
    const HWND other = second.window();
    ASSERT_NE(other, nullptr);
    ASSERT_TRUE(bringToFront(other));
    EXPECT_FALSE(typeText(form_, L"x"));
    EXPECT_FALSE(pressKey(form_, VK_ESCAPE));
    EXPECT_TRUE(sample_.running());
}

TEST_F(HarnessInput, ClicksArriveAtBothButtons) {
    const RECT area = Control(form_).rectangle();
    const POINT place{area.right - 30, area.bottom - 30};
    ASSERT_TRUE(clickAt(place));
    EXPECT_TRUE(waitFor([&] { return colourAt(place) == sample::kLeftClicked; }, kPatience, "left click"));
    ASSERT_TRUE(clickAt(place, MouseButton::Right));
    EXPECT_TRUE(waitFor([&] { return colourAt(place) == sample::kRightClicked; }, kPatience, "right click"));
}

TEST_F(HarnessInput, AClickTicksABox) {
    EXPECT_EQ(at(sample::kTick).checkState(), BST_UNCHECKED);
    ASSERT_TRUE(click(at(sample::kTick)));
    EXPECT_TRUE(waitFor([&] { return at(sample::kTick).checkState() == BST_CHECKED; }, kPatience, "tick"));
    EXPECT_EQ(at(sample::kTick).text(), L"Häkchen");
    EXPECT_EQ(focusIn(form_), at(sample::kTick).handle());
}

TEST_F(HarnessInput, PressesAButtonInsideAnotherControl) {
    ASSERT_TRUE(at(sample::kQuit).exists());
    at(sample::kQuit).press();
    ASSERT_TRUE(sample_.ends());
    EXPECT_TRUE(sample_.leavesNoProcess());
}

TEST_F(HarnessInput, ReadsAList) {
    const Control list = at(sample::kList);
    EXPECT_THAT(list.items(), testing::ElementsAre(L"eins", L"zwei", L"Übung drei"));
    EXPECT_EQ(list.selectedItem(), LB_ERR);
    const RECT area = list.rectangle();
    ASSERT_TRUE(clickAt({area.left + 40, area.top + 8}));
    EXPECT_TRUE(waitFor([&] { return list.selectedItem() == 0; }, kPatience, "the first entry is selected"));
}

TEST_F(HarnessInput, KnowsWhatIsNotThere) {
    EXPECT_FALSE(at(999).exists());
    EXPECT_FALSE(at(999).visible());
    EXPECT_EQ(at(999).text(), L"");
    EXPECT_TRUE(at(sample::kQuit).visible());
    ShowWindow(at(sample::kPane).handle(), SW_HIDE);
    EXPECT_TRUE(waitFor([&] { return !at(sample::kQuit).visible(); }, kPatience, "hidden with its pane"));
    EXPECT_FALSE(click(at(sample::kQuit)));
}

TEST_F(HarnessInput, RefusesToClickACoveredControl) {
    Program cover(sampleExe());
    cover.start(L"full");
    const HWND other = cover.window();
    ASSERT_NE(other, nullptr);
    ASSERT_TRUE(bringToFront(other));
    EXPECT_TRUE(waitFor([&] { return !click(at(sample::kTick)); }, kPatience, "the control is covered"));
}

}  // namespace
}  // namespace program
