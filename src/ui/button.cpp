#include "ui/button.h"

#include <algorithm>
#include <utility>

#include "ui/theme.h"

namespace ui {

namespace {

constexpr float kEdgeWidth = 15.0F;  // twips
constexpr Rgb kBlack = 0x000000;
constexpr Rgb kWhite = 0xFFFFFF;

struct Colours {
    Rgb face;
    Rgb edge;
    Rgb content;
};

Colours coloursOf(ButtonLook look, const ButtonState& state, Rgb ground) {
    const bool accent = look == ButtonLook::Accent;
    if (!state.enabled) {
        return {blend(ground, theme::kDisabledText, accent ? 0.45F : 0.08F),
                blend(ground, theme::kDisabledText, 0.45F), accent ? ground : theme::kDisabledText};
    }
    Colours colours = accent ? Colours{theme::kAccent, theme::kAccent, theme::kOnAccent}
                             : Colours{theme::kButton, theme::kEdge, theme::kText};
    if (state.pressed) {
        colours.face =
            accent ? blend(colours.face, kBlack, 0.22F) : blend(colours.face, theme::kAccent, 0.24F);
    } else if (state.hot) {
        colours.face =
            accent ? blend(colours.face, kWhite, 0.14F) : blend(colours.face, theme::kAccent, 0.10F);
    }
    if (state.hot || state.pressed) {
        colours.edge = accent ? colours.face : theme::kAccent;
    }
    return colours;
}

}  // namespace

Button::Button(const CreateArgs& args, ButtonLook look) : Control(args), look_(look) {
    createSystem(styleFor(args, L"Button", BS_OWNERDRAW | BS_NOTIFY));
}

void Button::click() {
    if (enabled()) {
        SendMessageW(hwnd(), BM_CLICK, 0, 0);
    }
}

void Button::press() {
    setFocus();
    click();
}

void Button::draw(const DRAWITEMSTRUCT& item) {
    const ButtonState state{(item.itemState & ODS_DISABLED) == 0, hot_, (item.itemState & ODS_SELECTED) != 0,
                            (item.itemState & ODS_FOCUS) != 0 && (item.itemState & ODS_NOFOCUSRECT) == 0};
    const Rgb behind = ground();
    const Colours colours = coloursOf(look_, state, behind);
    const float scale = 1.0F / twipsPerPixel(dpi());
    const float edge = std::max(1.0F, kEdgeWidth * scale);
    const float radius = kButtonRadius * scale;
    const RECT& area = item.rcItem;
    const auto left = static_cast<float>(area.left);
    const auto top = static_cast<float>(area.top);
    const auto width = static_cast<float>(area.right - area.left);
    const auto height = static_cast<float>(area.bottom - area.top);

    Painting painting(area, behind);
    painting.shape(Path().roundRect(left, top, width, height, radius), colours.edge);
    painting.shape(
        Path().roundRect(left + edge, top + edge, width - 2 * edge, height - 2 * edge, radius - edge),
        colours.face);
    RECT face = area;
    InflateRect(&face, static_cast<int>(-2 * edge), static_cast<int>(-2 * edge));
    if (state.pressed) {
        OffsetRect(&face, 0, static_cast<int>(edge));
    }
    drawFace(painting, face, colours.content);
    if (state.focused) {
        painting.shape(Path().roundRectOutline(left + 2 * edge, top + 2 * edge, width - 4 * edge,
                                               height - 4 * edge, radius - 2 * edge, 2 * edge),
                       look_ == ButtonLook::Accent ? theme::kOnAccent : theme::kAccent);
    }
    painting.copyTo(item.hDC);
}

bool Button::onReflected(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    if (message == WM_DRAWITEM) {
        draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(l));
        result = TRUE;
        return true;
    }
    if (message == WM_COMMAND && (HIWORD(w) == BN_CLICKED || HIWORD(w) == BN_DOUBLECLICKED)) {
        if (onClick) {
            onClick();
        }
        return true;
    }
    return false;
}

bool Button::onEraseBackground(HDC) {
    return true;
}

bool Button::onMouseMove(const MouseEvent&) {
    if (!hot_) {
        hot_ = true;
        trackLeave();
        repaint();
    }
    return false;
}

void Button::onMouseLeave() {
    hot_ = false;
    repaint();
}

void Button::onEnabled(bool enabled) {
    hot_ = hot_ && enabled;
    repaint();
}

bool Button::onKeyDown(int key, bool repeated) {
    if (key != VK_RETURN) {
        return false;
    }
    if (!repeated) {
        click();
    }
    return true;
}

void PushButton::setText(const std::wstring& text) {
    Control::setText(text);
    repaint();
}

void PushButton::setVerbatim(bool verbatim) {
    verbatim_ = verbatim;
    repaint();
}

void PushButton::drawFace(Painting& painting, const RECT& face, Rgb colour) {
    const LRESULT cues = SendMessageW(hwnd(), WM_QUERYUISTATE, 0, 0);
    const UINT hide = (cues & UISF_HIDEACCEL) != 0 ? DT_HIDEPREFIX : 0;
    const UINT form = verbatim_ ? DT_NOPREFIX | DT_END_ELLIPSIS : hide;
    painting.text(text(), face, fontHandle(), colour, DT_CENTER | DT_VCENTER | DT_SINGLELINE | form);
}

PictureButton::PictureButton(const CreateArgs& args, Path glyph, float side, float share, ButtonLook look)
    : Button(args, look), glyph_(std::move(glyph)), side_(side), share_(share) {
    created();
}

void PictureButton::setTextShown(bool shown) {
    textShown_ = shown;
    repaint();
}

void PictureButton::drawFace(Painting& painting, const RECT& face, Rgb colour) {
    const auto width = static_cast<float>(face.right - face.left);
    const auto height = static_cast<float>(face.bottom - face.top);
    const float wanted = std::min(width, height) * share_;
    const std::wstring words = textShown_ ? text() : std::wstring();
    const auto line = words.empty() ? 0.0F : static_cast<float>(measureText(words, fontHandle()).cy) * 1.4F;
    const float top = static_cast<float>(face.top) + (height - wanted - line) / 2;
    painting.shape(
        Path().add(glyph_, wanted / side_, static_cast<float>(face.left) + (width - wanted) / 2, top),
        colour);
    const RECT below{face.left, static_cast<LONG>(top + wanted), face.right,
                     static_cast<LONG>(top + wanted + line)};
    painting.text(words, below, fontHandle(), colour,
                  DT_CENTER | DT_BOTTOM | DT_SINGLELINE | DT_END_ELLIPSIS);
}

}  // namespace ui
