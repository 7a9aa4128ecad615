#pragma once

#include <functional>

#include "ui/event_loop.h"

namespace ui {

/// Calls `onTimer` on the window thread every `interval` milliseconds while enabled.
///
/// Setting the interval or the enabled state starts the period anew. An interval of 0 or less never
/// fires. A timer never fires into its own handler: what falls due meanwhile fires once, when the handler
/// has ended.
class Timer {
  public:
    /// `Pacing::FromTick` is for a timer that its user restarts after a piece of work: the new period counts
    /// from the tick before, so that the work does not stretch the pace. Of work that now and then takes
    /// longer than a period the next ones make up one period; a halt begins a new one.
    enum class Pacing { FromStart, FromTick };

    explicit Timer(EventLoop& loop, int interval = 0, Pacing pacing = Pacing::FromStart);
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    int interval() const { return interval_; }
    void setInterval(int ms);
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    /// Stops and starts: a whole period from now.
    void restart();

    /// True while the handler runs.
    bool firing() const { return firing_; }

    std::function<void()> onTimer;

  private:
    friend class EventLoop;
    bool running() const { return enabled_ && interval_ > 0; }
    void startPeriod();
    void fire() noexcept;

    EventLoop& loop_;
    int interval_;
    Pacing pacing_;
    bool enabled_ = false;
    bool firing_ = false;
    double due_ = 0;
    double lastTick_ = -1;
};

}  // namespace ui
