#include "ui/form.h"

#include <gmock/gmock.h>

#include <memory>
#include <vector>

#include "platform/monitors.h"
#include "support/scaled_monitor.h"
#include "support/test_form.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/label.h"
#include "ui/message_box.h"
#include "ui/picture_box.h"
#include "ui/text_box.h"
#include "ui/theme.h"
#include "ui/timer.h"

namespace ui {
namespace {

using support::ScaledMonitor;
using support::TestForm;

TEST(Form, TabWalksThroughTheControlsInTheirOrder) {
    TestForm test;
    CheckBox first(test.args(1));
    CreateArgs noStop = test.args(2);
    noStop.tabStop = false;
    CheckBox skipped(noStop);
    CheckBox hidden(test.args(3));
    hidden.hide();
    PushButton last(test.args(4));
    SetFocus(GetNextDlgTabItem(test.form.hwnd(), nullptr, FALSE));
    EXPECT_TRUE(first.hasFocus());
    test.key(VK_TAB);
    EXPECT_TRUE(last.hasFocus());
    test.key(VK_TAB);
    EXPECT_TRUE(first.hasFocus());
    test.form.setNavigation(false);
    test.key(VK_TAB);
    EXPECT_TRUE(first.hasFocus());
}

TEST(Form, AltAndALetterWorkAControl) {
    TestForm test;
    CreateArgs args = test.args(1);
    args.text = L"B&eenden";
    PushButton button(args);
    CheckBox box(test.args(2));
    box.setAccessKey(L'D');
    Label label(test.args(3));
    label.setText(L"&Xyz");
    int clicks = 0;
    button.onClick = [&] { ++clicks; };
    EXPECT_EQ(button.accessKey(), L'E');
    EXPECT_EQ(label.accessKey(), 0);
    button.setFocus();
    test.altLetter(L'e');
    EXPECT_EQ(clicks, 1);
    test.altLetter(L'd');
    EXPECT_EQ(box.value(), 1);
    box.hide();
    button.setEnabled(false);
    test.altLetter(L'd');
    test.altLetter(L'e');
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(box.value(), 1);
}

TEST(Form, KeysReachTheFormFirst) {
    TestForm test;
    TextBox box(test.args(1));
    std::vector<int> keys;
    bool usedUp = false;
    test.form.onKey = [&](int key, bool) {
        keys.push_back(key);
        return usedUp;
    };
    test.form.onTyped = [&](wchar_t) { return usedUp; };
    box.setFocus();
    test.key('A');
    EXPECT_THAT(keys, testing::ElementsAre('A'));
    EXPECT_EQ(box.text(), L"a");
    usedUp = true;
    test.key('B');
    EXPECT_EQ(box.text(), L"a");
}

TEST(Form, DraggingTheGroundMovesIt) {
    support::VirtualLoop loop;
    Form form({.className = L"PanorellTestDragged", .width = 3000, .height = 3000, .borderless = true});
    form.setMovable(true);
    const auto place = [&] {
        RECT at{};
        GetWindowRect(form.hwnd(), &at);
        return at;
    };
    const RECT before = place();
    SendMessageW(form.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(40, 40));
    SendMessageW(form.hwnd(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(70, 30));
    const RECT after = place();
    EXPECT_EQ(after.left - before.left, 30);
    EXPECT_EQ(after.top - before.top, -10);
    SendMessageW(form.hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(40, 40));
    SendMessageW(form.hwnd(), WM_MOUSEMOVE, 0, MAKELPARAM(90, 90));
    EXPECT_EQ(place().left, after.left);
}

TEST(Form, PaintsGroundAndCards) {
    TestForm test;
    test.form.setCards({{1500, 1500, 3000, 1500}});
    const platform::WindowDc dc(test.form.hwnd());
    const auto becomes = [&](ui::Twips x, ui::Twips y, COLORREF colour) {
        const int dpi = test.form.dpi();
        return test.waitFor([&] { return GetPixel(dc.get(), toPixels(x, dpi), toPixels(y, dpi)) == colour; });
    };
    EXPECT_TRUE(becomes(2500, 2000, colorref(theme::kCard)));
    EXPECT_TRUE(becomes(75, 75, colorref(theme::kGround)));
    test.form.setCards({});
    test.form.setBackground(0);
    EXPECT_TRUE(becomes(2500, 2000, RGB(0, 0, 0)));
}

TEST(Form, IsPaintedWholeBeforeItBecomesActive) {
    support::VirtualLoop loop;
    Form form({.className = L"PanorellTestShown", .width = 6000, .height = 3000, .borderless = true});
    std::vector<std::unique_ptr<Control>> controls;
    for (int i = 0; i < 3; ++i) {
        const CreateArgs args{
            .parent = form, .id = i, .place = {150, 150.0F + 600.0F * static_cast<float>(i), 2000, 500}};
        controls.push_back(std::make_unique<CheckBox>(args));
    }
    controls.push_back(
        std::make_unique<PictureBox>(CreateArgs{.parent = form, .place = {3000, 150, 900, 900}}));
    bool waiting = true;
    form.onActivation = [&](bool) {
        waiting = false;
        for (const auto& control : controls) {
            waiting = waiting || GetUpdateRect(control->hwnd(), nullptr, FALSE) != FALSE;
        }
    };
    form.show();
    EXPECT_FALSE(waiting);
    EXPECT_TRUE(form.visible());
}

TEST(Form, AFailingHandlerEndsQuietly) {
    TestForm test;
    PushButton button(test.args(1));
    int trapped = 0;
    test.loop.onTrapped = [&](const std::exception&) { ++trapped; };
    button.onClick = [] { throw std::runtime_error("broken"); };
    test.click(button);
    EXPECT_EQ(trapped, 1);
}

TEST(Form, GivesTheFocusBackWhenItIsActiveAgain) {
    std::vector<bool> activations;
    TestForm test;
    CheckBox first(test.args(1));
    CheckBox second(test.args(2));
    test.form.onActivation = [&](bool active) { activations.push_back(active); };
    second.setFocus();
    {
        Form other({.className = L"PanorellTestOther", .width = 3000, .height = 3000});
        other.show();
        SetActiveWindow(other.hwnd());
        ASSERT_TRUE(test.waitFor([&] { return !second.hasFocus(); }));
        SetActiveWindow(test.form.hwnd());
        EXPECT_TRUE(test.waitFor([&] { return second.hasFocus(); }));
    }
    ASSERT_GE(activations.size(), 2U);
    EXPECT_FALSE(activations.front());
    EXPECT_TRUE(activations.back());
}

TEST(MessageBoxes, LeavingClosesItAndUnwindsItsCaller) {
    TestForm test;
    PushButton button(test.args(1));
    std::string reached;
    button.onClick = [&] {
        reached += "open ";
        messageBox(&test.form, L"Text", L" Fehler", MessageIcon::Exclamation);
        reached += "answered ";
    };
    // The box runs a loop of the system's own; only a window timer gets through to it.
    static support::TestForm* leaver = nullptr;
    leaver = &test;
    SetTimer(nullptr, 0, 50, [](HWND, UINT, UINT_PTR id, DWORD) {
        KillTimer(nullptr, id);
        leaver->loop.leave();
    });
    test.click(button);
    EXPECT_EQ(reached, "open ");
    EXPECT_TRUE(test.loop.leaving());
}

TEST(MessageBoxes, SaysWhichButtonWasPressed) {
    struct Case {
        MessageButtons buttons;
        int press;
        bool answer;
    };
    for (const Case& one : {Case{MessageButtons::Ok, IDOK, true}, Case{MessageButtons::YesNo, IDYES, true},
                            Case{MessageButtons::YesNo, IDNO, false}}) {
        TestForm test;
        static int button = 0;
        button = one.press;
        SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR id, DWORD) {
            const HWND box = FindWindowW(L"#32770", L" Frage");
            if (box != nullptr) {
                KillTimer(nullptr, id);
                SendMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
            }
        });
        EXPECT_EQ(messageBox(&test.form, L"Ja?", L" Frage", MessageIcon::Question, one.buttons), one.answer);
    }
}

class TwoMonitors : public platform::Monitors {
  public:
    RECT primaryWorkArea() const override { return {100, 50, 1100, 850}; }
};

TEST(Form, OpensInTheMiddleOfThePrimaryMonitorsWorkArea) {
    const TwoMonitors monitors;
    platform::Monitors::replace(&monitors);
    {
        support::VirtualLoop loop;
        const Form form(
            {.className = L"PanorellTestPlaced", .width = 6000, .height = 3000, .borderless = true});
        RECT place{};
        GetWindowRect(form.hwnd(), &place);
        EXPECT_EQ(place.left + place.right, 1200);
        EXPECT_EQ(place.top + place.bottom, 900);
        EXPECT_EQ(place.right - place.left, toPixels(6000, form.dpi()));
    }
    platform::Monitors::replace(nullptr);
}

TEST(Form, StaysUnderThePointerWhenItIsDraggedToAnotherScaling) {
    ScaledMonitor monitor(96);
    TestForm test;
    test.form.setMovable(true);
    SetWindowPos(test.form.hwnd(), nullptr, 300, 200, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    const auto origin = [&] {
        POINT place{};
        ClientToScreen(test.form.hwnd(), &place);
        return place;
    };
    const POINT before = origin();
    SetCursorPos(before.x + 100, before.y + 80);
    SendMessageW(test.form.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(100, 80));
    monitor.dpi = 192;
    const RECT suggested{900, 600, 1500, 1000};
    SendMessageW(test.form.hwnd(), WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&suggested));
    RECT window{};
    GetWindowRect(test.form.hwnd(), &window);
    EXPECT_EQ(window.right - window.left, 600) << "as large as the system suggests";
    POINT pointer{};
    GetCursorPos(&pointer);
    // The same part of the ground, at twice the size.
    EXPECT_EQ(pointer.x - window.left, 200);
    EXPECT_EQ(pointer.y - window.top, 160);
    SetCursorPos(pointer.x + 30, pointer.y);
    const POINT now = origin();
    SendMessageW(test.form.hwnd(), WM_MOUSEMOVE, MK_LBUTTON,
                 MAKELPARAM(pointer.x + 30 - now.x, pointer.y - now.y));
    RECT moved{};
    GetWindowRect(test.form.hwnd(), &moved);
    EXPECT_EQ(moved.left, window.left + 30) << "and it is dragged on";
    EXPECT_EQ(moved.top, window.top);
    SendMessageW(test.form.hwnd(), WM_LBUTTONUP, 0, 0);
    SendMessageW(test.form.hwnd(), WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&suggested));
    GetWindowRect(test.form.hwnd(), &window);
    EXPECT_EQ(window.left, 900) << "let go, it lies where the system puts it";
}

}  // namespace
}  // namespace ui
