#include "ui/scroll_bar.h"

#include <algorithm>
#include <stdexcept>

namespace ui {

ScrollBar::ScrollBar(const CreateArgs& args, const Range& range) : Control(args), range_(range) {
    createSystem(styleFor(args, L"ScrollBar", SBS_VERT));
    created();
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMin = range.min;
    info.nMax = range.max;
    info.nPage = 1;
    info.nPos = range.value;
    SendMessageW(hwnd(), SBM_SETSCROLLINFO, TRUE, reinterpret_cast<LPARAM>(&info));
}

void ScrollBar::setValue(int value) {
    if (value < range_.min || value > range_.max) {
        throw std::out_of_range("value of a scroll bar");
    }
    if (value == range_.value) {
        return;
    }
    range_.value = value;
    SendMessageW(hwnd(), SBM_SETPOS, static_cast<WPARAM>(value), TRUE);
    if (onChange) {
        onChange();
    }
}

void ScrollBar::changeTo(int value) {
    setValue(std::clamp(value, range_.min, range_.max));
}

bool ScrollBar::onReflected(UINT message, WPARAM w, LPARAM, LRESULT&) {
    if (message != WM_VSCROLL) {
        return false;
    }
    switch (LOWORD(w)) {
        case SB_LINEUP:
            changeTo(range_.value - 1);
            return true;
        case SB_LINEDOWN:
            changeTo(range_.value + 1);
            return true;
        case SB_PAGEUP:
            changeTo(range_.value - range_.largeChange);
            return true;
        case SB_PAGEDOWN:
            changeTo(range_.value + range_.largeChange);
            return true;
        case SB_TOP:
            changeTo(range_.min);
            return true;
        case SB_BOTTOM:
            changeTo(range_.max);
            return true;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            changeTo(static_cast<short>(HIWORD(w)));
            return true;
        default:
            return true;
    }
}

bool ScrollBar::onWheel(int notches) {
    changeTo(range_.value - notches);
    return true;
}

}  // namespace ui
