#include "edit/entry_line.h"

#include <gmock/gmock.h>

#include "script/show_script.h"

namespace edit {
namespace {

using testing::ElementsAre;
using Names = std::vector<std::wstring>;

const Names kMusic{L"01 Meer.mp3", L"Abend.mp3", L"03 Sommer.mp3", L"04 Am Meer.mp3"};

EntryFields fields(std::wstring title, int pause = 0, int effect = 0, bool date = false, int music = -1) {
    return {std::move(title), pause, effect, date, music};
}

TEST(EntryLine, ItemsOfTheLists) {
    const Names pauses = pauseItems();
    ASSERT_EQ(pauses.size(), 61U);
    EXPECT_EQ(pauses[0], L"");
    EXPECT_EQ(pauses[1], L"1");
    EXPECT_EQ(pauses[60], L"60");
    const Names effects = effectItems();
    ASSERT_EQ(effects.size(), 28U);
    EXPECT_EQ(effects[0], L"");
    EXPECT_EQ(effects[1], L" #");
    EXPECT_EQ(effects[2], L" A");
    EXPECT_EQ(effects[27], L" Z");
    EXPECT_THAT(musicItems(kMusic), ElementsAre(L"", L"Meer", L"Abend", L"Sommer", L"Am Meer", L"<"));
    EXPECT_THAT(musicItems({}), testing::IsEmpty());
}

struct ReadCase {
    const wchar_t* line;
    EntryFields expected;
};

TEST(EntryLine, IsTakenApart) {
    const ReadCase cases[] = {
        {L"", fields(L"")},
        {L"Am Strand", fields(L"Am Strand")},
        {L" nur Titel ", fields(L" nur Titel ")},
        {L" *P=7 *E=#", fields(L"", 7, 1)},
        {L"Haus *P=12 *E=C *D *M=Sommer", fields(L"Haus", 12, 4, true, 3)},
        {L"  Haus  *D", fields(L"Haus", 0, 0, true)},
        {L"Haus*D", fields(L"Haus", 0, 0, true)},
        {L"*", fields(L"")},
        // pauses
        {L"a *P=1", fields(L"a", 1)},
        {L"a *P=60", fields(L"a", 60)},
        {L"a *P=61", fields(L"a")},
        {L"a *P=0", fields(L"a")},
        {L"a *P=-3", fields(L"a")},
        {L"a *P=", fields(L"a")},
        {L"a *P=x", fields(L"a")},
        {L"a *P=2.5", fields(L"a", 2)},
        {L"a *P=2.6", fields(L"a", 3)},
        {L"a *P=2,5", fields(L"a", 2)},
        {L"a *P=99999999999", fields(L"a")},
        {L"a *P= 9 *E=A", fields(L"a", 9, 2)},
        {L"a *P=9*E=A", fields(L"a", 9, 2)},
        {L"a *P=3 *P=4", fields(L"a", 3)},
        {L"a *p=3", fields(L"a")},
        // effects
        {L"a *E=A", fields(L"a", 0, 2)},
        {L"a *E=Z", fields(L"a", 0, 27)},
        {L"a *E=[", fields(L"a")},
        {L"a *E=@", fields(L"a")},
        {L"a *E=b", fields(L"a")},
        {L"a *E=", fields(L"a")},
        {L"a *E= C", fields(L"a")},
        {L"a *E=\u00DC", fields(L"a")},
        {L"a *E=*D", fields(L"a", 0, 0, true)},
        // music
        {L"a *M=Meer", fields(L"a", 0, 0, false, 4)},
        {L"a *M=01 Meer", fields(L"a", 0, 0, false, 1)},
        {L"a *M=Abend.mp3", fields(L"a", 0, 0, false, 2)},
        {L"a *M=abend", fields(L"a")},
        {L"a *M=<", fields(L"a")},
        {L"a *M=fehlt", fields(L"a")},
        {L"a *M=Sommer *D", fields(L"a", 0, 0, true)},
        {L"a *M=", fields(L"a", 0, 0, false, 4)},
    };
    for (const ReadCase& one : cases) {
        const EntryFields read = readEntryLine(one.line, kMusic);
        EXPECT_EQ(read.title, one.expected.title) << testing::PrintToString(one.line);
        EXPECT_EQ(read.pause, one.expected.pause) << testing::PrintToString(one.line);
        EXPECT_EQ(read.effect, one.expected.effect) << testing::PrintToString(one.line);
        EXPECT_EQ(read.date, one.expected.date) << testing::PrintToString(one.line);
        EXPECT_EQ(read.music, one.expected.music) << testing::PrintToString(one.line);
    }
    EXPECT_EQ(readEntryLine(L"a *M=Meer", {}).music, -1);
    EXPECT_EQ(readEntryLine(L"a *M=", {}).music, -1);
}

TEST(EntryLine, IsWritten) {
    struct Case {
        EntryTexts texts;
        const wchar_t* line;
    };
    const Case cases[] = {
        {{L"", L"", L"", false, L""}, L""},
        {{L"  ", L"", L"", false, L""}, L""},
        {{L"  Am Strand ", L"", L"", false, L""}, L"Am Strand"},
        {{L"", L"5", L"", false, L""}, L" *P=5"},
        {{L"Haus", L"12", L" C", true, L"Sommer"}, L"Haus *P=12 *E=C *D *M=Sommer"},
        {{L"", L"7", L" #", false, L""}, L" *P=7 *E=#"},
        {{L"Haus", L"", L"", true, L""}, L"Haus *D"},
        {{L"Haus", L"", L"", false, L"<"}, L"Haus *M=<"},
        {{L"Haus", L"", L"", false, L" Am Meer "}, L"Haus *M=Am Meer"},
        {{L"Haus", L" 5 ", L"", false, L""}, L"Haus *P=5"},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(writeEntryLine(one.texts), one.line) << testing::PrintToString(one.line);
    }
}

// Every choice of the lists is found again by the editor and by the show.
TEST(EntryLine, WhatIsWrittenIsReadAgain) {
    const Names pauses = pauseItems();
    const Names effects = effectItems();
    const Names music = musicItems({L"01 Eins.mp3", L"Zwei.mp3"});
    for (int pause = 0; pause <= 60; ++pause) {
        for (int effect = 0; effect < 28; ++effect) {
            for (const bool date : {false, true}) {
                for (int song = 0; song < 3; ++song) {
                    const auto at = [](const Names& items, int index) {
                        return items[static_cast<std::size_t>(index)];
                    };
                    const EntryTexts texts{pause % 2 == 0 ? L"Titel" : L"", at(pauses, pause),
                                           at(effects, effect), date, at(music, song)};
                    const std::wstring line = writeEntryLine(texts);
                    EXPECT_EQ(readEntryLine(line, {L"01 Eins.mp3", L"Zwei.mp3"}),
                              fields(texts.title, pause, effect, date, song == 0 ? -1 : song));
                    const script::Entry shown = script::readEntry(L"Bild1 " + line, L"Bild1");
                    EXPECT_EQ(shown.pause, texts.pause);
                    EXPECT_EQ(shown.effect, effect == 0 ? L"" : texts.effect.substr(1));
                    EXPECT_EQ(shown.dateFlag, date);
                    EXPECT_EQ(shown.music.value_or(L""), texts.music);
                }
            }
        }
    }
}

TEST(EntryLine, TextsBecomeTitles) {
    EXPECT_EQ(titleText(L"Am Strand"), (TitleText{L"Am Strand", false}));
    EXPECT_EQ(titleText(L""), (TitleText{L"", false}));
    EXPECT_EQ(titleText(L"eins\r\nzwei\ndrei\rvier"), (TitleText{L"eins zwei drei vier", false}));
    EXPECT_EQ(titleText(L"\r\n\r\n"), (TitleText{L"  ", false}));
    EXPECT_EQ(titleText(L"\n\r"), (TitleText{L"  ", false}));
    EXPECT_EQ(titleText(L"eins\r"), (TitleText{L"eins ", false}));
    EXPECT_EQ(titleText(L"ein *Stern*"), (TitleText{L"ein Stern", true}));
    EXPECT_EQ(titleText(L"*"), (TitleText{L"", true}));
    EXPECT_EQ(titleText(L"a\r*\nb"), (TitleText{L"a  b", true}));
}

TEST(EntryLine, EffectsByTheirCharacter) {
    EXPECT_EQ(effectIndex(L'#'), 1);
    EXPECT_EQ(effectIndex(L'A'), 2);
    EXPECT_EQ(effectIndex(L'Z'), 27);
    for (const wchar_t other : {L'@', L'[', L'a', L'1', L' ', L'Ä'}) {
        EXPECT_EQ(effectIndex(other), 0) << static_cast<int>(other);
    }
}

// What the boxes cannot show is lost only when something else was changed.
TEST(EntryLine, AnUntouchedEditorLosesNothing) {
    struct Case {
        const wchar_t* line;
        const wchar_t* untouched;
        const wchar_t* titleChanged;
    };
    const Case cases[] = {
        {L"", L"", L"Neu"},
        {L"Haus", L"Haus", L"Neu"},
        {L"Haus *P=12 *E=C *D *M=Sommer", L"Haus *P=12 *E=C *D *M=Sommer", L"Neu *P=12 *E=C *D *M=Sommer"},
        {L"Haus *D *P=7", L"Haus *P=7 *D", L"Neu *P=7 *D"},
        {L"Haus *M=<", L"Haus *M=<", L"Neu"},
        {L"Haus *P=90", L"Haus *P=90", L"Neu"},
        {L"Haus *P=7.5", L"Haus *P=7.5", L"Neu *P=8"},
        {L"Haus *E=k *D", L"Haus *E=k *D", L"Neu *D"},
        {L"Haus *M=Winter", L"Haus *M=Winter", L"Neu"},
        {L"Haus *M=Som", L"Haus *M=Som", L"Neu *M=Sommer"},
    };
    const Names music = {L"03 Sommer.mp3"};
    for (const Case& one : cases) {
        const EntryFields read = readEntryLine(one.line, music);
        const auto at = [](const Names& items, int index) {
            return index < 0 ? std::wstring() : items[static_cast<std::size_t>(index)];
        };
        const EntryTexts opened{read.title, at(pauseItems(), read.pause), at(effectItems(), read.effect),
                                read.date, at(musicItems(music), read.music)};
        EXPECT_EQ(editedEntryLine(one.line, opened, opened), one.untouched)
            << testing::PrintToString(one.line);
        EntryTexts changed = opened;
        changed.title = L"Neu";
        EXPECT_EQ(editedEntryLine(one.line, opened, changed), one.titleChanged)
            << testing::PrintToString(one.line);
    }
}

TEST(EntryLine, Captions) {
    EXPECT_EQ(editorCaption(0), L"   Untertitel/Pause/Musik  bearbeiten  (Bild 1)");
    EXPECT_EQ(editorCaption(999), L"   Untertitel/Pause/Musik  bearbeiten  (Bild 1000)");
}

}  // namespace
}  // namespace edit
