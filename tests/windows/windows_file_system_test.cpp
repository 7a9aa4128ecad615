#include "files/windows_file_system.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "files/change_folder.h"
#include "files/recovery.h"
#include "files/take_back.h"
#include "platform/handles.h"
#include "support/name_on_disk.h"
#include "support/scratch_folder.h"

namespace files {
namespace {

using support::hasExactName;
using support::ScratchFolder;

class WindowsFileSystemTest : public testing::Test {
  protected:
    platform::File held(const std::wstring& path, DWORD share) {
        return platform::File(
            CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr));
    }
    std::string content(const wchar_t* name) { return files.read(folder / name).value; }
    FolderEntry entry(const wchar_t* name) { return files.stat(folder / name).value; }

    ScratchFolder folder;
    WindowsFileSystem files;
    double now = 0;
    Waiting waiting{[this] { return now; }, [this](int ms) { now += ms; }};
};

TEST_F(WindowsFileSystemTest, ListsWhatAFileIs) {
    folder.file(L"Bild.jpg", "12345");
    folder.hide(L"Bild.jpg");
    folder.folder(L"Mini");
    const auto listed = files.list(folder.path());
    ASSERT_EQ(listed.failure, Failure::None);
    ASSERT_EQ(listed.value.size(), 2U);
    const FolderEntry picture = entry(L"BILD.JPG");
    EXPECT_EQ(picture.name, L"Bild.jpg");
    EXPECT_FALSE(picture.folder);
    EXPECT_EQ(picture.attributes, kHidden);
    EXPECT_EQ(picture.stamp.size, 5U);
    EXPECT_GT(picture.stamp.written, 130'000'000'000'000'000U);
    EXPECT_TRUE(entry(L"Mini").folder);
    EXPECT_EQ(files.list(folder / L"fehlt").failure, Failure::Missing);
    EXPECT_EQ(files.stat(folder / L"fehlt").failure, Failure::Missing);
}

TEST_F(WindowsFileSystemTest, ARenameKeepsTheNumberAndNeverOverwrites) {
    folder.file(L"a.jpg", "a");
    folder.file(L"b.jpg", "b");
    const std::uint64_t number = entry(L"a.jpg").stamp.number;
    EXPECT_NE(number, 0U);
    EXPECT_NE(number, entry(L"b.jpg").stamp.number);
    EXPECT_EQ(files.rename(folder / L"a.jpg", folder / L"b.jpg"), Failure::Exists);
    EXPECT_EQ(files.rename(folder / L"a.jpg", folder / L"A.jpg"), Failure::Exists);
    EXPECT_EQ(files.rename(folder / L"x.jpg", folder / L"y.jpg"), Failure::Missing);
    EXPECT_EQ(content(L"b.jpg"), "b");
    EXPECT_EQ(files.rename(folder / L"a.jpg", folder / L"c.jpg"), Failure::None);
    EXPECT_EQ(entry(L"c.jpg").stamp.number, number);
}

TEST_F(WindowsFileSystemTest, AFileInUseIsToldApart) {
    const std::wstring path = folder.file(L"a.jpg");
    const platform::File other = held(path, FILE_SHARE_READ);
    EXPECT_EQ(files.rename(path, folder / L"b.jpg"), Failure::InUse);
    EXPECT_EQ(files.remove(path), Failure::InUse);
    EXPECT_EQ(files.openHeld(path).failure, Failure::InUse);
    EXPECT_EQ(files.read(path).failure, Failure::None);
}

TEST_F(WindowsFileSystemTest, WritesAndReplaces) {
    EXPECT_EQ(files.writeNew(folder / L"neu.txt", "neu"), Failure::None);
    EXPECT_EQ(files.writeNew(folder / L"neu.txt", "x"), Failure::Exists);
    folder.file(L"alt.txt", "alt");
    EXPECT_EQ(files.replace(folder / L"neu.txt", folder / L"alt.txt"), Failure::None);
    EXPECT_EQ(content(L"alt.txt"), "neu");
    EXPECT_EQ(files.read(folder / L"neu.txt").failure, Failure::Missing);
    EXPECT_EQ(files.setAttributes(folder / L"alt.txt", kReadOnly | kHidden), Failure::None);
    EXPECT_EQ(entry(L"alt.txt").attributes, kReadOnly | kHidden);
    EXPECT_EQ(files.setAttributes(folder / L"alt.txt", 0), Failure::None);
    EXPECT_EQ(files.remove(folder / L"alt.txt"), Failure::None);
    EXPECT_EQ(files.flushFolder(folder / L"fehlt"), Failure::Missing);
}

TEST_F(WindowsFileSystemTest, AHeldFileIsNobodyElses) {
    const std::wstring path = folder / L"Panorell.journal";
    FileSystem::Held journal = files.createHeld(path, "one");
    ASSERT_EQ(journal.failure, Failure::None);
    EXPECT_EQ(files.createHeld(path, "two").failure, Failure::Exists);
    EXPECT_EQ(files.openHeld(path).failure, Failure::InUse);
    EXPECT_EQ(files.read(path).failure, Failure::InUse);
    EXPECT_EQ(journal.file->append(" more"), Failure::None);
    EXPECT_EQ(journal.file->read().value, "one more");
    journal.file.reset();
    journal = files.openHeld(path);
    ASSERT_EQ(journal.failure, Failure::None);
    EXPECT_EQ(journal.file->read().value, "one more");
    EXPECT_EQ(journal.file->remove(), Failure::None);
    EXPECT_EQ(files.openHeld(path).failure, Failure::Missing);
}

TEST_F(WindowsFileSystemTest, VeryLongPaths) {
    std::wstring deep = folder.path();
    for (int i = 0; i < 6; ++i) {
        deep += L"\\" + std::wstring(40, static_cast<wchar_t>(L'a' + i));
        ASSERT_TRUE(CreateDirectoryW((L"\\\\?\\" + deep).c_str(), nullptr));
    }
    ASSERT_GT(deep.size(), 260U);
    EXPECT_EQ(files.writeNew(deep + L"\\a.jpg", "a"), Failure::None);
    EXPECT_EQ(files.rename(deep + L"\\a.jpg", deep + L"\\b.jpg"), Failure::None);
    EXPECT_EQ(files.read(deep + L"\\b.jpg").value, "a");
    EXPECT_EQ(files.remove(deep + L"\\b.jpg"), Failure::None);
    while (deep.size() > folder.path().size()) {
        RemoveDirectoryW((L"\\\\?\\" + deep).c_str());
        deep.resize(deep.rfind(L'\\'));
    }
}

TEST_F(WindowsFileSystemTest, ChangesAndTakesBackARealFolder) {
    folder.file(L"meer.JPG", "sea");
    folder.file(L"Bild2.jpg", "two");
    folder.hide(L"Bild2.jpg");
    folder.file(L"Panorell.txt", "meer Titel\r\n");
    folder.folder(L"Mini");
    folder.file(L"Mini\\meer.bmp", "small sea");
    ChangePlan plan;
    plan.folder = folder.path();
    plan.keep = true;
    plan.moves = {{L"meer.JPG", L"Meer.jpg", entry(L"meer.JPG").stamp, {}},
                  {L"Bild2.jpg", L"Bild1.jpg", entry(L"Bild2.jpg").stamp, {}},
                  {L"Mini\\meer.bmp", L"Mini\\Meer.bmp", {}, {}}};
    plan.script = ScriptChange{L"Panorell.txt", "meer Titel\r\n", "Meer Titel\r\n"};
    const Outcome outcome = changeFolder(files, plan, waiting);
    EXPECT_EQ(outcome.end, Outcome::End::Done);
    EXPECT_TRUE(outcome.kept);
    EXPECT_TRUE(hasExactName(folder / L"Meer.jpg"));
    EXPECT_TRUE(hasExactName(folder / L"Mini\\Meer.bmp"));
    EXPECT_EQ(content(L"Bild1.jpg"), "two");
    EXPECT_EQ(entry(L"Bild1.jpg").attributes, kHidden);
    EXPECT_EQ(content(L"Panorell.txt"), "Meer Titel\r\n");
    EXPECT_EQ(recoverFolder(files, folder.path(), waiting).end, Recovery::End::Nothing);

    const std::optional<ChangePlan> back = takeBackPlan(files, folder.path());
    ASSERT_TRUE(back.has_value());
    EXPECT_EQ(changeFolder(files, *back, waiting).end, Outcome::End::Done);
    EXPECT_TRUE(hasExactName(folder / L"meer.JPG"));
    EXPECT_TRUE(hasExactName(folder / L"Mini\\meer.bmp"));
    EXPECT_EQ(entry(L"Bild2.jpg").attributes, kHidden);
    EXPECT_EQ(content(L"Panorell.txt"), "meer Titel\r\n");
    EXPECT_EQ(files.list(folder.path()).value.size(), 4U);
}

TEST_F(WindowsFileSystemTest, AFileInUseUndoesTheChange) {
    folder.file(L"a.jpg", "a");
    const std::wstring used = folder.file(L"b.jpg", "b");
    ChangePlan plan;
    plan.folder = folder.path();
    plan.moves = {{L"a.jpg", L"b.jpg", entry(L"a.jpg").stamp, {}},
                  {L"b.jpg", L"a.jpg", entry(L"b.jpg").stamp, {}}};
    {
        const platform::File other = held(used, FILE_SHARE_READ);
        const Outcome outcome = changeFolder(files, plan, waiting);
        EXPECT_EQ(outcome.end, Outcome::End::Undone);
        EXPECT_EQ(outcome.obstacle, Obstacle::InUse);
        EXPECT_EQ(outcome.name, L"b.jpg");
        EXPECT_GE(now, 3000);
    }
    EXPECT_EQ(content(L"a.jpg"), "a");
    EXPECT_EQ(content(L"b.jpg"), "b");
    EXPECT_EQ(files.list(folder.path()).value.size(), 2U);
    EXPECT_EQ(changeFolder(files, plan, waiting).end, Outcome::End::Done);
    EXPECT_EQ(content(L"a.jpg"), "b");
}

TEST_F(WindowsFileSystemTest, NamesThatAreTheSame) {
    EXPECT_EQ(files.folded(L"\u00DCber.JPG"), files.folded(L"\u00FCBER.jpg"));
    EXPECT_NE(files.folded(L"a"), files.folded(L"b"));
    EXPECT_EQ(files.folded(L""), L"");
}

}  // namespace
}  // namespace files
