// Videos that are reached, left and gone back from by hand, and keys in the middle of a capture.
#include <gmock/gmock.h>

#include <algorithm>
#include <utility>

#include "show/step_rule.h"
#include "support/video_road.h"

namespace media {
namespace {

using support::FakePictures;
using testing::ElementsAreArray;
using testing::IsEmpty;

using namespace support::road;

/// Halts the show at its first picture and asks for the film behind it.
void reachByHand(RoadStage& stage) {
    stage.startAutomatically();
    stage.loop.advance(1000);
    stage.controls.mousePressed(ui::MouseButton::Left);
    stage.key(VK_RIGHT);
}

// A film that was reached by hand plays with its sound all the time.
TEST(VideoByHand, ReachedByHandAndGoneOnFrom) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "10000");
    stage.startWithSound();
    stage.loop.advance(1000);
    stage.controls.mousePressed(ui::MouseButton::Left);
    stage.key(VK_RIGHT);
    stage.loop.advance(150);
    EXPECT_THAT(stage.log(), ElementsAreArray(opened("b.mpg") + kArmedWithSound + kToVideo));
    ASSERT_EQ(stage.state.showMode, show::kByHand);
    stage.loop.advance(2000);
    stage.type(L' ');
    EXPECT_THAT(stage.log(), IsEmpty()) << "neither its sound nor its length anew";
    stage.loop.advance(5200);
    EXPECT_THAT(stage.log(), ElementsAreArray(kToMusic)) << "two seconds before its end";
    EXPECT_EQ(stage.state.pictureIndex, 1);
    stage.loop.advance(1000);
    EXPECT_THAT(stage.log(), ElementsAreArray(kCaptured));
    EXPECT_EQ(stage.state.pictureIndex, 2);
}

TEST(VideoByHand, ReachedByHandIsLeftWhenItEnds) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "10000");
    reachByHand(stage);
    stage.loop.advance(100 + 4000);
    stage.type(L' ');
    EXPECT_EQ(stage.Timer1.interval(), 6000) << "what is left of it";
    stage.loop.advance(5990);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    stage.loop.advance(20);
    EXPECT_EQ(stage.state.pictureIndex, 2);
}

TEST(VideoByHand, ReachedByHandAndOverLongAgoIsLeftAtOnce) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "10000");
    reachByHand(stage);
    stage.loop.advance(60'000);
    ASSERT_EQ(stage.state.pictureIndex, 1);
    stage.type(L' ');
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, 2);
}

TEST(VideoByHand, KeysThatBelongToTheComputerLeaveItAlone) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "60000");
    stage.startAutomatically();
    stage.loop.advance(7000);
    stage.log();
    for (const int key : {VK_SHIFT, VK_CONTROL, VK_LSHIFT, VK_LWIN, VK_CAPITAL, VK_NUMLOCK, VK_VOLUME_UP,
                          VK_VOLUME_MUTE, VK_MEDIA_PLAY_PAUSE, VK_BROWSER_BACK}) {
        stage.key(key);
    }
    stage.loop.advance(1000);
    EXPECT_THAT(stage.log(), IsEmpty());
    EXPECT_EQ(stage.video.videoShowing, 1);
    stage.key(VK_F5);
    EXPECT_THAT(stage.log(), ElementsAreArray(kClosed));
}

TEST(VideoByHand, WithoutVideoSoundTheMusicGoesOn) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "8000");
    stage.withMusic();
    stage.startAutomatically();
    stage.loop.advance(5001);
    EXPECT_THAT(stage.log(), ElementsAreArray(opened("b.mpg") + kArmed)) << "no volume is touched";
    stage.loop.advance(8000);
    EXPECT_THAT(stage.log(), ElementsAreArray(kCaptured));
}

TEST(VideoByHand, WithoutVideoSoundTheMusicGoesOnFromTheFirstItemToo) {
    RoadStage stage({L"a.mpg", L"b.jpg"}, "8000");
    stage.withMusic();
    stage.show.start();
    EXPECT_THAT(stage.log(), ElementsAreArray(kClosed + opened("a.mpg") + kStopped));
    stage.type(L' ');
    EXPECT_THAT(stage.log(), ElementsAreArray(kSilent + kArmed + kPlay));
}

TEST(VideoEntries, TheFirstItemTakesItsOwnWithoutADate) {
    RoadStage stage({L"a.mpg", L"b.mpg", L"c.jpg"}, "8000");
    stage.writeScript("a Am Meer *E=C *D\r\nb Zwei *E=D *D *M=Lied\r\n");
    stage.ShowFN.setValue(1);
    stage.show.start();
    EXPECT_TRUE(stage.UT.visible());
    EXPECT_EQ(stage.UT.text(), L"Am Meer ");
    EXPECT_EQ(stage.runner.effectNumber, 3);
    const auto* pixels = stage.Pic2.image().bits();
    EXPECT_TRUE(std::all_of(pixels, pixels + 160 * 120, [](std::uint32_t pixel) {
        return (pixel & 0xFFFFFF) == 0;
    })) << "no date beneath the film";
    stage.type(L' ');
    stage.loop.advance(8100);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    EXPECT_FALSE(stage.UT.visible());
    EXPECT_EQ(stage.runner.effectNumber, 3) << "other videos take none";
    EXPECT_TRUE(stage.music.musicRequest.empty());
}

/// Presses a key in the middle of the next capture.
void keyInTheCapture(RoadStage& stage, int key) {
    const auto paint = stage.control.onSend;
    stage.control.onSend = [&stage, paint, key, pressed = false](const std::string& command) mutable {
        paint(command);
        if (command.rfind("update VIDEO", 0) == 0 && !std::exchange(pressed, true)) {
            stage.key(key);
        }
    };
}

TEST(VideoByHand, LeftInTheMiddleOfACaptureGoesBack) {
    for (const bool byHand : {false, true}) {
        RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "3000");
        stage.startAutomatically();
        stage.loop.advance(1000);
        if (byHand) {
            stage.controls.mousePressed(ui::MouseButton::Left);
        }
        stage.key(VK_RIGHT);
        stage.loop.advance(150);
        ASSERT_EQ(stage.video.videoShowing, 1);
        keyInTheCapture(stage, VK_LEFT);
        if (byHand) {
            stage.key(VK_RIGHT);
        }
        stage.loop.advance(3100);
        EXPECT_EQ(stage.state.pictureIndex, 0) << byHand;
        EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"a.jpg")) << byHand;
    }
}

TEST(VideoByHand, LeftInTheCaptureOfTheFirstItemDoesNothing) {
    RoadStage stage({L"a.mpg", L"b.jpg", L"c.jpg"}, "1500");
    stage.startAutomatically();
    keyInTheCapture(stage, VK_LEFT);
    stage.loop.advance(1700);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"b.jpg"));
}

TEST(VideoByHand, LeftInTheCaptureOfTheLastItemGoesBackIntoTheShow) {
    RoadStage stage({L"a.jpg", L"b.mpg"}, "3000");
    stage.startAutomatically();
    stage.loop.advance(5001);
    keyInTheCapture(stage, VK_LEFT);
    stage.loop.advance(3100);
    EXPECT_FALSE(stage.EOT.visible());
    EXPECT_EQ(stage.state.pictureIndex, 0);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"a.jpg"));
}

TEST(VideoByHand, ABlankDoesNotTakeAnAskedStepBack) {
    for (const int key : {VK_RIGHT, VK_LEFT}) {
        RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "10000");
        stage.startAutomatically();
        stage.loop.advance(1000);
        stage.controls.mousePressed(ui::MouseButton::Left);
        stage.key(VK_RIGHT);
        stage.loop.advance(150);
        ASSERT_EQ(stage.video.videoShowing, 1);
        stage.key(key);
        stage.type(L' ');
        stage.loop.advance(150);
        EXPECT_EQ(stage.state.pictureIndex, key == VK_RIGHT ? 2 : 0);
        EXPECT_EQ(stage.state.showMode, show::kAutomatically);
    }
}

}  // namespace
}  // namespace media
