// Saving into show order, on real files.
#include "edit/save.h"

#include <gmock/gmock.h>

#include <deque>
#include <map>

#include "files/recovery.h"
#include "files/windows_file_system.h"
#include "overview/thumb_folder.h"
#include "platform/directory.h"
#include "support/recording_media_control.h"
#include "support/scratch_folder.h"
#include "support/virtual_loop.h"

namespace edit {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// Keeps what was deleted in memory.
struct FakeBin : Bin {
    bool there = true;
    files::Failure failure = files::Failure::None;
    std::vector<std::wstring> paths;
    bool takes(const std::wstring&) override { return there; }
    files::Failure put(const std::wstring& path) override {
        if (failure == files::Failure::None) {
            paths.push_back(path);
            DeleteFileW(path.c_str());
        }
        return failure;
    }
};

class SaveTest : public testing::Test {
  protected:
    void load() {
        overview::ThumbFolder read = overview::readThumbFolder(folder.path(), L"*.jpg;*.mpg");
        records = std::move(read.records);
        records.changed = true;
    }
    void mark(int index) {
        records.thumbRecords[static_cast<std::size_t>(index)].deleted = true;
        records.thumbRecords[static_cast<std::size_t>(index)].entry.clear();
    }
    /// The files of the folder and what they hold.
    std::map<std::wstring, std::string> files() const { return filesOf(folder.path()); }
    std::map<std::wstring, std::string> filesOf(const std::wstring& path) const {
        std::map<std::wstring, std::string> found;
        for (const auto& entry : platform::listDirectory(path)) {
            if (!entry.folder && entry.name != L"Panorell.journal") {
                found[entry.name] = fileSystem.read(platform::joinPath(path, entry.name)).value;
            }
        }
        return found;
    }
    std::string scriptText() const { return fileSystem.read(folder / L"Panorell.txt").value; }
    bool hidden(const std::wstring& name) const {
        return (GetFileAttributesW((folder / name).c_str()) & FILE_ATTRIBUTE_HIDDEN) != 0;
    }
    SaveDialog dialog() {
        return {[this](const ui::InputQuestion& question) -> std::optional<std::wstring> {
                    questions.push_back(question);
                    if (answers.empty()) {
                        return std::nullopt;
                    }
                    auto answer = answers.front();
                    answers.pop_front();
                    return answer;
                },
                [this](const std::wstring& question) {
                    agreed.push_back(question);
                    return agrees;
                },
                [this](const std::wstring& sentence) { told.push_back(sentence); },
                [this](bool on) { blocked.push_back(on); },
                [this](int done, int all) {
                    if (all > 0) {
                        progress.push_back(done);
                    }
                }};
    }
    SaveGrid grid() {
        return {[this] { finished = true; },
                [this](const std::vector<int>& indices) {
                    for (auto index = indices.rbegin(); index != indices.rend(); ++index) {
                        records.thumbRecords.erase(records.thumbRecords.begin() + *index);
                    }
                    removed = indices;
                },
                [this] { ++renamed; }, [this] { ++reloaded; }};
    }

    support::VirtualLoop loop;
    support::ScratchFolder folder;
    files::WindowsFileSystem fileSystem;
    FakeBin bin;
    support::RecordingMediaControl control;
    overview::ThumbRecords records;
    std::deque<std::optional<std::wstring>> answers;
    std::vector<ui::InputQuestion> questions;
    std::vector<std::wstring> told, agreed;
    std::vector<bool> blocked;
    std::vector<int> progress, removed;
    bool agrees = false, finished = false;
    int renamed = 0, reloaded = 0;
    Save saving{{loop, fileSystem, bin, control, records, dialog(), grid()}};
};

TEST_F(SaveTest, NamesCarryTheOrderAndTheScriptTheNewNames) {
    folder.file(L"a.jpg", "A");
    folder.file(L"b.MPG", "B");
    folder.file(L"c.Jpg", "C");
    folder.file(L"Panorell.txt", "b Film *P=3\r\nc Haus\r\n");
    load();
    std::swap(records.thumbRecords[0], records.thumbRecords[2]);
    answers = {L"Urlaub"};
    EXPECT_TRUE(saving.save());
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{
                           {L"Urlaub001.Jpg", "C"},
                           {L"Urlaub002.mpg", "B"},
                           {L"Urlaub003.jpg", "A"},
                           {L"Panorell.txt", "Urlaub001 Haus\r\nUrlaub002 Film *P=3\r\n"}}));
    EXPECT_EQ(questions.size(), 1U);
    EXPECT_EQ(questions[0].title, L"  Name");
    EXPECT_EQ(questions[0].prompt, L"Datei-Prefix:");
    EXPECT_EQ(questions[0].text, L"c");
    EXPECT_FALSE(records.changed);
    EXPECT_TRUE(finished);
    EXPECT_EQ(renamed, 1);
    EXPECT_THAT(blocked, ElementsAre(true, false));
    EXPECT_THAT(progress, ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_THAT(control.commands(), ElementsAre("stop VIDEO", "close VIDEO", "stop AUDIO", "close AUDIO"));
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(SaveTest, ASecondSaveGoesOnFromTheNewNames) {
    folder.file(L"a.jpg", "A");
    folder.file(L"b.jpg", "B");
    folder.file(L"Panorell.txt", "a Eins\r\n");
    load();
    answers = {L"P", L"P"};
    ASSERT_TRUE(saving.save());
    std::swap(records.thumbRecords[0], records.thumbRecords[1]);
    records.changed = true;
    ASSERT_TRUE(saving.save());
    EXPECT_EQ(questions[1].text, L"P") << "the text before the first 0";
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{
                           {L"P001.jpg", "B"}, {L"P002.jpg", "A"}, {L"Panorell.txt", "P002 Eins\r\n"}}));
}

TEST_F(SaveTest, WithoutEntriesNoScriptRemains) {
    folder.file(L"a.jpg", "A");
    folder.file(L"Panorell.txt", "a Eins\r\n");
    load();
    records.thumbRecords[0].entry.clear();
    answers = {L"P"};
    EXPECT_TRUE(saving.save());
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{{L"P001.jpg", "A"}}));
}

TEST_F(SaveTest, ThumbnailsAndLocksGoWithTheirPictures) {
    folder.file(L"a.jpg", "A");
    folder.file(L"b.jpg", "B");
    folder.hide(L"b.jpg");
    folder.folder(L"Mini");
    folder.file(L"Mini\\b.bmp", "bild b");
    folder.file(L"Mini\\P001.bmp", "einer ohne Bild");
    load();
    ASSERT_EQ(records.thumbCount(), 2) << "locked pictures too";
    std::swap(records.thumbRecords[0], records.thumbRecords[1]);
    answers = {L"P"};
    EXPECT_TRUE(saving.save());
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{{L"P001.jpg", "B"}, {L"P002.jpg", "A"}}));
    EXPECT_TRUE(hidden(L"P001.jpg"));
    EXPECT_FALSE(hidden(L"P002.jpg"));
    EXPECT_EQ(filesOf(folder / L"Mini"), (std::map<std::wstring, std::string>{{L"P001.bmp", "bild b"}}));
}

TEST_F(SaveTest, MarkedPicturesGoToTheBinBeforeTheQuestion) {
    folder.file(L"a.jpg", "A");
    folder.file(L"b.jpg", "B");
    folder.hide(L"b.jpg");
    folder.file(L"c.jpg", "C");
    folder.folder(L"Mini");
    folder.file(L"Mini\\b.bmp", "bild");
    folder.file(L"Panorell.txt", "a A\r\nb B\r\nc C\r\n");
    load();
    mark(1);
    answers = {std::nullopt};
    EXPECT_FALSE(saving.save()) << "the question was called off";
    EXPECT_THAT(bin.paths, ElementsAre(folder / L"b.jpg"));
    EXPECT_THAT(removed, ElementsAre(1));
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{
                           {L"a.jpg", "A"}, {L"c.jpg", "C"}, {L"Panorell.txt", "a A\r\nb B\r\nc C\r\n"}}));
    EXPECT_THAT(filesOf(folder / L"Mini"), IsEmpty());
    EXPECT_TRUE(records.changed) << "there is still something to save";
    answers = {L"P"};
    EXPECT_TRUE(saving.save());
    EXPECT_EQ(scriptText(), "P001 A\r\nP002 C\r\n");
    EXPECT_THAT(agreed, IsEmpty());
}

TEST_F(SaveTest, ATypedMarkIsATitleAndDeletesNothing) {
    folder.file(L"a.jpg", "A");
    folder.file(L"Panorell.txt", "a XXXXXX\r\n");
    load();
    answers = {L"P"};
    EXPECT_TRUE(saving.save());
    EXPECT_EQ(scriptText(), "P001 XXXXXX\r\n");
    EXPECT_THAT(bin.paths, IsEmpty());
}

TEST_F(SaveTest, ADeletionThatFailsKeepsTheFileItsLockAndItsMark) {
    folder.file(L"a.jpg", "A");
    folder.file(L"b.jpg", "B");
    folder.hide(L"a.jpg");
    load();
    mark(0);
    bin.failure = files::Failure::InUse;
    answers = {L"P"};
    const double before = loop.now();
    EXPECT_FALSE(saving.save());
    EXPECT_GE(loop.now() - before, 2900) << "it was tried again for three seconds";
    EXPECT_TRUE(hidden(L"a.jpg"));
    EXPECT_TRUE(records.thumbRecords[0].deleted);
    EXPECT_THAT(questions, IsEmpty());
    EXPECT_TRUE(records.changed);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr(L"a.jpg"));
}

TEST_F(SaveTest, WithoutABinTheUserIsAsked) {
    folder.file(L"a.jpg", "A");
    folder.file(L"b.jpg", "B");
    load();
    mark(0);
    bin.there = false;
    EXPECT_FALSE(saving.save());
    EXPECT_EQ(agreed.size(), 1U);
    EXPECT_EQ(files().size(), 2U);
    agrees = true;
    answers = {L"P"};
    EXPECT_TRUE(saving.save());
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{{L"P001.jpg", "B"}}));
}

TEST_F(SaveTest, APictureThatIsAnotherOneByNowIsNotDeleted) {
    folder.file(L"a.jpg", "A");
    folder.file(L"b.jpg", "B");
    load();
    mark(0);
    folder.file(L"a.jpg", "something else");
    answers = {L"P"};
    EXPECT_FALSE(saving.save());
    EXPECT_THAT(bin.paths, IsEmpty());
    EXPECT_EQ(files().size(), 2U);
    ASSERT_EQ(told.size(), 1U);
}

TEST_F(SaveTest, APictureThatChangedMeanwhileRefuses) {
    folder.file(L"a.jpg", "A");
    folder.file(L"b.jpg", "B");
    load();
    folder.file(L"b.jpg", "something else");
    answers = {L"P"};
    EXPECT_FALSE(saving.save());
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{{L"a.jpg", "A"}, {L"b.jpg", "something else"}}));
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr(L"b.jpg"));
    EXPECT_TRUE(records.changed);
}

TEST_F(SaveTest, AScriptThatChangedMeanwhileRefuses) {
    folder.file(L"a.jpg", "A");
    folder.file(L"Panorell.txt", "a Eins\r\n");
    load();
    folder.file(L"Panorell.txt", "a Zwei\r\n");
    answers = {L"P"};
    EXPECT_FALSE(saving.save());
    EXPECT_EQ(scriptText(), "a Zwei\r\n");
    EXPECT_EQ(files().count(L"a.jpg"), 1U);
}

TEST_F(SaveTest, AScriptThatIsHiddenOrProtectedRefusesBeforeAnything) {
    for (const DWORD attribute : {FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_READONLY}) {
        folder.file(L"a.jpg", "A");
        folder.file(L"b.jpg", "B");
        folder.file(L"Panorell.txt", "a Eins\r\n");
        SetFileAttributesW((folder / L"Panorell.txt").c_str(), attribute);
        load();
        mark(0);
        told.clear();
        EXPECT_FALSE(saving.save());
        EXPECT_EQ(told.size(), 1U);
        EXPECT_THAT(bin.paths, IsEmpty());
        SetFileAttributesW((folder / L"Panorell.txt").c_str(), FILE_ATTRIBUTE_NORMAL);
    }
}

TEST_F(SaveTest, APrefixThatWillNotDoIsAskedForAgain) {
    folder.file(L"a.jpg", "A");
    folder.file(L"P001.txt", "foreign");
    folder.file(L"Q001.jpg", "Q");
    load();
    records.thumbRecords.resize(1);
    ASSERT_EQ(records.thumbRecords[0].fileName, L"a.jpg");
    answers = {L"a:b", L" x", L"q", L"P"};
    EXPECT_TRUE(saving.save());
    ASSERT_EQ(questions.size(), 4U);
    EXPECT_THAT(questions[1].prompt, HasSubstr(L"nicht erlaubt"));
    EXPECT_EQ(questions[1].text, L"a:b");
    EXPECT_THAT(questions[2].prompt, HasSubstr(L"Leerzeichen"));
    EXPECT_THAT(questions[3].prompt, HasSubstr(L"Q001.jpg"));
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{
                           {L"P001.jpg", "A"}, {L"P001.txt", "foreign"}, {L"Q001.jpg", "Q"}}));
}

TEST_F(SaveTest, AnEmptyAnswerEndsIt) {
    folder.file(L"a.jpg", "A");
    load();
    answers = {L""};
    EXPECT_FALSE(saving.save());
    EXPECT_EQ(files().count(L"a.jpg"), 1U);
    EXPECT_TRUE(records.changed);
}

TEST_F(SaveTest, ThePrefixMayBeTheTemporaryOne) {
    folder.file(L"a.jpg", "A");
    folder.file(L"TMP002.jpg", "B");
    load();
    answers = {L"TMP"};
    EXPECT_TRUE(saving.save());
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{{L"TMP001.jpg", "A"}, {L"TMP002.jpg", "B"}}));
}

TEST_F(SaveTest, TitlesThatTheCodePageLacksAreKept) {
    folder.file(L"a.jpg", "A");
    load();
    records.thumbRecords[0].entry = L"\u041c\u043e\u0440\u0435 \u00e4";
    answers = {L"P"};
    EXPECT_TRUE(saving.save());
    EXPECT_EQ(scriptText(), "\xEF\xBB\xBFP001 \xD0\x9C\xD0\xBE\xD1\x80\xD0\xB5 \xC3\xA4\r\n");
}

TEST_F(SaveTest, EachFileIsSeenToBeWorkedOnButNotForLong) {
    for (int i = 0; i < 60; ++i) {
        folder.file(L"b" + std::to_wstring(100 + i) + L".jpg", "x");
    }
    load();
    answers = {L"P"};
    const double before = loop.now();
    EXPECT_TRUE(saving.save());
    EXPECT_GE(loop.now() - before, 4000);
    EXPECT_LE(loop.now() - before, 5100);
}

TEST_F(SaveTest, TheLastSaveCanBeTakenBack) {
    folder.file(L"a.jpg", "A");
    folder.file(L"b.jpg", "B");
    folder.file(L"c.jpg", "C");
    folder.hide(L"b.jpg");
    folder.file(L"Panorell.txt", "a Eins\r\n");
    load();
    EXPECT_FALSE(saving.canTakeBack());
    mark(2);
    std::swap(records.thumbRecords[0], records.thumbRecords[1]);
    answers = {L"P"};
    ASSERT_TRUE(saving.save());
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

TEST_F(SaveTest, AfterAnyChangeInTheFolderNothingIsTakenBack) {
    folder.file(L"a.jpg", "A");
    folder.file(L"b.jpg", "B");
    load();
    answers = {L"P"};
    ASSERT_TRUE(saving.save());
    folder.file(L"P001.jpg", "another one");
    EXPECT_FALSE(saving.canTakeBack());
    saving.takeBack();
    EXPECT_EQ(files().count(L"P001.jpg"), 1U);
    EXPECT_EQ(reloaded, 0);
}

TEST_F(SaveTest, OneThatRunsIsNotBegunAgain) {
    folder.file(L"a.jpg", "A");
    load();
    answers = {L"P"};
    bool inner = true;
    loop.at(50, [&] { inner = saving.save(); });
    EXPECT_TRUE(saving.save());
    EXPECT_FALSE(inner);
    EXPECT_EQ(questions.size(), 1U);
}

TEST(RecycleBinTest, TakesAFileAndTellsOneThatIsInUse) {
    const support::ScratchFolder folder;
    const std::wstring path = folder.file(L"a.jpg");
    RecycleBin bin;
    ASSERT_TRUE(bin.takes(path));
    EXPECT_FALSE(bin.takes(L"\\\\server\\share\\a.jpg"));
    const HANDLE open = CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(open, INVALID_HANDLE_VALUE);
    EXPECT_EQ(bin.put(path), files::Failure::InUse);
    CloseHandle(open);
    EXPECT_EQ(bin.put(path), files::Failure::None);
    EXPECT_FALSE(platform::fileExists(path));
}

}  // namespace
}  // namespace edit
