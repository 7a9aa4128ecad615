#include "ui/progress_bar.h"

#include <commctrl.h>

#include <stdexcept>

#include "ui/painting.h"
#include "ui/theme.h"

namespace ui {

ProgressBar::ProgressBar(const CreateArgs& args) : Control(args) {
    const INITCOMMONCONTROLSEX wanted{sizeof(wanted), ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&wanted);
    createSystem(styleFor(args, PROGRESS_CLASSW, PBS_SMOOTH));
    SetWindowLongPtrW(
        hwnd(), GWL_EXSTYLE,
        GetWindowLongPtrW(hwnd(), GWL_EXSTYLE) & ~LONG_PTR{WS_EX_STATICEDGE | WS_EX_CLIENTEDGE});
    SetWindowPos(hwnd(), nullptr, 0, 0, 0, 0,
                 SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    created();
}

void ProgressBar::setMaximum(int maximum) {
    if (maximum < 1) {
        throw std::out_of_range("maximum of a progress bar");
    }
    SendMessageW(hwnd(), PBM_SETRANGE32, 0, maximum);
    repaint();
}

int ProgressBar::maximum() const {
    return static_cast<int>(SendMessageW(hwnd(), PBM_GETRANGE, FALSE, 0));
}

void ProgressBar::setValue(int value) {
    SendMessageW(hwnd(), PBM_SETPOS, static_cast<WPARAM>(value), 0);
    repaint();
}

int ProgressBar::value() const {
    return static_cast<int>(SendMessageW(hwnd(), PBM_GETPOS, 0, 0));
}

// A theme has colours of its own, and a gleam that moves and draws the eye.
void ProgressBar::onPaint(HDC dc, const RECT&) {
    const SIZE size = clientSize();
    Painting painting({0, 0, size.cx, size.cy}, theme::kEdge);
    const float share = static_cast<float>(value()) / static_cast<float>(maximum());
    painting.shape(Path().rect(0, 0, static_cast<float>(size.cx) * share, static_cast<float>(size.cy)),
                   theme::kAccent);
    painting.copyTo(dc);
}

bool ProgressBar::onEraseBackground(HDC) {
    return true;
}

}  // namespace ui
