#pragma once

#include <optional>
#include <string>

namespace media {

/// Volumes are in the device's units, 0 (silent) to 1000.
inline constexpr int kInitialMusicVolume = 200;
inline constexpr int kAuditionVolume = 300;

/// The volume after a "+" or "-" key: 20 more while below 600, 20 less while above 40; std::nullopt where
/// the key does nothing and no command is sent.
std::optional<int> louder(int musicVolume);
std::optional<int> quieter(int musicVolume);

/// The commands that set a volume.
std::string musicVolumeCommand(int volume);
std::string videoVolumeCommand(int volume);

/// One step of a cross-fade: the video's volume goes first, then the music's where there is one.
struct RampStep {
    int video = 0;
    std::optional<int> music;
    friend bool operator==(const RampStep&, const RampStep&) = default;
};

/// Both cross-fades have the steps 0 ... 500.
inline constexpr int kRampSteps = 501;
inline constexpr int kRampToVideoPauseMs = 4;
inline constexpr int kRampToMusicPauseMs = 2;

/// Step 0 ... 500 from the music to a video's sound: the music falls from `musicVolume` while it is not
/// negative.
RampStep rampToVideoStep(int step, int musicVolume);

/// Step 0 ... 500 from a video's sound to the music, which rises to just below `musicVolume`.
RampStep rampToMusicStep(int step, int musicVolume);

/// The fade before a requested title: steps 0 ... 500, with a pause after each; std::nullopt where no
/// command is sent.
inline constexpr int kRequestFadeSteps = 501;
inline constexpr int kRequestFadePauseMs = 10;
std::optional<int> requestFadeVolume(int step, int musicVolume);

/// The fade at the end of the show: from `musicVolume` down to 0 one by one, so `musicVolume` + 1 steps.
inline constexpr int kEndFadePauseMs = 40;
int endFadeSteps(int musicVolume);
int endFadeVolume(int step, int musicVolume);

}  // namespace media
