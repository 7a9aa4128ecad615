#include "ui/form.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/monitors.h"
#include "ui/combo_box.h"
#include "ui/event_loop.h"
#include "ui/frame.h"
#include "ui/held_input.h"
#include "ui/option_button.h"
#include "ui/painting.h"
#include "ui/theme.h"

namespace ui {

namespace {

constexpr DWORD kBorderless = WS_POPUP | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
constexpr DWORD kBordered = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
constexpr DWORD kFixed = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;

DWORD styleOf(const Form::Args& args) {
    if (args.borderless) {
        return kBorderless;
    }
    return args.fixedSize ? kFixed : kBordered;
}

bool isDown(int key) {
    return GetKeyState(key) < 0;
}

// What is typed before the form can answer waits for the end of its curtain.
void begin(const Curtain*& current, const Curtain& curtain) {
    current = &curtain;
    holdInput();
}

/// Whether there was one.
bool end(const Curtain*& current) {
    if (std::exchange(current, nullptr) == nullptr) {
        return false;
    }
    releaseInput();
    return true;
}

BOOL CALLBACK collect(HWND window, LPARAM target) {
    if (auto* control = dynamic_cast<Control*>(Window::from(window))) {
        reinterpret_cast<std::vector<Control*>*>(target)->push_back(control);
    }
    return TRUE;
}

}  // namespace

Form::Form(const Args& args) : background_(theme::kGround), concealed_(args.concealed) {
    Style style;
    style.className = args.className;
    style.text = args.title.c_str();
    style.style = styleOf(args);
    style.exStyle = WS_EX_CONTROLPARENT | (args.borderless ? WS_EX_APPWINDOW : 0);
    style.parent = args.owner != nullptr ? args.owner->hwnd() : nullptr;
    const RECT work = platform::Monitors::current().primaryWorkArea();
    style.left = work.left;
    style.top = work.top;
    create(style);

    // The picture may still be in the making; the window was made meanwhile.
    if (args.curtain != nullptr && args.curtain->picture() != nullptr) {
        begin(curtain_, *args.curtain);
        const RECT& place = curtain_->place;
        SetWindowPos(hwnd(), nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
        ShowWindow(hwnd(), SW_SHOWNA);
        UpdateWindow(hwnd());
    } else {
        centre(args.width, args.height);
    }
    laidOutDpi_ = dpi();
    EventLoop::current().setFilter(filter);
}

Form::~Form() {
    end(curtain_);
    // Ending the window deactivates it; by now nobody may be there to be told.
    onActivation = nullptr;
    onMoved = nullptr;
    destroy();
}

void Form::centre(Twips width, Twips height) {
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(hwnd(), GWL_STYLE));
    const auto exStyle = static_cast<DWORD>(GetWindowLongPtrW(hwnd(), GWL_EXSTYLE));
    RECT size{0, 0, toPixels(width, dpi()), toPixels(height, dpi())};
    AdjustWindowRectExForDpi(&size, style, FALSE, exStyle, static_cast<UINT>(dpi()));
    const RECT work = platform::Monitors::current().primaryWorkArea();
    const LONG left = (work.left + work.right - (size.right - size.left)) / 2;
    const LONG top = (work.top + work.bottom - (size.bottom - size.top)) / 2;
    SetWindowPos(hwnd(), nullptr, std::max(left, work.left), std::max(top, work.top), size.right - size.left,
                 size.bottom - size.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void Form::dropCurtain(Twips width, Twips height) {
    if (end(curtain_)) {
        hide();
        centre(width, height);
    }
}

void Form::show() {
    if (end(curtain_)) {
        // A window manager may have activated it before there was anybody to be told.
        if (GetActiveWindow() == hwnd()) {
            onActivate(true);
        } else {
            SetForegroundWindow(hwnd());
        }
        return;
    }
    if (std::exchange(concealed_, false)) {
        for (Control* control : controls()) {
            control->reveal();
        }
    }
    fresh_ = !visible();
    // Becoming active changes controls, which paint themselves at once: that comes when all of them have.
    ShowWindow(hwnd(), SW_SHOWNA);
    paintNow();
    SetForegroundWindow(hwnd());
}

void Form::paintNow() {
    RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

void Form::hide() {
    ShowWindow(hwnd(), SW_HIDE);
}

bool Form::visible() const {
    return curtain_ == nullptr && IsWindowVisible(hwnd()) != FALSE;
}

void Form::setTitle(const std::wstring& title) {
    SetWindowTextW(hwnd(), title.c_str());
}

void Form::setBackground(Rgb colour) {
    background_ = colour;
    InvalidateRect(hwnd(), nullptr, TRUE);
}

void Form::setCards(std::vector<TwipsRect> cards) {
    cards_ = std::move(cards);
    InvalidateRect(hwnd(), nullptr, TRUE);
}

std::vector<Control*> Form::controls() const {
    std::vector<Control*> found;
    EnumChildWindows(hwnd(), collect, reinterpret_cast<LPARAM>(&found));
    return found;
}

// ---- painting

RECT Form::toPixelRect(const TwipsRect& place) const {
    const int d = dpi();
    return {toPixels(place.left, d), toPixels(place.top, d), toPixels(place.left + place.width, d),
            toPixels(place.top + place.height, d)};
}

Rgb Form::groundAt(POINT place) const {
    for (const TwipsRect& card : cards_) {
        const RECT area = toPixelRect(card);
        if (PtInRect(&area, place) != FALSE) {
            return theme::kCard;
        }
    }
    return background_;
}

void Form::paintTo(HDC dc, const RECT& area) {
    if (const picture::Surface* picture = curtain_ != nullptr ? curtain_->picture() : nullptr) {
        BitBlt(dc, area.left, area.top, area.right - area.left, area.bottom - area.top, picture->dc(),
               area.left, area.top, SRCCOPY);
        return;
    }
    Painting painting(area, background_);
    drawGround(painting);
    for (const TwipsRect& card : cards_) {
        paintCard(painting, toPixelRect(card), dpi());
    }
    painting.copyTo(dc);
}

void Form::onPaint(HDC dc, const RECT& area) {
    paintTo(dc, area);
}

// A form that was just shown is seen before its controls have painted, and their places would be black: the
// ground goes there as well.
void Form::paintBelowControls() {
    RECT all{};
    GetClientRect(hwnd(), &all);
    const HDC unclipped = GetDCEx(hwnd(), nullptr, DCX_CACHE);
    paintTo(unclipped, all);
    ReleaseDC(hwnd(), unclipped);
}

// The form's own ground is painted once, by onPaint; a child that draws see-through asks with its own DC.
bool Form::onEraseBackground(HDC dc) {
    if (std::exchange(fresh_, false)) {
        paintBelowControls();
    } else if (WindowFromDC(dc) != hwnd()) {
        RECT area{};
        GetClipBox(dc, &area);
        paintTo(dc, area);
    }
    return true;
}

void Form::onDpiChanged(int dpi, const RECT& suggested) {
    SetWindowPos(hwnd(), nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    keepGrip(dpi);
    for (Control* control : controls()) {
        control->applyDpi();
    }
    InvalidateRect(hwnd(), nullptr, TRUE);
    if (onDpi) {
        onDpi();
    }
}

// A form that is dragged to a monitor of another scaling stays at the pointer by the same part of its ground.
void Form::keepGrip(int dpi) {
    const int before = std::exchange(laidOutDpi_, dpi);
    if (!dragging_ || before == dpi) {
        return;
    }
    grip_ = {MulDiv(grip_.x, dpi, before), MulDiv(grip_.y, dpi, before)};
    POINT pointer{};
    GetCursorPos(&pointer);
    // Being moved may lead back to the former monitor; that change is taken as the system suggests it.
    dragging_ = false;
    moveTo(pointer);
    dragging_ = true;
}

void Form::moveTo(POINT pointer) {
    SetWindowPos(hwnd(), nullptr, pointer.x - grip_.x, pointer.y - grip_.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// ---- activation and closing

void Form::onActivate(bool active) {
    if (!active) {
        const HWND focus = GetFocus();
        lastFocus_ = focus != nullptr && IsChild(hwnd(), focus) != FALSE ? focus : nullptr;
    }
    if (onActivation) {
        onActivation(active);
    }
}

void Form::onFocus(bool gained) {
    const HWND last = std::exchange(lastFocus_, nullptr);
    if (gained && last != nullptr && IsChild(hwnd(), last) != FALSE && IsWindowVisible(last) != FALSE &&
        IsWindowEnabled(last) != FALSE) {
        SetFocus(last);
    }
}

bool Form::onClose() {
    if (onCloseAsked) {
        onCloseAsked();
        return true;
    }
    return false;
}

// Alt or F10 alone would open the menu of a window that shows none, and take the keys away from the form.
bool Form::onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    constexpr WPARAM kCommandBits = 0xFFF0;
    if (message == WM_SYSCOMMAND && (w & kCommandBits) == SC_KEYMENU && l == 0) {
        result = 0;
        return true;
    }
    if (message == WM_QUERYENDSESSION && EventLoop::current().held()) {
        result = FALSE;
        return true;
    }
    return false;
}

// ---- mouse

// The form follows the pointer by itself instead of the system's moving loop, so that everything else goes
// on meanwhile.
bool Form::onMouseDown(const MouseEvent& event) {
    if (event.button == MouseButton::Left && movable_) {
        dragging_ = true;
        grip_ = {event.x, event.y};
        SetCapture(hwnd());
    }
    if (onPressed) {
        onPressed(event);
    }
    return true;
}

bool Form::onMouseUp(const MouseEvent&) {
    if (std::exchange(dragging_, false)) {
        ReleaseCapture();
    }
    return true;
}

bool Form::onMouseMove(const MouseEvent& event) {
    if (dragging_ && GetCapture() == hwnd()) {
        POINT pointer{event.x, event.y};
        ClientToScreen(hwnd(), &pointer);
        moveTo(pointer);
        return true;
    }
    dragging_ = false;
    if (onMoved) {
        onMoved(event);
    }
    return false;
}

// ---- keyboard

// Escape in an open list closes the list; the character that it is translated to would reach the form.
bool Form::closesList(const MSG& message) {
    auto* list = dynamic_cast<ComboBox*>(Window::from(message.hwnd));
    if (message.message != WM_KEYDOWN || message.wParam != VK_ESCAPE || list == nullptr ||
        !list->droppedDown()) {
        return false;
    }
    list->cancel();
    return true;
}

bool Form::filter(MSG& message) {
    const bool key = message.message == WM_KEYDOWN || message.message == WM_SYSCHAR;
    if (!key || message.hwnd == nullptr) {
        return false;
    }
    auto* form = dynamic_cast<Form*>(Window::from(GetAncestor(message.hwnd, GA_ROOT)));
    if (form == nullptr || !form->navigation_) {
        return false;
    }
    bool used = false;
    EventLoop::current().guarded([&] { used = closesList(message) || form->navigate(message); });
    return used;
}

bool Form::navigate(const MSG& message) {
    if (message.message == WM_SYSCHAR) {
        return takeAccessKey(static_cast<wchar_t>(message.wParam));
    }
    const auto key = static_cast<int>(message.wParam);
    if (key == VK_TAB && !isDown(VK_CONTROL)) {
        return takeTab(isDown(VK_SHIFT));
    }
    auto* option = dynamic_cast<OptionButton*>(Window::from(message.hwnd));
    if (option == nullptr) {
        return false;
    }
    const bool forwards = key == VK_DOWN || key == VK_RIGHT;
    const bool backwards = key == VK_UP || key == VK_LEFT;
    if (forwards || backwards) {
        showFocus();
        option->group().chooseFrom(*option, forwards ? 1 : -1);
    }
    return forwards || backwards;
}

bool Form::takeTab(bool backwards) {
    const HWND focus = GetFocus();
    const HWND from = focus != nullptr && IsChild(hwnd(), focus) != FALSE ? focus : nullptr;
    const HWND next = GetNextDlgTabItem(hwnd(), from, backwards ? TRUE : FALSE);
    if (next == nullptr) {
        return false;
    }
    showFocus();
    SetFocus(next);
    SendMessageW(next, EM_SETSEL, 0, -1);
    return true;
}

bool Form::takeAccessKey(wchar_t letter) {
    const auto capital = static_cast<wchar_t>(
        reinterpret_cast<ULONG_PTR>(CharUpperW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(letter)))));
    for (Control* control : controls()) {
        if (control->accessKey() == capital && IsWindowVisible(control->hwnd()) != FALSE &&
            control->enabled()) {
            showFocus();
            control->press();
            return true;
        }
    }
    return false;
}

// From the first use of the keyboard on the focus and the underlined letters are shown.
void Form::showFocus() {
    SendMessageW(hwnd(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
}

bool Form::onKeyDownPreview(int key, bool repeated) {
    return onKey && onKey(key, repeated);
}

bool Form::onCharPreview(wchar_t character) {
    return onTyped && onTyped(character);
}

}  // namespace ui
