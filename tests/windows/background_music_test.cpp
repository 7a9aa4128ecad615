#include "media/background_music.h"

#include <gmock/gmock.h>

#include "media/music_list.h"
#include "support/show_stage.h"

namespace media {
namespace {

using support::ShowStage;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// A stage with three titles whose files exist, and the rotation about to tick.
struct MusicStage : ShowStage {
    explicit MusicStage(const std::vector<std::wstring>& titles = {L"01 Eins.mp3", L"02 Zwei.mp3",
                                                                   L"Drei.mp3"})
        : ShowStage({L"a.jpg"}) {
        for (const std::wstring& title : titles) {
            support::writeBytes(folder.file(title), {'x'});
        }
        music.musicList = musicEntries(titles);
        music.musicFolder = folderPath() + L"\\";
        Musik.setValue(1);
        control.replyTo("status AUDIO length", "180000");
        loop.setTimeOfDay(50'000);
    }
    void tick() {
        Timer5.setInterval(1);
        Timer5.setEnabled(true);
        loop.advance(2);
    }
    /// The first title gives way to a requested one, and a film with sound begins while it fades.
    void filmBeginsDuringTheFade() {
        MUTE.setValue(1);
        tick();
        control.clear();
        music.musicRequest = L"Drei";
        player.request();
        loop.at(1000, [this] { video.videoShowing = 1; });
        loop.advance(20'000);
    }
    /// The file name that the last "open" named, by its long name.
    std::wstring opened() {
        for (const std::string& command : control.commands()) {
            if (command.rfind("open ", 0) == 0) {
                const std::string path = command.substr(5, command.rfind(" alias") - 5);
                wchar_t longPath[MAX_PATH]{};
                GetLongPathNameW(std::wstring(path.begin(), path.end()).c_str(), longPath, MAX_PATH);
                const std::wstring text = longPath;
                last_ = text.substr(text.rfind(L'\\') + 1);
            }
        }
        return last_;
    }

  private:
    std::wstring last_;
};

TEST(MusicRotation, PlaysATitleWithItsCommandsInOrder) {
    MusicStage stage;
    stage.tick();
    const auto commands = stage.control.commands();
    ASSERT_EQ(commands.size(), 7U);
    EXPECT_EQ(commands[0], "stop AUDIO");
    EXPECT_EQ(commands[1], "close AUDIO");
    EXPECT_THAT(commands[2], testing::AllOf(testing::StartsWith("open "), testing::EndsWith(" alias AUDIO")));
    EXPECT_EQ(commands[3], "set AUDIO time format milliseconds");
    EXPECT_EQ(commands[4], "status AUDIO length");
    EXPECT_EQ(commands[5], "setaudio AUDIO volume to 200");
    EXPECT_EQ(commands[6], "play AUDIO");
    EXPECT_EQ(stage.opened(), L"01 Eins.mp3");
    EXPECT_EQ(stage.Timer5.interval(), 2000);
    EXPECT_EQ(stage.music.musicIndex, 1);
    EXPECT_EQ(stage.music.musicEndTime, 50'000 + 180'000 + 2)
        << "milliseconds count as seconds here, on purpose";
}

TEST(MusicRotation, WaitsUntilTheEndTime) {
    MusicStage stage;
    stage.tick();
    stage.control.clear();
    stage.loop.advance(60'000);
    EXPECT_TRUE(stage.control.commands().empty());
    stage.music.musicEndTime = 0;
    stage.loop.advance(2000);
    EXPECT_EQ(stage.opened(), L"02 Zwei.mp3");
}

TEST(MusicRotation, WithoutALengthTheNextFollowsAfterTwoSeconds) {
    MusicStage stage;
    stage.control.replyTo("status AUDIO length", "");
    stage.tick();
    stage.loop.advance(2100);
    EXPECT_EQ(stage.music.musicIndex, 2);
}

TEST(MusicRotation, SkipsLockedTitles) {
    MusicStage stage({L"01 Eins.mp3", L"99 Zu.mp3", L"Drei.mp3"});
    stage.music.musicIndex = 1;
    stage.tick();
    EXPECT_EQ(stage.opened(), L"Drei.mp3");
    EXPECT_EQ(stage.music.musicIndex, 0);
}

TEST(MusicRotation, AllLockedOpensNothing) {
    MusicStage stage({L"99 Eins.mp3", L"99 Zwei.mp3"});
    stage.tick();
    EXPECT_TRUE(stage.control.commands().empty());
}

TEST(MusicRotation, EmptyListDoesNothing) {
    MusicStage stage(std::vector<std::wstring>{});
    stage.music.musicRequest = L"<";
    stage.tick();
    EXPECT_TRUE(stage.control.commands().empty());
    EXPECT_TRUE(stage.Timer5.enabled());
}

TEST(MusicRequest, FadesOutAndPlaysTheLastMatch) {
    MusicStage stage({L"01 Meer.mp3", L"02 Berg.mp3", L"99 Meer 2.mp3"});
    stage.music.musicRequest = L"Meer";
    stage.player.request();
    stage.loop.advance(6000);
    const auto commands = stage.control.commands();
    EXPECT_EQ(commands[0], "setaudio AUDIO volume to 200");
    EXPECT_EQ(commands[200], "setaudio AUDIO volume to 0");
    EXPECT_EQ(commands[201], "stop AUDIO");
    EXPECT_EQ(stage.opened(), L"99 Meer 2.mp3") << "a locked title may be asked for";
    EXPECT_TRUE(stage.music.musicRequest.empty());
    EXPECT_EQ(stage.Musik.value(), 1);
    EXPECT_DOUBLE_EQ(stage.loop.slept(), 5010);
}

TEST(MusicRequest, StopFadesAndGreysTheBox) {
    MusicStage stage;
    stage.tick();
    stage.control.clear();
    stage.music.musicRequest = L"<";
    stage.player.request();
    stage.loop.advance(6000);
    EXPECT_FALSE(stage.Timer5.enabled());
    EXPECT_EQ(stage.Musik.value(), 2);
    EXPECT_TRUE(stage.music.musicRequest.empty());
    EXPECT_THAT(stage.control.commands(), Not(Contains("stop AUDIO"))) << "the device stays open";
    EXPECT_EQ(stage.control.commands().back(), "setaudio AUDIO volume to 0");
}

TEST(MusicRequest, ATitleWaitsForAVideoThatBeganDuringTheFade) {
    MusicStage stage;
    stage.filmBeginsDuringTheFade();
    EXPECT_THAT(stage.control.commands(), Not(Contains("play AUDIO")));
    EXPECT_TRUE(stage.music.musicRequest.empty());
    stage.video.videoShowing = 0;
    stage.loop.advance(2000);
    EXPECT_EQ(stage.opened(), L"Drei.mp3");
    EXPECT_THAT(stage.control.commands(), Contains("play AUDIO"));
}

TEST(MusicRequest, StopLastsUntilTheNextRequest) {
    MusicStage stage;
    stage.tick();
    EXPECT_TRUE(stage.player.playing());
    stage.music.musicRequest = L"<";
    stage.player.request();
    stage.loop.advance(6000);
    EXPECT_FALSE(stage.player.playing());
    EXPECT_TRUE(stage.player.wanted()) << "another picture may ask for music again";
    stage.music.musicRequest = L"Zwei";
    stage.player.request();
    stage.loop.advance(100);
    EXPECT_TRUE(stage.player.playing());
}

TEST(MusicRequest, AllLockedTakesNoRequestUp) {
    MusicStage stage({L"99 Eins.mp3", L"99 Zwei.mp3"});
    stage.music.musicRequest = L"Zwei";
    stage.player.request();
    stage.loop.advance(6000);
    EXPECT_TRUE(stage.control.commands().empty());
    EXPECT_EQ(stage.music.musicRequest, L"Zwei");
    EXPECT_EQ(stage.Timer5.interval(), 2000);
}

TEST(MusicRequest, LoudMusicFadesAsFarAsTheStepsGo) {
    MusicStage stage;
    stage.music.musicVolume = 600;
    stage.music.musicRequest = L"Zwei";
    stage.player.request();
    stage.loop.advance(6000);
    const auto commands = stage.control.commands();
    EXPECT_EQ(commands[0], "setaudio AUDIO volume to 600");
    EXPECT_EQ(commands[500], "setaudio AUDIO volume to 100");
    EXPECT_EQ(commands[501], "stop AUDIO");
    EXPECT_EQ(commands[commands.size() - 2], "setaudio AUDIO volume to 600");
}

TEST(MusicRequest, GreyedBoxDoesNotFadeButStartsAgain) {
    MusicStage stage;
    stage.Musik.setValue(2);
    stage.music.musicRequest = L"Zwei";
    stage.player.request();
    stage.loop.advance(100);
    EXPECT_EQ(stage.control.commands().front(), "stop AUDIO");
    EXPECT_EQ(stage.opened(), L"02 Zwei.mp3");
    EXPECT_EQ(stage.Musik.value(), 1);
}

TEST(MusicRequest, UnknownTitlePlaysTheNext) {
    MusicStage stage;
    stage.music.musicIndex = 1;
    stage.music.musicRequest = L"Gibt es nicht";
    stage.player.request();
    stage.loop.advance(6000);
    EXPECT_EQ(stage.opened(), L"02 Zwei.mp3");
}

TEST(MusicInTheShow, StartsWithTheShowAndOnlyWhereItIsWanted) {
    MusicStage stage;
    stage.show.start();
    EXPECT_TRUE(stage.Timer5.enabled());
    stage.loop.advance(2001);
    EXPECT_THAT(stage.control.commands(), Contains("play AUDIO"));
    EXPECT_EQ(stage.music.musicIndex, 1);
}

TEST(MusicInTheShow, UntickedBoxMeansSilence) {
    MusicStage stage;
    stage.Musik.setValue(0);
    stage.show.start();
    stage.loop.advance(10'000);
    EXPECT_THAT(stage.control.commands(), Not(Contains(HasSubstr("AUDIO"))));
}

TEST(MusicInTheShow, TickWaitsForATransition) {
    MusicStage stage;
    support::writeBytes(stage.folder.file(L"b.jpg"), {'x'});
    stage.File1.refresh();
    stage.Check1.setValue(1);
    stage.runner.effectNumber = 4;  // four seconds
    stage.show.start();
    stage.key(VK_RIGHT);
    bool seen = false;
    stage.loop.at(3000, [&] {
        seen = true;
        EXPECT_TRUE(stage.runner.running());
        EXPECT_THAT(stage.control.commands(), Not(Contains("play AUDIO")));
    });
    stage.loop.advance(8000);
    EXPECT_TRUE(seen);
    EXPECT_THAT(stage.control.commands(), Contains("play AUDIO"));
}

TEST(MusicRequest, ALockedTitleThatHadToWaitIsPlayedAllTheSame) {
    MusicStage stage({L"01 Eins.mp3", L"99 Zu.mp3", L"99 Auch.mp3", L"Drei.mp3"});
    stage.MUTE.setValue(1);
    stage.tick();
    stage.control.clear();
    stage.music.musicRequest = L"Zu";
    stage.player.request();
    stage.loop.at(1000, [&] { stage.video.videoShowing = 1; });
    stage.loop.advance(20'000);
    EXPECT_THAT(stage.control.commands(), Not(Contains("play AUDIO")));
    stage.video.videoShowing = 0;
    stage.loop.advance(2000);
    EXPECT_EQ(stage.opened(), L"99 Zu.mp3");
    stage.music.musicEndTime = 0;
    stage.loop.advance(2000);
    EXPECT_EQ(stage.opened(), L"Drei.mp3") << "after it the rotation goes on, past those that are locked";
}

TEST(MusicRequest, ItsFadeLeavesTheVolumeToAFilmThatBegins) {
    MusicStage stage;
    stage.filmBeginsDuringTheFade();
    const auto commands = stage.control.commands();
    ASSERT_FALSE(commands.empty());
    EXPECT_LT(commands.size(), 110U) << "a hundred steps in a second, and none since";
    EXPECT_THAT(commands.back(), testing::StartsWith("setaudio AUDIO volume to 1"));
}

TEST(MusicRequest, VolumeKeysDuringItsFadeCountAtOnce) {
    for (const bool louder : {true, false}) {
        MusicStage stage;
        stage.tick();
        stage.control.clear();
        stage.music.musicRequest = L"Drei";
        stage.player.request();
        std::size_t before = 0;
        stage.loop.at(502, [&] {
            before = stage.control.commands().size();
            louder ? stage.player.louder() : stage.player.quieter();
        });
        stage.loop.advance(6000);
        const auto commands = stage.control.commands();
        ASSERT_GT(commands.size(), before + 1);
        const auto volume = [&](std::size_t i) {
            return std::stoi(commands[i].substr(commands[i].rfind(' ') + 1));
        };
        EXPECT_EQ(volume(before), louder ? 220 : 180);
        EXPECT_EQ(volume(before + 1) - volume(before - 1), louder ? 19 : -21)
            << "the fade goes on from there";
        EXPECT_EQ(stage.opened(), L"Drei.mp3");
        EXPECT_THAT(commands,
                    Contains(louder ? "setaudio AUDIO volume to 220" : "setaudio AUDIO volume to 180"));
    }
}

}  // namespace
}  // namespace media
