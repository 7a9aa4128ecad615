// The last save is taken back, on real files.
#include "files/recovery.h"
#include "support/save_scene.h"

namespace edit {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using SaveTakeBackTest = SaveScene;

TEST_F(SaveTakeBackTest, TheLastSaveCanBeTakenBack) {
    folder.file(L"a.jpg", "A");
    folder.file(L"b.jpg", "B");
    folder.file(L"c.jpg", "C");
    folder.hide(L"b.jpg");
    folder.file(L"Panorell.txt", "a Eins\r\n");
    load();
    EXPECT_FALSE(saving.canTakeBack());
    mark(2);
    std::swap(records.thumbRecords[0], records.thumbRecords[1]);
    ASSERT_TRUE(saveAs(L"P"));
    ASSERT_TRUE(saving.canTakeBack());
    saving.takeBack();
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{
                           {L"a.jpg", "A"}, {L"b.jpg", "B"}, {L"Panorell.txt", "a Eins\r\n"}}));
    EXPECT_TRUE(hidden(L"b.jpg"));
    EXPECT_EQ(reloaded, 1);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr(L"Papierkorb"));
    EXPECT_FALSE(saving.canTakeBack());
}

TEST_F(SaveTakeBackTest, AfterAnyChangeInTheFolderNothingIsTakenBack) {
    loadTwo();
    ASSERT_TRUE(saveAs(L"P"));
    folder.file(L"P001.jpg", "another one");
    EXPECT_FALSE(saving.canTakeBack());
    saving.takeBack();
    EXPECT_EQ(files().count(L"P001.jpg"), 1U);
    EXPECT_EQ(reloaded, 0);
}

TEST_F(SaveTakeBackTest, NothingOfTheFolderIsPlayedMeanwhile) {
    folder.file(L"a.jpg", "A");
    load();
    ASSERT_TRUE(saveAs(L"P"));
    const auto before = control.commands().size();
    finished = false;
    saving.takeBack();
    EXPECT_TRUE(finished);
    auto commands = control.commands();
    commands.erase(commands.begin(), commands.begin() + static_cast<std::ptrdiff_t>(before));
    EXPECT_THAT(commands, ElementsAre("stop VIDEO", "close VIDEO", "stop AUDIO", "close AUDIO"));
    EXPECT_EQ(at.back(), L"Bild 1 von 1");
    EXPECT_EQ(shown, L"");
}

TEST_F(SaveTakeBackTest, OneThatCannotBeUndoneTellsWhatComesAndShowsWhatIs) {
    loadTwo();
    ASSERT_TRUE(saveAs(L"P"));
    const auto saved = files();
    fileSystem.onRename = onlyTemporaryNames;
    saving.takeBack();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr(L"nächsten Öffnen"));
    EXPECT_EQ(reloaded, 1);
    files::WindowsFileSystem healthy;
    EXPECT_EQ(files::recoverFolder(healthy, folder.path(), soon()).end, files::Recovery::End::Undone);
    EXPECT_EQ(files(), saved);
}

TEST_F(SaveTakeBackTest, OneThatFailsLeavesTheSaveAsItWas) {
    loadTwo();
    ASSERT_TRUE(saveAs(L"P"));
    const auto saved = files();
    fileSystem.onRename = [](const std::wstring& to) {
        return to.ends_with(L"b.jpg") ? files::Failure::Other : files::Failure::None;
    };
    saving.takeBack();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr(L"nicht zurückgenommen"));
    EXPECT_EQ(reloaded, 0);
    EXPECT_EQ(files(), saved);
    EXPECT_EQ(records.thumbRecords[1].fileName, L"P002.jpg");
}

}  // namespace
}  // namespace edit
