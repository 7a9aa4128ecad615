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
    EXPECT_FALSE(form().visible());
    EXPECT_EQ(stage.record(0).entry, L"Am Strand *P=2 *E=C *D *M=Sommer");
}

TEST_F(EntryEditorKeyboardTest, TabWalksThroughAllFields) {
    stage.open(L"");
    std::vector<int> places{stage.focused()};
    for (int i = 0; i < 7; ++i) {
        key(VK_TAB);
        places.push_back(stage.focused());
    }
    EXPECT_THAT(places, ElementsAre(ui::id::kUTT, ui::id::kCombo1, ui::id::kCombo2, ui::id::kEntryCheck1,
                                    ui::id::kCombo3, ui::id::kEntryOK, ui::id::kEntryCANCEL, ui::id::kUTT));
}

TEST_F(EntryEditorKeyboardTest, LettersWithAlt) {
    struct Case {
        wchar_t letter;
        int id;
    };
    for (const Case& one :
         {Case{L'p', ui::id::kCombo1}, Case{L'e', ui::id::kCombo2}, Case{L'm', ui::id::kCombo3},
          Case{L't', ui::id::kUTT}, Case{L'd', ui::id::kEntryCheck1}}) {
        stage.open(L"");
        stage.test.altLetter(one.letter);
        EXPECT_EQ(stage.focused(), one.id);
    }
    EXPECT_EQ(form().Check1.value(), 1);
    stage.test.altLetter(L'a');
    EXPECT_FALSE(form().visible());
    stage.open(L"");
    stage.type(L"Haus");
    stage.test.altLetter(L'o');
    EXPECT_FALSE(form().visible());
    EXPECT_EQ(stage.record(0).entry, L"Haus");
}

TEST_F(EntryEditorKeyboardTest, EnterIsOkAndEscapeIsAbbruchInEveryField) {
    for (const int id : {ui::id::kUTT, ui::id::kCombo1, ui::id::kCombo2, ui::id::kEntryCheck1,
                         ui::id::kCombo3, ui::id::kEntryOK}) {
        stage.open(L"Haus");
        form().UTT.setText(L"Garten");
        SetFocus(GetDlgItem(form().hwnd(), id));
        key(VK_ESCAPE);
        EXPECT_FALSE(form().visible()) << id;
        EXPECT_EQ(stage.record(0).entry, L"Haus") << id;
        stage.open(L"Haus");
        form().UTT.setText(L"Garten");
        SetFocus(GetDlgItem(form().hwnd(), id));
        key(VK_RETURN);
        EXPECT_FALSE(form().visible()) << id;
        EXPECT_EQ(stage.record(0).entry, L"Garten") << id;
    }
    stage.open(L"Haus");
    form().UTT.setText(L"Garten");
    form().CANCEL.setFocus();
    key(VK_RETURN);
    EXPECT_FALSE(form().visible());
    EXPECT_EQ(stage.record(0).entry, L"Haus") << "Enter presses \"Abbruch\" where that has the focus";
}

TEST_F(EntryEditorKeyboardTest, AnOpenListHasItsKeys) {
    stage.open(L"Haus");
    form().Combo1.setFocus();
    SendMessageW(form().Combo1.hwnd(), CB_SHOWDROPDOWN, TRUE, 0);
    key(VK_DOWN);
    key(VK_ESCAPE);
    EXPECT_TRUE(form().visible()) << "Escape closes the list";
    EXPECT_EQ(form().Combo1.selectedIndex(), 0);
    SendMessageW(form().Combo1.hwnd(), CB_SHOWDROPDOWN, TRUE, 0);
    key(VK_DOWN);
    key(VK_RETURN);
    EXPECT_TRUE(form().visible()) << "Enter takes the choice";
    EXPECT_FALSE(form().Combo1.droppedDown());
    EXPECT_EQ(form().Combo1.selectedIndex(), 1);
    key(VK_RETURN);
    EXPECT_EQ(stage.record(0).entry, L"Haus *P=1");
}

// The key that chose the menu's item may still be held when the editor opens.
TEST_F(EntryEditorKeyboardTest, AnEnterThatIsHeldDownDoesNothing) {
    stage.open(L"Haus");
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1 | 1 << 30);
    stage.test.loop.settle();
    EXPECT_TRUE(form().visible());
    EXPECT_FALSE(stage.records.changed);
}

TEST_F(EntryEditorKeyboardTest, EffectsByTheirCharacter) {
    stage.open(L"");
    form().Combo2.setFocus();
    struct Case {
        const wchar_t* typed;
        int index;
    };
    for (const Case& one : {Case{L"k", 12}, Case{L"A", 2}, Case{L"#", 1}, Case{L"z", 27}, Case{L"1", 27}}) {
        stage.type(one.typed);
        EXPECT_EQ(form().Combo2.selectedIndex(), one.index) << one.typed;
    }
    form().UTT.setFocus();
    stage.type(L"k#");
    EXPECT_EQ(form().UTT.text(), L"k#");
    EXPECT_EQ(form().Combo2.selectedIndex(), 27);
}

TEST_F(EntryEditorKeyboardTest, AStarIsRefusedWithABeep) {
    const support::SystemCalls system;
    stage.open(L"Haus");
    stage.type(L" am *See*");
    EXPECT_EQ(form().UTT.text(), L"Haus am See");
    EXPECT_EQ(system.count("beep"), 2);
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
