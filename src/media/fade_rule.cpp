#include "media/fade_rule.h"

#include <algorithm>

namespace media {

namespace {

constexpr int kLowest = 40;
constexpr int kHighest = 600;
constexpr int kKeyStep = 20;
constexpr int kRampTop = 500;

std::optional<int> notNegative(int volume) {
    return volume < 0 ? std::nullopt : std::optional(volume);
}

}  // namespace

std::optional<int> louder(int musicVolume) {
    return musicVolume < kHighest ? std::optional(musicVolume + kKeyStep) : std::nullopt;
}

std::optional<int> quieter(int musicVolume) {
    return musicVolume > kLowest ? std::optional(musicVolume - kKeyStep) : std::nullopt;
}

std::string musicVolumeCommand(int volume) {
    return "setaudio AUDIO volume to " + std::to_string(volume);
}

std::string videoVolumeCommand(int volume) {
    return "setaudio VIDEO volume to " + std::to_string(volume);
}

RampStep rampToVideoStep(int step, int musicVolume) {
    return {step, notNegative(musicVolume - step)};
}

RampStep rampToMusicStep(int step, int musicVolume) {
    return {kRampTop - step, step < musicVolume ? std::optional(step) : std::nullopt};
}

std::optional<int> requestFadeVolume(int step, int musicVolume) {
    return notNegative(musicVolume - step);
}

int endFadeSteps(int musicVolume) {
    return std::max(0, musicVolume + 1);
}

int endFadeVolume(int step, int musicVolume) {
    return musicVolume - step;
}

}  // namespace media
