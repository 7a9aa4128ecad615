// "play from" on the graphs of the DirectShow back-end, whatever was played before.
#include <gtest/gtest.h>

#include <string>

#include "media_fixture.h"

namespace media {
namespace {

using support::mediaFile;
using support::milliseconds;
using support::pumpFor;
using support::pumpUntil;

/// The time of one frame, in milliseconds.
constexpr double kFrameTime = 40;

/// What can be played, and where its time stamps begin: those of a bare stream and of a title at zero.
struct Playable {
    const char* name;
    bool film;
    /// Whether a jump into its middle finds the picture that belongs there.
    bool exact;
};

class PlayFrom : public support::MediaTest, public testing::WithParamInterface<Playable> {
  protected:
    PlayFrom() : MediaTest(BackEnd::DirectShow) {
        const std::string name = GetParam().name;
        opened_ = GetParam().film ? openFilm(name) : send("open " + mediaFile(name) + " alias VIDEO").error;
        length_ = number("status VIDEO length");
    }
    bool reaches(int position) {
        return pumpUntil([&] { return number("status VIDEO position") >= position; }, 3000);
    }
    /// Plays from there, and looks whether it does.
    void expectPlaysFrom(int position, const char* where) {
        const double begin = milliseconds();
        EXPECT_EQ(send("play VIDEO from " + std::to_string(position)).error, 0u) << where;
        EXPECT_EQ(ask("status VIDEO mode"), "playing") << where;
        const int now = number("status VIDEO position");
        EXPECT_GE(now, position) << where;
        EXPECT_LE(now, position + milliseconds() - begin + 1) << where;
        if (GetParam().film && (position == 0 || GetParam().exact)) {
            const auto frame = frameNow();
            const double late = position + milliseconds() - begin;
            ASSERT_TRUE(frame.has_value()) << where;
            EXPECT_GE(*frame * kFrameTime, position - kFrameTime) << where;
            EXPECT_LE(*frame * kFrameTime, late) << where;
        }
        EXPECT_TRUE(reaches(position + 300)) << where;
        if (GetParam().film && (position == 0 || GetParam().exact)) {
            EXPECT_TRUE(
                pumpUntil([&] { return frameNow().value_or(0) * kFrameTime >= position + 240; }, 2000))
                << where << ": the pictures stand";
        }
    }

    unsigned opened_ = 0;
    int length_ = 0;
};

TEST_P(PlayFrom, StartsThereWhateverWasPlayedBefore) {
    ASSERT_EQ(opened_, 0u);
    ASSERT_GE(length_, 1000);
    expectPlaysFrom(0, "freshly opened");
    expectPlaysFrom(0, "while it plays");
    send("pause VIDEO");
    expectPlaysFrom(0, "paused");
    send("stop VIDEO");
    expectPlaysFrom(0, "stopped");
    expectPlaysFrom(400, "forwards");
    send("stop VIDEO");
    expectPlaysFrom(200, "backwards");
    EXPECT_EQ(send("play VIDEO from " + std::to_string(length_ - 100)).error, 0u);
    ASSERT_TRUE(reaches(length_));
    EXPECT_EQ(ask("status VIDEO mode"), "stopped");
    expectPlaysFrom(0, "at its end");
    EXPECT_EQ(send("play VIDEO from " + std::to_string(length_ - 100)).error, 0u);
    ASSERT_TRUE(reaches(length_));
    pumpFor(1000);
    expectPlaysFrom(0, "long after its end");
}

INSTANTIATE_TEST_SUITE_P(Real, PlayFrom,
                         testing::Values(Playable{"elementary.mpg", true, true},
                                         Playable{"tone1320.mp3", false, true},
                                         Playable{"film_short.mpg", true, false},
                                         Playable{"silent.mpg", true, false}),
                         [](const auto& file) {
                             std::string name = file.param.name;
                             return name.substr(0, name.find('.'));
                         });

}  // namespace
}  // namespace media
