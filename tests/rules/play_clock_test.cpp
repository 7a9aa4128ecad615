#include "media/play_clock.h"

#include <gtest/gtest.h>

namespace media {
namespace {

constexpr Ticks kSecond = 1000 * kTicksPerMillisecond;
constexpr Ticks kLength = 4 * kSecond;
constexpr Ticks kNow = 1000 * kSecond;
constexpr Ticks kLead = 54 * kSecond / 100;

TEST(PlayClock, LeavesTheLeadOut) {
    PlayClock clock;
    clock.cue(0, kLead);
    EXPECT_EQ(clock.position(kNow, kLength), 0);
    EXPECT_EQ(clock.start(kNow), kNow - kLead) << "the first frame's time stamp is due at once";
    EXPECT_EQ(clock.streamTime(kNow), kLead);
    EXPECT_EQ(clock.position(kNow + kSecond, kLength), kSecond);
}

TEST(PlayClock, StandsStillWhileHalted) {
    PlayClock clock;
    clock.cue(0, kLead);
    clock.start(kNow);
    clock.halt(kNow + kSecond);
    EXPECT_FALSE(clock.moving());
    EXPECT_EQ(clock.position(kNow + 50 * kSecond, kLength), kSecond);
    EXPECT_EQ(clock.start(kNow + 50 * kSecond), kNow + 49 * kSecond - kLead) << "goes on where it stood";
    EXPECT_EQ(clock.position(kNow + 51 * kSecond, kLength), 2 * kSecond);
}

TEST(PlayClock, ASecondStartChangesNothing) {
    PlayClock clock;
    clock.cue(0, 0);
    const Ticks origin = clock.start(kNow);
    EXPECT_EQ(clock.start(kNow + kSecond), origin);
    EXPECT_EQ(clock.position(kNow + kSecond, kLength), kSecond);
}

TEST(PlayClock, ASecondHaltChangesNothing) {
    PlayClock clock;
    clock.cue(0, 0);
    clock.start(kNow);
    clock.halt(kNow + kSecond);
    clock.halt(kNow + 2 * kSecond);
    EXPECT_EQ(clock.position(kNow + 3 * kSecond, kLength), kSecond);
}

TEST(PlayClock, CountsFromWhereItWasCued) {
    PlayClock clock;
    clock.cue(0, kLead);
    clock.start(kNow);
    clock.cue(2 * kSecond, kLead / 2);
    EXPECT_FALSE(clock.moving());
    EXPECT_EQ(clock.position(kNow + 9 * kSecond, kLength), 2 * kSecond);
    EXPECT_EQ(clock.start(kNow), kNow - kLead / 2);
    EXPECT_EQ(clock.position(kNow + kSecond, kLength), 3 * kSecond);
}

TEST(PlayClock, IsUntouchedUntilItMoves) {
    PlayClock clock;
    EXPECT_FALSE(clock.untouchedAt(0)) << "nothing is cued yet";
    for (const Ticks lead : {Ticks{0}, kLead}) {
        clock.cue(0, lead);
        EXPECT_TRUE(clock.untouchedAt(0));
        EXPECT_FALSE(clock.untouchedAt(kSecond));
        clock.halt(kNow);
        EXPECT_TRUE(clock.untouchedAt(0)) << "a halt of a standing film moves nothing";
        clock.start(kNow);
        EXPECT_FALSE(clock.untouchedAt(0));
        clock.halt(kNow);
        EXPECT_FALSE(clock.untouchedAt(0)) << "the graph has run";
    }
    clock.cue(kSecond, 0);
    EXPECT_TRUE(clock.untouchedAt(kSecond));
    EXPECT_FALSE(clock.untouchedAt(0));
}

TEST(PlayClock, StaysWithinTheFilm) {
    PlayClock clock;
    clock.cue(0, kLead);
    clock.start(kNow);
    EXPECT_EQ(clock.position(kNow - kSecond, kLength), 0) << "a clock that steps back";
    EXPECT_EQ(clock.position(kNow + 99 * kSecond, kLength), kLength);
    EXPECT_EQ(clock.position(kNow + kSecond, -1), 0) << "an unknown length";
}

}  // namespace
}  // namespace media
