#include "edit/save_check.h"

#include <gtest/gtest.h>

#include <functional>

#include "files/journal.h"
#include "rules/journal_scene.h"
#include "script/show_script.h"

namespace edit {
namespace {

using files::Failure;
using files::Obstacle;

const std::wstring kJournal = files::at(files::kJournalFile);
const std::wstring kScript = files::at(script::kScriptFile);

class SaveCheckTest : public testing::Test {
  protected:
    SaveCheckTest() {
        put(L"a.jpg", "A");
        put(L"b.jpg", "BB");
        disk.put(kScript, "a Eins\r\n");
        records.folder = files::kSceneFolder;
        records.script = {script::ScriptReading::State::Whole, "a Eins\r\n", L"a Eins\r\n"};
        for (const wchar_t* name : {L"a.jpg", L"b.jpg"}) {
            overview::ThumbRecord record;
            record.fileName = name;
            record.stamp = fileSystem.stat(files::at(name)).value.stamp;
            records.thumbRecords.push_back(record);
        }
    }
    void put(const std::wstring& name, const std::string& content) { disk.put(files::at(name), content); }
    std::pair<Obstacle, std::wstring> check() {
        const auto refusal = checkBeforeSave(fileSystem, records);
        return refusal ? std::pair(refusal->obstacle, refusal->name) : std::pair(Obstacle::None, L"");
    }
    static std::string journal(files::Phase phase) {
        return files::journalBytes({}) + (phase == files::Phase::First ? "" : files::phaseMark(phase));
    }

    support::ModelledDisk disk;
    support::ModelledFileSystem fileSystem{disk};
    overview::ThumbRecords records;
};

TEST_F(SaveCheckTest, AFolderAsItWasReadMayBeSaved) {
    EXPECT_EQ(check().first, Obstacle::None);
    put(L"neu.jpg", "came meanwhile");
    EXPECT_EQ(check().first, Obstacle::None);
    disk.put(kJournal, journal(files::Phase::Done));
    EXPECT_EQ(check().first, Obstacle::None) << "one that was kept";
    const std::string whole = files::journalBytes({});
    disk.put(kJournal, whole.substr(0, whole.size() - 3));
    EXPECT_EQ(check().first, Obstacle::None) << "one that was never complete";
    EXPECT_EQ(fileSystem.changes, 0);
}

TEST_F(SaveCheckTest, WhatWouldRefuseLaterRefusesAtOnce) {
    const struct {
        const char* what;
        std::function<void()> spoil;
        Obstacle why;
        std::wstring name;
    } cases[] = {
        {"another picture", [&] { put(L"b.jpg", "another one"); }, Obstacle::Changed, L"b.jpg"},
        {"another number", [&] { records.thumbRecords[0].stamp.number = 77; }, Obstacle::Changed, L"a.jpg"},
        {"gone", [&] { fileSystem.remove(files::at(L"b.jpg")); }, Obstacle::Missing, L"b.jpg"},
        {"the same twice", [&] { records.thumbRecords[1] = records.thumbRecords[0]; }, Obstacle::TwiceTheSame,
         L"a.jpg"},
        {"script changed", [&] { disk.put(kScript, "a Zwei\r\n"); }, Obstacle::ScriptChanged,
         L"Panorell.txt"},
        {"script gone", [&] { fileSystem.remove(kScript); }, Obstacle::ScriptChanged, L"Panorell.txt"},
        {"script came", [&] { records.script = {}; }, Obstacle::ScriptChanged, L"Panorell.txt"},
        {"script hidden", [&] { fileSystem.setAttributes(kScript, files::kHidden); }, Obstacle::ScriptChanged,
         L"Panorell.txt"},
        {"script protected", [&] { fileSystem.setAttributes(kScript, files::kReadOnly); },
         Obstacle::ScriptChanged, L"Panorell.txt"},
        {"begun", [&] { disk.put(kJournal, journal(files::Phase::First)); }, Obstacle::Unfinished, L""},
        {"half", [&] { disk.put(kJournal, journal(files::Phase::Second)); }, Obstacle::Unfinished, L""},
        {"another version's", [&] { disk.put(kJournal, "something else\nend 1 2\n"); }, Obstacle::Unfinished,
         L""},
        {"another program",
         [&] {
             disk.put(kJournal, "");
             fileSystem.inUse.insert(support::foldedPath(kJournal));
         },
         Obstacle::OtherProgram, L""},
        {"unreadable",
         [&] {
             fileSystem.fault = {fileSystem.operations + 1, 1, Failure::Denied};
         },
         Obstacle::Denied, L""},
    };
    const support::ModelledDisk fresh = disk;
    const overview::ThumbRecords read = records;
    for (const auto& c : cases) {
        disk = fresh;
        records = read;
        fileSystem.inUse.clear();
        fileSystem.fault = {};
        c.spoil();
        EXPECT_EQ(check(), std::pair(c.why, c.name)) << c.what;
    }
}

TEST_F(SaveCheckTest, AFileToBeDeletedMayBeGoneButNotAnotherOne) {
    records.thumbRecords[1].deleted = true;
    put(L"b.jpg", "another one");
    EXPECT_EQ(check().first, Obstacle::Changed);
    fileSystem.remove(files::at(L"b.jpg"));
    EXPECT_EQ(check().first, Obstacle::None);
}

}  // namespace
}  // namespace edit
