#include "app/shutdown.h"

#include <utility>

#include "platform/clipboard.h"
#include "platform/process.h"

namespace app {

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

void Shutdown::endEditing(std::optional<int> startIndex) {
    parts_.state.StartIndex = startIndex.value_or(parts_.state.StartIndex);
    parts_.control.send("stop VIDEO");
    parts_.control.send("close VIDEO");
    restart();
}

void Shutdown::restart() {
    if (std::exchange(left_, true)) {
        return;
    }
    platform::startProcess(parts_.parameters.restartCommand());
    parts_.loop.leave();
}

}  // namespace app
