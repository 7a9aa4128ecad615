#include "edit/title_box.h"

#include "edit/entry_line.h"
#include "platform/clipboard.h"

namespace edit {

// The system's own paste would end at the first line break.
bool TitleBox::onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (message == WM_PASTE) {
        paste();
        result = 0;
        return true;
    }
    return TextBox::onMessage(message, w, l, result);
}

void TitleBox::paste() {
    const TitleText pasted = titleText(platform::clipboardText());
    if (pasted.refused) {
        MessageBeep(MB_OK);
    }
    if (!pasted.text.empty()) {
        SendMessageW(hwnd(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(pasted.text.c_str()));
    }
}

bool TitleBox::onChar(wchar_t character) {
    if (titleText({&character, 1}).refused) {
        MessageBeep(MB_OK);
        return true;
    }
    return TextBox::onChar(character);
}

}  // namespace edit
