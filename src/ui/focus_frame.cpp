#include "ui/focus_frame.h"

#include <algorithm>

#include "platform/handles.h"
#include "ui/control.h"
#include "ui/theme.h"

namespace ui {

namespace {

constexpr Twips kThickness = 15;

}  // namespace

bool FocusFrame::onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) const {
    const bool focus = message == WM_SETFOCUS || message == WM_KILLFOCUS;
    const bool changes = focus || message == WM_UPDATEUISTATE;
    if ((message != WM_PAINT && !changes) || !control_.text().empty()) {
        return false;
    }
    if (changes) {
        InvalidateRect(control_.hwnd(), nullptr, TRUE);
        return false;
    }
    result = control_.callSystem(message, w, l);
    const LRESULT cues = SendMessageW(control_.hwnd(), WM_QUERYUISTATE, 0, 0);
    if (control_.hasFocus() && (cues & UISF_HIDEFOCUS) == 0) {
        paint();
    }
    return true;
}

void FocusFrame::paint() const {
    const platform::WindowDc dc(control_.hwnd());
    const SIZE size = control_.clientSize();
    RECT frame{0, 0, size.cx, size.cy};
    SetDCBrushColor(dc.get(), colorref(theme::kAccent));
    for (int i = std::max(1, toPixels(kThickness, control_.dpi())); i > 0; --i) {
        FrameRect(dc.get(), &frame, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
        InflateRect(&frame, -1, -1);
    }
}

}  // namespace ui
