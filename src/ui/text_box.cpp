#include "ui/text_box.h"

#include "ui/theme.h"

namespace ui {

namespace {

constexpr Rgb kPaper = 0xFFFFFF;

DWORD styleOf(const TextBox::Options& options) {
    DWORD style = options.multiLine ? ES_MULTILINE | ES_AUTOVSCROLL : ES_AUTOHSCROLL;
    style |= options.readOnly ? ES_READONLY : 0;
    style |= options.alignment == Alignment::Centre ? ES_CENTER : 0;
    style |= options.alignment == Alignment::Right ? ES_RIGHT : 0;
    return style;
}

}  // namespace

TextBox::TextBox(const CreateArgs& args, const Options& options)
    : Control(args),
      multiLine_(options.multiLine),
      mouse_(options.mouse),
      colour_(theme::kText),
      ground_(kPaper),
      lastText_(args.text) {
    createSystem(styleFor(args, L"Edit", styleOf(options), options.border ? WS_EX_CLIENTEDGE : 0));
    if (options.longest > 0) {
        SendMessageW(hwnd(), EM_LIMITTEXT, static_cast<WPARAM>(options.longest), 0);
    }
    created();
}

// The system writes a single line at the top of its client area, so that is made as high as a line; what is
// left of the box above and below belongs to the frame.
bool TextBox::onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (multiLine_) {
        return false;
    }
    if (message == WM_NCCALCSIZE) {
        result = callSystem(message, w, l);
        RECT& area = *reinterpret_cast<RECT*>(l);
        const int spare = static_cast<int>(area.bottom - area.top) - lineHeight();
        if (spare > 0) {
            area.top += spare / 2;
            area.bottom = area.top + lineHeight();
        }
        return true;
    }
    if (message == WM_NCPAINT) {
        result = callSystem(message, w, l);
        paintMargins();
        return true;
    }
    if (message == WM_SETFONT) {
        result = callSystem(message, w, l);
        SetWindowPos(hwnd(), nullptr, 0, 0, 0, 0,
                     SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        return true;
    }
    return false;
}

int TextBox::lineHeight() const {
    return measureText(L"X", fontHandle()).cy;
}

void TextBox::paintMargins() {
    RECT outer{};
    GetWindowRect(hwnd(), &outer);
    RECT inner{};
    GetClientRect(hwnd(), &inner);
    MapWindowPoints(hwnd(), nullptr, reinterpret_cast<POINT*>(&inner), 2);
    OffsetRect(&inner, -outer.left, -outer.top);
    OffsetRect(&outer, -outer.left, -outer.top);
    const int edge = static_cast<int>(inner.left);
    const HDC dc = GetWindowDC(hwnd());
    SetDCBrushColor(dc, colorref(ground_));
    const HBRUSH brush = static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
    const RECT above{inner.left, outer.top + edge, inner.right, inner.top};
    const RECT below{inner.left, inner.bottom, inner.right, outer.bottom - edge};
    FillRect(dc, &above, brush);
    FillRect(dc, &below, brush);
    ReleaseDC(hwnd(), dc);
}

void TextBox::setText(const std::wstring& text) {
    // A box of one line tells of a text set from code, one of several lines does not; both are told once.
    settingText_ = true;
    Control::setText(text);
    settingText_ = false;
    changed();
}

void TextBox::changed() {
    std::wstring now = text();
    if (now != lastText_) {
        lastText_ = std::move(now);
        if (onChange) {
            onChange();
        }
    }
}

void TextBox::setColours(Rgb text, Rgb ground) {
    colour_ = text;
    ground_ = ground;
    repaint();
    RedrawWindow(hwnd(), nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE);
}

void TextBox::caretToEnd() {
    const auto end = static_cast<WPARAM>(GetWindowTextLengthW(hwnd()));
    SendMessageW(hwnd(), EM_SETSEL, end, static_cast<LPARAM>(end));
}

void TextBox::selectAll() {
    SendMessageW(hwnd(), EM_SETSEL, 0, -1);
}

void TextBox::press() {
    setFocus();
    selectAll();
}

bool TextBox::onReflected(UINT message, WPARAM w, LPARAM, LRESULT& result) {
    if (message == WM_COMMAND && HIWORD(w) == EN_CHANGE && !settingText_) {
        changed();
        return true;
    }
    // A read-only box asks as a static text does.
    if (message == WM_CTLCOLOREDIT || message == WM_CTLCOLORSTATIC) {
        result = colours(w, enabled() ? colour_ : theme::kDisabledText, ground_);
        return true;
    }
    return false;
}

void TextBox::onFocus(bool gained) {
    if (onFocusChange) {
        onFocusChange(gained);
    }
}

// The margins above and below the line take clicks as the line does.
bool TextBox::onHitTest(POINT, LRESULT& where) {
    where = mouse_ ? HTCLIENT : HTTRANSPARENT;
    return !mouse_ || !multiLine_;
}

bool TextBox::onChar(wchar_t character) {
    // A box of one line would only beep.
    const bool used = !multiLine_ && (character == VK_RETURN || character == VK_TAB);
    if (used && character == VK_RETURN && onReturn) {
        onReturn();
    }
    return used;
}

}  // namespace ui
