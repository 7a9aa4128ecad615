#include "ui/option_button.h"

#include <algorithm>
#include <utility>

#include "ui/theme.h"

namespace ui {

OptionButton::OptionButton(const CreateArgs& args, OptionGroup& group, MarkPlace mark)
    : Control(args), group_(group) {
    CreateArgs own = args;
    own.startsGroup = group.buttons_.empty();
    createSystem(styleFor(own, L"Button", BS_RADIOBUTTON | (mark == MarkPlace::Top ? BS_TOP : 0)));
    created();
    group_.buttons_.push_back(this);
    group_.updateTabStop();
}

OptionButton::~OptionButton() {
    std::erase(group_.buttons_, this);
}

bool OptionButton::selected() const {
    return SendMessageW(hwnd(), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void OptionButton::setSelected(bool selected) {
    if (selected == this->selected()) {
        return;
    }
    SendMessageW(hwnd(), BM_SETCHECK, selected ? BST_CHECKED : BST_UNCHECKED, 0);
    if (selected) {
        group_.deselectOthers(*this);
    }
    group_.updateTabStop();
    if (selected && onClick) {
        onClick();
    }
}

// Being chosen may give the focus away; the arrow keys need it to go on from here.
void OptionButton::press() {
    choose();
    setFocus();
}

void OptionButton::choose() {
    if (onChosen) {
        onChosen();
    }
    setSelected(true);
}

bool OptionButton::onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (message == WM_SETFOCUS) {
        // The system would click a button that gets the focus.
        takingFocus_ = true;
        result = callSystem(message, w, l);
        takingFocus_ = false;
        repaint();
        return true;
    }
    if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) {
        // The system takes the press first: a handler that lets events run may already meet the release, and
        // a press after it would hold the mouse for ever.
        result = callSystem(message, w, l);
        chosenByMouse_ = true;
        if (onChosen) {
            onChosen();
        }
        return true;
    }
    if (message == WM_KEYDOWN) {
        // A press that was not released over the button, or whose handler gave the focus away, has made no
        // click; the one that the key makes is another one.
        chosenByMouse_ = false;
    }
    return focusFrame_.onMessage(message, w, l, result);
}

bool OptionButton::onReflected(UINT message, WPARAM w, LPARAM, LRESULT& result) {
    if (message == WM_COMMAND && HIWORD(w) == BN_CLICKED) {
        if (!takingFocus_) {
            std::exchange(chosenByMouse_, false) ? setSelected(true) : choose();
        }
        return true;
    }
    if (message == WM_CTLCOLORSTATIC || message == WM_CTLCOLORBTN) {
        result = colours(w, theme::kText, ground());
        return true;
    }
    return false;
}

int OptionGroup::selectedIndex() const {
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        if (buttons_[i]->selected()) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

void OptionGroup::chooseFrom(const OptionButton& button, int steps) {
    const auto from = std::find(buttons_.begin(), buttons_.end(), &button);
    if (from == buttons_.end()) {
        return;
    }
    const int count = static_cast<int>(buttons_.size());
    int index = static_cast<int>(from - buttons_.begin());
    for (int tried = 0; tried < count; ++tried) {
        index = (index + steps + count) % count;
        OptionButton& next = *buttons_[static_cast<std::size_t>(index)];
        if (next.visible() && next.enabled()) {
            next.press();
            return;
        }
    }
}

void OptionGroup::deselectOthers(const OptionButton& button) {
    for (OptionButton* other : buttons_) {
        if (other != &button) {
            other->setSelected(false);
        }
    }
}

void OptionGroup::updateTabStop() {
    const int stop = std::max(0, selectedIndex());
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        const LONG_PTR style = GetWindowLongPtrW(buttons_[i]->hwnd(), GWL_STYLE);
        const LONG_PTR wanted =
            static_cast<int>(i) == stop ? style | WS_TABSTOP : style & ~static_cast<LONG_PTR>(WS_TABSTOP);
        if (wanted != style) {
            SetWindowLongPtrW(buttons_[i]->hwnd(), GWL_STYLE, wanted);
        }
    }
}

}  // namespace ui
