#pragma once

#include <functional>
#include <string>

#include "app/form1.h"
#include "app/form1_screen.h"
#include "app/screen_watch.h"
#include "app/surface_settings.h"
#include "media/background_music.h"
#include "media/media_control.h"
#include "media/music_state.h"
#include "media/video_playback.h"
#include "show/captions.h"
#include "show/picture_source.h"
#include "show/script_player.h"
#include "show/show_controls.h"
#include "show/show_state.h"
#include "show/slideshow.h"
#include "show/transition_runner.h"
#include "ui/event_loop.h"

namespace app {

/// The show in the main window: its engines, and which events of the window steer them.
class Show {
  public:
    Show(ui::EventLoop& loop, media::MediaControl& control, Form1& form, SurfaceSettings& surfaces,
         show::PictureSource& pictures);

    /// Whether a show runs, or stands at its end.
    bool running() const { return state_.showMode != show::kNoShow; }
    void start() { slideshow_.start(); }
    /// Starts the show and lets it step by itself.
    void run();
    void stop() { slideshow_.stop(); }
    /// A key was pressed or repeats itself; true when it was meant for the show.
    bool keyDown(int key) { return controls_.keyDown(key); }
    /// A character was typed; true when it was meant for the show.
    bool typed(wchar_t character) { return controls_.keyPress(character); }
    /// The file that a show would begin with: its picture is made ready for the whole monitor while its user
    /// still looks at the set-up.
    void prepare(const std::wstring& path);
    /// Runs `refresh`, which reads File1 anew. Files may have come and gone while another window was in
    /// front; the item shown keeps its place by name.
    void keepItemAcross(const std::function<void()>& refresh) { slideshow_.keepItemAcross(refresh); }
    /// The screens have changed: the surface and the item shown follow.
    void screensChanged() {
        surfaces_.forget();
        slideshow_.screensChanged();
    }
    /// Whether the display has to stay awake: while a show runs, not at its end.
    bool keepsAwake() const { return slideshow_.keepsAwake(); }
    /// The window was activated: the pointer comes up, but not over a show that runs by itself.
    void activated();

    const show::ShowState& state() const { return state_; }
    const Form1Screen& screen() const { return screen_; }
    media::MusicState& music() { return music_; }
    media::VideoPlayback& video() { return video_; }

    /// The first item stands on the screen.
    std::function<void()> onStarted;
    /// The show is over.
    std::function<void()> onEnd;
    /// Its user wants the program anew.
    std::function<void()> onRestart;

  private:
    void wire();
    show::Engines engines() { return {runner_, captions_, script_, video_, player_, music_}; }

    Form1& form_;
    SurfaceSettings& surfaces_;
    show::ShowState state_;
    media::MusicState music_;
    Form1Screen screen_;
    show::PictureSource& pictures_;
    show::TransitionRunner runner_;
    show::Captions captions_;
    media::VideoPlayback video_;
    media::BackgroundMusic player_;
    show::ScriptPlayer script_;
    show::Slideshow slideshow_;
    show::ShowControls controls_;
    ScreenWatch watch_;
};

}  // namespace app
