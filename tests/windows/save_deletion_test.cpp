// What a save deletes, on real files.
#include "support/save_scene.h"

namespace edit {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using SaveDeletionTest = SaveScene;

TEST_F(SaveDeletionTest, MarkedPicturesGoToTheBinBeforeTheQuestion) {
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
    EXPECT_TRUE(saveAs(L"P"));
    EXPECT_EQ(scriptText(), "P001 A\r\nP002 C\r\n");
    EXPECT_THAT(agreed, IsEmpty());
}

TEST_F(SaveDeletionTest, ATypedMarkIsATitleAndDeletesNothing) {
    folder.file(L"a.jpg", "A");
    folder.file(L"Panorell.txt", "a XXXXXX\r\n");
    load();
    EXPECT_TRUE(saveAs(L"P"));
    EXPECT_EQ(scriptText(), "P001 XXXXXX\r\n");
    EXPECT_THAT(bin.paths, IsEmpty());
}

TEST_F(SaveDeletionTest, ADeletionThatFailsKeepsTheFileItsLockAndItsMark) {
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

TEST_F(SaveDeletionTest, WithoutABinTheUserIsAsked) {
    loadTwo();
    mark(0);
    bin.there = false;
    EXPECT_FALSE(saving.save());
    EXPECT_EQ(agreed.size(), 1U);
    EXPECT_EQ(files().size(), 2U);
    agrees = true;
    EXPECT_TRUE(saveAs(L"P"));
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{{L"P001.jpg", "B"}}));
}

TEST_F(SaveDeletionTest, NothingIsDestroyedThatTheBinDoesNotTakeWithoutAYes) {
    for (const wchar_t* name : {L"a.jpg", L"b.jpg", L"c.jpg", L"d.jpg"}) {
        folder.file(name, "x");
    }
    load();
    mark(0);
    mark(2);
    bin.refused = L"c.jpg";
    EXPECT_FALSE(saving.save());
    EXPECT_EQ(agreed.size(), 1U) << "once, though the first one could be taken";
    EXPECT_EQ(files().size(), 4U) << "nothing before the answer";
    EXPECT_THAT(questions, IsEmpty());
    agrees = true;
    EXPECT_TRUE(saveAs(L"P"));
    EXPECT_EQ(agreed.size(), 2U);
    EXPECT_THAT(bin.paths, ElementsAre(folder / L"a.jpg"));
    EXPECT_EQ(files().size(), 2U);
    saving.takeBack();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr(L"Papierkorb: 1.")) << "the other one is nowhere";
}

TEST_F(SaveDeletionTest, WhatASaveDeletedThatWasCalledOffBelongsToTheNextOne) {
    for (const wchar_t* name : {L"a.jpg", L"b.jpg", L"c.jpg"}) {
        folder.file(name, "x");
    }
    load();
    mark(1);
    EXPECT_FALSE(saving.save());
    mark(1);
    answers = {L"P", L"Q"};
    ASSERT_TRUE(saving.save());
    saving.takeBack();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr(L"Papierkorb: 2."));
    load();
    ASSERT_TRUE(saving.save());
    saving.takeBack();
    EXPECT_EQ(told.size(), 1U) << "they belong to one save only";
}

TEST_F(SaveDeletionTest, OneThatVanishedMeanwhileCountsAsDeleted) {
    folder.file(L"a.jpg", "A");
    folder.file(L"b.jpg", "B");
    folder.folder(L"Mini");
    folder.file(L"Mini\\a.bmp", "bild");
    load();
    mark(0);
    folder.remove(L"a.jpg");
    EXPECT_TRUE(saveAs(L"P"));
    EXPECT_THAT(bin.paths, IsEmpty());
    EXPECT_THAT(removed, ElementsAre(0));
    EXPECT_THAT(filesOf(folder / L"Mini"), IsEmpty());
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{{L"P001.jpg", "B"}}));
}

TEST_F(SaveDeletionTest, TheSaveEndsAtTheFirstThatStays) {
    for (const wchar_t* name : {L"a.jpg", L"b.jpg", L"c.jpg", L"d.jpg"}) {
        folder.file(name, "x");
    }
    load();
    mark(0);
    mark(1);
    mark(2);
    bin.onPut = [this](const std::wstring& path) {
        return path.ends_with(L"b.jpg") ? files::Failure::InUse : files::Failure::None;
    };
    EXPECT_FALSE(saveAs(L"P"));
    EXPECT_THAT(bin.paths, ElementsAre(folder / L"a.jpg"));
    EXPECT_THAT(removed, ElementsAre(0)) << "what is gone leaves the grid";
    EXPECT_TRUE(records.thumbRecords[0].deleted) << "b.jpg keeps its mark";
    EXPECT_THAT(questions, IsEmpty());
    bin.onPut = nullptr;
    EXPECT_TRUE(saving.save());
    EXPECT_EQ(files().size(), 1U);
}

TEST_F(SaveDeletionTest, TellsWhichOneItIsAt) {
    for (const wchar_t* name : {L"a.jpg", L"b.jpg", L"c.jpg"}) {
        folder.file(name, "x");
    }
    load();
    mark(0);
    mark(1);
    EXPECT_FALSE(saving.save());
    EXPECT_THAT(at, ElementsAre(L"Bild 1 von 2", L"Bild 2 von 2"));
    EXPECT_EQ(shown, L"");
}

}  // namespace
}  // namespace edit
