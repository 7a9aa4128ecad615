#pragma once

#include <functional>

#include "media/background_music.h"
#include "media/video_playback.h"
#include "show/captions.h"
#include "show/show_screen.h"
#include "show/show_state.h"
#include "show/slideshow.h"
#include "show/transition_runner.h"
#include "ui/pointer.h"
#include "ui/scroll_bar.h"
#include "ui/timer.h"
#include "ui/window.h"

namespace show {

/// Steers the show by keyboard and mouse. A handler may run in the middle of a transition, of a caption that
/// slides out or of a fade.
class ShowControls {
  public:
    struct Parts {
        ui::EventLoop& loop;
        ShowState& state;
        ShowScreen& screen;
        ui::Pointer& pointer;
        Slideshow& show;
        TransitionRunner& runner;
        Captions& captions;
        media::VideoPlayback& video;
        media::BackgroundMusic& player;
        ui::ScrollBar& IntS;
        ui::Timer& Timer1;
        ui::PictureBox& Pic2;
        /// Starts the program anew with the settings of now, once the show has passed its last item.
        std::function<void()> restart;
    };
    explicit ShowControls(Parts parts);

    /// A key went down; true when a show runs, which has a use for every key.
    bool keyDown(int key);
    /// A character was typed; true when it was meant for the show.
    bool keyPress(wchar_t character);
    /// A mouse button was pressed on the show surface.
    void mousePressed(ui::MouseButton button);

  private:
    void arrow(int key);
    void volumeKey(wchar_t character);
    bool effectKey(wchar_t character);
    void pauseKey(int seconds);
    void leftButton();
    void rightButton();

    Parts parts_;
    bool restarted_ = false;
};

}  // namespace show
