// Every road into a video of the show and out of it, by the commands that are sent on the way.
#include <gmock/gmock.h>

#include "show/step_rule.h"
#include "support/video_road.h"

namespace media {
namespace {

using support::FakePictures;
using support::VideoStage;
using testing::ElementsAreArray;
using testing::IsEmpty;

using namespace support::road;

TEST(VideoRoads, BetweenTwoPictures) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "3000");
    stage.startAutomatically();
    stage.loop.advance(5001);
    EXPECT_THAT(stage.log(), ElementsAreArray(opened("b.mpg") + kArmed));
    stage.loop.advance(3000);
    EXPECT_THAT(stage.log(), ElementsAreArray(kCaptured));
    stage.loop.advance(5000);
    EXPECT_THAT(stage.log(), IsEmpty());
}

TEST(VideoRoads, BetweenTwoPicturesWithSoundAndMusic) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "8000");
    stage.startWithSound();
    stage.loop.advance(5001);
    EXPECT_THAT(stage.log(), ElementsAreArray(opened("b.mpg") + kArmedWithSound + kToVideo));
    stage.loop.advance(8000);
    EXPECT_THAT(stage.log(), ElementsAreArray(kToMusic + kCaptured));
}

TEST(VideoRoads, WithSoundButWithoutMusicNothingComesBack) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "8000");
    stage.MUTE.setValue(1);
    stage.startAutomatically();
    stage.loop.advance(5001);
    EXPECT_THAT(stage.log(), ElementsAreArray(opened("b.mpg") + kArmedWithSound + kToVideo));
    stage.loop.advance(8000);
    EXPECT_THAT(stage.log(), ElementsAreArray(kCaptured));
}

TEST(VideoRoads, AShortOneFadesWhenItIsCaptured) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "1500");
    stage.startWithSound();
    stage.loop.advance(5001);
    EXPECT_FALSE(stage.Timer4.enabled());
    EXPECT_THAT(stage.log(), ElementsAreArray(opened("b.mpg") + kArmedWithSound + kToVideo));
    stage.loop.advance(1500);
    EXPECT_THAT(stage.log(), ElementsAreArray(kToMusic + kCaptured));
}

TEST(VideoRoads, AsTheFirstItem) {
    RoadStage stage({L"a.mpg", L"b.jpg"}, "3000");
    stage.show.start();
    EXPECT_THAT(stage.log(), ElementsAreArray(kClosed + opened("a.mpg") + kStopped));
    stage.loop.advance(20'000);
    EXPECT_THAT(stage.log(), IsEmpty()) << "it waits for the key";
    stage.type(L' ');
    EXPECT_THAT(stage.log(), ElementsAreArray(kSilent + kArmed + kPlay));
    stage.loop.advance(3001);
    EXPECT_THAT(stage.log(), ElementsAreArray(kCaptured));
}

TEST(VideoRoads, AsTheFirstItemWithSoundAndMusic) {
    RoadStage stage({L"a.mpg", L"b.jpg"}, "6000");
    stage.withMusic();
    stage.MUTE.setValue(1);
    stage.show.start();
    EXPECT_THAT(stage.log(), ElementsAreArray(kClosed + opened("a.mpg") + kStopped + kToVideo));
    stage.loop.advance(100);
    stage.type(L' ');
    EXPECT_THAT(stage.log(), ElementsAreArray(kSilent + kArmedWithSound + kPlay + kVideoIn));
    stage.loop.advance(6001);
    EXPECT_THAT(stage.log(), ElementsAreArray(kToMusic + kCaptured));
}

TEST(VideoRoads, FromTheFirstItemByHand) {
    for (const int road : {0, 1, 2, 3}) {
        RoadStage stage({L"a.mpg", L"b.jpg"}, "3000");
        stage.show.start();
        stage.loop.advance(600);  // the time of a double click
        stage.log();
        switch (road) {
            case 0:
                stage.key(VK_RIGHT);
                break;
            case 1:
                stage.key(VK_UP);
                break;
            case 2:
                stage.controls.mousePressed(ui::MouseButton::Left);
                break;
            default:
                stage.controls.mousePressed(ui::MouseButton::Right);
                break;
        }
        stage.loop.advance(150);
        EXPECT_THAT(stage.log(), ElementsAreArray(kCaptured)) << road;
        EXPECT_EQ(stage.state.pictureIndex, 1) << road;
    }
}

TEST(VideoRoads, AsTheLastItem) {
    RoadStage stage({L"a.jpg", L"b.mpg"}, "8000");
    stage.startWithSound();
    stage.loop.advance(5001);
    EXPECT_THAT(stage.log(), ElementsAreArray(opened("b.mpg") + kArmedWithSound + kToVideo));
    stage.loop.advance(20'000);
    ASSERT_TRUE(stage.show.atEnd());
    EXPECT_THAT(stage.log(), ElementsAreArray(kToMusic + kCaptured + kMusicOut));
}

TEST(VideoRoads, AsTheOnlyItem) {
    RoadStage stage({L"a.mpg"}, "3000");
    stage.startAutomatically();
    stage.loop.advance(10'000);
    EXPECT_TRUE(stage.show.atEnd());
    EXPECT_THAT(stage.log(), ElementsAreArray(kCaptured));
    EXPECT_EQ(stage.shown() & 0x00FFFFFFU, VideoStage::kFrame);
}

TEST(VideoRoads, AsTheOnlyItemOfAnEndlessShow) {
    RoadStage stage({L"a.mpg"}, "3000");
    stage.LoopC.setValue(1);
    stage.startAutomatically();
    stage.loop.advance(3001);
    EXPECT_THAT(stage.log(), ElementsAreArray(kCaptured + opened("a.mpg") + kArmed));
    stage.loop.advance(3001);
    EXPECT_THAT(stage.log(), ElementsAreArray(kCaptured + opened("a.mpg") + kArmed));
    EXPECT_EQ(stage.state.pictureIndex, 0);
    EXPECT_FALSE(stage.show.atEnd());
}

TEST(VideoRoads, FromTheLastToTheFirstOfAnEndlessShow) {
    RoadStage stage({L"a.jpg", L"b.mpg"}, "3000");
    stage.LoopC.setValue(1);
    stage.startAutomatically();
    stage.loop.advance(8002);
    EXPECT_THAT(stage.log(), ElementsAreArray(opened("b.mpg") + kArmed + kCaptured));
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"a.jpg"));
}

TEST(VideoRoads, TwoInARow) {
    RoadStage stage({L"a.mpg", L"b.mpg", L"c.jpg"}, "8000");
    stage.startWithSound();
    stage.loop.advance(8000);
    EXPECT_THAT(stage.log(),
                ElementsAreArray(kToMusic + kCaptured + opened("b.mpg") + kArmedWithSound + kToVideo));
    stage.loop.advance(8000);
    EXPECT_THAT(stage.log(), ElementsAreArray(kToMusic + kCaptured));
}

TEST(VideoRoads, HaltedByALeftClickAndResumed) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "20000");
    stage.startWithSound();
    stage.loop.advance(10'000);
    stage.log();
    stage.controls.mousePressed(ui::MouseButton::Left);
    EXPECT_THAT(stage.log(), ElementsAreArray(kStopped));
    stage.loop.advance(60'000);
    EXPECT_THAT(stage.log(), IsEmpty());
    stage.type(L' ');
    EXPECT_THAT(stage.log(), ElementsAreArray(kSilent + kPlay + kVideoIn));
    EXPECT_TRUE(stage.Timer4.enabled());
    EXPECT_EQ(stage.Timer4.interval(), stage.Timer1.interval() - 2000);
    stage.loop.advance(stage.Timer1.interval());
    EXPECT_THAT(stage.log(), ElementsAreArray(kToMusic + kCaptured));
}

TEST(VideoRoads, HaltedAndLeft) {
    for (const bool back : {false, true}) {
        RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "20000");
        stage.startAutomatically();
        stage.loop.advance(7000);
        stage.controls.mousePressed(ui::MouseButton::Left);
        stage.log();
        stage.key(back ? VK_LEFT : VK_RIGHT);
        stage.loop.advance(150);
        EXPECT_THAT(stage.log(), ElementsAreArray(kCaptured)) << back;
        EXPECT_EQ(stage.state.pictureIndex, back ? 0 : 2);
        EXPECT_EQ(stage.state.showMode, show::kByHand);
    }
}

TEST(VideoRoads, LeftByTheMouse) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "20000");
    stage.startAutomatically();
    stage.loop.advance(7000);
    stage.log();
    stage.controls.mousePressed(ui::MouseButton::Right);
    stage.loop.advance(150);
    EXPECT_THAT(stage.log(), ElementsAreArray(kCaptured));
    EXPECT_EQ(stage.state.pictureIndex, 2);
}

struct KeyRoad {
    wchar_t character;  ///< typed, or 0
    int key;            ///< pressed where nothing is typed
    int index;          ///< of the item shown soon after
};

class KeysOnAVideo : public testing::TestWithParam<KeyRoad> {};

TEST_P(KeysOnAVideo, EndIt) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "60000");
    stage.startAutomatically();
    stage.loop.advance(7000);
    stage.log();
    if (GetParam().character != 0) {
        stage.type(GetParam().character);
    } else {
        stage.key(GetParam().key);
    }
    const Log volumes = GetParam().character == L'+'   ? Log{"volume AUDIO 220..220"}
                        : GetParam().character == L'-' ? Log{"volume AUDIO 180..180"}
                        : GetParam().character == L'.' ? Log{"volume AUDIO 0..0"}
                                                       : Log{};
    EXPECT_THAT(stage.log(), ElementsAreArray(kClosed + volumes));
    EXPECT_EQ(stage.shown(), 0U) << "the surface is cleared";
    EXPECT_EQ(stage.video.videoShowing, 0);
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, GetParam().index);
    stage.loop.advance(3000);
    EXPECT_THAT(stage.log(), IsEmpty()) << "nothing is captured from a closed device";
}

INSTANTIATE_TEST_SUITE_P(Each, KeysOnAVideo,
                         testing::Values(KeyRoad{0, VK_RIGHT, 2}, KeyRoad{0, VK_LEFT, 0},
                                         KeyRoad{0, VK_UP, 2}, KeyRoad{0, VK_DOWN, 1}, KeyRoad{L' ', 0, 2},
                                         KeyRoad{L'5', 0, 2}, KeyRoad{L'c', 0, 2}, KeyRoad{L'#', 0, 2},
                                         KeyRoad{L'?', 0, 2}, KeyRoad{L'+', 0, 2}, KeyRoad{L'-', 0, 2},
                                         KeyRoad{L'.', 0, 2}));

TEST(VideoRoads, EnterLeavesItAlone) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "60000");
    stage.startAutomatically();
    stage.loop.advance(7000);
    stage.log();
    stage.type(L'\r');
    stage.loop.advance(1000);
    EXPECT_THAT(stage.log(), IsEmpty());
    EXPECT_EQ(stage.video.videoShowing, 1);
}

TEST(VideoRoads, EscapeClosesItAndNothingFollows) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "60000");
    stage.startWithSound();
    stage.loop.advance(7000);
    stage.log();
    stage.type(27);
    EXPECT_THAT(stage.log(), ElementsAreArray(kClosed));
    EXPECT_EQ(stage.ends, 1);
    stage.loop.advance(60'000);
    EXPECT_THAT(stage.log(), IsEmpty());
}

TEST(VideoRoads, APausedShowPlaysItAndWaitsOnItsLastFrame) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "4000");
    stage.startAutomatically();
    stage.key(VK_DOWN);
    stage.key(VK_RIGHT);
    stage.loop.advance(150);
    EXPECT_THAT(stage.log(), ElementsAreArray(opened("b.mpg") + kArmed));
    stage.loop.advance(60'000);
    EXPECT_THAT(stage.log(), IsEmpty());
    EXPECT_EQ(stage.state.pictureIndex, 1);
}

TEST(VideoRoads, MusicComesBackAfterAKeyButNotInTheMiddleOfATransition) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "60000");
    stage.startWithSound();
    stage.loop.advance(10'000);
    stage.log();
    stage.Check1.setValue(1);
    stage.runner.effectNumber = 4;  // four seconds
    stage.key(VK_RIGHT);
    bool seen = false;
    stage.loop.at(3000, [&] {
        seen = true;
        EXPECT_TRUE(stage.runner.running());
        EXPECT_THAT(stage.log(), ElementsAreArray(kClosed)) << "not yet";
    });
    stage.loop.advance(6000);
    EXPECT_TRUE(seen);
    EXPECT_THAT(stage.log(), ElementsAreArray(kToMusic));
    stage.loop.advance(4000);
    EXPECT_FALSE(stage.Timer4.enabled());
}

TEST(VideoRoads, MusicComesBackWhereAKeyLeavesTheShowPaused) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "60000");
    stage.startWithSound();
    stage.loop.advance(10'000);
    stage.log();
    stage.key(VK_DOWN);
    stage.loop.advance(2000);
    EXPECT_THAT(stage.log(), ElementsAreArray(kClosed + kToMusic));
}

TEST(VideoRoads, MusicDoesNotComeBackBetweenTwoVideos) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.mpg"}, "60000");
    stage.startWithSound();
    stage.loop.advance(10'000);
    stage.log();
    stage.key(VK_RIGHT);
    const auto paint = stage.control.onSend;
    stage.control.onSend = [&](const std::string& command) {
        paint(command);
        if (command.rfind("open ", 0) == 0) {
            stage.loop.sleep(400);  // a large file on a slow disk
        }
    };
    stage.loop.advance(3000);
    EXPECT_THAT(stage.log(), ElementsAreArray(kClosed + opened("c.mpg") + kArmedWithSound + kToVideo));
}

TEST(VideoRoads, MusicThatWasStoppedStaysSilent) {
    RoadStage stage({L"a.jpg", L"b.mpg"}, "8000");
    stage.withMusic();
    stage.MUTE.setValue(1);
    stage.IntS.setValue(41);  // 20 seconds, longer than the fade
    stage.startAutomatically();
    stage.loop.advance(2500);
    stage.music.musicRequest = L"<";
    stage.player.request();
    stage.loop.advance(10'000);
    ASSERT_EQ(stage.Musik.value(), 2);
    stage.loop.advance(8000);
    ASSERT_EQ(stage.video.videoShowing, 1);
    stage.log();
    stage.loop.advance(20'000);
    ASSERT_TRUE(stage.show.atEnd());
    EXPECT_THAT(stage.log(), ElementsAreArray(kCaptured)) << "neither comes back nor fades out";
}

// A film that cannot be played has the length 0.
TEST(VideoWithoutALength, AsTheFirstItem) {
    RoadStage stage({L"a.mpg", L"b.jpg"}, "");
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, 1);
}

TEST(VideoWithoutALength, BetweenTwoPictures) {
    RoadStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "");
    stage.MUTE.setValue(1);
    stage.startAutomatically();
    stage.loop.advance(5001);
    EXPECT_THAT(stage.log(), ElementsAreArray(opened("b.mpg") + kArmedWithSound)) << "no fade holds it up";
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, 2);
}

TEST(VideoWithoutALength, AsTheLastItem) {
    RoadStage stage({L"a.jpg", L"b.mpg"}, "");
    stage.startAutomatically();
    stage.loop.advance(5001 + 150 + 1500);
    EXPECT_TRUE(stage.show.atEnd());
}

TEST(VideoWithoutALength, AsTheOnlyItemOfAnEndlessShow) {
    RoadStage stage({L"a.mpg"}, "");
    stage.LoopC.setValue(1);
    stage.startAutomatically();
    stage.loop.advance(1000);
    EXPECT_FALSE(stage.show.atEnd());
    const Log log = stage.log();
    EXPECT_GE(std::count(log.begin(), log.end(), "play VIDEO"), 5) << "goes round and round";
    stage.type(27);
    EXPECT_EQ(stage.ends, 1);
}

}  // namespace
}  // namespace media
