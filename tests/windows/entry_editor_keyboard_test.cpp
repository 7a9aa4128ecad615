// The editor of an item's entry by keyboard alone, and what its title takes.
#include <gmock/gmock.h>

#include "platform/clipboard.h"
#include "support/entry_editor_stage.h"
#include "support/system_calls.h"
#include "ui/control_ids.h"

namespace edit {
namespace {

using testing::ElementsAre;

class EntryEditorKeyboardTest : public testing::Test {
  protected:
    void SetUp() override { stage.music = {L"01 Winter.mp3", L"02 Sommer.mp3"}; }
    Form3& form() { return *stage.form; }
    void key(int virtualKey) { stage.test.key(virtualKey); }
    support::EntryEditorStage stage;
};

TEST_F(EntryEditorKeyboardTest, AWholeEntry) {
    const std::wstring entry = stage.undisturbed([&] {
        stage.open(L"");
        stage.type(L"Am Strand");
        key(VK_TAB);
        key(VK_DOWN);
        key(VK_DOWN);
        key(VK_TAB);
        stage.type(L"c");
        key(VK_TAB);
        key(VK_SPACE);
        key(VK_TAB);
        key(VK_DOWN);
        key(VK_DOWN);
        key(VK_DOWN);
        key(VK_RETURN);
        return stage.record(0).entry;
    });
    EXPECT_EQ(entry, L"Am Strand *P=2 *E=C *D *M=Sommer");
    EXPECT_FALSE(form().visible());
}

TEST_F(EntryEditorKeyboardTest, TabWalksThroughAllFields) {
    const std::vector<int> places = stage.undisturbed([&] {
        stage.open(L"");
        std::vector<int> passed{stage.focused()};
        for (int i = 0; i < 7; ++i) {
            key(VK_TAB);
            passed.push_back(stage.focused());
        }
        return passed;
    });
    EXPECT_THAT(places, ElementsAre(ui::id::kUTT, ui::id::kCombo1, ui::id::kCombo2, ui::id::kEntryCheck1,
                                    ui::id::kCombo3, ui::id::kEntryOK, ui::id::kEntryCANCEL, ui::id::kUTT));
}

TEST_F(EntryEditorKeyboardTest, LettersWithAlt) {
    const std::vector<int> places = stage.undisturbed([&] {
        stage.open(L"");
        std::vector<int> reached;
        for (const wchar_t letter : {L'p', L'e', L'm', L't', L'd'}) {
            stage.test.altLetter(letter);
            reached.push_back(stage.focused());
        }
        return reached;
    });
    EXPECT_THAT(places, ElementsAre(ui::id::kCombo1, ui::id::kCombo2, ui::id::kCombo3, ui::id::kUTT,
                                    ui::id::kEntryCheck1));
    EXPECT_EQ(form().Check1.value(), 1);
    const auto entry = [&](wchar_t letter) {
        return stage.undisturbed([&] {
            stage.open(L"Haus");
            form().UTT.setText(L"Garten");
            stage.test.altLetter(letter);
            return form().visible() ? L"open" : stage.record(0).entry;
        });
    };
    EXPECT_EQ(entry(L'a'), L"Haus");
    EXPECT_EQ(entry(L'o'), L"Garten");
}

TEST_F(EntryEditorKeyboardTest, EnterIsOkAndEscapeIsAbbruchInEveryField) {
    const auto entry = [&](int id, int pressed) {
        return stage.undisturbed([&] {
            stage.open(L"Haus");
            form().UTT.setText(L"Garten");
            SetFocus(GetDlgItem(form().hwnd(), id));
            key(pressed);
            return form().visible() ? L"open" : stage.record(0).entry;
        });
    };
    for (const int id : {ui::id::kUTT, ui::id::kCombo1, ui::id::kCombo2, ui::id::kEntryCheck1,
                         ui::id::kCombo3, ui::id::kEntryOK}) {
        EXPECT_EQ(entry(id, VK_ESCAPE), L"Haus") << id;
        EXPECT_EQ(entry(id, VK_RETURN), L"Garten") << id;
    }
    EXPECT_EQ(entry(ui::id::kEntryCANCEL, VK_RETURN), L"Haus") << "Enter presses what has the focus there";
}

TEST_F(EntryEditorKeyboardTest, AnOpenListHasItsKeys) {
    const auto chosen = [&](int closing) {
        return stage.undisturbed([&] {
            stage.open(L"Haus");
            form().Combo1.setFocus();
            SendMessageW(form().Combo1.hwnd(), CB_SHOWDROPDOWN, TRUE, 0);
            key(VK_DOWN);
            key(closing);
            const bool still = form().Combo1.droppedDown();
            return form().visible() && !still ? form().Combo1.selectedIndex() : -1;
        });
    };
    EXPECT_EQ(chosen(VK_ESCAPE), 0) << "Escape closes the list";
    EXPECT_EQ(chosen(VK_RETURN), 1) << "Enter takes the choice";
    EXPECT_EQ(stage.record(0).entry, L"Haus");
}

// The key that chose the menu's item may still be held when the editor opens.
TEST_F(EntryEditorKeyboardTest, AnEnterThatIsHeldDownDoesNothing) {
    const bool visible = stage.undisturbed([&] {
        stage.open(L"Haus");
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1 | 1 << 30);
        stage.test.loop.settle();
        return form().visible();
    });
    EXPECT_TRUE(visible);
    EXPECT_FALSE(stage.records.changed);
}

TEST_F(EntryEditorKeyboardTest, EffectsByTheirCharacter) {
    const std::vector<int> chosen = stage.undisturbed([&] {
        stage.open(L"");
        form().Combo2.setFocus();
        std::vector<int> all;
        for (const wchar_t* typed : {L"k", L"A", L"#", L"z", L"1"}) {
            stage.type(typed);
            all.push_back(form().Combo2.selectedIndex());
        }
        form().UTT.setFocus();
        stage.type(L"k#");
        all.push_back(form().Combo2.selectedIndex());
        return all;
    });
    EXPECT_THAT(chosen, ElementsAre(12, 2, 1, 27, 27, 27));
    EXPECT_EQ(form().UTT.text(), L"k#");
}

TEST_F(EntryEditorKeyboardTest, AStarIsRefusedWithABeep) {
    int beeps = 0;
    const std::wstring title = stage.undisturbed([&] {
        const support::SystemCalls system;
        stage.open(L"Haus");
        stage.type(L" am *See*");
        beeps = system.count("beep");
        return form().UTT.text();
    });
    EXPECT_EQ(title, L"Haus am See");
    EXPECT_EQ(beeps, 2);
}

TEST_F(EntryEditorKeyboardTest, WhatIsPastedBecomesATitle) {
    const support::SystemCalls system;
    struct Case {
        const wchar_t* pasted;
        const wchar_t* title;
        int beeps;
    };
    for (const Case& one :
         {Case{L"Garten", L"Haus Garten", 0}, Case{L"eins\r\nzwei\ndrei", L"Haus eins zwei drei", 0},
          Case{L"ein *Stern*", L"Haus ein Stern", 1}, Case{L"*", L"Haus ", 2},
          Case{L"*P=5\r\n*D", L"Haus P=5 D", 3}}) {
        stage.open(L"Haus ");
        ASSERT_TRUE(platform::setClipboardText(nullptr, one.pasted));
        SendMessageW(form().UTT.hwnd(), WM_PASTE, 0, 0);
        EXPECT_EQ(form().UTT.text(), one.title);
        EXPECT_EQ(system.count("beep"), one.beeps);
    }
    form().UTT.selectAll();
    ASSERT_TRUE(platform::setClipboardText(nullptr, L"neu"));
    // As the system's box takes Ctrl+V.
    SendMessageW(form().UTT.hwnd(), WM_CHAR, 0x16, 1);
    EXPECT_EQ(form().UTT.text(), L"neu") << "what is selected is replaced";
    SendMessageW(form().UTT.hwnd(), EM_UNDO, 0, 0);
    EXPECT_EQ(form().UTT.text(), L"Haus P=5 D");
    ASSERT_TRUE(platform::setClipboardText(nullptr, L""));
    SendMessageW(form().UTT.hwnd(), WM_PASTE, 0, 0);
    EXPECT_EQ(form().UTT.text(), L"Haus P=5 D") << "an empty clipboard takes nothing away";
}

}  // namespace
}  // namespace edit
