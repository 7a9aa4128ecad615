#pragma once

#include "media/background_music.h"
#include "media/music_state.h"
#include "media/video_playback.h"
#include "show/captions.h"
#include "show/script_player.h"
#include "show/transition_runner.h"

namespace show {

/// What carries a show out, each its own job. The show and its controls call them; they do not know the show.
struct Engines {
    TransitionRunner& runner;
    Captions& captions;
    ScriptPlayer& script;
    media::VideoPlayback& video;
    media::BackgroundMusic& player;
    media::MusicState& music;
};

}  // namespace show
