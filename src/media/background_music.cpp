#include "media/background_music.h"

#include "media/fade_rule.h"
#include "media/music_list.h"
#include "platform/short_path.h"

namespace media {

namespace {

constexpr int kRotationMs = 2000;
constexpr int kAtOnceMs = 1;

}  // namespace

BackgroundMusic::BackgroundMusic(const Parts& parts) : parts_(parts) {
    parts_.Timer5.onTimer = [this] { tick(); };
}

bool BackgroundMusic::wanted() const {
    return parts_.Musik.value() != 0 && !parts_.music.musicList.empty();
}

void BackgroundMusic::start() {
    parts_.music.musicEndTime = 0;
    stopped_ = false;
    chosen_ = false;
    if (wanted()) {
        parts_.Timer5.setInterval(kRotationMs);
        parts_.Timer5.setEnabled(true);
    }
}

void BackgroundMusic::request() {
    parts_.Timer5.setEnabled(false);
    parts_.music.musicEndTime = 0;
    parts_.Timer5.setInterval(kAtOnceMs);
    parts_.Timer5.setEnabled(true);
}

void BackgroundMusic::stop() {
    parts_.control.send("stop AUDIO");
    parts_.control.send("close AUDIO");
}

void BackgroundMusic::sendVolume(int volume) {
    parts_.control.send(musicVolumeCommand(volume));
}

void BackgroundMusic::louder() {
    if (const auto volume = media::louder(parts_.music.musicVolume)) {
        parts_.music.musicVolume = *volume;
        sendVolume(*volume);
    }
}

void BackgroundMusic::quieter() {
    if (const auto volume = media::quieter(parts_.music.musicVolume)) {
        parts_.music.musicVolume = *volume;
        sendVolume(*volume);
    }
}

void BackgroundMusic::mute() {
    sendVolume(0);
}

void BackgroundMusic::tick() {
    parts_.Timer5.setInterval(kRotationMs);
    if (parts_.music.musicList.empty() || parts_.mustWait()) {
        return;
    }
    if (isBeforeEnd(static_cast<float>(parts_.loop.timeOfDay()), parts_.music.musicEndTime)) {
        return;
    }
    // A title that was asked for may be a locked one.
    if (!chosen_) {
        const Rotation rotation = skipLocked(parts_.music.musicList, parts_.music.musicIndex);
        parts_.music.musicIndex = rotation.index;
        if (!rotation.playable) {
            return;
        }
    }
    // A video may have begun to sound during the fade: the title then comes after it.
    if ((parts_.music.musicRequest.empty() || takeRequest()) && !parts_.mustWait()) {
        play();
    }
}

bool BackgroundMusic::takeRequest() {
    if (parts_.Musik.value() == 1) {
        fadeOut();
    }
    // Handlers ran during the fade: what is asked for now counts.
    const std::wstring request = parts_.music.musicRequest;
    parts_.music.musicRequest.clear();
    chosen_ = request != kStopRequest;
    if (!chosen_) {
        parts_.Timer5.setEnabled(false);
        parts_.Musik.setValue(2);
        stopped_ = true;
        return false;
    }
    parts_.Musik.setValue(1);
    parts_.music.musicIndex = requestedIndex(parts_.music.musicList, request, parts_.music.musicIndex);
    return true;
}

void BackgroundMusic::fadeOut() {
    // A video that begins to sound has a fade of its own.
    for (int step = 0; step < kRequestFadeSteps && !parts_.mustWait(); ++step) {
        if (const auto faded = requestFadeVolume(step, parts_.music.musicVolume)) {
            sendVolume(*faded);
        }
        parts_.loop.sleep(kRequestFadePauseMs);
        parts_.loop.doEvents();
    }
}

void BackgroundMusic::play() {
    MusicState& music = parts_.music;
    const std::wstring path =
        music.musicFolder + fileNameOfEntry(music.musicList[static_cast<std::size_t>(music.musicIndex)]);
    stopped_ = false;
    chosen_ = false;
    stop();
    parts_.control.send("open " + platform::shortPath(path) + " alias AUDIO");
    parts_.control.send("set AUDIO time format milliseconds");
    const MediaReply length = parts_.control.send("status AUDIO length", kReplySize);
    music.musicEndTime = musicEndTime(static_cast<float>(parts_.loop.timeOfDay()), length.text);
    sendVolume(music.musicVolume);
    parts_.control.send("play AUDIO");
    parts_.loop.doEvents();
    music.musicIndex = nextMusicIndex(music.musicIndex, static_cast<int>(music.musicList.size()));
}

}  // namespace media
