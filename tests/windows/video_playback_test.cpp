#include "media/video_playback.h"

#include <gmock/gmock.h>

#include "show/step_rule.h"
#include "support/video_stage.h"

namespace media {
namespace {

using support::FakePictures;
using support::VideoStage;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

TEST(OpenAndPlayVideo, SendsItsCommandsInOrder) {
    VideoStage stage({L"Mein Film.mpg"}, "3000");
    stage.Pic2.movePixels(0, 0, 160, 120);
    stage.video.OpenAndPlayVideo(stage.pathOf(L"Mein Film.mpg"));
    const auto commands = stage.control.take();
    ASSERT_EQ(commands.size(), 6U);
    EXPECT_EQ(commands[0], "stop VIDEO");
    EXPECT_EQ(commands[1], "close VIDEO");
    EXPECT_THAT(commands[2], StartsWith("open "));
    EXPECT_THAT(commands[2], HasSubstr(stage.openCommand()));
    EXPECT_THAT(commands[2].substr(5, commands[2].find(" alias") - 5), testing::Not(HasSubstr(" ")))
        << "the short path has no blanks";
    EXPECT_EQ(commands[3], "set VIDEO audio all off");
    EXPECT_EQ(commands[4], " put VIDEO window at 0 0 160 120") << "with its leading blank";
    EXPECT_EQ(commands[5], "play VIDEO");
}

TEST(OpenAndPlayVideo, FractionOfAPixelIsSentAsDecimal) {
    VideoStage stage({L"a.mpg"}, "3000");
    stage.Pic2.move({0, 0, 1507.5F, 1500});
    stage.video.OpenAndPlayVideo(stage.pathOf(L"a.mpg"));
    EXPECT_THAT(stage.control.commands(), testing::Contains(" put VIDEO window at 0 0 100.5 100"));
}

TEST(ArmVideoLength, SetsTheTimerAndTheSound) {
    VideoStage stage({L"a.mpg"}, "2345");
    stage.MUTE.setValue(1);
    stage.video.ArmVideoLength();
    EXPECT_THAT(stage.control.sent(),
                ElementsAre(support::RecordingMediaControl::Sent{"set VIDEO time format milliseconds", 0},
                            support::RecordingMediaControl::Sent{"status VIDEO length", 128},
                            support::RecordingMediaControl::Sent{"set VIDEO audio all on", 0}));
    EXPECT_EQ(stage.Timer1.interval(), 2345);
}

TEST(ArmVideoLength, StaysSilentWithoutMuteAndReadsNoReplyAsZero) {
    VideoStage stage({L"a.mpg"}, "");
    stage.video.ArmVideoLength();
    EXPECT_EQ(stage.Timer1.interval(), 0);
    EXPECT_THAT(stage.control.commands(), testing::Not(testing::Contains("set VIDEO audio all on")));
}

TEST(CaptureLastFrameAndClose, FreezesTheFrameBehindACover) {
    VideoStage stage({L"a.mpg", L"b.jpg"}, "5000");
    stage.startAutomatically();
    std::vector<std::string> events;
    const auto draw = stage.control.onSend;
    stage.control.onSend = [&](const std::string& command) {
        draw(command);
        if (command == "close VIDEO") {
            EXPECT_TRUE(stage.Pic3.visible()) << "the cover hides the surface while the device closes";
            EXPECT_FALSE(stage.Pic2.visible());
        }
    };
    stage.video.CaptureLastFrameAndClose();
    EXPECT_EQ(stage.video.videoShowing, 0);
    EXPECT_EQ(stage.shown() & 0x00FFFFFFU, VideoStage::kFrame);
    EXPECT_TRUE(stage.Pic2.visible());
    EXPECT_FALSE(stage.Pic3.visible());
    EXPECT_EQ(stage.Pic1.clientSize().cx, 32) << "the film's own size";
    EXPECT_EQ(stage.Pic1.clientSize().cy, 24);
    const auto commands = stage.takeWithoutFades();
    ASSERT_EQ(commands.size(), 4U);
    EXPECT_EQ(commands[0], "where VIDEO source");
    EXPECT_THAT(commands[1], StartsWith("update VIDEO hdc "));
    EXPECT_EQ(commands[2], "stop VIDEO");
    EXPECT_EQ(commands[3], "close VIDEO");
}

TEST(VideoInTheShow, PlaysForItsLengthAndItsLastFrameIsTheNextOldPicture) {
    VideoStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "4000");
    stage.startAutomatically();
    stage.loop.advance(5001);
    EXPECT_EQ(stage.video.videoShowing, 1);
    EXPECT_EQ(stage.Timer1.interval(), 4000);
    EXPECT_EQ(stage.Timer4.interval(), 2000);
    stage.Check1.setValue(1);
    stage.runner.effectNumber = 2;
    bool seen = false;
    stage.loop.at(4000 + 500, [&] {
        seen = true;
        EXPECT_TRUE(stage.runner.running());
        EXPECT_EQ(stage.shown() & 0x00FFFFFFU, VideoStage::kFrame);
    });
    stage.loop.advance(9000);
    EXPECT_TRUE(seen);
    EXPECT_EQ(stage.state.pictureIndex, 2);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"c.jpg"));
    EXPECT_EQ(stage.video.videoShowing, 0);
}

TEST(VideoInTheShow, ScriptEntriesAreNotApplied) {
    VideoStage stage({L"a.jpg", L"b.mpg"}, "4000");
    stage.writeScript("b Titel *P=1 *E=C *M=Lied\r\n");
    stage.Musik.setValue(1);
    stage.startAutomatically();
    stage.loop.advance(5100);
    EXPECT_EQ(stage.video.videoShowing, 1);
    EXPECT_FALSE(stage.UT.visible());
    EXPECT_EQ(stage.Timer1.interval(), 4000);
    EXPECT_EQ(stage.runner.effectNumber, 0);
    EXPECT_TRUE(stage.music.musicRequest.empty());
}

TEST(VideoInTheShow, LengthOfZeroGoesOn) {
    VideoStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "");
    stage.startAutomatically();
    stage.loop.advance(5300);
    EXPECT_EQ(stage.state.pictureIndex, 2);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"c.jpg"));
}

TEST(VideoInTheShow, KeyWhileItOpensLeadsToTheNextItem) {
    VideoStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "4000");
    stage.startAutomatically();
    const auto draw = stage.control.onSend;
    stage.control.onSend = [&](const std::string& command) {
        draw(command);
        if (command == "play VIDEO") {
            stage.control.replyTo("status VIDEO length", "");
            stage.key(VK_RIGHT);
        }
    };
    stage.loop.advance(5300);
    EXPECT_EQ(stage.state.pictureIndex, 2);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"c.jpg"));
    EXPECT_TRUE(stage.Timer1.enabled());
    EXPECT_EQ(stage.Timer1.interval(), 5000);
}

TEST(VideoInTheShow, TwoInARow) {
    VideoStage stage({L"a.mpg", L"b.mpg", L"c.jpg"}, "3000");
    stage.startAutomatically();
    stage.loop.advance(3050);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    EXPECT_EQ(stage.video.videoShowing, 1);
    const auto commands = stage.takeWithoutFades();
    EXPECT_EQ(std::count(commands.begin(), commands.end(), "play VIDEO"), 1);
    stage.loop.advance(3050);
    EXPECT_EQ(stage.state.pictureIndex, 2);
}

TEST(VideoInTheShow, LastItemKeepsItsLastFrameUnderTheEndButton) {
    VideoStage stage({L"a.jpg", L"b.mpg"}, "3000");
    stage.startAutomatically();
    stage.loop.advance(10'000);
    EXPECT_TRUE(stage.show.atEnd());
    EXPECT_EQ(stage.video.videoShowing, 0);
    EXPECT_EQ(stage.shown() & 0x00FFFFFFU, VideoStage::kFrame);
    EXPECT_TRUE(stage.EOT.visible());
}

TEST(VideoInTheShow, FirstItemWaitsAndIsArmedByTheBlank) {
    VideoStage stage({L"a.mpg", L"b.jpg"}, "3000");
    stage.show.start();
    EXPECT_EQ(stage.state.showMode, show::kByHand);
    EXPECT_EQ(stage.takeWithoutFades().back(), "stop VIDEO");
    stage.loop.advance(20'000);
    EXPECT_EQ(stage.state.pictureIndex, 0);
    stage.control.clear();
    stage.type(L' ');
    const auto commands = stage.control.commands();
    EXPECT_EQ(commands.front(), "setaudio VIDEO volume to 0");
    EXPECT_THAT(commands, testing::Contains("status VIDEO length"));
    EXPECT_THAT(commands, testing::Contains("play VIDEO"));
    EXPECT_EQ(stage.Timer1.interval(), 3000);
    EXPECT_EQ(stage.Timer4.interval(), 1000);
    EXPECT_TRUE(stage.Timer4.enabled());
    stage.loop.advance(3300);
    EXPECT_EQ(stage.state.pictureIndex, 1);
}

TEST(VideoInTheShow, LeftClickHaltsAndBlankResumesWithWholeSeconds) {
    VideoStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "6000");
    stage.startAutomatically();
    stage.loop.advance(5000);
    stage.loop.advance(1700);
    stage.control.clear();
    stage.controls.mousePressed(ui::MouseButton::Left);
    EXPECT_THAT(stage.control.take(), ElementsAre("stop VIDEO"));
    EXPECT_FALSE(stage.Timer1.enabled());
    EXPECT_FALSE(stage.Timer4.enabled());
    stage.loop.advance(60'000);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    stage.type(L' ');
    EXPECT_THAT(stage.control.take(), ElementsAre("setaudio VIDEO volume to 0", "play VIDEO"));
    EXPECT_EQ(stage.Timer1.interval(), 5000) << "4.3 s were left";
}

TEST(VideoInTheShow, KeyEndsItAndTheShowGoesOn) {
    VideoStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "60000");
    stage.startAutomatically();
    stage.loop.advance(5001);
    stage.control.clear();
    stage.runner.currentEffect = 7;
    stage.key(VK_RETURN);
    EXPECT_TRUE(stage.control.commands().empty()) << "Enter does not end a video";
    stage.key('Q');
    EXPECT_THAT(stage.control.take(), ElementsAre("stop VIDEO", "close VIDEO"));
    EXPECT_EQ(stage.video.videoShowing, 0);
    EXPECT_EQ(stage.runner.currentEffect, 0);
    EXPECT_EQ(stage.shown(), 0U);
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, 2);
    EXPECT_THAT(stage.control.commands(), testing::Not(testing::Contains("where VIDEO source")));
}

TEST(VideoInTheShow, DownLeavesTheShowPaused) {
    VideoStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "60000");
    stage.startAutomatically();
    stage.loop.advance(5001);
    stage.key(VK_DOWN);
    stage.loop.advance(30'000);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    EXPECT_EQ(stage.video.videoShowing, 0);
    stage.key(VK_UP);
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, 2);
}

TEST(VideoInTheShow, LeftAndRightAcrossIt) {
    VideoStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "60000");
    stage.startAutomatically();
    stage.key(VK_RIGHT);
    stage.loop.advance(150);
    ASSERT_EQ(stage.video.videoShowing, 1);
    stage.key(VK_LEFT);
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, 0);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"a.jpg"));
    stage.key(VK_RIGHT);
    stage.loop.advance(150);
    EXPECT_EQ(stage.video.videoShowing, 1);
    stage.key(VK_RIGHT);
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, 2);
}

TEST(VideoInTheShow, EscapeEndsTheShow) {
    VideoStage stage({L"a.jpg", L"b.mpg"}, "60000");
    stage.startAutomatically();
    stage.loop.advance(5001);
    stage.type(27);
    EXPECT_EQ(stage.ends, 1);
    EXPECT_EQ(stage.state.showMode, show::kNoShow);
}

TEST(Ramps, MusicFallsWhileTheVideoRises) {
    VideoStage stage({L"a.mpg"}, "3000");
    stage.music.musicVolume = 200;
    stage.video.RampToVideo();
    const auto commands = stage.control.take();
    EXPECT_EQ(commands.size(), 501U + 201U);
    EXPECT_EQ(commands[0], "setaudio VIDEO volume to 0");
    EXPECT_EQ(commands[1], "setaudio AUDIO volume to 200");
    EXPECT_EQ(commands.back(), "setaudio VIDEO volume to 500");
    EXPECT_DOUBLE_EQ(stage.loop.slept(), 501 * 4);
    stage.video.RampToMusic();
    const auto back = stage.control.take();
    EXPECT_EQ(back.size(), 501U + 200U);
    EXPECT_EQ(back[0], "setaudio VIDEO volume to 500");
    EXPECT_EQ(back[1], "setaudio AUDIO volume to 0");
    EXPECT_EQ(back.back(), "setaudio VIDEO volume to 0");
    EXPECT_DOUBLE_EQ(stage.loop.slept(), 501 * 4 + 501 * 2);
}

// A title that had come up just before would stand half painted for as long as the fade takes.
TEST(Ramps, WhatIsNewIsPaintedBeforeThem) {
    VideoStage stage({L"a.mpg"}, "3000");
    stage.form.show();
    stage.UT.show();
    stage.loop.settle();
    InvalidateRect(stage.UT.hwnd(), nullptr, FALSE);
    ASSERT_TRUE(GetUpdateRect(stage.UT.hwnd(), nullptr, FALSE));
    bool waits = true;
    stage.control.onSend = [&](const std::string& command) {
        if (command == "setaudio VIDEO volume to 0") {
            waits = GetUpdateRect(stage.UT.hwnd(), nullptr, FALSE) != FALSE;
        }
    };
    stage.video.RampToVideo();
    EXPECT_FALSE(waits);
}

TEST(Ramps, LoudMusicIsNotSilencedWhole) {
    VideoStage stage({L"a.mpg"}, "3000");
    stage.music.musicVolume = 600;
    stage.video.RampToVideo();
    const auto commands = stage.control.take();
    EXPECT_THAT(commands, testing::Contains("setaudio AUDIO volume to 100"));
    EXPECT_THAT(commands, testing::Not(testing::Contains("setaudio AUDIO volume to 99")));
}

TEST(Ramps, MusicComesBackTwoSecondsBeforeTheEnd) {
    VideoStage stage({L"a.jpg", L"b.mpg", L"c.jpg"}, "8000");
    stage.music.musicList = {L"01 Lied.mp3"};
    stage.Musik.setValue(1);
    stage.MUTE.setValue(1);
    stage.startAutomatically();
    stage.loop.advance(5001);  // the fade into the video takes two seconds more
    stage.loop.advance(3000);
    stage.control.clear();
    stage.loop.advance(900);
    EXPECT_TRUE(stage.control.commands().empty()) << "not yet";
    stage.loop.advance(1500);
    EXPECT_THAT(stage.control.commands(), testing::Contains("setaudio AUDIO volume to 199"));
    EXPECT_EQ(stage.state.pictureIndex, 1);
}

// Some devices make their window when they open the film, some when they play it.
TEST(OpenAndPlayVideo, DisablesTheFilmsWindow) {
    for (const std::string makes : {"open ", "play "}) {
        VideoStage stage({L"a.mpg"}, "3000");
        HWND film = nullptr;
        bool seen = false;
        const auto paint = stage.control.onSend;
        stage.control.onSend = [&](const std::string& command) {
            paint(command);
            if (command.rfind("set VIDEO audio", 0) == 0 && film != nullptr) {
                seen = IsWindowEnabled(film) != FALSE;
            }
            if (command.rfind(makes, 0) == 0) {
                film = CreateWindowExW(0, L"Static", L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10,
                                       stage.Pic2.hwnd(), nullptr, nullptr, nullptr);
            }
        };
        stage.video.OpenAndPlayVideo(stage.pathOf(L"a.mpg"));
        ASSERT_NE(film, nullptr) << makes;
        EXPECT_FALSE(IsWindowEnabled(film)) << makes << ": clicks are the show's";
        EXPECT_FALSE(seen) << "and it takes none while it is made ready";
        DestroyWindow(film);
    }
}

TEST(OpenAndPlayVideo, PlacesTheFilmWithoutTheBlankWhereThatIsRefused) {
    VideoStage stage({L"a.mpg"}, "3000");
    stage.Pic2.movePixels(0, 0, 160, 120);
    stage.control.replyTo(" put VIDEO window at 0 0 160 120", "", 261);
    stage.video.OpenAndPlayVideo(stage.pathOf(L"a.mpg"));
    const auto commands = stage.control.commands();
    ASSERT_EQ(commands.size(), 7U);
    EXPECT_EQ(commands[4], " put VIDEO window at 0 0 160 120");
    EXPECT_EQ(commands[5], "put VIDEO window at 0 0 160 120");
    EXPECT_EQ(commands[6], "play VIDEO");
}

}  // namespace
}  // namespace media
