#include "ui/timer.h"

#include <algorithm>

namespace ui {

namespace {

constexpr double kPacedPeriods = 4;

}  // namespace

Timer::Timer(EventLoop& loop, int interval, Pacing pacing)
    : loop_(loop), interval_(interval), pacing_(pacing) {
    loop_.add(*this);
}

Timer::~Timer() {
    loop_.remove(*this);
}

void Timer::setInterval(int ms) {
    interval_ = ms;
    startPeriod();
}

void Timer::setEnabled(bool enabled) {
    enabled_ = enabled;
    startPeriod();
}

void Timer::restart() {
    setEnabled(true);
}

void Timer::startPeriod() {
    if (running()) {
        due_ = loop_.now() + interval_;
        if (pacing_ == Pacing::FromTick && lastTick_ >= 0) {
            // Within a few periods of the last tick this is the next step of one piece of work. Where that
            // took longer than a period, the next one is due already and catches up.
            const double elapsed = loop_.now() - lastTick_;
            if (elapsed < kPacedPeriods * interval_) {
                due_ = lastTick_ + interval_;
            }
        }
    }
    loop_.timersChanged();
}

void Timer::fire() noexcept {
    // A paced tick counts from when it was due, or the lateness of each tick would add up.
    const double now = loop_.now();
    lastTick_ = std::max(due_, now - interval_);
    due_ += interval_;
    firing_ = true;
    loop_.guarded([this] {
        if (onTimer) {
            onTimer();
        }
    });
    firing_ = false;
    // However often it fell due meanwhile, it fires once.
    due_ = std::max(due_, loop_.now());
    loop_.timersChanged();
}

}  // namespace ui
