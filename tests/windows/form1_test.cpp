#include "app/form1.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "support/app_stage.h"
#include "ui/control_ids.h"

namespace app {
namespace {

using support::AppStage;

struct Look {
    int id;
    const wchar_t* windowClass;
    const wchar_t* caption;
    const wchar_t* toolTip;
    bool visible;
};

// Captions are without the sign that underlines a letter. A picture button's text is not shown: it has none.
const Look kLooks[] = {
    {ui::id::kDrive1, L"ComboBox", nullptr, L"Laufwerk", true},
    {ui::id::kDir1, L"ListBox", L"", L"Ordner", true},
    {ui::id::kFile2, L"ListBox", L"", L"", false},
    {ui::id::kTyp, L"Button", L"alle", L"Bilder und Videos", true},
    {ui::id::kTyp + 1, L"Button", L"jpg", L"nur Bilder", true},
    {ui::id::kTyp + 2, L"Button", L"mpg", L"nur Videos", true},
    {ui::id::kIntT, L"Edit", L"5", L"Pausenzeit", true},
    {ui::id::kIntS, L"ScrollBar", L"", L"", true},
    {ui::id::kLabel2, L"Static", L"Sek", L"", true},
    {ui::id::kLoopC, L"Button", L"Endlos", L"Diashow wiederholen", true},
    {ui::id::kShowFN, L"Button", L"Datum", L"Datum und Zeit bei Show anzeigen", true},
    {ui::id::kCheck1, L"Button", L"Effekte", L"Überblend-Effekte wechseln", true},
    {ui::id::kMusik, L"Button", L"Musik", L"Hintergrund-Musik", true},
    {ui::id::kMUTE, L"Button", L"Video-Ton", L"Ton bei Videos", true},
    {ui::id::kScreen2, L"Button", L"", L"Diashow auf 2. Schirm starten", true},
    {ui::id::kFrame1, L"PanorellFrame", L"Set", L"", true},
    {ui::id::kRun, L"Button", nullptr, L"Dia-Show starten", true},
    {ui::id::kStart, L"Button", L"Load", L"Bild laden (weiter mit <SPACE>)", true},
    {ui::id::kCTRL, L"Button", nullptr, L"Übersicht / beearbeiten", true},
    {ui::id::kSAVE, L"Button", nullptr, L"Einstellungen speichern", true},
    {ui::id::kHelp, L"Button", L"Info", L"", true},
    {ui::id::kEOT, L"Button", L"Ende", L"", false},
    {ui::id::kENDE, L"Button", nullptr, L"Programm beenden", true},
    {ui::id::kLabel1, L"Static", L"Panorell", L"", true},
    {ui::id::kUT, L"Edit", L"Untertitel", L"", false},
    {ui::id::kText1, L"Edit", L"", L"", false},
    {ui::id::kPic1, L"PanorellPictureBox", L"", L"", false},
    {ui::id::kPic2, L"PanorellPictureBox", L"", L"", true},
    {ui::id::kPic3, L"PanorellPictureBox", L"", L"", true},
    {ui::id::kLine1, L"PanorellLine", L"", L"", true},
    {ui::id::kLine2, L"PanorellLine", L"", L"", true},
};

ui::Control* find(const Form1& form, int id) {
    for (ui::Control* control : form.controls()) {
        if (GetDlgCtrlID(control->hwnd()) == id) {
            return control;
        }
    }
    return nullptr;
}

std::wstring withoutSign(std::wstring text) {
    std::erase(text, L'&');
    return text;
}

class Form1Test : public testing::Test {
  protected:
    Form1Test() { form.show(), loop.settle(); }
    support::VirtualLoop loop;
    Form1 form{loop};
};

TEST_F(Form1Test, EveryControlHasItsKindCaptionAndToolTip) {
    for (const Look& look : kLooks) {
        const ui::Control* control = find(form, look.id);
        ASSERT_NE(control, nullptr) << look.id;
        wchar_t name[64]{};
        GetClassNameW(control->hwnd(), name, 64);
        EXPECT_STREQ(name, look.windowClass) << look.id;
        EXPECT_EQ(control->toolTip(), look.toolTip) << look.id;
        EXPECT_EQ(control->visible(), look.visible) << look.id;
        if (look.caption != nullptr) {
            EXPECT_EQ(withoutSign(control->text()), look.caption) << look.id;
        }
    }
    EXPECT_EQ(form.File1.toolTip(), L"Bilder");
}

TEST_F(Form1Test, ThePauseBarRunsFromOneToSixty) {
    EXPECT_EQ(form.IntS.min(), 1);
    EXPECT_EQ(form.IntS.max(), 60);
    EXPECT_EQ(form.IntS.value(), 56);
}

TEST_F(Form1Test, TimersStandStillWithTheirIntervals) {
    const ui::Timer* timers[] = {&form.Timer1, &form.Timer2, &form.Timer3, &form.Timer4, &form.Timer5};
    const int intervals[] = {10000, 10, 4000, 0, 2000};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(timers[i]->interval(), intervals[i]) << "Timer" << i + 1;
        EXPECT_FALSE(timers[i]->enabled()) << "Timer" << i + 1;
    }
}

TEST_F(Form1Test, PatternsOfTheLists) {
    EXPECT_EQ(form.File1.pattern(), L"*.jpg;*.mpg");
    EXPECT_EQ(form.File2.pattern(), L"*.mp3");
}

TEST_F(Form1Test, BoxesThatNothingLoadsStartWithTheDefaults) {
    EXPECT_EQ(form.LoopC.value(), 0);
    EXPECT_EQ(form.ShowFN.value(), 0);
    EXPECT_EQ(form.MUTE.value(), 1);
    EXPECT_EQ(form.Musik.value(), 1);
    EXPECT_EQ(form.Check1.value(), 1);
    EXPECT_EQ(form.Screen2.value(), 0);
    EXPECT_TRUE(form.Typ[0].selected());
}

TEST_F(Form1Test, FontsOfTheTexts) {
    EXPECT_EQ(form.Label1.fontSpec().face, L"Comic Sans MS");
    EXPECT_EQ(form.Label1.fontSpec().points, 36.0F);
    EXPECT_EQ(form.UT.fontSpec().face, L"Comic Sans MS");
}

TEST_F(Form1Test, NothingReachesBeyondTheWindow) {
    RECT inside{};
    GetClientRect(form.hwnd(), &inside);
    for (const ui::Control* control : form.controls()) {
        RECT place{};
        GetWindowRect(control->hwnd(), &place);
        MapWindowPoints(nullptr, form.hwnd(), reinterpret_cast<POINT*>(&place), 2);
        RECT common{};
        IntersectRect(&common, &place, &inside);
        EXPECT_TRUE(EqualRect(&common, &place)) << GetDlgCtrlID(control->hwnd());
    }
}

TEST_F(Form1Test, AccessLettersAreUnique) {
    std::multiset<wchar_t> letters;
    for (const ui::Control* control : form.controls()) {
        if (control->accessKey() != 0) {
            letters.insert(control->accessKey());
        }
    }
    EXPECT_GE(letters.size(), 10U);
    for (const wchar_t letter : letters) {
        EXPECT_EQ(letters.count(letter), 1U) << static_cast<char>(letter);
    }
}

TEST_F(Form1Test, TabReachesEverythingThatCanBeWorked) {
    form.Start.setEnabled(true);
    form.Run.setEnabled(true);
    form.Drive1.setFocus();
    std::set<int> reached;
    for (int i = 0; i < 40; ++i) {
        reached.insert(GetDlgCtrlID(GetFocus()));
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1);
        loop.settle();
    }
    for (const int id :
         {ui::id::kDrive1, ui::id::kDir1, ui::id::kTyp, ui::id::kFile1, ui::id::kStart, ui::id::kRun,
          ui::id::kIntT, ui::id::kIntS, ui::id::kLoopC, ui::id::kShowFN, ui::id::kCheck1, ui::id::kMusik,
          ui::id::kMUTE, ui::id::kScreen2, ui::id::kOption1, ui::id::kSAVE, ui::id::kHelp, ui::id::kENDE}) {
        EXPECT_EQ(reached.count(id), 1U) << id;
    }
    EXPECT_EQ(reached.count(ui::id::kFile2), 0U);
}

struct Typed {
    const wchar_t* text;
    const wchar_t* left;  ///< what stands in IntT afterwards
    int bar;
};

class PauseView : public testing::TestWithParam<Typed> {};

TEST_P(PauseView, TextAndBarStayInStep) {
    support::VirtualLoop loop;
    Form1 form(loop);
    form.IntT.setText(GetParam().text);
    EXPECT_EQ(form.IntT.text(), GetParam().left);
    EXPECT_EQ(form.IntS.value(), GetParam().bar);
}

INSTANTIATE_TEST_SUITE_P(Texts, PauseView,
                         testing::Values(Typed{L"123", L"", 56}, Typed{L"75", L"60", 1},
                                         Typed{L"ab", L"ab", 56}, Typed{L"60", L"60", 1},
                                         Typed{L"1", L"1", 60}, Typed{L"0", L"0", 56},
                                         Typed{L"-3", L"-3", 56}, Typed{L"8x", L"8", 53}, Typed{L"", L"", 56},
                                         Typed{L"12345", L"", 56}));

TEST_F(Form1Test, TheBarWritesTheSeconds) {
    for (const int seconds : {1, 2, 30, 60}) {
        form.IntS.setValue(61 - seconds);
        EXPECT_EQ(form.IntT.text(), std::to_wstring(seconds));
    }
    EXPECT_THROW(form.IntS.setValue(61), std::out_of_range);
}

// Letter by letter, as a user types.
TEST_F(Form1Test, TypingAThirdCharacterEmptiesTheBox) {
    form.IntT.setFocus();
    form.IntT.selectAll();
    for (const wchar_t digit : {L'1', L'2'}) {
        SendMessageW(form.IntT.hwnd(), WM_CHAR, static_cast<WPARAM>(digit), 1);
    }
    EXPECT_EQ(form.IntS.value(), 49);
    SendMessageW(form.IntT.hwnd(), WM_CHAR, L'3', 1);
    EXPECT_EQ(form.IntT.text(), L"");
    EXPECT_EQ(form.IntS.value(), 49);
}

TEST_F(Form1Test, TheCaretStaysWhereItsUserTypes) {
    const auto caret = [&] { return LOWORD(SendMessageW(form.IntT.hwnd(), EM_GETSEL, 0, 0)); };
    form.IntT.setText(L"2");
    form.IntT.setFocus();
    SendMessageW(form.IntT.hwnd(), EM_SETSEL, 0, 0);
    SendMessageW(form.IntT.hwnd(), WM_CHAR, L'1', 1);
    ASSERT_EQ(form.IntT.text(), L"12");
    EXPECT_EQ(caret(), 1);
    SendMessageW(form.IntT.hwnd(), WM_KEYDOWN, VK_DELETE, 1);
    SendMessageW(form.IntT.hwnd(), EM_SETSEL, 0, 0);
    SendMessageW(form.IntT.hwnd(), WM_CHAR, L'7', 1);
    ASSERT_EQ(form.IntT.text(), L"60") << "71 is more than there is";
    EXPECT_EQ(caret(), 2) << "behind what was put there";
}

// The line of text is not as high as its box; the rest belongs to it.
TEST(Form1, TheWholeHeightOfThePauseTakesClicks) {
    AppStage stage;
    stage.load();
    Form1& form = stage.form();
    RECT place{};
    GetWindowRect(form.IntT.hwnd(), &place);
    for (int y = place.top + 1; y < place.bottom - 1; ++y) {
        EXPECT_EQ(
            SendMessageW(form.IntT.hwnd(), WM_NCHITTEST, 0, MAKELPARAM((place.left + place.right) / 2, y)),
            HTCLIENT)
            << y - place.top;
    }
    for (const int y : {-6, 30}) {
        form.Dir1.setFocus();
        stage.click(form.IntT, 10, y);
        EXPECT_TRUE(form.IntT.hasFocus()) << y;
    }
}

}  // namespace
}  // namespace app
