#include <gmock/gmock.h>

#include "files/file_filter.h"
#include "platform/directory.h"
#include "platform/error.h"
#include "support/scratch_folder.h"
#include "support/test_form.h"
#include "ui/drive_list.h"
#include "ui/file_list.h"
#include "ui/folder_list.h"

namespace ui {
namespace {

using support::ScratchFolder;
using support::TestForm;
using testing::ElementsAre;

class FileListTest : public testing::Test {
  protected:
    TestForm test_;
    ScratchFolder folder_;
    FileList list_{test_.args(1, {150, 150, 3000, 3000}), files::isListed, L"*.jpg;*.mpg"};
};

TEST_F(FileListTest, ListsWhatMatchesInExplorersOrder) {
    for (const wchar_t* name :
         {L"Bild 10.jpg", L"bild 9.JPG", L"Bild 999.jpg", L"Bild 1000.jpg", L"x.jpgx", L"y.jpeg", L"film.mpg",
          L"lied.mp3", L"ä ö [ü].jpg", L"日本.jpg", L"leer zeichen.jpg"}) {
        folder_.file(name);
    }
    folder_.folder(L"ordner.jpg");
    list_.setPath(folder_.path());
    EXPECT_THAT(list_.entries(),
                ElementsAre(L"ä ö [ü].jpg", L"bild 9.JPG", L"Bild 10.jpg", L"Bild 999.jpg", L"Bild 1000.jpg",
                            L"film.mpg", L"leer zeichen.jpg", L"日本.jpg"));
    for (int i = 0; i < list_.count(); ++i) {
        EXPECT_EQ(list_.item(i), list_.entries()[static_cast<std::size_t>(i)]);
    }
    list_.setPattern(L"*.mpg");
    EXPECT_THAT(list_.entries(), ElementsAre(L"film.mpg"));
}

TEST_F(FileListTest, HiddenFilesAreListedOnRequestOnly) {
    folder_.file(L"a.jpg");
    folder_.file(L"b.jpg");
    folder_.hide(L"b.jpg");
    list_.setPath(folder_.path());
    EXPECT_THAT(list_.entries(), ElementsAre(L"a.jpg"));
    list_.setWithHidden(true);
    EXPECT_THAT(list_.entries(), ElementsAre(L"a.jpg", L"b.jpg"));
}

TEST_F(FileListTest, RefreshKeepsTheSelectionByName) {
    for (int i = 10; i < 60; ++i) {
        folder_.file(L"b" + std::to_wstring(i) + L".jpg");
    }
    list_.setPath(folder_.path());
    int clicks = 0;
    list_.onClick = [&] { ++clicks; };
    list_.setSelectedIndex(30);
    list_.setTopIndex(25);
    folder_.file(L"a1.jpg");
    folder_.file(L"a2.jpg");
    list_.refresh();
    EXPECT_EQ(list_.selectedIndex(), 32);
    EXPECT_EQ(list_.selectedName(), L"b40.jpg");
    EXPECT_EQ(list_.topIndex(), 27);
    folder_.remove(L"b40.jpg");
    list_.refresh();
    EXPECT_EQ(list_.selectedIndex(), -1);
    EXPECT_EQ(clicks, 1) << "reading anew is no choice";
}

TEST_F(FileListTest, SeveralListsOfOneFolderTakeWhatIsTheirs) {
    FileList titles(test_.args(2, {3300, 150, 3000, 3000}), files::isListed, L"*.mp3");
    for (const wchar_t* name : {L"b2.jpg", L"b10.jpg", L"lied 1.mp3", L"text.txt"}) {
        folder_.file(name);
    }
    FileList::setPath(folder_.path(), {&list_, &titles});
    EXPECT_THAT(list_.entries(), ElementsAre(L"b2.jpg", L"b10.jpg"));
    EXPECT_THAT(titles.entries(), ElementsAre(L"lied 1.mp3"));
    EXPECT_EQ(titles.item(0), L"lied 1.mp3");
    EXPECT_EQ(titles.path(), folder_.path());
    folder_.remove(L"b2.jpg");
    list_.refresh();
    EXPECT_THAT(list_.entries(), ElementsAre(L"b10.jpg"));
}

TEST_F(FileListTest, AFolderThatCannotBeReadGivesAnEmptyList) {
    folder_.file(L"a.jpg");
    list_.setPath(folder_.path());
    EXPECT_EQ(list_.count(), 1);
    list_.setPath(folder_ / L"nicht da");
    EXPECT_EQ(list_.count(), 0);
    EXPECT_EQ(list_.selectedIndex(), -1);
    list_.refresh();
    EXPECT_EQ(list_.count(), 0);
}

class FolderListTest : public testing::Test {
  protected:
    FolderListTest() {
        for (const wchar_t* name : {L"Berge", L"Äpfel 2", L"Äpfel 10", L"Versteckt"}) {
            folder_.folder(name);
        }
        folder_.hide(L"Versteckt");
        folder_.folder(L"Berge\\Alpen");
        list_.setPath(folder_.path());
    }
    std::vector<std::wstring> items() const {
        std::vector<std::wstring> all;
        for (int i = 0; i < list_.count(); ++i) {
            all.push_back(list_.item(i));
        }
        return all;
    }
    int rowOf(const std::wstring& name) const {
        const std::vector<std::wstring> all = items();
        return static_cast<int>(std::find(all.begin(), all.end(), name) - all.begin());
    }
    void clickRow(int row) {
        RECT area{};
        SendMessageW(list_.hwnd(), LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
        test_.click(list_, area.left + 30, (area.top + area.bottom) / 2);
    }

    TestForm test_;
    ScratchFolder folder_;
    FolderList list_{test_.args(1, {150, 150, 4000, 4500})};
};

TEST_F(FolderListTest, ShowsAncestorsItselfAndSubFolders) {
    const std::vector<std::wstring> all = items();
    EXPECT_EQ(all.front(), L"C:\\");
    EXPECT_EQ(list_.selectedPath(), folder_.path());
    const std::vector<std::wstring> last(all.end() - 3, all.end());
    EXPECT_THAT(last, ElementsAre(L"Äpfel 2", L"Äpfel 10", L"Berge"));
    EXPECT_EQ(all[all.size() - 4], folder_.path().substr(folder_.path().rfind(L'\\') + 1));
}

TEST_F(FolderListTest, AClickOpensAFolderAndAnAncestor) {
    std::vector<std::wstring> opened;
    list_.onClick = [&] { list_.setPath(list_.selectedPath()); };
    list_.onChange = [&] { opened.push_back(list_.path()); };
    clickRow(rowOf(L"Berge"));
    EXPECT_EQ(list_.path(), folder_ / L"Berge");
    EXPECT_EQ(items().back(), L"Alpen");
    clickRow(list_.count() - 3);
    EXPECT_THAT(opened, ElementsAre(folder_ / L"Berge", folder_.path()));
}

TEST_F(FolderListTest, KeysMoveOpenAndLeave) {
    list_.onClick = [&] { list_.setPath(list_.selectedPath()); };
    list_.setFocus();
    test_.key(VK_DOWN);
    EXPECT_EQ(list_.path(), folder_.path()) << "moving opens nothing";
    EXPECT_EQ(list_.selectedPath(), folder_ / L"Äpfel 2");
    test_.key(VK_RETURN);
    EXPECT_EQ(list_.path(), folder_ / L"Äpfel 2");
    test_.key(VK_LEFT);
    EXPECT_EQ(list_.path(), folder_.path());
}

TEST_F(FolderListTest, PathsAreTakenInEveryForm) {
    struct Case {
        std::wstring given;
        std::wstring path;
    };
    const std::vector<Case> cases = {
        {folder_.path() + L"\\", folder_.path()},
        {folder_.path() + L"\\Berge\\..", folder_.path()},
        {L"Berge", folder_ / L"Berge"},
        {L"\\", L"C:\\"},
        {L"C:", L"C:\\"},
        {L"c:\\windows", L"c:\\windows"},
        {L"C:\\", L"C:\\"},
    };
    for (const Case& one : cases) {
        list_.setPath(one.given);
        EXPECT_EQ(list_.path(), one.path) << testing::PrintToString(one.given);
        if (one.path == folder_ / L"Berge") {
            list_.setPath(folder_.path());
        }
    }
}

TEST_F(FolderListTest, WhatCannotBeReadChangesNothing) {
    const std::wstring file = folder_.file(L"datei.txt");
    int changes = 0;
    list_.onChange = [&] { ++changes; };
    const auto before = items();
    for (const std::wstring& bad :
         {folder_ / L"nicht da", file, std::wstring(L"Q:\\"), std::wstring(L"a<b")}) {
        EXPECT_THROW(list_.setPath(bad), platform::Error) << testing::PrintToString(bad);
        EXPECT_EQ(list_.path(), folder_.path());
        EXPECT_EQ(items(), before);
    }
    EXPECT_EQ(changes, 0);
}

TEST_F(FolderListTest, AFolderThatVanishedStaysOpenAndCanBeLeft) {
    list_.setPath(folder_ / L"Berge");
    folder_.remove(L"Berge");
    EXPECT_EQ(list_.path(), folder_ / L"Berge");
    list_.setPath(folder_.path());
    EXPECT_EQ(items().back(), L"Äpfel 10");
}

TEST(DriveListTest, LettersKindsAndAbsentDrives) {
    TestForm test;
    DriveList list(test.args(1, {150, 150, 3000, 345}));
    std::vector<std::wstring> drives;
    list.onChange = [&] { drives.push_back(list.drive()); };
    EXPECT_EQ(list.drive(), L"C:");
    EXPECT_THAT(list.item(list.selectedIndex()), testing::StartsWith(L"C:"));
    list.setDrive(L"z: [data]");
    EXPECT_EQ(list.drive(), L"Z:");
    EXPECT_THROW(list.setDrive(L"Q:"), platform::Error);
    EXPECT_THROW(list.setDrive(L""), platform::Error);
    list.setDrive(L"Z:");
    list.setSelectedIndex(0);
    EXPECT_THAT(drives, ElementsAre(L"Z:", list.item(0).substr(0, 2)));
}

}  // namespace
}  // namespace ui
