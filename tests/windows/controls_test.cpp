#include <gmock/gmock.h>

#include "support/test_form.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/frame.h"
#include "ui/label.h"
#include "ui/line.h"
#include "ui/option_button.h"
#include "ui/picture_box.h"
#include "ui/progress_bar.h"
#include "ui/scroll_bar.h"
#include "ui/text_box.h"
#include "ui/theme.h"
#include "ui/without_redraw.h"

namespace ui {
namespace {

using support::TestForm;
using testing::ElementsAre;

COLORREF pixelOf(const Control& control, int x, int y) {
    UpdateWindow(control.hwnd());
    const platform::WindowDc dc(control.hwnd());
    return GetPixel(dc.get(), x, y);
}

TEST(Control, HiddenUnpaintedItLeavesWhatLiesBelowAsItIs) {
    TestForm test;
    PictureBox above(test.args(1));
    PictureBox below(test.args(2));
    for (PictureBox* box : {&above, &below}) {
        box->movePixels(0, 0, 40, 30);
    }
    test.form.show();
    const auto unpainted = [&](bool painting) {
        above.show();
        test.loop.settle();
        painting ? above.hide() : above.hideUnpainted();
        EXPECT_FALSE(above.visible());
        EXPECT_EQ(IsWindowVisible(above.hwnd()), FALSE);
        return GetUpdateRect(below.hwnd(), nullptr, FALSE) != FALSE;
    };
    EXPECT_TRUE(unpainted(true));
    EXPECT_FALSE(unpainted(false));
}

TEST(WithoutRedraw, PaintsAtTheEndAndShowsNothingThatWasHidden) {
    TestForm test;
    PictureBox box(test.args(1));
    test.form.show();
    test.loop.settle();
    const auto waits = [&] { return GetUpdateRect(box.hwnd(), nullptr, FALSE) != FALSE; };
    {
        const WithoutRedraw still(box.hwnd());
        box.repaint();
        EXPECT_FALSE(waits());
    }
    EXPECT_TRUE(waits());
    EXPECT_NE(IsWindowVisible(box.hwnd()), FALSE);
    box.hide();
    { const WithoutRedraw still(box.hwnd()); }
    EXPECT_EQ(IsWindowVisible(box.hwnd()), FALSE);
}

TEST(Label, ShowsItsTextOnTheCardBehindAndLetsThePointerThrough) {
    TestForm test;
    test.form.setCards({{0, 0, 6000, 3000}});
    CreateArgs args = test.args(1);
    args.text = L"Sek";
    Label label(args);
    test.loop.settle();
    EXPECT_EQ(label.text(), L"Sek");
    const SIZE size = label.clientSize();
    EXPECT_EQ(pixelOf(label, size.cx - 2, size.cy - 2), colorref(theme::kCard));
    EXPECT_EQ(SendMessageW(label.hwnd(), WM_NCHITTEST, 0, 0), HTTRANSPARENT);
}

TEST(Label, WithoutACardItHasTheFormsColour) {
    TestForm test;
    Label label(test.args(1));
    test.form.setBackground(0x000000);
    label.repaint();
    EXPECT_EQ(pixelOf(label, 3, 3), RGB(0, 0, 0));
    label.setGround(0x102030);
    EXPECT_EQ(pixelOf(label, 3, 3), RGB(0x10, 0x20, 0x30));
}

TEST(TextBox, TellsOfEachChangeOnce) {
    TestForm test;
    for (const bool multiLine : {false, true}) {
        TextBox box(test.args(1), {.multiLine = multiLine});
        std::vector<std::wstring> changes;
        box.onChange = [&] { changes.push_back(box.text()); };
        box.setText(L"12");
        box.setText(L"12");
        box.setText(L"");
        box.setFocus();
        SendMessageW(box.hwnd(), WM_CHAR, L'7', 1);
        EXPECT_THAT(changes, ElementsAre(L"12", L"", L"7")) << multiLine;
    }
}

TEST(TextBox, AHandlerMayChangeTheTextAgain) {
    TestForm test;
    TextBox box(test.args(1));
    int calls = 0;
    box.onChange = [&] {
        ++calls;
        if (box.text().size() >= 3) {
            box.setText(L"");
        }
    };
    box.setText(L"123");
    EXPECT_EQ(box.text(), L"");
    EXPECT_EQ(calls, 2);
}

TEST(CheckBox, AUserTogglesAndGreyedBecomesEmpty) {
    TestForm test;
    CheckBox box(test.args(1));
    std::vector<int> values;
    box.onClick = [&] { values.push_back(box.value()); };
    test.click(box);
    test.click(box);
    box.setValue(2);
    test.click(box);
    box.setFocus();
    test.key(VK_SPACE);
    EXPECT_THAT(values, ElementsAre(1, 0, 2, 0, 1));
}

TEST(CheckBox, SettingTheSameValueTellsNothingAndABadOneThrows) {
    TestForm test;
    CheckBox box(test.args(1));
    int clicks = 0;
    box.onClick = [&] { ++clicks; };
    box.setValue(0);
    EXPECT_THROW(box.setValue(3), std::out_of_range);
    EXPECT_THROW(box.setValue(-1), std::out_of_range);
    EXPECT_EQ(clicks, 0);
    box.setValue(1);
    EXPECT_EQ(clicks, 1);
}

struct Options {
    explicit Options(TestForm& test) {
        for (int i = 0; i < 3; ++i) {
            buttons.push_back(std::make_unique<OptionButton>(
                test.args(10 + i, {150, 150 + 450.0F * static_cast<float>(i), 3000, 400}), group));
            buttons.back()->onClick = [this, i] { events.push_back("click " + std::to_string(i)); };
            buttons.back()->onChosen = [this, i] { events.push_back("chosen " + std::to_string(i)); };
        }
    }
    OptionGroup group;
    std::vector<std::unique_ptr<OptionButton>> buttons;
    std::vector<std::string> events;
};

TEST(OptionButton, AtMostOneIsSelected) {
    TestForm test;
    Options options(test);
    EXPECT_EQ(options.group.selectedIndex(), -1);
    options.buttons[1]->setSelected(true);
    options.buttons[2]->setSelected(true);
    EXPECT_FALSE(options.buttons[1]->selected());
    EXPECT_EQ(options.group.selectedIndex(), 2);
    EXPECT_THAT(options.events, ElementsAre("click 1", "click 2"));
}

TEST(OptionButton, TheMouseChoosesWhenItGoesDown) {
    TestForm test;
    Options options(test);
    test.press(*options.buttons[1]);
    EXPECT_THAT(options.events, ElementsAre("chosen 1"));
    test.release(*options.buttons[1]);
    EXPECT_THAT(options.events, ElementsAre("chosen 1", "click 1"));
    test.click(*options.buttons[1]);
    EXPECT_THAT(options.events, ElementsAre("chosen 1", "click 1", "chosen 1"));
}

TEST(OptionButton, TheFocusAloneSelectsNothing) {
    TestForm test;
    Options options(test);
    options.buttons[0]->setFocus();
    test.loop.settle();
    EXPECT_TRUE(options.events.empty());
    EXPECT_EQ(options.group.selectedIndex(), -1);
}

TEST(OptionButton, ArrowKeysChooseAndSkipWhatCannotBeChosen) {
    TestForm test;
    Options options(test);
    options.buttons[0]->setFocus();
    test.key(VK_DOWN);
    EXPECT_THAT(options.events, ElementsAre("chosen 1", "click 1"));
    EXPECT_TRUE(options.buttons[1]->hasFocus());
    options.buttons[2]->setEnabled(false);
    test.key(VK_RIGHT);
    EXPECT_EQ(options.group.selectedIndex(), 0);
    test.key(VK_UP);
    EXPECT_EQ(options.group.selectedIndex(), 1);
}

TEST(OptionButton, OneOfTheGroupIsInTheTabOrder) {
    TestForm test;
    CheckBox before(test.args(1));
    Options options(test);
    CheckBox after(test.args(2));
    before.setFocus();
    test.key(VK_TAB);
    EXPECT_TRUE(options.buttons[0]->hasFocus());
    options.buttons[2]->setSelected(true);
    before.setFocus();
    test.key(VK_TAB);
    EXPECT_TRUE(options.buttons[2]->hasFocus());
    test.key(VK_TAB);
    EXPECT_TRUE(after.hasFocus());
}

TEST(Button, IsWorkedByMouseSpaceReturnAndCode) {
    TestForm test;
    PushButton button(test.args(1));
    int clicks = 0;
    button.onClick = [&] { ++clicks; };
    test.click(button);
    EXPECT_EQ(clicks, 1);
    SendMessageW(button.hwnd(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(4, 4));
    test.release(button);
    EXPECT_EQ(clicks, 2) << "a double click is two clicks";
    button.setFocus();
    test.key(VK_SPACE);
    test.key(VK_RETURN);
    button.click();
    EXPECT_EQ(clicks, 5);
    button.setEnabled(false);
    button.click();
    EXPECT_EQ(clicks, 5);
}

TEST(Button, AVerbatimTextUnderlinesNothing) {
    TestForm test;
    const auto painted = [&](const std::wstring& text, bool verbatim, wchar_t key = 0) {
        CreateArgs args = test.args(1);
        args.text = text;
        PushButton button(args);
        button.setVerbatim(verbatim);
        EXPECT_EQ(button.accessKey(), key) << verbatim;
        std::vector<COLORREF> pixels;
        const SIZE size = button.clientSize();
        for (int y = 0; y < size.cy; ++y) {
            for (int x = 0; x < size.cx; ++x) {
                pixels.push_back(pixelOf(button, x, y));
            }
        }
        return pixels;
    };
    EXPECT_EQ(painted(L"Haus &Hof", true), painted(L"Haus &&Hof", false));
    EXPECT_NE(painted(L"Haus &Hof", true), painted(L"Haus &Hof", false, L'H'));
    EXPECT_EQ(painted(L"Meer", true), painted(L"Meer", false));
}

TEST(Button, DrawsItsStates) {
    TestForm test;
    PictureButton button(test.args(1), Path().rect(0, 0, 10, 10), 10, 0.5F);
    const SIZE size = button.clientSize();
    const COLORREF quiet = pixelOf(button, size.cx / 8, size.cy / 2);
    EXPECT_EQ(quiet, colorref(theme::kButton));
    EXPECT_EQ(pixelOf(button, size.cx / 2, size.cy / 2), colorref(theme::kText)) << "the glyph";
    SendMessageW(button.hwnd(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    EXPECT_NE(pixelOf(button, size.cx / 8, size.cy / 2), quiet) << "hot";
    SendMessageW(button.hwnd(), WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(pixelOf(button, size.cx / 8, size.cy / 2), quiet);
    button.setEnabled(false);
    EXPECT_NE(pixelOf(button, size.cx / 2, size.cy / 2), colorref(theme::kText)) << "disabled";
}

TEST(Control, ADisabledControlGivesTheFocusAwayAndGetsItBack) {
    TestForm test;
    PushButton button(test.args(1));
    CheckBox other(test.args(2));
    button.setFocus();
    button.setEnabled(false);
    EXPECT_EQ(GetFocus(), test.form.hwnd());
    button.setEnabled(true);
    EXPECT_TRUE(button.hasFocus());
    button.setEnabled(false);
    other.setFocus();
    button.setEnabled(true);
    EXPECT_TRUE(other.hasFocus());
}

TEST(ScrollBar, KeepsToItsRange) {
    TestForm test;
    ScrollBar bar(test.args(1, {150, 150, 300, 2000}), {.min = 1, .max = 60, .value = 56});
    std::vector<int> values;
    bar.onChange = [&] { values.push_back(bar.value()); };
    EXPECT_EQ(bar.value(), 56);
    bar.setValue(60);
    bar.setValue(60);
    EXPECT_THROW(bar.setValue(61), std::out_of_range);
    EXPECT_THROW(bar.setValue(0), std::out_of_range);
    EXPECT_THAT(values, ElementsAre(60));
    EXPECT_EQ(SendMessageW(bar.hwnd(), SBM_GETPOS, 0, 0), 60);
}

TEST(ScrollBar, IsWorkedByUserStepsThatStopAtTheEnds) {
    TestForm test;
    ScrollBar bar(test.args(1, {150, 150, 300, 2000}), {.min = 1, .max = 60, .value = 58});
    const auto scroll = [&](WORD how, WORD position = 0) {
        SendMessageW(test.form.hwnd(), WM_VSCROLL, MAKEWPARAM(how, position),
                     reinterpret_cast<LPARAM>(bar.hwnd()));
        return bar.value();
    };
    EXPECT_EQ(scroll(SB_LINEDOWN), 59);
    EXPECT_EQ(scroll(SB_PAGEDOWN), 60);
    EXPECT_EQ(scroll(SB_LINEDOWN), 60);
    EXPECT_EQ(scroll(SB_LINEUP), 59);
    EXPECT_EQ(scroll(SB_PAGEUP), 54);
    EXPECT_EQ(scroll(SB_THUMBTRACK, 12), 12);
    EXPECT_EQ(scroll(SB_TOP), 1);
    EXPECT_EQ(scroll(SB_BOTTOM), 60);
    EXPECT_EQ(scroll(SB_ENDSCROLL), 60);
    SendMessageW(bar.hwnd(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(bar.value(), 59);
}

TEST(ProgressBar, KeepsToItsRangeAndFillsFromTheLeft) {
    TestForm test;
    ProgressBar bar(test.args(1, {150, 150, 3000, 120}));
    EXPECT_EQ(bar.maximum(), 100);
    EXPECT_EQ(bar.value(), 0);
    bar.setMaximum(5000);
    bar.setValue(2500);
    EXPECT_EQ(bar.maximum(), 5000);
    EXPECT_EQ(bar.value(), 2500);
    const SIZE size = bar.clientSize();
    // A window manager may still move the form, and what lies beyond the screen has no pixels.
    const auto shows = [&](int x, int y, Rgb colour) {
        return test.waitFor([&] { return pixelOf(bar, x, y) == colorref(colour); });
    };
    EXPECT_TRUE(shows(size.cx / 4, size.cy / 2, theme::kAccent));
    EXPECT_TRUE(shows(size.cx * 3 / 4, size.cy / 2, theme::kEdge));
    EXPECT_TRUE(shows(0, 0, theme::kAccent)) << "there is no frame";
    bar.setValue(9000);
    EXPECT_EQ(bar.value(), 5000);
    bar.setValue(-3);
    EXPECT_EQ(bar.value(), 0);
    EXPECT_THROW(bar.setMaximum(0), std::out_of_range);
}

TEST(ComboBox, SelectsByCodeAndUser) {
    TestForm test;
    ComboBox box(test.args(1, {150, 150, 3000, 420}));
    for (int i = 0; i < 5; ++i) {
        box.add(std::to_wstring(i));
    }
    std::vector<int> selected;
    box.onChange = [&] { selected.push_back(box.selectedIndex()); };
    box.setSelectedIndex(3);
    box.setSelectedIndex(3);
    box.setFocus();
    test.key(VK_DOWN);
    EXPECT_THROW(box.setSelectedIndex(9), std::out_of_range);
    EXPECT_THAT(selected, ElementsAre(3, 4));
    EXPECT_EQ(box.item(4), L"4");
    RECT outer{};
    GetWindowRect(box.hwnd(), &outer);
    // The system adds the frame of its theme, a pixel or two.
    EXPECT_NEAR(outer.bottom - outer.top, toPixels(420, box.dpi()), 2)
        << "the closed box is as high as its place";
}

TEST(Frame, CarriesControlsOnItsCard) {
    TestForm test;
    CreateArgs args = test.args(1, {150, 150, 4000, 2000});
    args.text = L"Set";
    Frame frame(args);
    OptionGroup group;
    CreateArgs inner{.parent = frame, .id = 2, .place = {300, 600, 1500, 400}};
    OptionButton option(inner, group);
    int clicks = 0;
    option.onClick = [&] { ++clicks; };
    test.click(option);
    EXPECT_EQ(clicks, 1) << "its notifications arrive";
    const SIZE size = option.clientSize();
    EXPECT_EQ(pixelOf(option, size.cx - 2, 2), colorref(theme::kCard));
    EXPECT_EQ(pixelOf(frame, 0, 0), colorref(theme::kGround)) << "round corners show the form";
    frame.hide();
    EXPECT_FALSE(IsWindowVisible(option.hwnd()));
    EXPECT_TRUE(option.visible());
}

TEST(Line, IsAStripOfItsColour) {
    TestForm test;
    Line line(test.args(1, {150, 150, 3000, 30}), 0x336699);
    EXPECT_EQ(pixelOf(line, 0, 0), RGB(0x33, 0x66, 0x99));
    EXPECT_EQ(line.clientSize().cy, toPixels(180, line.dpi()) - toPixels(150, line.dpi()));
}

TEST(CheckBox, TheSecondOfTwoQuickClicksCounts) {
    TestForm test;
    CheckBox box(test.args(1));
    std::vector<int> values;
    box.onClick = [&] { values.push_back(box.value()); };
    test.click(box);
    SendMessageW(box.hwnd(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(4, 4));
    test.release(box);
    EXPECT_THAT(values, ElementsAre(1, 0));
    box.setFocus();
    test.key(VK_SPACE);
    EXPECT_THAT(values, ElementsAre(1, 0, 1)) << "and the keyboard goes on from there";
}

TEST(OptionButton, SpaceChoosesRightAfterThePressOfAMouseButton) {
    TestForm test;
    Options options(test);
    // Released beside the button, as a double click's second press, and with a handler that gives the focus
    // away.
    test.press(*options.buttons[1]);
    SendMessageW(options.buttons[1]->hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(-50, -50));
    options.events.clear();
    options.buttons[1]->setFocus();
    test.key(VK_SPACE);
    EXPECT_THAT(options.events, ElementsAre("chosen 1", "click 1"));
    SendMessageW(options.buttons[0]->hwnd(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(4, 4));
    test.release(*options.buttons[0]);
    options.events.clear();
    options.buttons[2]->setFocus();
    test.key(VK_SPACE);
    EXPECT_THAT(options.events, ElementsAre("chosen 2", "click 2"));
    options.buttons[1]->onChosen = [&] {
        options.events.emplace_back("chosen 1");
        options.buttons[0]->setFocus();
    };
    test.press(*options.buttons[1]);
    options.buttons[1]->setFocus();
    options.events.clear();
    test.key(VK_SPACE);
    EXPECT_EQ(options.events.front(), "chosen 1");
}

/// Pixels of a control's outermost line that have the accent's colour.
int accentOnTheEdge(Control& control) {
    GdiFlush();
    const SIZE size = control.clientSize();
    int count = 0;
    for (int x = 0; x < size.cx; ++x) {
        count += pixelOf(control, x, 0) == colorref(theme::kAccent) ? 1 : 0;
        count += pixelOf(control, x, size.cy - 1) == colorref(theme::kAccent) ? 1 : 0;
    }
    return count;
}

// Around no caption the system draws no focus.
TEST(FocusFrame, ShowsTheFocusOfButtonsWithoutACaption) {
    TestForm test;
    CheckBox box(test.args(1, {150, 150, 300, 300}));
    OptionGroup group;
    OptionButton option(test.args(2, {600, 150, 300, 300}), group);
    CreateArgs named = test.args(3, {1200, 150, 1500, 300});
    named.text = L"Endlos";
    CheckBox caption(named);
    for (Control* control : {static_cast<Control*>(&box), static_cast<Control*>(&option)}) {
        caption.setFocus();
        test.loop.settle();
        EXPECT_EQ(accentOnTheEdge(*control), 0);
        // The focus is shown from the first use of the keyboard on.
        SendMessageW(test.form.hwnd(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
        control->setFocus();
        EXPECT_TRUE(test.waitFor([&] { return accentOnTheEdge(*control) > 0; }));
        caption.setFocus();
        EXPECT_TRUE(test.waitFor([&] { return accentOnTheEdge(*control) == 0; }));
    }
    EXPECT_EQ(accentOnTheEdge(caption), 0) << "a caption has the system's own";
}

}  // namespace
}  // namespace ui
