#include "media/fade_rule.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace media {
namespace {

TEST(FadeRule, KeysStayWithinTheirBounds) {
    EXPECT_EQ(louder(200), 220);
    EXPECT_EQ(louder(580), 600);
    EXPECT_EQ(louder(600), std::nullopt);
    EXPECT_EQ(louder(599), 619);
    EXPECT_EQ(quieter(200), 180);
    EXPECT_EQ(quieter(60), 40);
    EXPECT_EQ(quieter(40), std::nullopt);
    EXPECT_EQ(quieter(41), 21);
    int volume = kInitialMusicVolume;
    while (const auto next = louder(volume)) {
        volume = *next;
    }
    EXPECT_EQ(volume, 600);
    while (const auto next = quieter(volume)) {
        volume = *next;
    }
    EXPECT_EQ(volume, 40);
}

TEST(FadeRule, Commands) {
    EXPECT_EQ(musicVolumeCommand(220), "setaudio AUDIO volume to 220");
    EXPECT_EQ(musicVolumeCommand(0), "setaudio AUDIO volume to 0");
    EXPECT_EQ(videoVolumeCommand(500), "setaudio VIDEO volume to 500");
}

TEST(FadeRule, RampToVideo) {
    EXPECT_EQ(rampToVideoStep(0, 200), (RampStep{0, 200}));
    EXPECT_EQ(rampToVideoStep(200, 200), (RampStep{200, 0}));
    EXPECT_EQ(rampToVideoStep(201, 200), (RampStep{201, std::nullopt}));
    EXPECT_EQ(rampToVideoStep(500, 200), (RampStep{500, std::nullopt}));
    // louder than the ramp is long: the music never gets to 0
    EXPECT_EQ(rampToVideoStep(500, 600), (RampStep{500, 100}));
}

TEST(FadeRule, RampToMusic) {
    EXPECT_EQ(rampToMusicStep(0, 200), (RampStep{500, 0}));
    EXPECT_EQ(rampToMusicStep(199, 200), (RampStep{301, 199}));
    EXPECT_EQ(rampToMusicStep(200, 200), (RampStep{300, std::nullopt}));
    EXPECT_EQ(rampToMusicStep(500, 200), (RampStep{0, std::nullopt}));
    EXPECT_EQ(rampToMusicStep(500, 600), (RampStep{0, 500}));
}

TEST(FadeRule, RampsAlwaysRunTheVideosWholeRange) {
    for (const int musicVolume : {40, 200, 600}) {
        int musicDown = 0;
        int musicUp = 0;
        for (int step = 0; step < kRampSteps; ++step) {
            EXPECT_EQ(rampToVideoStep(step, musicVolume).video + rampToMusicStep(step, musicVolume).video,
                      500);
            musicDown += rampToVideoStep(step, musicVolume).music ? 1 : 0;
            musicUp += rampToMusicStep(step, musicVolume).music ? 1 : 0;
        }
        EXPECT_EQ(musicDown, std::min(musicVolume + 1, kRampSteps));
        EXPECT_EQ(musicUp, std::min(musicVolume, kRampSteps));
    }
}

TEST(FadeRule, RequestFade) {
    EXPECT_EQ(requestFadeVolume(0, 200), 200);
    EXPECT_EQ(requestFadeVolume(200, 200), 0);
    EXPECT_EQ(requestFadeVolume(201, 200), std::nullopt);
    EXPECT_EQ(requestFadeVolume(kRequestFadeSteps - 1, 600), 100);
}

TEST(FadeRule, EndFade) {
    EXPECT_EQ(endFadeSteps(200), 201);
    EXPECT_EQ(endFadeVolume(0, 200), 200);
    EXPECT_EQ(endFadeVolume(200, 200), 0);
    EXPECT_EQ(endFadeSteps(0), 1);
    EXPECT_EQ(endFadeSteps(-5), 0);
}

}  // namespace
}  // namespace media
