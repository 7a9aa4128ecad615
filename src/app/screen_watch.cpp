#include "app/screen_watch.h"

#include <utility>

#include "platform/wine.h"

namespace app {

namespace {

constexpr int kLookMs = 1000;

}  // namespace

ScreenWatch::ScreenWatch(ui::EventLoop& loop, const Form1Screen& screen, std::function<void()> onChange)
    : look_(loop, kLookMs) {
    look_.onTimer = [&screen, onChange = std::move(onChange)] {
        if (!screen.coversMonitor()) {
            onChange();
        }
    };
}

void ScreenWatch::start() {
    look_.setEnabled(platform::runsUnderWine());
}

}  // namespace app
