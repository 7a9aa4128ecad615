// Saving into show order, on real files.
#include "support/save_scene.h"

namespace edit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

using SaveTest = SaveScene;

TEST_F(SaveTest, NamesCarryTheOrderAndTheScriptTheNewNames) {
    folder.file(L"a.jpg", "A");
    folder.file(L"b.MPG", "B");
    folder.file(L"c.Jpg", "C");
    folder.file(L"Panorell.txt", "b Film *P=3\r\nc Haus\r\n");
    load();
    std::swap(records.thumbRecords[0], records.thumbRecords[2]);
    EXPECT_TRUE(saveAs(L"Urlaub"));
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
    EXPECT_THAT(at, ElementsAre(L"Bild 1 von 3", L"Bild 2 von 3", L"Bild 3 von 3", L"Bild 1 von 3",
                                L"Bild 2 von 3", L"Bild 3 von 3"));
    EXPECT_EQ(shown, L"");
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
    EXPECT_TRUE(saveAs(L"P"));
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
    EXPECT_TRUE(saveAs(L"P"));
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{{L"P001.jpg", "B"}, {L"P002.jpg", "A"}}));
    EXPECT_TRUE(hidden(L"P001.jpg"));
    EXPECT_FALSE(hidden(L"P002.jpg"));
    EXPECT_EQ(filesOf(folder / L"Mini"), (std::map<std::wstring, std::string>{{L"P001.bmp", "bild b"}}));
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
    EXPECT_TRUE(saveAs(L"TMP"));
    EXPECT_EQ(files(), (std::map<std::wstring, std::string>{{L"TMP001.jpg", "A"}, {L"TMP002.jpg", "B"}}));
}

TEST_F(SaveTest, TitlesThatTheCodePageLacksAreKept) {
    folder.file(L"a.jpg", "A");
    load();
    records.thumbRecords[0].entry = L"\u041c\u043e\u0440\u0435 \u00e4";
    EXPECT_TRUE(saveAs(L"P"));
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
    EXPECT_LT(loop.now() - before, 5000);
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

TEST_F(SaveTest, ABitmapThatIsNobodysIsNotTakenForAPictureWithoutOne) {
    folder.file(L"a.jpg", "A");
    folder.folder(L"Mini");
    folder.file(L"Mini\\P001.bmp", "of another picture");
    SetFileAttributesW((folder / L"Mini\\P001.bmp").c_str(), FILE_ATTRIBUTE_READONLY);
    load();
    EXPECT_TRUE(saveAs(L"P"));
    EXPECT_THAT(filesOf(folder / L"Mini"), IsEmpty());
}

TEST_F(SaveTest, WriteProtectedThumbnailsAndPicturesGoWithTheOthers) {
    folder.file(L"a.jpg", "A");
    folder.folder(L"Mini");
    folder.file(L"Mini\\a.bmp", "bild a");
    for (const wchar_t* name : {L"a.jpg", L"Mini\\a.bmp"}) {
        SetFileAttributesW((folder / name).c_str(), FILE_ATTRIBUTE_READONLY);
    }
    load();
    EXPECT_TRUE(saveAs(L"P"));
    EXPECT_EQ(filesOf(folder / L"Mini"), (std::map<std::wstring, std::string>{{L"P001.bmp", "bild a"}}));
    EXPECT_EQ(GetFileAttributesW((folder / L"Mini\\P001.bmp").c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
    EXPECT_NE(GetFileAttributesW((folder / L"P001.jpg").c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(SaveTest, TheRecordsKnowWhatWasWritten) {
    folder.file(L"a.jpg", "A");
    folder.file(L"f.mpg", "F");
    folder.file(L"Panorell.txt", "a \xC4rger\r\nf Film\r\n");
    load();
    records.thumbRecords.resize(1);
    ASSERT_TRUE(saveAs(L"P"));
    const script::ScriptReading onDisk = script::readScript(folder.path());
    EXPECT_EQ(records.script.bytes, onDisk.bytes);
    EXPECT_EQ(records.script.text, onDisk.text);
    EXPECT_EQ(records.script.state, onDisk.state);
    EXPECT_THAT(records.folderNames, UnorderedElementsAre(L"P001.jpg", L"f.mpg"));
}

}  // namespace
}  // namespace edit
