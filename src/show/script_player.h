#pragma once

#include "media/background_music.h"
#include "media/music_state.h"
#include "script/show_script.h"
#include "show/captions.h"
#include "show/show_state.h"
#include "show/transition_runner.h"
#include "ui/stage.h"

namespace show {

/// Looks up what the show script says of the current picture and applies it to the running show.
class ScriptPlayer {
  public:
    /// The mode of ApplyScriptEntry.
    enum Mode : int { kWithoutDate = 0, kFull = 1, kMusicOnly = 2 };

    struct Parts {
        const ShowState& state;
        Captions& captions;
        TransitionRunner& runner;
        media::MusicState& music;
        media::BackgroundMusic& player;
        ui::Choices choices;
        ui::Timers timers;
    };
    explicit ScriptPlayer(const Parts& parts);

    /// Mode 2 takes the music request only, before a picture is drawn; mode 1 applies title, pause, effect
    /// and date, when it is on the screen. Any other mode is like 1 without the date stamp.
    void ApplyScriptEntry(int mode);

  private:
    script::Entry lookUp() const;
    void applyPause(const script::Entry& entry);
    void stampDate(const script::Entry& entry);

    Parts parts_;
};

}  // namespace show
