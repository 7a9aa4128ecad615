// A save that could neither be finished nor undone is brought to an end by the next one, once what was in its
// way is gone.
#include "files/recovery.h"
#include "support/modelled_file_system.h"
#include "support/save_scene.h"

namespace edit {
namespace {

using files::Failure;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Two pictures, of which the second one is to come first.
class SaveLeftTest : public SaveScene {
  protected:
    SaveLeftTest() {
        folder.file(L"a.jpg", "A");
        folder.file(L"b.jpg", "B");
        folder.file(L"Panorell.txt", "a Eins\r\n");
        load();
        std::swap(records.thumbRecords[0], records.thumbRecords[1]);
        answers = {L"P"};
    }
    /// Lets one file come to its new name; from then on nothing gets another name.
    static std::function<Failure(const std::wstring&)> onlyOneNewName() {
        return [named = 0](const std::wstring& to) mutable {
            named += to.find(L"\\P00") != std::wstring::npos ? 1 : 0;
            return named > 1 ? Failure::Denied : Failure::None;
        };
    }
    /// The new name that one of the files has.
    std::wstring newName() const {
        for (const auto& [name, content] : files()) {
            if (name.starts_with(L"P00")) {
                return name;
            }
        }
        return {};
    }
    /// What a user does meanwhile: the old order, and another title.
    void editOn() {
        std::swap(records.thumbRecords[0], records.thumbRecords[1]);
        records.thumbRecords[1].entry = L"Zwei";
    }
    /// The next save, of what editOn() left, under another prefix.
    void expectNextSave() {
        fileSystem.onRename = nullptr;
        told.clear();
        answers = {L"Q"};
        EXPECT_TRUE(saving.save());
        EXPECT_THAT(told, IsEmpty());
        EXPECT_EQ(
            files(),
            (std::map<std::wstring, std::string>{
                {L"Q001.jpg", "A"}, {L"Q002.jpg", "B"}, {L"Panorell.txt", "Q001 Eins\r\nQ002 Zwei\r\n"}}));
        EXPECT_FALSE(records.changed);
        EXPECT_TRUE(saving.canTakeBack());
        EXPECT_EQ(reloaded, 0);
    }
};

TEST_F(SaveLeftTest, TheNextOneUndoesItFirst) {
    fileSystem.onRename = onlyTemporaryNames;
    EXPECT_FALSE(saving.save());
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr(L"nächsten Speichern oder Öffnen"));
    EXPECT_EQ(files().count(L"a.jpg"), 0U) << "it is left half-way";
    EXPECT_TRUE(records.changed);
    editOn();
    expectNextSave();
}

TEST_F(SaveLeftTest, TheNextOneFinishesItFirst) {
    fileSystem.onRename = onlyOneNewName();
    EXPECT_FALSE(saving.save());
    EXPECT_FALSE(newName().empty()) << "it was on its way to the new names";
    editOn();
    expectNextSave();
    EXPECT_EQ(renamed, 2);
}

TEST_F(SaveLeftTest, AsLongAsItIsStuckNothingIsSaved) {
    fileSystem.onRename = onlyTemporaryNames;
    EXPECT_FALSE(saving.save());
    const auto stuck = files();
    mark(0);
    told.clear();
    questions.clear();
    blocked.clear();
    EXPECT_FALSE(saving.save());
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr(L".jpg\" konnte nicht geändert werden. Es wurde nichts gespeichert."));
    EXPECT_EQ(files(), stuck);
    EXPECT_THAT(bin.paths, IsEmpty());
    EXPECT_THAT(questions, IsEmpty());
    EXPECT_THAT(blocked, ElementsAre(true, false));
    EXPECT_TRUE(records.changed);
}

TEST_F(SaveLeftTest, WhatAnotherProgramDidToTheFilesIsNotSavedOver) {
    fileSystem.onRename = onlyOneNewName();
    EXPECT_FALSE(saving.save());
    fileSystem.onRename = nullptr;
    const std::wstring gone = newName();
    folder.remove(gone);
    told.clear();
    EXPECT_FALSE(saving.save());
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr(L"\"" + gone + L"\" ist nicht mehr da."));
    EXPECT_THAT(told[0], HasSubstr(L"Bitte die Übersicht neu öffnen."));
    EXPECT_FALSE(saving.save()) << "the records are of files that are gone";
    EXPECT_EQ(files().size(), 2U) << "the other picture, and the script";
}

/// Another instance of the program, or the next start, may have put it right meanwhile.
TEST_F(SaveLeftTest, ItMayHaveBeenPutRightElsewhere) {
    fileSystem.onRename = onlyTemporaryNames;
    EXPECT_FALSE(saving.save());
    files::WindowsFileSystem healthy;
    EXPECT_EQ(files::recoverFolder(healthy, folder.path(), soon()).end, files::Recovery::End::Undone);
    editOn();
    expectNextSave();
}

/// Saving on a modelled disk, where every operation of it can fail for good.
class SaveLeftOnModelledDiskTest : public SaveScene {
  protected:
    /// Saves three pictures, one of them locked, while a fault strikes; how many operations that took.
    int saveWith(const support::ModelledFault& fault) {
        disk.emplace();
        modelled.emplace(*disk);
        put(L"a.jpg", "A", 0);
        put(L"b.jpg", "B", files::kHidden);
        put(L"c.jpg", "C", 0);
        put(L"Panorell.txt", "a Eins\r\n", 0);
        records = {};
        records.folder = folder.path();
        records.folderWritable = true;
        for (const wchar_t* name : {L"c.jpg", L"a.jpg", L"b.jpg"}) {
            overview::ThumbRecord record;
            record.fileName = name;
            record.stamp = modelled->stat(folder / name).value.stamp;
            records.thumbRecords.push_back(std::move(record));
            records.folderNames.emplace_back(name);
        }
        records.thumbRecords[1].entry = L"Eins";
        records.script.state = script::ScriptReading::State::Whole;
        records.script.bytes = "a Eins\r\n";
        records.script.text = L"a Eins\r\n";
        records.changed = true;
        modelled->operations = 0;
        modelled->fault = fault;
        save.emplace(Save::Parts{loop, *modelled, bin, control, records, dialog(), grid()});
        told.clear();
        answers = {L"P"};
        done = save->save();
        return modelled->operations;
    }
    void put(const std::wstring& name, const std::string& content, std::uint32_t attributes) {
        disk->put(folder / name, content, attributes);
    }
    std::string content(const std::wstring& name) { return modelled->read(folder / name).value; }

    std::optional<support::ModelledDisk> disk;
    std::optional<support::ModelledFileSystem> modelled;
    std::optional<Save> save;
    bool done = false;
};

TEST_F(SaveLeftOnModelledDiskTest, TheNextSaveIsWholeWhereverTheOneBeforeBrokeDown) {
    constexpr int kForGood = 1'000'000;
    const int operations = saveWith({});
    ASSERT_TRUE(done);
    int left = 0;
    for (int i = 0; i < operations; ++i) {
        saveWith({i, kForGood, Failure::Other});
        left += !told.empty() && told[0].find(L"halb fertig") != std::wstring::npos ? 1 : 0;
        modelled->fault = {};
        std::swap(records.thumbRecords[0], records.thumbRecords[1]);
        told.clear();
        answers = {L"Q"};
        EXPECT_TRUE(save->save()) << "operation " << i;
        EXPECT_THAT(told, IsEmpty()) << "operation " << i;
        EXPECT_EQ(content(L"Q001.jpg") + content(L"Q002.jpg") + content(L"Q003.jpg"), "ACB") << i;
        EXPECT_EQ(content(L"Panorell.txt"), "Q001 Eins\r\n") << i;
        EXPECT_EQ(modelled->stat(folder / L"Q003.jpg").value.attributes & files::kHidden, files::kHidden)
            << i;
        EXPECT_EQ(modelled->list(folder.path()).value.size(), 5U) << "nothing else but the journal, " << i;
    }
    EXPECT_GT(left, 5) << "the faults did not strike";
}

}  // namespace
}  // namespace edit
