#include "show/script_player.h"

#include "platform/file_time.h"
#include "script/picture_key.h"
#include "script/script_file.h"

namespace show {

ScriptPlayer::ScriptPlayer(const Parts& parts) : parts_(parts) {}

script::Entry ScriptPlayer::lookUp() const {
    const auto text = script::readScriptFile(parts_.choices.Dir1.path());
    return text ? script::readEntry(*text, script::PictureKey(parts_.state.currentPicture)) : script::Entry{};
}

void ScriptPlayer::ApplyScriptEntry(int mode) {
    const script::Entry entry = lookUp();
    if (mode == kMusicOnly && entry.music) {
        parts_.music.musicRequest = *entry.music;
    }
    // Greyed counts: after "<" stopped the music a later picture may ask for some again.
    if (parts_.choices.Musik.value() != 0 && !parts_.music.musicRequest.empty()) {
        parts_.player.request();
    }
    if (mode == kMusicOnly) {
        return;
    }
    if (script::showsTitle(entry.title)) {
        parts_.captions.showTitle(entry.title);
    }
    applyPause(entry);
    if (const auto effect = script::effectNumberOf(entry.effect)) {
        parts_.runner.effectNumber = *effect;
    }
    if (mode == kFull) {
        stampDate(entry);
    }
}

void ScriptPlayer::applyPause(const script::Entry& entry) {
    // Whoever asked for the next picture at once does not wait for this one's pause.
    if (entry.pause.empty() || parts_.state.quickStepPending) {
        return;
    }
    parts_.timers.Timer1.setEnabled(false);
    if (parts_.state.showMode == show::kAutomatically) {
        parts_.timers.Timer1.setInterval(script::pauseMilliseconds(entry.pause));
        parts_.timers.Timer1.setEnabled(parts_.state.pausedFlag == 0);
    }
}

void ScriptPlayer::stampDate(const script::Entry& entry) {
    if (parts_.state.showMode == show::kNoShow || (parts_.choices.ShowFN.value() != 1 && !entry.dateFlag)) {
        return;
    }
    if (const auto time = platform::fileWriteTime(parts_.state.currentPicture)) {
        parts_.captions.stampDate(platform::longDate(*time));
    }
}

}  // namespace show
