#pragma once

#include <functional>
#include <string>

#include "media/background_music.h"
#include "media/music_state.h"
#include "script/show_script.h"
#include "show/captions.h"
#include "show/show_state.h"
#include "show/transition_runner.h"
#include "ui/check_box.h"
#include "ui/timer.h"

namespace script {

/// Looks up what the show script says of the current picture and applies it to the running show.
class ScriptPlayer {
  public:
    /// The mode of ApplyScriptEntry.
    enum Mode : int { kFull = 1, kMusicOnly = 2 };

    struct Parts {
        const show::ShowState& state;
        show::Captions& captions;
        show::TransitionRunner& runner;
        media::MusicState& music;
        media::BackgroundMusic& player;
        ui::Timer& Timer1;
        const ui::CheckBox& Musik;
        const ui::CheckBox& ShowFN;
        /// The folder selected in Dir1.
        std::function<std::wstring()> folder;
    };
    explicit ScriptPlayer(Parts parts);

    /// Mode 2 takes the music request only, before a picture is drawn; mode 1 applies title, pause, effect
    /// and date, when it is on the screen. Any other mode is like 1 without the date stamp. Throws
    /// std::invalid_argument when the current picture's path gives no key, as with a dot in a folder's name.
    void ApplyScriptEntry(int mode);

  private:
    Entry lookUp() const;
    void applyPause(const Entry& entry);
    void stampDate(const Entry& entry);

    Parts parts_;
};

}  // namespace script
