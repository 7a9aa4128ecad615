// Drives, folders, files and filters of the set-up window.
#include <gmock/gmock.h>

#include "app/folder_browser.h"
#include "platform/system_message.h"
#include "support/app_stage.h"
#include "support/many_files.h"
#include "support/message_boxes.h"

namespace app {
namespace {

using support::AppStage;
using testing::ElementsAre;

class FolderListsTest : public testing::Test {
  protected:
    Form1& form() { return stage.form(); }
    void touch(const std::wstring& name) { stage.pictures.file(name, "no picture"); }
    void open(const std::wstring& folder) {
        form().Dir1.setPath(folder);
        stage.previewed();
    }
    /// A single click on a folder of Dir1.
    void clickFolder(const std::wstring& name) {
        int row = 0;
        while (row < form().Dir1.count() && form().Dir1.item(row) != name) {
            ++row;
        }
        form().Dir1.setSelectedIndex(row);
        stage.previewed();
    }
    AppStage stage;
};

TEST_F(FolderListsTest, TheCountIsTheListsToolTip) {
    stage.load(L"C:\\");
    open(stage.pictures.path());
    EXPECT_EQ(form().File1.toolTip(), L"keine Bilder");
    const wchar_t* expected[] = {L" 1 Datei (Vorschau: klicken)", L" 2 Dateien (Vorschau: klicken)",
                                 L" 3 Dateien (Vorschau: klicken)"};
    for (int i = 0; i < 3; ++i) {
        touch(std::to_wstring(i) + L".jpg");
        stage.activate();
        EXPECT_EQ(form().File1.toolTip(), expected[i]);
    }
}

TEST_F(FolderListsTest, NamesAreMatchedByTheProgramItself) {
    for (const wchar_t* name : {L"a.jpg", L"B.JPG", L"c.mpg", L"D.MpG", L"x.jpgx", L"x.jpeg", L"x.mpeg",
                                L"jpg", L"x.jpg.txt", L"n.mp3", L"versteckt.jpg", L"p.q.jpg"}) {
        touch(name);
    }
    stage.pictures.folder(L"ordner.jpg");
    stage.pictures.hide(L"versteckt.jpg");
    stage.loadFolder();
    EXPECT_THAT(form().File1.entries(), ElementsAre(L"a.jpg", L"B.JPG", L"c.mpg", L"D.MpG", L"p.q.jpg"));
    stage.click(form().Typ[1]);
    EXPECT_THAT(form().File1.entries(), ElementsAre(L"a.jpg", L"B.JPG", L"p.q.jpg"));
    EXPECT_EQ(form().File1.toolTip(), L" 3 Dateien (Vorschau: klicken)");
    stage.click(form().Typ[2]);
    EXPECT_THAT(form().File1.entries(), ElementsAre(L"c.mpg", L"D.MpG"));
    EXPECT_EQ(form().File1.toolTip(), L" 2 Dateien (Vorschau: klicken)");
    stage.click(form().Typ[0]);
    EXPECT_EQ(form().File1.count(), 5);
}

TEST_F(FolderListsTest, AFilterThatLeavesNothingLeavesNothingToStart) {
    touch(L"a.jpg");
    stage.loadFolder();
    EXPECT_TRUE(form().Run.enabled());
    stage.click(form().Typ[2]);
    EXPECT_EQ(form().File1.toolTip(), L"keine Bilder");
    EXPECT_FALSE(form().Run.enabled());
    EXPECT_FALSE(form().Start.enabled());
    stage.click(form().Typ[1]);
    EXPECT_TRUE(form().Run.enabled());
    EXPECT_TRUE(form().Start.enabled());
}

TEST_F(FolderListsTest, AnyNameIsListedAndOpened) {
    const std::wstring names[] = {L"Süße Öl-Grüße.jpg", L"mit  zwei Blanks.jpg", L"[1] {a} (b).jpg",
                                  L"\u65E5\u672C \u2603.jpg", L"\u0416\u0436.jpg"};
    for (const std::wstring& name : names) {
        stage.picture(name, 0x20A040);
    }
    stage.loadFolder();
    ASSERT_EQ(form().File1.count(), 5);
    for (const std::wstring& name : names) {
        form().File1.setSelectedIndex(-1);
        const int index = form().File1.indexOf(name);
        ASSERT_GE(index, 0);
        form().File1.setSelectedIndex(index);
        ASSERT_TRUE(stage.previewed());
        EXPECT_TRUE(support::alike(stage.shown(), 0x20A040));
    }
}

TEST_F(FolderListsTest, FoldersWithAnyNameOpen) {
    for (const wchar_t* name : {L"\u65E5\u672C", L"Übung [2]", L"a.b"}) {
        const std::wstring folder = stage.pictures.folder(name);
        support::writeBytes(folder + L"\\x.jpg", {'x'});
        stage.load(L"C:\\");
        open(folder);
        EXPECT_EQ(form().Dir1.path(), folder);
        EXPECT_EQ(form().File1.count(), 1);
        stage.application.reset();
        stage.create();
    }
}

TEST_F(FolderListsTest, TenThousandFilesAreListed) {
    const support::ManyFiles folder;
    stage.load(folder.path() + L" L=9");
    stage.previewed();
    EXPECT_EQ(form().File1.count(), 10'000);
    EXPECT_EQ(form().File1.toolTip(), L" 10000 Dateien (Vorschau: klicken)");
    EXPECT_EQ(form().File1.entries()[9'999], L"Bild9999.jpg");
    EXPECT_EQ(form().File1.selectedName(), L"Bild9.jpg");
    EXPECT_EQ(form().File2.count(), support::ManyFiles::kTitles);
    stage.activate();
    EXPECT_EQ(form().File1.selectedName(), L"Bild9.jpg");
}

TEST_F(FolderListsTest, AFolderOfTheUsersBeginsAtItsFirstFile) {
    const std::wstring other = stage.pictures.folder(L"andere");
    touch(L"a.jpg");
    touch(L"b.jpg");
    touch(L"andere\\c.jpg");
    stage.loadFolder(L" L=1");
    ASSERT_EQ(stage.state().StartIndex, 1);
    clickFolder(L"andere");
    ASSERT_EQ(form().Dir1.path(), other);
    EXPECT_EQ(stage.state().StartIndex, 0);
    EXPECT_EQ(form().File1.selectedIndex(), -1);
}

TEST_F(FolderListsTest, TheOpenFolderClickedAgainKeepsTheFile) {
    touch(L"a.jpg");
    touch(L"b.jpg");
    stage.loadFolder(L" L=1");
    form().Dir1.onClick();
    EXPECT_EQ(stage.state().StartIndex, 1);
    EXPECT_EQ(form().File1.selectedIndex(), 1);
}

TEST_F(FolderListsTest, AFolderThatVanishedCannotBeOpened) {
    stage.pictures.folder(L"weg");
    touch(L"a.jpg");
    stage.loadFolder();
    stage.pictures.remove(L"weg");
    clickFolder(L"weg");
    EXPECT_EQ(form().Dir1.path(), stage.pictures.path());
    EXPECT_EQ(form().File1.count(), 1);
}

TEST_F(FolderListsTest, TheOpenFolderThatVanishedIsEmpty) {
    const std::wstring gone = stage.pictures.folder(L"weg");
    touch(L"weg\\a.jpg");
    stage.load(gone);
    stage.previewed();
    ASSERT_EQ(form().File1.count(), 1);
    stage.pictures.remove(L"weg");
    form().File1.setSelectedIndex(0);
    EXPECT_TRUE(stage.previewed());
    stage.activate();
    EXPECT_EQ(form().File1.toolTip(), L"keine Bilder");
    EXPECT_FALSE(form().Run.enabled());
    form().Run.click();
    EXPECT_EQ(stage.showState().showMode, show::kNoShow);
}

HANDLE WINAPI denied(LPCWSTR, FINDEX_INFO_LEVELS, LPVOID, FINDEX_SEARCH_OPS, LPVOID, DWORD) {
    SetLastError(ERROR_ACCESS_DENIED);
    return INVALID_HANDLE_VALUE;
}

TEST_F(FolderListsTest, AFolderThatCannotBeReadIsLeftAlone) {
    stage.pictures.folder(L"geheim");
    touch(L"a.jpg");
    stage.loadFolder();
    const support::ImportHook hook("FindFirstFileExW", &denied);
    clickFolder(L"geheim");
    EXPECT_EQ(form().Dir1.path(), stage.pictures.path());
    EXPECT_EQ(form().File1.count(), 1);
    stage.activate();
    EXPECT_EQ(form().File1.toolTip(), L"keine Bilder");
}

// One drive more than there are, and nothing in it.
const support::ImportHook* drivesHook = nullptr;
DWORD WINAPI oneDriveMore() {
    return drivesHook->original<decltype(GetLogicalDrives)>()() | 1U << (L'Q' - L'A');
}

class EmptyDrive : public FolderListsTest {
  protected:
    EmptyDrive() { drivesHook = &hook; }
    support::ImportHook hook{"GetLogicalDrives", &oneDriveMore};
};

TEST_F(EmptyDrive, GivesAMessageAndLeavesTheFolders) {
    touch(L"a.jpg");
    touch(L"b.jpg");
    stage.loadFolder(L" L=1");
    const support::MessageBoxes boxes;
    form().Drive1.setDrive(L"Q:");
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_EQ(boxes.seen()[0].title, L" Fehler");
    EXPECT_EQ(boxes.seen()[0].text, platform::systemMessage(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(form().Dir1.path(), stage.pictures.path());
    EXPECT_EQ(form().File1.selectedIndex(), 1);
    EXPECT_EQ(stage.state().StartIndex, 1);
}

TEST_F(EmptyDrive, InASetLeavesTheListsWithoutAMessage) {
    stage.program.file(L"Panorell.ini",
                       "[Set2]\r\nDrive=Q:\r\nDir=Q:\\Bilder\r\n[Set3]\r\nDrive=Q:\r\nDir=C:\\\r\n");
    touch(L"a.jpg");
    stage.loadFolder();
    const support::MessageBoxes boxes;
    for (const std::size_t set : {1U, 2U}) {
        stage.click(form().Option1[set]);
        EXPECT_EQ(boxes.seen().size(), 0U);
        EXPECT_EQ(form().Drive1.drive(), L"C:");
        EXPECT_EQ(form().Dir1.path(), stage.pictures.path());
    }
}

TEST_F(EmptyDrive, InParametersLeavesTheListsWithoutAMessage) {
    const support::MessageBoxes boxes;
    stage.load(L"Q:\\Bilder P=9");
    EXPECT_EQ(boxes.seen().size(), 0U);
    EXPECT_EQ(form().Drive1.drive(), L"C:");
    EXPECT_EQ(form().Dir1.path(), L"C:\\");
    EXPECT_EQ(form().IntT.text(), L"9");
}

TEST_F(FolderListsTest, AnotherDriveOpensAtItsRootAndTakesTheFocus) {
    stage.loadFolder(L" L=0");
    form().Drive1.setDrive(L"Z:");
    EXPECT_EQ(form().Dir1.path(), L"Z:\\");
    EXPECT_EQ(form().File1.path(), L"Z:\\");
    EXPECT_TRUE(form().Dir1.hasFocus());
}

TEST_F(FolderListsTest, TheMusicListFollowsTheFolder) {
    for (const wchar_t* name : {L"02 Zwei.mp3", L"01 Eins.MP3", L"Abend.mp3", L"9x.mp3", L"nicht.mp3x"}) {
        touch(name);
    }
    stage.pictures.folder(L"leer");
    stage.loadFolder();
    EXPECT_THAT(stage.application->music().musicList,
                ElementsAre(L"01 Eins.MP3", L"02 Zwei.mp3", L"9x.mp3", L"   Abend.mp3"));
    EXPECT_EQ(stage.application->music().musicIndex, 0);
    open(stage.pictures / L"leer");
    EXPECT_TRUE(stage.application->music().musicList.empty());
}

std::wstring topOf(const ui::FolderList& list) {
    return list.item(list.topIndex());
}

TEST_F(FolderListsTest, ALetterScrollsToTheFirstSubFolderOfItsName) {
    for (int i = 10; i < 60; ++i) {
        for (const wchar_t* letter : {L"a", L"m", L"U", L"z"}) {
            stage.pictures.folder(letter + std::to_wstring(i));
        }
    }
    stage.loadFolder();
    form().Dir1.setFocus();
    stage.type(L'm');
    EXPECT_EQ(topOf(form().Dir1), L"m10");
    EXPECT_EQ(form().Dir1.path(), stage.pictures.path());
    stage.type(L'A');
    EXPECT_EQ(topOf(form().Dir1), L"a10");
    stage.type(L'u');
    EXPECT_EQ(topOf(form().Dir1), L"U10") << "not the ancestor of the same letter";
    stage.type(L'x');
    EXPECT_EQ(topOf(form().Dir1), L"U10");
    stage.type(L'c');
    EXPECT_EQ(topOf(form().Dir1), L"U10") << "the root is no sub-folder";
    form().IntT.setFocus();
    stage.type(L'm');
    EXPECT_EQ(topOf(form().Dir1), L"U10") << "a box of text takes letters for itself";
    EXPECT_EQ(form().Dir1.path(), stage.pictures.path());
}

}  // namespace
}  // namespace app
