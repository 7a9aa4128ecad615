#include "ui/label.h"

#include "ui/theme.h"

namespace ui {

namespace {

DWORD styleOf(Alignment alignment, bool oneLine) {
    const DWORD ellipsis = oneLine ? SS_ENDELLIPSIS | SS_CENTERIMAGE : 0;
    switch (alignment) {
        case Alignment::Centre:
            return SS_CENTER | ellipsis;
        case Alignment::Right:
            return SS_RIGHT | ellipsis;
        default:
            return SS_LEFT | ellipsis;
    }
}

}  // namespace

Label::Label(const CreateArgs& args, Alignment alignment, bool oneLine)
    : Control(args), colour_(theme::kText) {
    createSystem(styleFor(args, L"Static", SS_NOPREFIX | styleOf(alignment, oneLine)));
    created();
}

void Label::setText(const std::wstring& text) {
    // The mouse-move handlers set captions all the time; the same text again must not flicker.
    if (text != Control::text()) {
        Control::setText(text);
    }
}

void Label::setColour(Rgb colour) {
    colour_ = colour;
    repaint();
}

void Label::setGround(Rgb ground) {
    ground_ = ground;
    ownGround_ = true;
    repaint();
}

bool Label::onReflected(UINT message, WPARAM w, LPARAM, LRESULT& result) {
    if (message != WM_CTLCOLORSTATIC) {
        return false;
    }
    result = colours(w, enabled() ? colour_ : theme::kDisabledText, ownGround_ ? ground_ : ground());
    return true;
}

}  // namespace ui
