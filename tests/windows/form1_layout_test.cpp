// The set-up window at the scalings that monitors have: nothing overlaps, nothing is cut off, and the
// keyboard walks through it as one reads it.
#include <gmock/gmock.h>

#include <array>
#include <map>
#include <vector>

#include "app/form1.h"
#include "support/scaled_monitor.h"
#include "support/virtual_loop.h"
#include "ui/control_ids.h"

namespace app {
namespace {

namespace id = ui::id;
using support::ScaledMonitor;

RECT placeOf(const ui::Control& control, HWND within) {
    RECT place{};
    GetWindowRect(control.hwnd(), &place);
    MapWindowPoints(nullptr, within, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

int idOf(const ui::Control& control) {
    return GetDlgCtrlID(control.hwnd());
}

SIZE extentOf(const std::wstring& text, HWND control) {
    return ui::measureText(text, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
}

class Form1Layout : public testing::TestWithParam<int> {
  protected:
    std::vector<ui::Control*> shown() const {
        std::vector<ui::Control*> found;
        for (ui::Control* control : form.controls()) {
            if (control->visible()) {
                found.push_back(control);
            }
        }
        return found;
    }
    int pixels(float at96) const { return ui::toPixels(at96 * 15, monitor.dpi); }
    /// That a text, with `beside` pixels of 96 DPI next to it, has room in a control.
    void fits(const ui::Control& control, const std::wstring& text, float beside) const {
        const SIZE room = control.clientSize();
        const SIZE needed = extentOf(text, control.hwnd());
        EXPECT_LE(needed.cx + pixels(beside), room.cx) << testing::PrintToString(text);
        EXPECT_LE(needed.cy, room.cy) << testing::PrintToString(text);
    }

    ScaledMonitor monitor{GetParam()};
    support::VirtualLoop loop;
    Form1 form{loop};
};

TEST_P(Form1Layout, TheWindowHasItsSizeAndFitsTheScreen) {
    const SIZE size = form.clientSize();
    EXPECT_EQ(size.cx, 900 * GetParam() / 96);
    EXPECT_EQ(size.cy, 504 * GetParam() / 96);
    EXPECT_LE(size.cx, 1920);
    EXPECT_LE(size.cy, 1040) << "beside a task bar";
}

/// Whether the word or glyph belongs to the control: it lies inside, in front, and clicks go through it.
bool liesOn(const ui::Control& word, const ui::Control& control) {
    const RECT inner = placeOf(word, GetParent(word.hwnd()));
    const RECT outer = placeOf(control, GetParent(control.hwnd()));
    RECT common{};
    IntersectRect(&common, &inner, &outer);
    HWND behind = word.hwnd();
    while (behind != nullptr && behind != control.hwnd()) {
        behind = GetWindow(behind, GW_HWNDNEXT);
    }
    POINT middle{(inner.left + inner.right) / 2, (inner.top + inner.bottom) / 2};
    ClientToScreen(GetParent(word.hwnd()), &middle);
    return idOf(word) == 0 && EqualRect(&common, &inner) != FALSE && behind == control.hwnd() &&
           SendMessageW(word.hwnd(), WM_NCHITTEST, 0, MAKELPARAM(middle.x, middle.y)) == HTTRANSPARENT;
}

TEST_P(Form1Layout, NoControlOverlapsAnother) {
    const auto all = shown();
    ASSERT_GE(all.size(), 35U);
    int words = 0;
    for (const ui::Control* one : all) {
        for (const ui::Control* other : all) {
            if (one == other || GetParent(one->hwnd()) != GetParent(other->hwnd())) {
                continue;
            }
            RECT common{};
            const RECT a = placeOf(*one, form.hwnd());
            const RECT b = placeOf(*other, form.hwnd());
            if (liesOn(*one, *other)) {
                ++words;
            } else if (!liesOn(*other, *one)) {
                EXPECT_FALSE(IntersectRect(&common, &a, &b)) << idOf(*one) << " and " << idOf(*other);
            }
        }
    }
    EXPECT_EQ(words, 6) << "the second screen's two and the sets' four";
}

TEST_P(Form1Layout, EveryControlLiesInsideItsParent) {
    for (const ui::Control* control : form.controls()) {
        const HWND parent = GetParent(control->hwnd());
        RECT inside{};
        GetClientRect(parent, &inside);
        const RECT place = placeOf(*control, parent);
        RECT common{};
        IntersectRect(&common, &place, &inside);
        EXPECT_TRUE(EqualRect(&common, &place)) << idOf(*control);
        EXPECT_FALSE(IsRectEmpty(&place)) << idOf(*control);
    }
}

TEST_P(Form1Layout, NoCaptionIsCutOff) {
    constexpr float kMarkAndGap = 20;  // of a check box or an option button
    constexpr float kButtonEdges = 8;  // on both sides
    constexpr float kDropButton = 32;  // of the drive list, with its margins
    for (const ui::OptionButton& typ : form.Typ) {
        fits(typ, typ.text(), kMarkAndGap);
    }
    for (const ui::CheckBox* box : {&form.LoopC, &form.ShowFN, &form.Check1, &form.Musik, &form.MUTE}) {
        fits(*box, box->text(), kMarkAndGap);
    }
    for (const ui::PushButton* button : {&form.Start, &form.Help, &form.EOT}) {
        fits(*button, button->text(), kButtonEdges);
    }
    fits(form.Run, form.Run.text(), kButtonEdges);
    fits(form.Label1, L"Panorell", 0);
    fits(form.Label2, form.Label2.text(), 0);
    fits(form.IntT, L"60", 4);
    fits(form.Frame1, form.Frame1.text(), 20);
    for (const wchar_t* kind : {L"C:  Festplatte", L"W:  Wechseldatenträger", L"W:  Netzlaufwerk"}) {
        fits(form.Drive1, kind, kDropButton);
    }
    // Words beside other controls have no number.
    int words = 0;
    for (const ui::Control* control : shown()) {
        if (idOf(*control) == 0 && !control->text().empty()) {
            fits(*control, control->text(), 0);
            ++words;
        }
    }
    EXPECT_EQ(words, 6);
}

TEST_P(Form1Layout, TheTitleWithTheVersionHasRoom) {
    ui::FontSpec font = form.Label1.fontSpec();
    font.points = 14;
    form.Label1.setFont(font);
    EXPECT_LE(2 * extentOf(L"Panorell", form.Label1.hwnd()).cy, form.Label1.clientSize().cy);
}

TEST_P(Form1Layout, TheRowsOfTheListsHoldTheirText) {
    for (const ui::Control* list :
         {static_cast<ui::Control*>(&form.Dir1), static_cast<ui::Control*>(&form.File1)}) {
        EXPECT_LE(extentOf(L"Ägypten", list->hwnd()).cy, SendMessageW(list->hwnd(), LB_GETITEMHEIGHT, 0, 0));
    }
}

TEST_P(Form1Layout, TabWalksThroughEachGroupAsOneReads) {
    const std::vector<std::vector<int>> groups = {
        {id::kDrive1, id::kDir1, id::kTyp, id::kFile1},
        {id::kStart, id::kCTRL, id::kRun},
        {id::kIntT, id::kIntS, id::kLoopC, id::kShowFN, id::kCheck1, id::kMusik, id::kMUTE, id::kScreen2,
         id::kOption1, id::kSAVE},
        {id::kHelp, id::kENDE}};
    std::map<int, RECT> places;
    for (ui::Control* control : form.controls()) {
        control->setEnabled(true);
        places[idOf(*control)] = placeOf(*control, form.hwnd());
    }
    std::vector<int> wanted;
    for (const std::vector<int>& group : groups) {
        for (std::size_t i = 0; i < group.size(); ++i) {
            wanted.push_back(group[i]);
            if (i > 0) {
                const RECT& before = places[group[i - 1]];
                const RECT& here = places[group[i]];
                EXPECT_TRUE(here.top >= before.bottom || here.left >= before.right) << group[i];
            }
        }
    }
    std::vector<int> walked;
    HWND at = nullptr;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        at = GetNextDlgTabItem(form.hwnd(), at, FALSE);
        walked.push_back(GetDlgCtrlID(at));
    }
    EXPECT_EQ(walked, wanted);
    EXPECT_EQ(GetDlgCtrlID(GetNextDlgTabItem(form.hwnd(), at, FALSE)), wanted.front());
}

INSTANTIATE_TEST_SUITE_P(Dpi, Form1Layout, testing::Values(96, 120, 144, 192));

/// Where everything lies and how large its font is.
std::vector<std::array<LONG, 5>> layoutOf(const Form1& form) {
    std::vector<std::array<LONG, 5>> layout;
    for (const ui::Control* control : form.controls()) {
        const RECT place = placeOf(*control, form.hwnd());
        layout.push_back(
            {place.left, place.top, place.right, place.bottom, extentOf(L"Xy", control->hwnd()).cy});
    }
    return layout;
}

// As on Windows, when the window is dragged to another monitor or the user changes the scaling.
TEST(Form1Dpi, AChangeLaysTheWindowOutAnew) {
    ScaledMonitor monitor(96);
    support::VirtualLoop loop;
    Form1 form(loop);
    form.applyRegion();
    form.show();
    loop.settle();
    for (const int dpi : {144, 192, 120, 96}) {
        monitor.dpi = dpi;
        const RECT suggested{20, 30, 20 + 900 * dpi / 96, 30 + 504 * dpi / 96};
        SendMessageW(form.hwnd(), WM_DPICHANGED, static_cast<WPARAM>(MAKELONG(dpi, dpi)),
                     reinterpret_cast<LPARAM>(&suggested));
        loop.settle();
        RECT place{};
        GetWindowRect(form.hwnd(), &place);
        EXPECT_TRUE(EqualRect(&place, &suggested)) << dpi;
        const HRGN region = CreateRectRgn(0, 0, 0, 0);
        EXPECT_EQ(GetWindowRgn(form.hwnd(), region), COMPLEXREGION);
        EXPECT_TRUE(PtInRegion(region, suggested.right - 20 - 60, suggested.bottom - 30 - 3)) << dpi;
        EXPECT_FALSE(PtInRegion(region, suggested.right - 20 - 2, suggested.bottom - 30 - 2)) << dpi;
        DeleteObject(region);
        EXPECT_EQ(form.Pic3.image().width(), form.Pic3.clientSize().cx) << dpi;
        const Form1 made(loop);
        EXPECT_EQ(layoutOf(form), layoutOf(made)) << dpi;
    }
}

}  // namespace
}  // namespace app
