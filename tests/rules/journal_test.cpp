#include "files/journal.h"

#include <gtest/gtest.h>

#include "files/file_system.h"

namespace files {
namespace {

using Kind = JournalReading::Kind;

Journal sample() {
    Journal journal;
    journal.moves = {
        {L"Bild 1.jpg", L"TMP001.jpg", L"\u00DCber\u6D77.jpg", {18446744073709551615U, 7, 3}, kHidden, 0},
        {L"Mini\\a.bmp", L"Mini\\TMP002.bmp", L"Mini\\b.bmp", {1, 2, 0}, 0, 0}};
    journal.drops = {L"Mini\\orphan.bmp"};
    journal.deleted = {L"weg.jpg"};
    journal.script = ScriptChange{L"Panorell.txt", std::string("a\t%41\r\n\xE4\0z", 10), ""};
    journal.temporaryScript = L"TMP.txt";
    journal.keep = true;
    return journal;
}

TEST(Journal, ReadsBackAsItWas) {
    Journal withoutScript = sample();
    withoutScript.script.reset();
    Journal noTextBefore = sample();
    noTextBefore.script->before.reset();
    for (const Journal& journal : {sample(), Journal{}, withoutScript, noTextBefore}) {
        const std::string bytes = journalBytes(journal);
        const JournalReading reading = readJournal(bytes);
        EXPECT_EQ(reading.kind, Kind::Whole);
        EXPECT_EQ(reading.phase, Phase::First);
        EXPECT_EQ(journalBytes(reading.journal), bytes);
    }
    const Journal read = readJournal(journalBytes(sample())).journal;
    ASSERT_EQ(read.moves.size(), 2U);
    EXPECT_EQ(read.moves[0].oldName, L"Bild 1.jpg");
    EXPECT_EQ(read.moves[0].newName, L"\u00DCber\u6D77.jpg");
    EXPECT_EQ(read.moves[0].stamp.size, 18446744073709551615U);
    EXPECT_EQ(read.moves[0].oldAttributes, kHidden);
    EXPECT_EQ(read.script->before, sample().script->before);
    EXPECT_EQ(read.script->after, "");
    EXPECT_EQ(read.deleted, sample().deleted);
}

TEST(Journal, CutOffAnywhereItIsTorn) {
    const std::string bytes = journalBytes(sample());
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        EXPECT_EQ(readJournal(bytes.substr(0, length)).kind, Kind::Torn) << length;
        std::string zeros = bytes.substr(0, length);
        zeros.resize(bytes.size(), '\0');
        EXPECT_EQ(readJournal(zeros).kind, Kind::Torn) << length;
    }
    EXPECT_EQ(readJournal(bytes).kind, Kind::Whole);
}

TEST(Journal, AChangedByteIsNoticed) {
    const std::string bytes = journalBytes(sample());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        std::string changed = bytes;
        changed[i] = static_cast<char>(changed[i] ^ 1);
        EXPECT_NE(readJournal(changed).kind, Kind::Whole) << i;
    }
}

TEST(Journal, MarksTellThePhase) {
    const std::string bytes = journalBytes(sample());
    const std::string second = bytes + phaseMark(Phase::Second);
    EXPECT_EQ(readJournal(second).phase, Phase::Second);
    EXPECT_EQ(readJournal(second + phaseMark(Phase::First)).phase, Phase::First);
    EXPECT_EQ(readJournal(second + phaseMark(Phase::Done)).phase, Phase::Done);
    const std::string mark = phaseMark(Phase::Second);
    for (std::size_t length = 0; length < mark.size(); ++length) {
        const std::string torn = bytes + mark.substr(0, length);
        EXPECT_EQ(readJournal(torn).phase, Phase::First) << length;
        EXPECT_EQ(readJournal(torn).kind, Kind::Whole) << length;
        EXPECT_EQ(readJournal(torn + phaseMark(Phase::Done)).phase, Phase::Done) << length;
    }
    EXPECT_EQ(readJournal(second + std::string("\0\0\0", 3)).phase, Phase::Second);
}

TEST(Journal, WhatIsNotOursIsForeign) {
    EXPECT_EQ(readJournal("Panorell-Journal 2\nsomething\n").kind, Kind::Foreign);
    EXPECT_EQ(readJournal("my diary").kind, Kind::Foreign);
}

TEST(Journal, NamesThatLeadOutOfTheFolderAreForeign) {
    for (const wchar_t* name :
         {L"..\\a.jpg", L"C:\\a.jpg", L"Mini\\..\\a.jpg", L"Mini\\", L"x\\a.jpg", L".."}) {
        Journal journal = sample();
        journal.moves[0].newName = name;
        EXPECT_EQ(readJournal(journalBytes(journal)).kind, Kind::Foreign) << testing::PrintToString(name);
        journal = sample();
        journal.script->name = name;
        EXPECT_EQ(readJournal(journalBytes(journal)).kind, Kind::Foreign) << testing::PrintToString(name);
    }
    Journal journal = sample();
    journal.script->name = L"picture.jpg";
    EXPECT_EQ(readJournal(journalBytes(journal)).kind, Kind::Foreign) << "a picture is no script";
    journal = sample();
    journal.drops = {L"picture.jpg"};
    EXPECT_EQ(readJournal(journalBytes(journal)).kind, Kind::Foreign) << "only the cache may lose files";
}

}  // namespace
}  // namespace files
