#include "app/shutdown.h"

#include <utility>

#include "platform/clipboard.h"
#include "platform/process.h"

namespace app {

namespace {

/// How long both programs run when the one is followed by the other.
constexpr int kOverlapMs = 500;

}  // namespace

void Shutdown::stopMedia() {
    for (const char* command : {"stop VIDEO", "close VIDEO", "stop AUDIO", "close AUDIO"}) {
        parts_.control.send(command);
    }
}

void Shutdown::clipboardEnd() {
    if (std::exchange(left_, true)) {
        return;
    }
    stopMedia();
    platform::setClipboardText(GetAncestor(parts_.Pic2.hwnd(), GA_ROOT), parts_.parameters.command());
    parts_.tray.remove();
    parts_.loop.leave();
}

void Shutdown::showEnd() {
    if (std::exchange(left_, true)) {
        return;
    }
    stopMedia();
    parts_.Pic2.setAutoRedraw(false);
    parts_.Pic3.setAutoRedraw(false);
    parts_.Pic3.hide();
    parts_.loop.doEvents();
    parts_.tray.remove();
    parts_.loop.leave();
}

bool Shutdown::endEditing(std::optional<int> startIndex) {
    parts_.state.StartIndex = startIndex.value_or(parts_.state.StartIndex);
    parts_.control.send("stop VIDEO");
    parts_.control.send("close VIDEO");
    if (left_) {
        return true;
    }
    if (!startAnew()) {
        return false;
    }
    parts_.loop.sleep(kOverlapMs);
    parts_.loop.leave();
    return true;
}

bool Shutdown::restart() {
    if (left_) {
        return true;
    }
    if (!startAnew()) {
        return false;
    }
    parts_.loop.leave();
    return true;
}

// A program that is being left already is not started again.
bool Shutdown::startAnew() {
    left_ = parts_.loop.leaving() || platform::startProcess(parts_.parameters.restartCommand());
    return left_;
}

}  // namespace app
