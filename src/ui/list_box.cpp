#include "ui/list_box.h"

#include <windowsx.h>

#include <algorithm>
#include <stdexcept>

#include "ui/painting.h"
#include "ui/theme.h"

namespace ui {

namespace {

constexpr DWORD kStyle = LBS_NOTIFY | LBS_HASSTRINGS | LBS_OWNERDRAWFIXED | LBS_NOINTEGRALHEIGHT | WS_VSCROLL;
constexpr Rgb kPaper = 0xFFFFFF;
constexpr Twips kRow = 315;
constexpr Twips kTextLeft = 90;
constexpr Twips kFocusWidth = 15;

MouseEvent mouseEvent(UINT message, WPARAM w, LPARAM l) {
    const bool right = message == WM_RBUTTONDOWN || message == WM_RBUTTONUP;
    return {right ? MouseButton::Right : MouseButton::Left, GET_X_LPARAM(l), GET_Y_LPARAM(l),
            (w & MK_SHIFT) != 0, (w & MK_CONTROL) != 0};
}

}  // namespace

ListBox::ListBox(const CreateArgs& args, Selection selection)
    : Control(args), multiple_(selection == Selection::Multiple) {
    const DWORD kind = multiple_ ? DWORD{LBS_MULTIPLESEL} : DWORD{0};
    createSystem(styleFor(args, L"ListBox", kStyle | kind, WS_EX_CLIENTEDGE));
    created();
}

void ListBox::applyMeasures() {
    SendMessageW(hwnd(), LB_SETITEMHEIGHT, 0, toPixels(kRow, dpi()));
}

void ListBox::checkIndex(int index, int count) const {
    if (index < 0 || index >= count) {
        throw std::out_of_range("index of a list");
    }
}

int ListBox::count() const {
    return static_cast<int>(SendMessageW(hwnd(), LB_GETCOUNT, 0, 0));
}

std::wstring ListBox::item(int index) const {
    checkIndex(index, count());
    const LRESULT length = SendMessageW(hwnd(), LB_GETTEXTLEN, static_cast<WPARAM>(index), 0);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied =
        SendMessageW(hwnd(), LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

void ListBox::add(const std::wstring& text, int data) {
    insert(count(), text, data);
}

void ListBox::insert(int index, const std::wstring& text, int data) {
    checkIndex(index, count() + 1);
    SendMessageW(hwnd(), LB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.c_str()));
    setItemData(index, data);
}

void ListBox::remove(int index) {
    checkIndex(index, count());
    SendMessageW(hwnd(), LB_DELETESTRING, static_cast<WPARAM>(index), 0);
}

void ListBox::clear() {
    SendMessageW(hwnd(), LB_RESETCONTENT, 0, 0);
}

int ListBox::itemData(int index) const {
    checkIndex(index, count());
    return static_cast<int>(SendMessageW(hwnd(), LB_GETITEMDATA, static_cast<WPARAM>(index), 0));
}

void ListBox::setItemData(int index, int data) {
    checkIndex(index, count());
    SendMessageW(hwnd(), LB_SETITEMDATA, static_cast<WPARAM>(index), data);
}

int ListBox::selectedIndex() const {
    return static_cast<int>(SendMessageW(hwnd(), multiple_ ? LB_GETCARETINDEX : LB_GETCURSEL, 0, 0));
}

void ListBox::setSelectedIndex(int index) {
    if (index != -1) {
        checkIndex(index, count());
    }
    if (index != selectedIndex()) {
        select(index);
        if (onClick) {
            onClick();
        }
    }
}

void ListBox::select(int index) {
    SendMessageW(hwnd(), multiple_ ? LB_SETCARETINDEX : LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

bool ListBox::selected(int index) const {
    checkIndex(index, count());
    return SendMessageW(hwnd(), LB_GETSEL, static_cast<WPARAM>(index), 0) > 0;
}

void ListBox::setSelected(int index, bool selected) {
    checkIndex(index, count());
    SendMessageW(hwnd(), LB_SETSEL, selected ? TRUE : FALSE, index);
}

int ListBox::topIndex() const {
    return static_cast<int>(SendMessageW(hwnd(), LB_GETTOPINDEX, 0, 0));
}

void ListBox::setTopIndex(int index) {
    SendMessageW(hwnd(), LB_SETTOPINDEX, static_cast<WPARAM>(index), 0);
}

// The system names the nearest item for a place that none covers.
int ListBox::itemAt(int x, int y) const {
    const auto nearest =
        static_cast<WPARAM>(LOWORD(SendMessageW(hwnd(), LB_ITEMFROMPOINT, 0, MAKELPARAM(x, y))));
    RECT place{};
    if (SendMessageW(hwnd(), LB_GETITEMRECT, nearest, reinterpret_cast<LPARAM>(&place)) == LB_ERR) {
        return -1;
    }
    RECT area{};
    GetClientRect(hwnd(), &area);
    const POINT point{x, y};
    return PtInRect(&place, point) != FALSE && PtInRect(&area, point) != FALSE ? static_cast<int>(nearest)
                                                                               : -1;
}

// Each change of an item takes the focus there and scrolls to it.
void ListBox::setHighlights(const std::vector<bool>& highlights) {
    const int focused = selectedIndex();
    const int top = topIndex();
    bool changed = false;
    SendMessageW(hwnd(), WM_SETREDRAW, FALSE, 0);
    for (int i = 0; i < count(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        const bool wanted = at < highlights.size() && highlights[at];
        if (selected(i) != wanted) {
            setSelected(i, wanted);
            changed = true;
        }
    }
    if (changed) {
        SendMessageW(hwnd(), LB_SETCARETINDEX, static_cast<WPARAM>(focused), FALSE);
        setTopIndex(top);
    }
    SendMessageW(hwnd(), WM_SETREDRAW, TRUE, 0);
    if (changed) {
        repaint();
    }
}

void ListBox::replaceItems(const std::vector<std::wstring>& items) {
    SendMessageW(hwnd(), WM_SETREDRAW, FALSE, 0);
    clear();
    std::size_t characters = 0;
    for (const std::wstring& text : items) {
        characters += text.size() + 1;
    }
    SendMessageW(hwnd(), LB_INITSTORAGE, items.size(), static_cast<LPARAM>(characters * sizeof(wchar_t)));
    for (const std::wstring& text : items) {
        SendMessageW(hwnd(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    SendMessageW(hwnd(), WM_SETREDRAW, TRUE, 0);
    repaint();
}

void ListBox::chosen() {
    if (onClick) {
        onClick();
    }
}

// The events come after the system's own handling, so that the selection is up to date.
bool ListBox::onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
            result = callSystem(message, w, l);
            if (onPressed) {
                onPressed(mouseEvent(message, w, l));
            }
            return true;
        case WM_LBUTTONUP:
        case WM_RBUTTONUP:
            result = callSystem(message, w, l);
            if (multiple_) {
                // The frame that showed where the pointer was.
                repaint();
            }
            if (onReleased) {
                onReleased(mouseEvent(message, w, l));
            }
            return true;
        case WM_UPDATEUISTATE:
            result = callSystem(message, w, l);
            repaint();
            return true;
        case WM_LBUTTONDBLCLK:
            result = callSystem(message, w, l);
            if (onDoubleClicked) {
                onDoubleClicked(mouseEvent(message, w, l));
            }
            return true;
        default:
            return false;
    }
}

bool ListBox::onReflected(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (message == WM_CTLCOLORLISTBOX) {
        result = colours(w, theme::kText, kPaper);
        return true;
    }
    if (message == WM_DRAWITEM) {
        const auto& row = *reinterpret_cast<const DRAWITEMSTRUCT*>(l);
        if (static_cast<int>(row.itemID) >= 0) {
            drawRow(row);
        }
        result = TRUE;
        return true;
    }
    if (message != WM_COMMAND) {
        return false;
    }
    if (HIWORD(w) == LBN_SELCHANGE) {
        chosen();
        return true;
    }
    return false;
}

Rgb ListBox::rowGround(const DRAWITEMSTRUCT& row) {
    if ((row.itemState & ODS_SELECTED) == 0) {
        return kPaper;
    }
    return blend(kPaper, theme::kAccent, (row.itemState & ODS_FOCUS) != 0 ? 0.26F : 0.16F);
}

void ListBox::drawRow(const DRAWITEMSTRUCT& row) const {
    Painting painting(row.rcItem, rowGround(row));
    const RECT place{row.rcItem.left + toPixels(kTextLeft, dpi()), row.rcItem.top, row.rcItem.right,
                     row.rcItem.bottom};
    painting.text(item(static_cast<int>(row.itemID)), place, fontHandle(), theme::kText,
                  DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    // Where many are selected the one that the keys work on is not told by its ground, nor is the one that
    // the pointer drags to, which the focus follows.
    const auto framed = [&] {
        const LRESULT cues = SendMessageW(hwnd(), WM_QUERYUISTATE, 0, 0);
        return (cues & UISF_HIDEFOCUS) == 0 || GetCapture() == hwnd();
    };
    if (multiple_ && (row.itemState & ODS_FOCUS) != 0 && framed()) {
        const float width = std::max(1.0F, kFocusWidth / twipsPerPixel(dpi()));
        painting.shape(
            Path().roundRectOutline(static_cast<float>(row.rcItem.left), static_cast<float>(row.rcItem.top),
                                    static_cast<float>(row.rcItem.right - row.rcItem.left),
                                    static_cast<float>(row.rcItem.bottom - row.rcItem.top), 0, width),
            theme::kAccent);
    }
    painting.copyTo(row.hDC);
}

bool ListBox::onKeyDown(int key, bool repeated) {
    if (multiple_) {
        SendMessageW(hwnd(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    }
    if ((key != VK_RETURN || !onReturn) && (key != VK_SPACE || !onSpace)) {
        return false;
    }
    if (!repeated) {
        key == VK_RETURN ? onReturn() : onSpace();
    }
    return true;
}

// The character of a key that was used up would look for an item that begins with it.
bool ListBox::onChar(wchar_t character) {
    return character == L' ' && onSpace;
}

}  // namespace ui
