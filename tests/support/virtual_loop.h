#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

#include "ui/event_loop.h"
#include "ui/timer.h"

namespace support {

/// An event loop whose clock moves only when something waits: an effect of four seconds or an hour of show
/// passes in milliseconds, and every timer fires at exactly its time. Real window messages are dispatched
/// as they come, so it drives real controls.
class VirtualLoop : public ui::EventLoop {
  public:
    double now() const override { return now_; }
    double timeOfDay() const override { return timeOfDay_ + now_ / 1000.0; }
    void setTimeOfDay(double seconds) { timeOfDay_ = seconds - now_ / 1000.0; }

    /// Lets the clock run to `ms` from now, firing each timer at its time. Handlers that wait move the clock
    /// as well and may take it further.
    void advance(double ms) {
        const double until = now_ + ms;
        settle();
        while (!leaving()) {
            const double due = nextDue();
            if (due < 0 || due > until) {
                break;
            }
            now_ = std::max(now_, due);
            settle();
        }
        now_ = std::max(now_, until);
    }

    /// Dispatches what is pending now without moving the clock; leaving ends it quietly.
    void settle() {
        try {
            doEvents();
        } catch (const ui::Leaving&) {
        }
    }

    /// Runs `action` once at a time from now, as an event in the middle of whatever runs then.
    void at(double ms, std::function<void()> action) {
        auto timer = std::make_shared<ui::Timer>(*this, static_cast<int>(ms));
        ui::Timer* raw = timer.get();
        timer->onTimer = [raw, action = std::move(action)] {
            raw->setEnabled(false);
            action();
        };
        timer->setEnabled(true);
        planned_.push_back(std::move(timer));
    }

    /// Time spent in sleep() so far, ms.
    double slept() const { return slept_; }
    /// Called at the beginning of each sleep, for tests that look at the state of things at that moment.
    std::function<void()> onSleep;

  protected:
    void block(double due) override {
        if (due < 0) {
            ++idle_;
            if (idle_ > kMostIdleWaits) {
                throw std::runtime_error("waiting for ever: no timer runs and no message comes");
            }
            Sleep(1);
            return;
        }
        idle_ = 0;
        now_ = std::max(now_, due);
    }
    void blockFor(double ms) override {
        if (onSleep) {
            onSleep();
        }
        now_ += ms;
        slept_ += ms;
    }

  private:
    static constexpr int kMostIdleWaits = 5000;

    double now_ = 1'000'000;
    double timeOfDay_ = 43'200;
    double slept_ = 0;
    int idle_ = 0;
    std::vector<std::shared_ptr<ui::Timer>> planned_;
};

}  // namespace support
