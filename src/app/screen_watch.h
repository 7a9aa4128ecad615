#pragma once

#include <functional>

#include "app/form1_screen.h"
#include "ui/event_loop.h"
#include "ui/timer.h"

namespace app {

/// Looks once a second whether the surface of a show still covers its monitor, for systems that do not tell.
///
/// Wine 8 gives the size of a screen that has changed to those who ask, but sends no WM_DISPLAYCHANGE unless
/// one of its own programs has changed it.
class ScreenWatch {
  public:
    /// `onChange` lets the surface follow.
    ScreenWatch(ui::EventLoop& loop, const Form1Screen& screen, std::function<void()> onChange);

    /// From here on, where it is needed; the surface covers its monitor.
    void start();

  private:
    ui::Timer look_;
};

}  // namespace app
