// What a save refuses, on real files: nothing is changed then.
#include "files/journal.h"
#include "support/save_scene.h"

namespace edit {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

using SaveRefusalTest = SaveScene;

TEST_F(SaveRefusalTest, APictureThatIsAnotherOneByNowIsNotDeleted) {
    loadTwo();
    mark(0);
    folder.file(L"a.jpg", "something else");
    EXPECT_FALSE(saveAs(L"P"));
    EXPECT_THAT(bin.paths, IsEmpty());
    EXPECT_EQ(files().size(), 2U);
    ASSERT_EQ(told.size(), 1U);
}

TEST_F(SaveRefusalTest, APictureThatChangedMeanwhileRefuses) {
    loadTwo();
    folder.file(L"b.jpg", "something else");
    EXPECT_FALSE(saveAs(L"P"));
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{{L"a.jpg", "A"}, {L"b.jpg", "something else"}}));
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr(L"b.jpg"));
    EXPECT_TRUE(records.changed);
}

TEST_F(SaveRefusalTest, AScriptThatChangedMeanwhileRefuses) {
    folder.file(L"a.jpg", "A");
    folder.file(L"Panorell.txt", "a Eins\r\n");
    load();
    folder.file(L"Panorell.txt", "a Zwei\r\n");
    EXPECT_FALSE(saveAs(L"P"));
    EXPECT_EQ(scriptText(), "a Zwei\r\n");
    EXPECT_EQ(files().count(L"a.jpg"), 1U);
}

TEST_F(SaveRefusalTest, AScriptThatIsHiddenOrProtectedRefusesBeforeAnything) {
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

TEST_F(SaveRefusalTest, APrefixThatWillNotDoIsAskedForAgain) {
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

TEST_F(SaveRefusalTest, WhatRefusesASaveRefusesItsDeletions) {
    const struct {
        const char* what;
        std::function<void()> spoil;
        const wchar_t* says;
    } cases[] = {
        {"another script", [&] { folder.file(L"Panorell.txt", "b Zwei\r\n"); }, L"Panorell.txt"},
        {"another picture", [&] { folder.file(L"b.jpg", "something else"); }, L"b.jpg"},
        {"one is missing", [&] { folder.remove(L"b.jpg"); }, L"b.jpg"},
        {"a change that waits", [&] { folder.file(L"Panorell.journal", files::journalBytes({})); },
         L"noch nicht abgeschlossen"},
        {"no folder any more", [&] { records.folder = folder / L"weg"; }, L"nicht geschrieben"},
    };
    for (const auto& c : cases) {
        folder.remove(L"Panorell.journal");
        folder.file(L"a.jpg", "A");
        folder.file(L"b.jpg", "B");
        folder.file(L"Panorell.txt", "b Eins\r\n");
        load();
        mark(0);
        c.spoil();
        const auto before = files();
        told.clear();
        answers = {L"P"};
        EXPECT_FALSE(saving.save()) << c.what;
        ASSERT_EQ(told.size(), 1U) << c.what;
        EXPECT_THAT(told[0], HasSubstr(c.says)) << c.what;
        EXPECT_THAT(bin.paths, IsEmpty()) << c.what;
        EXPECT_THAT(questions, IsEmpty()) << c.what;
        EXPECT_EQ(files(), before) << c.what;
        EXPECT_TRUE(records.thumbRecords[0].deleted) << c.what;
        EXPECT_TRUE(records.changed) << c.what;
        EXPECT_THAT(blocked, IsEmpty()) << c.what;
    }
}

TEST_F(SaveRefusalTest, AFolderThatCannotBeReadIsNoEmptyOne) {
    folder.file(L"a.jpg", "A");
    folder.file(L"b.mpg", "B");
    folder.file(L"Panorell.txt", "b Film\r\n");
    load();
    records.thumbRecords.resize(1);
    fileSystem.listings = 1;
    answers = {L"P", L"P"};
    EXPECT_FALSE(saving.save());
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr(L"Der Ordner"));
    EXPECT_EQ(files().count(L"a.jpg"), 1U);
    EXPECT_TRUE(saving.save());
    EXPECT_EQ(scriptText(), "b Film\r\n") << "the line of the film that is not shown";
}

TEST_F(SaveRefusalTest, ASaveThatFailedCanBeMadeAgain) {
    folder.file(L"a.jpg", "A");
    folder.file(L"b.jpg", "B");
    folder.file(L"Panorell.txt", "a Eins\r\n");
    load();
    std::swap(records.thumbRecords[0], records.thumbRecords[1]);
    const auto before = files();
    fileSystem.onRename = [](const std::wstring& to) {
        return to.ends_with(L"P002.jpg") ? files::Failure::InUse : files::Failure::None;
    };
    answers = {L"P", L"P"};
    EXPECT_FALSE(saving.save());
    EXPECT_EQ(files(), before);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr(L"nichts umbenannt"));
    EXPECT_TRUE(records.changed);
    EXPECT_EQ(shown, L"");
    fileSystem.onRename = nullptr;
    EXPECT_TRUE(saving.save());
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{
                           {L"P001.jpg", "B"}, {L"P002.jpg", "A"}, {L"Panorell.txt", "P002 Eins\r\n"}}));
}

}  // namespace
}  // namespace edit
