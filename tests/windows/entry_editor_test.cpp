// The editor of an item's entry: what it shows, what it takes over, and what happens around it.
#include "edit/entry_editor.h"

#include <gmock/gmock.h>

#include "support/entry_editor_stage.h"
#include "ui/control_ids.h"

namespace edit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EntryEditorTest : public testing::Test {
  protected:
    Form3& form() { return *stage.form; }
    std::vector<std::wstring> items(const ui::ComboBox& list) {
        std::vector<std::wstring> all;
        for (int i = 0; i < list.count(); ++i) {
            all.push_back(list.item(i));
        }
        return all;
    }
    support::EntryEditorStage stage;
};

TEST_F(EntryEditorTest, IsThereHiddenBeforeItIsAskedFor) {
    EXPECT_FALSE(form().visible());
    EXPECT_FALSE(stage.editor->isOpen());
    EXPECT_EQ(stage.caption(), L"   Untertitel  bearbeiten");
    EXPECT_EQ(GetWindow(form().hwnd(), GW_OWNER), stage.test.form.hwnd());
    EXPECT_EQ(form().Combo1.count(), 61);
    EXPECT_EQ(form().Combo1.item(60), L"60");
    EXPECT_EQ(form().Combo2.count(), 28);
    EXPECT_EQ(form().Combo2.item(1), L" #");
    EXPECT_EQ(form().Combo2.item(27), L" Z");
    EXPECT_EQ(form().Combo3.count(), 0);
    EXPECT_EQ(form().Label1.text(), L"Pause: (Sek)");
    EXPECT_EQ(form().Label2.text(), L"nächster Effekt:");
    EXPECT_EQ(form().Label3.text(), L"Titel:");
    EXPECT_EQ(form().Label4.text(), L"Musik:");
    EXPECT_EQ(form().Check1.text(), L"Datum");
    EXPECT_EQ(form().CANCEL.text(), L"Abbruch");
}

TEST_F(EntryEditorTest, OpensWithTheNumberOfTheItemAndTheCaretBehindTheTitle) {
    stage.record(2).entry = L"Am Strand *P=7";
    stage.editor->open(2);
    stage.test.loop.settle();
    EXPECT_TRUE(form().visible());
    EXPECT_TRUE(stage.editor->isOpen());
    EXPECT_EQ(stage.caption(), L"   Untertitel/Pause/Musik  bearbeiten  (Bild 3)");
    EXPECT_TRUE(IsWindowEnabled(stage.test.form.hwnd())) << "it is not modal";
    EXPECT_TRUE(stage.waitForFocus());
    DWORD from = 0;
    DWORD to = 0;
    SendMessageW(form().UTT.hwnd(), EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                 reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(from, 9U);
    EXPECT_EQ(to, 9U);
    EXPECT_FALSE(stage.records.changed);
    EXPECT_THAT(stage.calls, IsEmpty());
}

TEST_F(EntryEditorTest, ShowsWhatTheLineSays) {
    struct Case {
        const wchar_t* line;
        EntryTexts texts;
    };
    stage.music = {L"01 Winter.mp3", L"02 Herbst.mp3", L"03 Sommer.mp3"};
    const Case cases[] = {
        {L"", {}},
        {L"Haus am See", {L"Haus am See", L"", L"", false, L""}},
        {L" *P=7 *E=#", {L"", L"7", L" #", false, L""}},
        {L"Haus *P=12 *E=C *D *M=Sommer", {L"Haus", L"12", L" C", true, L"Sommer"}},
        {L"Haus *M=<", {L"Haus", L"", L"", false, L""}},
        {L"Haus *M=Wint", {L"Haus", L"", L"", false, L"Winter"}},
        {L"Haus *M=Regen", {L"Haus", L"", L"", false, L""}},
        {L"Haus *P=61 *E=c", {L"Haus", L"", L"", false, L""}},
        {L"Haus *P=99999999999", {L"Haus", L"", L"", false, L""}},
    };
    for (const Case& one : cases) {
        stage.open(one.line);
        EXPECT_EQ(form().texts(), one.texts) << testing::PrintToString(one.line);
    }
}

TEST_F(EntryEditorTest, TheMusicListIsFilledAnewWithEachOpeningButNotWithoutMusic) {
    stage.open(L"");
    EXPECT_THAT(items(form().Combo3), IsEmpty());
    stage.music = {L"01 Winter.mp3", L"Ohne Nummer.mp3"};
    stage.open(L" *M=Winter");
    EXPECT_THAT(items(form().Combo3), ElementsAre(L"", L"Winter", L"Ohne Nummer", L"<"));
    stage.music = {L"01 Regen.mp3"};
    stage.open(L"");
    EXPECT_THAT(items(form().Combo3), ElementsAre(L"", L"Regen", L"<"));
    EXPECT_EQ(form().Combo3.selectedIndex(), -1);
    form().Combo3.setSelectedIndex(1);
    stage.music.clear();
    stage.open(L"");
    EXPECT_THAT(items(form().Combo3), ElementsAre(L"", L"Regen", L"<"));
    EXPECT_EQ(form().Combo3.selectedIndex(), -1) << "the choice for another item is not this one's";
}

TEST_F(EntryEditorTest, OkTakesTheEntryOver) {
    stage.music = {L"01 Winter.mp3"};
    stage.open(L"");
    form().UTT.setText(L"  Am Strand ");
    form().Combo1.setSelectedIndex(5);
    form().Combo2.setSelectedIndex(4);
    form().Check1.setValue(1);
    form().Combo3.setSelectedIndex(2);
    EXPECT_EQ(stage.record(0).entry, L"") << "nothing before OK";
    stage.accept();
    EXPECT_EQ(stage.record(0).entry, L"Am Strand *P=5 *E=C *D *M=<");
    EXPECT_EQ(stage.record(0).toolTip, L"Am Strand *P=5 *E=C *D *M=<");
    EXPECT_TRUE(stage.records.changed);
    EXPECT_FALSE(form().visible());
    EXPECT_FALSE(stage.editor->isOpen());
    EXPECT_THAT(stage.calls, ElementsAre("tip 0!", "redraw 0", "settings"));
}

TEST_F(EntryEditorTest, AnEmptyEntryHasNoTip) {
    stage.open(L"Haus *P=5");
    form().UTT.setText(L" ");
    form().Combo1.setSelectedIndex(0);
    stage.accept();
    EXPECT_EQ(stage.record(0).entry, L"");
    EXPECT_EQ(stage.record(0).toolTip, L"");
    EXPECT_THAT(stage.calls, ElementsAre("tip 0!", "redraw 0", "settings"));
}

TEST_F(EntryEditorTest, OkWithoutAChangeLosesNothing) {
    stage.music = {L"01 Winter.mp3"};
    for (const wchar_t* line : {L"", L"Haus", L" *P=7 *E=#", L"Haus *P=12 *E=C *D *M=Winter",
                                L"Haus *P=90 *E=k", L"Haus *M=<", L"Haus *M=Regen"}) {
        EXPECT_EQ(stage.accepted(line), line);
    }
    EXPECT_EQ(stage.accepted(L"Haus *D *P=7"), L"Haus *P=7 *D")
        << "in the order in which entries are written";
    stage.open(L"Haus *M=<");
    form().UTT.setText(L"Garten");
    stage.accept();
    EXPECT_EQ(stage.record(0).entry, L"Garten");
}

TEST_F(EntryEditorTest, AbbruchChangesNothing) {
    stage.open(L"Haus");
    form().UTT.setText(L"Garten");
    form().CANCEL.click();
    EXPECT_FALSE(form().visible());
    SendMessageW(form().hwnd(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsWindow(form().hwnd())) << "it is hidden between edits, not ended";
    stage.open(L"Haus");
    SendMessageW(form().hwnd(), WM_CLOSE, 0, 0);
    EXPECT_FALSE(form().visible());
    EXPECT_EQ(stage.record(0).entry, L"Haus");
    EXPECT_EQ(stage.record(0).toolTip, L"alt");
    EXPECT_FALSE(stage.records.changed);
    EXPECT_THAT(stage.calls, IsEmpty());
}

TEST_F(EntryEditorTest, NoTipLiesOverItWhileItIsOpen) {
    stage.open(L"Haus");
    EXPECT_FALSE(stage.tips);
    stage.editor->open(1);
    EXPECT_FALSE(stage.tips);
    form().CANCEL.click();
    EXPECT_TRUE(stage.tips);
    stage.open(L"Haus");
    stage.accept();
    EXPECT_TRUE(stage.tips);
    stage.editor->open(1);
    stage.record(1).deleted = true;
    stage.editor->recordsChanged();
    EXPECT_TRUE(stage.tips);
}

TEST_F(EntryEditorTest, IsFilledAnewForAnotherItem) {
    stage.record(1).entry = L"Zwei *P=2 *D";
    stage.open(L"Eins *P=1 *E=A");
    form().UTT.setText(L"dropped");
    stage.editor->open(1);
    stage.test.loop.settle();
    EXPECT_EQ(form().texts(), (EntryTexts{L"Zwei", L"2", L"", true, L""}));
    EXPECT_EQ(stage.caption(), L"   Untertitel/Pause/Musik  bearbeiten  (Bild 2)");
    form().Combo1.setSelectedIndex(3);
    stage.accept();
    EXPECT_EQ(stage.record(0).entry, L"Eins *P=1 *E=A");
    EXPECT_EQ(stage.record(1).entry, L"Zwei *P=3 *D");
}

TEST_F(EntryEditorTest, FollowsItsItemWhenTheOrderChanges) {
    stage.open(L"Eins");
    form().UTT.setText(L"Erstes");
    std::swap(stage.records.thumbRecords[0], stage.records.thumbRecords[2]);
    stage.editor->recordsChanged();
    EXPECT_EQ(stage.caption(), L"   Untertitel/Pause/Musik  bearbeiten  (Bild 3)");
    EXPECT_EQ(form().UTT.text(), L"Erstes");
    std::swap(stage.records.thumbRecords[2], stage.records.thumbRecords[1]);
    stage.accept();
    EXPECT_EQ(stage.record(1).fileName, L"Bild0.jpg");
    EXPECT_EQ(stage.record(1).entry, L"Erstes") << "also when it was not told";
    EXPECT_EQ(stage.record(0).entry, L"");
    EXPECT_EQ(stage.record(2).entry, L"");
    EXPECT_THAT(stage.calls, ElementsAre("tip 1!", "redraw 1", "settings"));
}

TEST_F(EntryEditorTest, ClosesWhenItsItemIsMarkedForDeletionOrGone) {
    stage.open(L"Haus");
    stage.record(1).deleted = true;
    stage.editor->recordsChanged();
    EXPECT_TRUE(form().visible()) << "another item";
    stage.record(0).deleted = true;
    stage.editor->recordsChanged();
    EXPECT_FALSE(form().visible());
    stage.record(0).deleted = false;
    stage.open(L"Haus");
    stage.records.thumbRecords.erase(stage.records.thumbRecords.begin());
    stage.editor->recordsChanged();
    EXPECT_FALSE(form().visible());
    EXPECT_THAT(stage.refused, IsEmpty());
}

TEST_F(EntryEditorTest, OpensForNoItemThatIsMarkedForDeletionOrGone) {
    stage.record(1).deleted = true;
    DeleteFileW((stage.folder / L"Bild2.jpg").c_str());
    for (const int index : {1, 2, 3, -1}) {
        stage.editor->open(index);
        EXPECT_FALSE(form().visible()) << index;
        stage.open(L"Haus");
        ASSERT_TRUE(form().visible());
        stage.editor->open(index);
        EXPECT_FALSE(form().visible()) << index;
    }
}

TEST_F(EntryEditorTest, OpensForALockedItem) {
    SetFileAttributesW((stage.folder / L"Bild0.jpg").c_str(), FILE_ATTRIBUTE_HIDDEN);
    stage.open(L"Haus");
    EXPECT_TRUE(form().visible());
}

TEST_F(EntryEditorTest, OkForAFileThatIsGoneSaysSo) {
    stage.open(L"Haus");
    form().UTT.setText(L"Garten");
    DeleteFileW((stage.folder / L"Bild0.jpg").c_str());
    stage.accept();
    EXPECT_FALSE(form().visible());
    EXPECT_EQ(stage.record(0).entry, L"Haus");
    EXPECT_FALSE(stage.records.changed);
    EXPECT_THAT(stage.calls, IsEmpty());
    EXPECT_THAT(stage.refused, ElementsAre(L"Die Datei \"Bild0.jpg\" ist nicht mehr da oder wird gelöscht."));
}

// What waits for its turn when OK is pressed comes before the thumbnail is made anew.
TEST_F(EntryEditorTest, EventsThatWaitMayMoveTheItemBeforeItIsRedrawn) {
    stage.open(L"Haus");
    form().UTT.setText(L"Garten");
    stage.test.loop.at(1, [&] {
        EXPECT_FALSE(form().visible());
        std::swap(stage.records.thumbRecords[0], stage.records.thumbRecords[1]);
    });
    stage.test.loop.sleep(1);
    form().OK.click();
    EXPECT_THAT(stage.calls, ElementsAre("tip 0!", "redraw 1", "settings"));
    EXPECT_EQ(stage.record(1).entry, L"Garten");
}

TEST_F(EntryEditorTest, EventsThatWaitMayOpenItAgain) {
    stage.open(L"Haus");
    stage.test.loop.at(1, [&] { stage.editor->open(1); });
    stage.test.loop.sleep(1);
    form().OK.click();
    EXPECT_THAT(stage.calls, ElementsAre("tip 0!", "redraw 0!", "settings!"));
    EXPECT_TRUE(stage.editor->isOpen());
    EXPECT_EQ(stage.caption(), L"   Untertitel/Pause/Musik  bearbeiten  (Bild 2)");
}

TEST_F(EntryEditorTest, LeavingInTheMiddleKeepsTheEntry) {
    stage.open(L"Haus");
    form().UTT.setText(L"Garten");
    stage.test.loop.at(1, [&] { stage.test.loop.leave(); });
    stage.test.loop.sleep(1);
    form().OK.click();
    EXPECT_EQ(stage.record(0).entry, L"Garten");
    EXPECT_THAT(stage.calls, ElementsAre("tip 0!"));
}

TEST_F(EntryEditorTest, EndsWithTheOverview) {
    stage.open(L"Haus");
    const HWND window = form().hwnd();
    DestroyWindow(stage.test.form.hwnd());
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(form().hwnd(), nullptr);
    stage.editor->close();
    stage.editor.reset();
    stage.form.reset();
}

}  // namespace
}  // namespace edit
