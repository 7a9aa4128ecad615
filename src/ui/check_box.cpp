#include "ui/check_box.h"

#include <stdexcept>

#include "ui/theme.h"

namespace ui {

// Without BS_NOTIFY: with it the second press of two quick ones would be a message of its own and no click.
CheckBox::CheckBox(const CreateArgs& args) : Control(args) {
    createSystem(styleFor(args, L"Button", BS_3STATE));
    created();
}

int CheckBox::value() const {
    return static_cast<int>(SendMessageW(hwnd(), BM_GETCHECK, 0, 0));
}

void CheckBox::setValue(int value) {
    if (value < BST_UNCHECKED || value > BST_INDETERMINATE) {
        throw std::out_of_range("value of a check box");
    }
    if (value != this->value()) {
        SendMessageW(hwnd(), BM_SETCHECK, static_cast<WPARAM>(value), 0);
        if (onClick) {
            onClick();
        }
    }
}

void CheckBox::press() {
    setFocus();
    SendMessageW(hwnd(), BM_CLICK, 0, 0);
}

bool CheckBox::onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    return focusFrame_.onMessage(message, w, l, result);
}

bool CheckBox::onReflected(UINT message, WPARAM w, LPARAM, LRESULT& result) {
    if (message == WM_COMMAND && HIWORD(w) == BN_CLICKED) {
        setValue(value() == BST_UNCHECKED ? BST_CHECKED : BST_UNCHECKED);
        return true;
    }
    if (message == WM_CTLCOLORSTATIC || message == WM_CTLCOLORBTN) {
        result = colours(w, theme::kText, ground());
        return true;
    }
    return false;
}

}  // namespace ui
