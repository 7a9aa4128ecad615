#include "script/script_player.h"

#include <stdexcept>
#include <utility>

#include "platform/file_time.h"
#include "script/picture_key.h"
#include "script/script_file.h"

namespace script {

ScriptPlayer::ScriptPlayer(Parts parts) : parts_(std::move(parts)) {}

Entry ScriptPlayer::lookUp() const {
    const auto key = PictureKey(parts_.state.currentPicture);
    if (!key) {
        throw std::invalid_argument("no picture key: the first dot lies in a folder's name");
    }
    const auto text = readScriptFile(parts_.folder());
    return text ? readEntry(*text, *key) : Entry{};
}

void ScriptPlayer::ApplyScriptEntry(int mode) {
    const Entry entry = lookUp();
    if (mode == kMusicOnly && entry.music) {
        parts_.music.musicRequest = *entry.music;
    }
    // Greyed counts: after "<" stopped the music a later picture may ask for some again.
    if (parts_.Musik.value() != 0 && !parts_.music.musicRequest.empty()) {
        parts_.player.request();
    }
    if (mode == kMusicOnly) {
        return;
    }
    if (showsTitle(entry.title)) {
        parts_.captions.showTitle(entry.title);
    }
    applyPause(entry);
    if (const auto effect = effectNumberOf(entry.effect)) {
        parts_.runner.effectNumber = *effect;
    }
    if (mode == kFull) {
        stampDate(entry);
    }
}

void ScriptPlayer::applyPause(const Entry& entry) {
    // Whoever asked for the next picture at once does not wait for this one's pause.
    if (entry.pause.empty() || parts_.state.quickStepPending) {
        return;
    }
    parts_.Timer1.setEnabled(false);
    if (parts_.state.showMode == show::kAutomatically) {
        parts_.Timer1.setInterval(pauseMilliseconds(entry.pause));
        parts_.Timer1.setEnabled(parts_.state.pausedFlag == 0);
    }
}

void ScriptPlayer::stampDate(const Entry& entry) {
    if (parts_.state.showMode == show::kNoShow || (parts_.ShowFN.value() != 1 && !entry.dateFlag)) {
        return;
    }
    if (const auto time = platform::fileWriteTime(parts_.state.currentPicture)) {
        parts_.captions.stampDate(platform::longDate(*time));
    }
}

}  // namespace script
