#include "app/form1_screen.h"

#include "app/resource_ids.h"
#include "platform/monitors.h"
#include "show/caption_rule.h"
#include "show/step_rule.h"
#include "ui/event_loop.h"

namespace app {

bool Form1Screen::inSetup() const {
    return form_.Start.visible();
}

void Form1Screen::moveToSecondScreen() {
    form_.dropCurtain();
    const RECT place = rectangle();
    SetWindowPos(form_.hwnd(), nullptr, show::secondScreenLeft(platform::Monitors::current().primaryWidth()),
                 place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool Form1Screen::leaveSetup() {
    form_.hideSetup();
    form_.Pic2.setToolTip(L"");
    form_.dropRegion();
    const HCURSOR pointer = LoadCursorW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(PANORELL_POINTER));
    form_.Pic2.setPointer(pointer);
    form_.Pic3.setPointer(pointer);
    if (!form_.visible()) {
        return false;
    }
    // Black before it grows, or the set-up would be seen in a corner of the screen until the next paint.
    form_.paintNow();
    ui::EventLoop::current().doEvents();
    return true;
}

// The monitor's own rectangle instead of a maximised state, which some window managers keep clear of their
// task bar.
void Form1Screen::takeOver() {
    form_.cover(platform::Monitors::current().areaOf(form_.hwnd()));
}

bool Form1Screen::coversMonitor() const {
    const RECT monitor = platform::Monitors::current().areaOf(form_.hwnd());
    return form_.covered() && EqualRect(&*form_.covered(), &monitor) != FALSE;
}

show::ShowSurface Form1Screen::surfaceToCome() const {
    const platform::Monitors& monitors = platform::Monitors::current();
    const bool second = form_.Screen2.value() == 1;
    return surfaces_.surfaceOn(
        second ? monitors.areaAt({show::secondScreenLeft(monitors.primaryWidth()), rectangle().top})
               : monitors.areaOf(form_.hwnd()));
}

show::ShowSurface Form1Screen::surface() const {
    return surfaces_.surfaceOn(platform::Monitors::current().areaOf(form_.hwnd()));
}

picture::ColourTarget Form1Screen::colours() const {
    return surfaces_.coloursOf(platform::Monitors::current().areaOf(form_.hwnd()));
}

SIZE Form1Screen::size() const {
    return form_.clientSize();
}

void Form1Screen::arrange() {
    const int dpi = form_.dpi();
    const SIZE pixels = size();
    const float width = ui::toTwips(pixels.cx, dpi);
    const float height = ui::toTwips(pixels.cy, dpi);
    const show::CaptionPlace end = show::endButtonPlace(width, height, form_.EOT.width(), form_.EOT.height());
    form_.EOT.move({end.left, end.top, form_.EOT.width(), form_.EOT.height()});
    form_.UT.move({0, show::titleTop(height, form_.UT.height()), width, form_.UT.height()});
}

RECT Form1Screen::rectangle() const {
    RECT place{};
    GetWindowRect(form_.hwnd(), &place);
    return place;
}

}  // namespace app
