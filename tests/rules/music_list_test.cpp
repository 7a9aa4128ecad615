#include "media/music_list.h"

#include <gtest/gtest.h>

#include <limits>

namespace media {
namespace {

using List = std::vector<std::wstring>;

TEST(MusicList, EntriesKeepTheOrder) {
    const List names{L"01 Meer.mp3", L"99 Sturm.mp3", L"Abend.mp3", L"9.mp3", L"\u00DCber.mp3", L""};
    const List expected{L"01 Meer.mp3", L"99 Sturm.mp3",     L"   Abend.mp3",
                        L"9.mp3",       L"   \u00DCber.mp3", L"   "};
    EXPECT_EQ(musicEntries(names), expected);
    EXPECT_EQ(musicEntries({}), List{});
}

TEST(MusicList, EntriesGiveTheirFileNameBack) {
    for (const wchar_t* name : {L"01 Meer.mp3", L"Abend.mp3", L"a b.mp3"}) {
        EXPECT_EQ(fileNameOfEntry(musicEntry(name)), name);
    }
}

TEST(MusicList, LockedEntries) {
    EXPECT_TRUE(isLocked(L"99 Sturm.mp3"));
    EXPECT_TRUE(isLocked(L"999.mp3"));
    EXPECT_TRUE(isLocked(L"99"));
    EXPECT_FALSE(isLocked(L"9"));
    EXPECT_FALSE(isLocked(L"09 a.mp3"));
    EXPECT_FALSE(isLocked(L""));
    EXPECT_FALSE(isLocked(musicEntry(L"x99 a.mp3")));
    EXPECT_FALSE(isLocked(L"   99 Luftballons.mp3"));
}

TEST(MusicList, BareTitles) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"01 Meer.mp3", L"Meer"},
        {L"99 Sturm.mp3", L"Sturm"},
        {L"Abend.mp3", L"Abend"},
        {L"Mein Lied.mp3", L"Mein Lied"},
        {L"1234.mp3", L"4"},
        {L"1.mp3", L""},
        {L"01 .mp3", L""},
        {L".mp3", L""},
        {L"mp3", L""},
        {L"", L""},
    };
    for (const auto& [name, expected] : cases) {
        EXPECT_EQ(musicTitle(name), expected) << name;
    }
}

TEST(MusicList, IndexWraps) {
    EXPECT_EQ(nextMusicIndex(0, 3), 1);
    EXPECT_EQ(nextMusicIndex(2, 3), 0);
    EXPECT_EQ(nextMusicIndex(5, 3), 0);
    EXPECT_EQ(nextMusicIndex(0, 1), 0);
    EXPECT_EQ(nextMusicIndex(0, 0), 0);
}

TEST(MusicList, RotationSkipsLockedTitles) {
    const List list{L"01 a.mp3", L"99 b.mp3", L"   99 c.mp3", L"99 d.mp3"};
    EXPECT_EQ(skipLocked(list, 0), (Rotation{0, true}));
    EXPECT_EQ(skipLocked(list, 1), (Rotation{2, true}));
    EXPECT_EQ(skipLocked(list, 2), (Rotation{2, true}));
    EXPECT_EQ(skipLocked(list, 3), (Rotation{0, true}));
    EXPECT_EQ(skipLocked(list, 4), (Rotation{0, true}));
    EXPECT_EQ(skipLocked(list, -1), (Rotation{0, true}));
}

TEST(MusicList, AllLockedEndsTheTick) {
    const List list{L"99 a.mp3", L"99 b.mp3", L"99 c.mp3"};
    EXPECT_EQ(skipLocked(list, 0), (Rotation{1, false}));
    EXPECT_EQ(skipLocked(list, 2), (Rotation{0, false}));
    EXPECT_EQ(skipLocked({L"99 a.mp3"}, 0), (Rotation{0, false}));
    EXPECT_EQ(skipLocked({}, 0), (Rotation{0, false}));
    EXPECT_EQ(skipLocked({}, 7), (Rotation{0, false}));
}

TEST(MusicList, LastMatchWinsEvenWhenLocked) {
    const List list{L"01 Meer.mp3", L"02 Meerwind.mp3", L"   Abend.mp3", L"99 Meer still.mp3"};
    EXPECT_EQ(requestedIndex(list, L"Meer", 0), 3);
    EXPECT_EQ(requestedIndex(list, L"Meerw", 0), 1);
    EXPECT_EQ(requestedIndex(list, L"Meer.mp3", 2), 0);
    EXPECT_EQ(requestedIndex(list, L"meer", 2), 2);
    EXPECT_EQ(requestedIndex(list, L"Abend", 0), 2);
    EXPECT_EQ(requestedIndex(list, L"Nacht", 1), 1);
    EXPECT_EQ(requestedIndex({}, L"Meer", 1), 1);
}

TEST(MusicList, EndTimeAddsMillisecondsToSeconds) {
    EXPECT_EQ(musicEndTime(1000.0F, "215000"), 216002);
    EXPECT_EQ(musicEndTime(1000.5F, "0"), 1002);
    EXPECT_EQ(musicEndTime(1000.0F, ""), 1002);
    EXPECT_EQ(musicEndTime(1000.0F, "   "), 1002);
    EXPECT_EQ(musicEndTime(86399.99F, "10"), 86411);
    EXPECT_EQ(musicEndTime(0.0F, "-5.5"), -4);
    EXPECT_EQ(musicEndTime(0.0F, "99999999999"), std::numeric_limits<int>::max());
}

TEST(MusicList, TickWaitsForTheEndTime) {
    EXPECT_TRUE(isBeforeEnd(999.9F, 1000));
    EXPECT_FALSE(isBeforeEnd(1000.0F, 1000));
    EXPECT_FALSE(isBeforeEnd(0.0F, 0));
    EXPECT_FALSE(isBeforeEnd(1.0F, 0));
}

}  // namespace
}  // namespace media
