#include "ui/combo_box.h"

#include <commctrl.h>

#include <stdexcept>

#include "ui/painting.h"
#include "ui/theme.h"

namespace ui {

namespace {

constexpr int kRowsShown = 16;
constexpr Twips kRow = 360;
constexpr Twips kTextLeft = 90;
constexpr Rgb kPaper = 0xFFFFFF;

}  // namespace

ComboBox::ComboBox(const CreateArgs& args) : Control(args) {
    createSystem(
        styleFor(args, L"ComboBox", CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS | WS_VSCROLL));
    created();
}

// The system makes the box as high as its font wants; the layout decides here, and the place's height is that
// of the closed box.
void ComboBox::applyMeasures() {
    constexpr WPARAM kBox = static_cast<WPARAM>(-1);
    const int wanted = toPixels(top() + height(), dpi()) - toPixels(top(), dpi());
    // What the frame adds depends on the theme and shows only afterwards.
    for (int i = 0; i < 2; ++i) {
        RECT outer{};
        GetWindowRect(hwnd(), &outer);
        const int excess = static_cast<int>(outer.bottom - outer.top) - wanted;
        const auto inner = static_cast<int>(SendMessageW(hwnd(), CB_GETITEMHEIGHT, kBox, 0));
        if (excess != 0 && inner > excess) {
            SendMessageW(hwnd(), CB_SETITEMHEIGHT, kBox, inner - excess);
        }
    }
    SendMessageW(hwnd(), CB_SETITEMHEIGHT, 0, toPixels(kRow, dpi()));
    SendMessageW(hwnd(), CB_SETMINVISIBLE, kRowsShown, 0);
}

int ComboBox::count() const {
    return static_cast<int>(SendMessageW(hwnd(), CB_GETCOUNT, 0, 0));
}

std::wstring ComboBox::item(int index) const {
    if (index < 0 || index >= count()) {
        throw std::out_of_range("index of a list");
    }
    const LRESULT length = SendMessageW(hwnd(), CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied =
        SendMessageW(hwnd(), CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

void ComboBox::add(const std::wstring& text) {
    SendMessageW(hwnd(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void ComboBox::clear() {
    SendMessageW(hwnd(), CB_RESETCONTENT, 0, 0);
    lastIndex_ = -1;
}

int ComboBox::selectedIndex() const {
    return static_cast<int>(SendMessageW(hwnd(), CB_GETCURSEL, 0, 0));
}

void ComboBox::select(int index) {
    SendMessageW(hwnd(), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    lastIndex_ = index;
}

void ComboBox::setSelectedIndex(int index) {
    if (index < -1 || index >= count()) {
        throw std::out_of_range("index of a list");
    }
    if (index != selectedIndex()) {
        select(index);
        changed();
    }
}

void ComboBox::changed() {
    if (onChange) {
        onChange();
    }
}

void ComboBox::drawRow(const DRAWITEMSTRUCT& row) const {
    const bool selected = (row.itemState & ODS_SELECTED) != 0;
    Painting painting(row.rcItem, selected ? blend(kPaper, theme::kAccent, 0.22F) : kPaper);
    const RECT place{row.rcItem.left + toPixels(kTextLeft, dpi()), row.rcItem.top, row.rcItem.right,
                     row.rcItem.bottom};
    if (static_cast<int>(row.itemID) >= 0 && static_cast<int>(row.itemID) < count()) {
        painting.text(item(static_cast<int>(row.itemID)), place, fontHandle(),
                      enabled() ? theme::kText : theme::kDisabledText,
                      DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
    painting.copyTo(row.hDC);
}

bool ComboBox::onReflected(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (message == WM_DRAWITEM) {
        drawRow(*reinterpret_cast<const DRAWITEMSTRUCT*>(l));
        result = TRUE;
        return true;
    }
    if (message != WM_COMMAND) {
        return false;
    }
    if (HIWORD(w) == CBN_DROPDOWN) {
        onDropDown();
        return true;
    }
    switch (HIWORD(w)) {
        case CBN_CLOSEUP:
            takeChoice();
            return true;
        case CBN_SELCHANGE:
            if (!droppedDown()) {
                takeChoice();
            }
            return true;
        default:
            return false;
    }
}

// What the arrow keys pass in the open list is no choice before the list closes, and none when Escape closes
// it.
void ComboBox::takeChoice() {
    if (!cancelled_ && selectedIndex() != lastIndex_) {
        lastIndex_ = selectedIndex();
        changed();
    }
}

void ComboBox::cancel() {
    cancelled_ = true;
    SendMessageW(hwnd(), CB_SHOWDROPDOWN, FALSE, 0);
    cancelled_ = false;
    select(lastIndex_);
}

bool ComboBox::droppedDown() const {
    return SendMessageW(hwnd(), CB_GETDROPPEDSTATE, 0, 0) != FALSE;
}

}  // namespace ui
