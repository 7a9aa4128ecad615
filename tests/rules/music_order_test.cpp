#include "overview/music_order.h"

#include <gmock/gmock.h>

namespace overview {
namespace {

using testing::ElementsAre;

std::wstring lettersOf(const std::vector<MusicEntry>& order) {
    std::wstring letters;
    for (const MusicEntry& entry : order) {
        letters += entry.title;
    }
    return letters;
}

TEST(MusicOrder, TitlesAndLocksOfFiles) {
    struct Case {
        const wchar_t* name;
        const wchar_t* title;
        bool plays;
    };
    constexpr Case cases[] = {
        {L"01 Meer.mp3", L"Meer", true},
        {L"99 Sturm.mp3", L"Sturm", false},
        {L"Abend.mp3", L"Abend", true},
        {L"999.mp3", L"", true},
        {L"99.mp3", L"", true},
        {L"99 .mp3", L"", false},
        {L"1999.mp3", L"9", true},
        {L"100 Jahre.mp3", L" Jahre", true},
        {L"\u00DCber.MP3", L"\u00DCber", true},
        {L"99Luft.mp3", L"uft", true},
        {L" 99 x.mp3", L" 99 x", true},
    };
    for (const Case& one : cases) {
        EXPECT_THAT(musicOrder({one.name}), ElementsAre(MusicEntry{one.name, one.title, one.plays}));
    }
    EXPECT_TRUE(musicOrder({}).empty());
}

TEST(MusicOrder, WhatAReleaseDoes) {
    using Kind = MusicRelease::Kind;
    struct Case {
        int pressed;
        int released;
        int count;
        MusicRelease result;
    };
    constexpr Case cases[] = {
        {1, 1, 4, {Kind::FlipLock, 0}},
        {0, 0, 1, {Kind::FlipLock, 0}},
        {3, 3, 4, {Kind::FlipLock, 0}},
        {0, 2, 4, {Kind::Move, 2}},
        {3, 0, 4, {Kind::Move, 0}},
        {2, 1, 4, {Kind::Move, 1}},
        {0, 3, 4, {Kind::Move, 3}},
        {1, kBelowRows, 4, {Kind::Move, 3}},
        {3, kBelowRows, 4, {Kind::Nothing, 0}},
        {0, kBelowRows, 1, {Kind::Nothing, 0}},
        {kBelowRows, 2, 4, {Kind::Nothing, 0}},
        {kBelowRows, kBelowRows, 4, {Kind::Nothing, 0}},
        {kBelowRows, kBelowRows, 0, {Kind::Nothing, 0}},
        // The list became shorter between press and release.
        {5, 1, 4, {Kind::Nothing, 0}},
        {1, 5, 4, {Kind::Move, 3}},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(musicRelease(one.pressed, one.released, one.count), one.result)
            << one.pressed << " to " << one.released << " of " << one.count;
    }
}

TEST(MusicOrder, MovedEntries) {
    struct Case {
        int from;
        int to;
        const wchar_t* letters;
    };
    constexpr Case cases[] = {
        {0, 0, L"ABCD"}, {0, 1, L"BACD"}, {0, 2, L"BCAD"}, {0, 3, L"BCDA"},
        {3, 0, L"DABC"}, {3, 2, L"ABDC"}, {2, 1, L"ACBD"}, {1, 3, L"ACDB"},
    };
    for (const Case& one : cases) {
        auto order = musicOrder({L"01 A.mp3", L"99 B.mp3", L"C.mp3", L"04 D.mp3"});
        moveEntry(order, one.from, one.to);
        EXPECT_EQ(lettersOf(order), one.letters) << one.from << " to " << one.to;
        for (const MusicEntry& entry : order) {
            EXPECT_EQ(entry.plays, entry.title != L"B") << "a lock goes with its title";
        }
    }
}

}  // namespace
}  // namespace overview
