#include "ui/input_box.h"

#include <gmock/gmock.h>

#include <functional>

#include "support/scaled_monitor.h"
#include "support/test_form.h"
#include "ui/button.h"
#include "ui/control_ids.h"

namespace ui {
namespace {

using testing::Optional;

constexpr const wchar_t* kPrompt =
    L"Neues Datum der Datei (TT.MM.JJJJ HH:MM):\r\n\r\nDas bisherige Datum steht im Feld.";

std::wstring textOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

class InputBoxTest : public testing::Test {
  protected:
    // A window manager places the form when it shows it, in its own time.
    void SetUp() override {
        ASSERT_TRUE(test.waitFor([&] { return GetForegroundWindow() == test.form.hwnd(); }));
    }
    /// Asks, and does `meanwhile` once the box is open.
    std::optional<std::wstring> ask(const std::function<void()>& meanwhile) {
        test.loop.at(10, [this, meanwhile] {
            box = FindWindowW(L"PanorellInputBox", L"Datum ändern");
            meanwhile();
        });
        return inputBox(owner, question);
    }
    HWND part(int id) const { return GetDlgItem(box, id); }
    void click(int id) const { SendMessageW(part(id), BM_CLICK, 0, 0); }
    void type(const std::wstring& text) const {
        for (const wchar_t c : text) {
            SendMessageW(GetFocus(), WM_CHAR, c, 1);
        }
    }

    support::TestForm test;
    const Window* owner = &test.form;
    InputQuestion question{.title = L"Datum ändern", .prompt = kPrompt, .text = L"24.12.2025 18:30"};
    HWND box = nullptr;
};

TEST_F(InputBoxTest, AsksWithTheTextSelected) {
    std::wstring given;
    DWORD from = 99;
    DWORD to = 99;
    bool ownerEnabled = true;
    HWND focus = nullptr;
    EXPECT_EQ(ask([&] {
                  given = textOf(part(id::kInputPrompt));
                  SendMessageW(part(id::kInputText), EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                               reinterpret_cast<LPARAM>(&to));
                  ownerEnabled = IsWindowEnabled(test.form.hwnd()) != FALSE;
                  test.waitFor([&] { return GetFocus() == part(id::kInputText); });
                  focus = GetFocus();
                  EXPECT_EQ(focus, part(id::kInputText));
                  click(id::kInputCANCEL);
              }),
              std::nullopt);
    EXPECT_EQ(given, kPrompt);
    EXPECT_EQ(from, 0U);
    EXPECT_EQ(to, question.text.size());
    EXPECT_FALSE(ownerEnabled);
    EXPECT_TRUE(IsWindowEnabled(test.form.hwnd()));
    EXPECT_FALSE(IsWindow(box));
}

TEST_F(InputBoxTest, OkGivesTheTextAsItStandsThere) {
    EXPECT_THAT(ask([&] { click(id::kInputOK); }), Optional(std::wstring(L"24.12.2025 18:30")));
    EXPECT_THAT(ask([&] {
                    SetFocus(part(id::kInputText));
                    type(L" Größe ");
                    click(id::kInputOK);
                }),
                Optional(std::wstring(L" Größe ")))
        << "typing replaces the text";
}

TEST_F(InputBoxTest, AnEmptyTextIsAnAnswerToo) {
    question.text.clear();
    EXPECT_THAT(ask([&] { click(id::kInputOK); }), Optional(std::wstring()));
}

TEST_F(InputBoxTest, EnterIsOkAndEscapeIsAbbruch) {
    EXPECT_THAT(ask([&] {
                    SetFocus(part(id::kInputText));
                    type(L"neu");
                    test.key(VK_RETURN);
                }),
                Optional(std::wstring(L"neu")));
    for (const int place : {id::kInputText, id::kInputOK, id::kInputCANCEL}) {
        EXPECT_EQ(ask([&] {
                      SetFocus(part(place));
                      test.key(VK_ESCAPE);
                  }),
                  std::nullopt)
            << place;
    }
    EXPECT_EQ(ask([&] {
                  SetFocus(part(id::kInputCANCEL));
                  test.key(VK_RETURN);
              }),
              std::nullopt)
        << "Enter presses the button that has the focus";
}

TEST_F(InputBoxTest, EnterThatIsHeldDownSinceAMenuAnswersNothing) {
    constexpr LPARAM kRepeated = (1L << 30) | 1;
    for (const int place : {id::kInputText, id::kInputOK}) {
        EXPECT_EQ(ask([&] {
                      SetFocus(part(place));
                      PostMessageW(part(place), WM_KEYDOWN, VK_RETURN, kRepeated);
                      test.loop.at(10, [this] { test.key(VK_ESCAPE); });
                  }),
                  std::nullopt)
            << place;
    }
}

TEST_F(InputBoxTest, ClosingItIsAbbruch) {
    EXPECT_EQ(ask([&] { SendMessageW(box, WM_CLOSE, 0, 0); }), std::nullopt);
}

TEST_F(InputBoxTest, TabWalksThroughIt) {
    std::vector<int> places;
    ask([&] {
        SetFocus(part(id::kInputText));
        for (int i = 0; i < 3; ++i) {
            test.key(VK_TAB);
            places.push_back(GetDlgCtrlID(GetFocus()));
        }
        click(id::kInputCANCEL);
    });
    EXPECT_THAT(places, testing::ElementsAre(id::kInputOK, id::kInputCANCEL, id::kInputText));
}

TEST_F(InputBoxTest, NoMoreThanTheLongestTextCanBeTyped) {
    question.longest = 4;
    question.text = L"ab";
    EXPECT_THAT(ask([&] {
                    SetFocus(part(id::kInputText));
                    type(L"123456");
                    click(id::kInputOK);
                }),
                Optional(std::wstring(L"1234")));
}

TEST_F(InputBoxTest, ItBelongsToTheFormOfItsOwner) {
    const PushButton button(test.args(1));
    owner = &button;
    RECT before{};
    RECT form{};
    RECT own{};
    HWND above = nullptr;
    bool enabled = true;
    // A window manager places a form that was just shown, and reports its way there.
    do {
        GetWindowRect(test.form.hwnd(), &before);
        ask([&] {
            above = GetWindow(box, GW_OWNER);
            enabled = IsWindowEnabled(test.form.hwnd()) != FALSE;
            GetWindowRect(test.form.hwnd(), &form);
            GetWindowRect(box, &own);
            click(id::kInputCANCEL);
        });
    } while (!EqualRect(&before, &form));
    EXPECT_EQ(above, test.form.hwnd());
    EXPECT_FALSE(enabled);
    EXPECT_NEAR((own.left + own.right) / 2, (form.left + form.right) / 2, 2);
    EXPECT_NEAR((own.top + own.bottom) / 2, (form.top + form.bottom) / 2, 2);
}

TEST_F(InputBoxTest, AnOwnerThatWasDisabledStaysSo) {
    EnableWindow(test.form.hwnd(), FALSE);
    ask([&] { click(id::kInputCANCEL); });
    EXPECT_FALSE(IsWindowEnabled(test.form.hwnd()));
}

TEST_F(InputBoxTest, WithoutAnOwner) {
    owner = nullptr;
    EXPECT_THAT(ask([&] { click(id::kInputOK); }), Optional(question.text));
}

TEST_F(InputBoxTest, LeavingClosesItAndEndsTheHandler) {
    std::string went;
    test.loop.guarded([&] {
        ask([&] { test.loop.leave(); });
        went = "went on";
    });
    EXPECT_EQ(went, "");
    ASSERT_NE(box, nullptr);
    EXPECT_FALSE(IsWindow(box));
}

class InputBoxLayout : public testing::TestWithParam<int> {};

TEST_P(InputBoxLayout, ThePromptHasRoomAndNothingOverlaps) {
    const support::ScaledMonitor monitor(GetParam());
    support::TestForm test;
    InputQuestion question{.title = L"Datum ändern", .prompt = kPrompt, .text = L"x"};
    for (int line = 0; line < 4; ++line) {
        question.prompt +=
            L" Noch ein Satz, der für eine einzige Zeile des Fensters viel zu lang ist, und noch "
            L"ein Stück dazu.\r\n";
    }
    test.loop.at(10, [&] {
        const HWND box = FindWindowW(L"PanorellInputBox", nullptr);
        RECT all{};
        GetClientRect(box, &all);
        std::vector<RECT> places;
        for (const int id : {id::kInputPrompt, id::kInputText, id::kInputOK, id::kInputCANCEL}) {
            RECT place{};
            GetWindowRect(GetDlgItem(box, id), &place);
            MapWindowPoints(nullptr, box, reinterpret_cast<POINT*>(&place), 2);
            RECT within{};
            IntersectRect(&within, &place, &all);
            EXPECT_TRUE(EqualRect(&within, &place)) << id << " is cut off";
            for (const RECT& other : places) {
                EXPECT_FALSE(IntersectRect(&within, &place, &other)) << id;
            }
            places.push_back(place);
        }
        const HWND prompt = GetDlgItem(box, id::kInputPrompt);
        const auto font = reinterpret_cast<HFONT>(SendMessageW(prompt, WM_GETFONT, 0, 0));
        const int width = places[0].right - places[0].left;
        EXPECT_LE(measureHeight(question.prompt, font, width), places[0].bottom - places[0].top + 1);
        EXPECT_EQ(all.right, 440 * GetParam() / 96);
        SendMessageW(GetDlgItem(box, id::kInputCANCEL), BM_CLICK, 0, 0);
    });
    EXPECT_EQ(inputBox(&test.form, question), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Scalings, InputBoxLayout, testing::Values(96, 120, 144, 192));

}  // namespace
}  // namespace ui
