#include "media/mci_media_control.h"

#include <gtest/gtest.h>

#include <string>

#include "media_fixture.h"
#include "platform/wine.h"

namespace media {
namespace {

using support::mediaFile;
using support::pumpUntil;

class Mci : public support::MediaTest {
  protected:
    Mci() : MediaTest(BackEnd::Mci) {}
};

TEST_F(Mci, PlaysATitle) {
    ASSERT_EQ(send("open " + mediaFile("tone440.mp3") + " alias AUDIO").error, 0u);
    EXPECT_EQ(send("set AUDIO time format milliseconds").error, 0u);
    EXPECT_NEAR(number("status AUDIO length"), 8000, 200);
    EXPECT_EQ(send("setaudio AUDIO volume to 200").error, 0u);
    EXPECT_EQ(ask("status AUDIO mode"), "stopped");
    EXPECT_EQ(send("play AUDIO").error, 0u);
    EXPECT_TRUE(pumpUntil([&] { return number("status AUDIO position") >= 300; }, 5000));
    EXPECT_EQ(ask("status AUDIO mode"), "playing");
    EXPECT_EQ(send("stop AUDIO").error, 0u);
    EXPECT_EQ(send("close AUDIO").error, 0u);
    EXPECT_NE(send("play AUDIO").error, 0u) << "closed";
}

TEST_F(Mci, OpensAndPlaysAFilm) {
    ASSERT_EQ(openFilm("film_352x288.mpg"), 0u);
    EXPECT_EQ(ask("where VIDEO source"), "0 0 352 288");
    EXPECT_NEAR(number("status VIDEO length"), 3000, 700);
    EXPECT_EQ(send("play VIDEO").error, 0u);
    EXPECT_TRUE(pumpUntil([&] { return number("status VIDEO position") >= 300; }, 5000));
    EXPECT_EQ(send("pause VIDEO").error, 0u);
    EXPECT_EQ(ask("status VIDEO mode"), "paused");
    EXPECT_EQ(send("stop VIDEO").error, 0u);
    EXPECT_EQ(send("close VIDEO").error, 0u);
}

TEST_F(Mci, KeepsTheErrorAndAnswersNothing) {
    // Which number a device that is not open gives depends on the system's list of devices.
    EXPECT_NE(send("stop VIDEO").error, 0u);
    const MediaReply length = control_->send("status VIDEO length", kReplySize);
    EXPECT_EQ(length.text, "");
    EXPECT_NE(length.error, 0u);
    EXPECT_NE(openFilm("damaged.mpg"), 0u);
    EXPECT_NE(send("open C:\\no\\such.mpg alias VIDEO").error, 0u);
    EXPECT_EQ(ask("status VIDEO length"), "");
}

TEST_F(Mci, RepliesFitTheirBuffer) {
    ASSERT_EQ(send("open " + mediaFile("tone440.mp3") + " alias AUDIO").error, 0u);
    EXPECT_EQ(control_->send("status AUDIO mode", 128).text, "stopped");
    EXPECT_LT(control_->send("status AUDIO mode", 4).text.size(), 4u);
    EXPECT_EQ(control_->send("status AUDIO mode", 0).text, "");
}

// What the system's interface cannot open or paint is left to a graph.
TEST(MediaBackEnd, TheSystemsInterfaceHasAGraphBehindIt) {
    const auto control = createMediaControl(BackEnd::Mci);
    MediaControl& frames = control->frameSource();
    ASSERT_NE(&frames, control.get());
    EXPECT_EQ(frames.send("open " + support::mediaFile("film_short.mpg") + " alias FRAME").error, 0U);
    EXPECT_EQ(frames.send("play FRAME from 0").error, 0U);
    EXPECT_EQ(frames.send("close FRAME").error, 0U);
}

TEST(MediaBackEnd, WineGetsTheGraphsAndWindowsItsOwnInterface) {
    EXPECT_EQ(preferredBackEnd(), platform::runsUnderWine() ? BackEnd::DirectShow : BackEnd::Mci);
}

}  // namespace
}  // namespace media
