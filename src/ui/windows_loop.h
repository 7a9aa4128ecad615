#pragma once

#include "platform/handles.h"
#include "ui/event_loop.h"

namespace ui {

/// The event loop of the program: the thread's message queue and the system's clock.
///
/// Timers are kept by the loop itself and waited for with a high-resolution timer where the system has
/// one, so a period of 10 ms is 10 ms. A window timer wakes them inside the system's own modal loops.
class WindowsLoop : public EventLoop {
  public:
    /// Throws platform::Error when the wake-up window cannot be made.
    WindowsLoop();
    ~WindowsLoop() override;

    double now() const override;
    double timeOfDay() const override;

  protected:
    void block(double due) override;
    void blockFor(double ms) override;
    void timersChanged() override;

  private:
    static LRESULT CALLBACK wakeUpProc(HWND window, UINT message, WPARAM w, LPARAM l);

    double ticksPerMs_;
    HWND wakeUp_ = nullptr;
    double armedFor_ = -1;
    platform::Object waitable_;
};

}  // namespace ui
