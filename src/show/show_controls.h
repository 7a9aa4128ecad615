#pragma once

#include <functional>

#include "show/engines.h"
#include "show/show_screen.h"
#include "show/show_state.h"
#include "show/slideshow.h"
#include "ui/event_loop.h"
#include "ui/stage.h"
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
        Slideshow& show;
        Engines engines;
        ui::Stage stage;
        ui::Choices choices;
        ui::Timers timers;
    };
    explicit ShowControls(const Parts& parts);

    /// A key went down; true when a show runs, which has a use for every key.
    bool keyDown(int key);
    /// A character was typed; true when it was meant for the show.
    bool keyPress(wchar_t character);
    /// A mouse button was pressed on the show surface. The second press of the double click that started the
    /// show does nothing.
    void mousePressed(ui::MouseButton button);

    /// The show has passed its last item and its user wants the program anew, with the settings of now.
    std::function<void()> onRestart;

  private:
    void arrow(int key);
    void goOnByItself();
    void volumeKey(wchar_t character);
    bool effectKey(wchar_t character);
    void pauseKey(int seconds);
    void leftButton();
    void rightButton();

    Parts parts_;
    bool restarted_ = false;
};

}  // namespace show
