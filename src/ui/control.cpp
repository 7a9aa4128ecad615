#include "ui/control.h"

#include <utility>

#include "ui/theme.h"

namespace ui {

Control::Control(const CreateArgs& args)
    : place_(args.place), font_(args.font), visible_(args.visible), parent_(args.parent) {}

Window::Style Control::styleFor(const CreateArgs& args, const wchar_t* className, DWORD style,
                                DWORD exStyle) const {
    const int dpi = args.parent.dpi();
    Style made;
    made.className = className;
    made.text = args.text.c_str();
    made.style = style | WS_CHILD | WS_CLIPSIBLINGS | (args.visible && !concealed() ? WS_VISIBLE : 0) |
                 (args.tabStop ? WS_TABSTOP : 0) | (args.startsGroup ? WS_GROUP : 0);
    made.exStyle = exStyle;
    made.parent = parent_.hwnd();
    made.id = args.id;
    made.left = toPixels(place_.left, dpi);
    made.top = toPixels(place_.top, dpi);
    made.width = toPixels(place_.left + place_.width, dpi) - made.left;
    made.height = toPixels(place_.top + place_.height, dpi) - made.top;
    return made;
}

// Nothing of a new control is on the screen yet, and it lies where it was made.
void Control::created() {
    applyFont(Redraw::No);
    applyMeasures();
}

void Control::move(const TwipsRect& place) {
    if (place == place_) {
        return;
    }
    place_ = place;
    applyPlace();
}

void Control::movePixels(int left, int top, int width, int height) {
    const int d = dpi();
    move({toTwips(left, d), toTwips(top, d), toTwips(width, d), toTwips(height, d)});
}

// Edges are rounded, not sizes, so that neighbours which touch in twips touch in pixels.
void Control::applyPlace() {
    const int d = dpi();
    const int left = toPixels(place_.left, d);
    const int top = toPixels(place_.top, d);
    SetWindowPos(hwnd(), nullptr, left, top, toPixels(place_.left + place_.width, d) - left,
                 toPixels(place_.top + place_.height, d) - top,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

void Control::setVisible(bool visible) {
    visible_ = visible;
    if (!concealed()) {
        ShowWindow(hwnd(), visible ? SW_SHOWNA : SW_HIDE);
    }
}

void Control::hideUnpainted() {
    visible_ = false;
    SetWindowPos(hwnd(), nullptr, 0, 0, 0, 0,
                 SWP_HIDEWINDOW | SWP_NOREDRAW | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Control::reveal() {
    if (visible_) {
        ShowWindow(hwnd(), SW_SHOWNA);
    }
    if (!toolTip_.empty()) {
        Tooltip::of(GetAncestor(hwnd(), GA_ROOT)).set(hwnd(), toolTip_);
    }
}

bool Control::enabled() const {
    return IsWindowEnabled(hwnd()) != FALSE;
}

void Control::setEnabled(bool enabled) {
    if (enabled == this->enabled()) {
        return;
    }
    // The system leaves the focus on a disabled window, where every key would be lost.
    const HWND form = GetAncestor(hwnd(), GA_ROOT);
    if (!enabled && hasFocus()) {
        lostFocus_ = true;
        SetFocus(form);
    }
    EnableWindow(hwnd(), enabled ? TRUE : FALSE);
    if (enabled && std::exchange(lostFocus_, false) && GetFocus() == form) {
        setFocus();
    }
}

std::wstring Control::text() const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(hwnd())), L'\0');
    const int length = GetWindowTextW(hwnd(), text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void Control::setText(const std::wstring& text) {
    SetWindowTextW(hwnd(), text.c_str());
}

void Control::setToolTip(const std::wstring& text) {
    if (text == toolTip_) {
        return;
    }
    toolTip_ = text;
    if (!concealed()) {
        Tooltip::of(GetAncestor(hwnd(), GA_ROOT)).set(hwnd(), text);
    }
}

void Control::setFont(const FontSpec& font) {
    font_ = font;
    applyDpi();
}

void Control::setFocus() {
    SetFocus(hwnd());
}

bool Control::hasFocus() const {
    return GetFocus() == hwnd();
}

void Control::toFront() {
    SetWindowPos(hwnd(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

wchar_t Control::accessKey() const {
    if (accessKey_ != 0 || !underlines()) {
        return accessKey_;
    }
    const std::wstring shown = text();
    for (std::size_t i = shown.find(L'&'); i != std::wstring::npos && i + 1 < shown.size();
         i = shown.find(L'&', i + 2)) {
        if (shown[i + 1] != L'&') {
            return static_cast<wchar_t>(
                reinterpret_cast<ULONG_PTR>(CharUpperW(reinterpret_cast<LPWSTR>(shown[i + 1]))));
        }
    }
    return 0;
}

LRESULT Control::colours(WPARAM dc, Rgb text, Rgb ground) {
    const HDC target = reinterpret_cast<HDC>(dc);
    SetTextColor(target, colorref(text));
    SetBkColor(target, colorref(ground));
    SetDCBrushColor(target, colorref(ground));
    return reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH));
}

void Control::repaint() {
    InvalidateRect(hwnd(), nullptr, TRUE);
}

void Control::applyFont(Redraw redraw) {
    SendMessageW(hwnd(), WM_SETFONT, reinterpret_cast<WPARAM>(fontHandle()),
                 redraw == Redraw::Yes ? TRUE : FALSE);
}

void Control::applyDpi() {
    applyFont(Redraw::Yes);
    applyPlace();
    applyMeasures();
}

}  // namespace ui
