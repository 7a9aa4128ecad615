#include "ui/picture_box.h"

#include <algorithm>
#include <utility>

namespace ui {

PictureBox::PictureBox(const CreateArgs& args) : Control(args) {
    create(styleFor(args, L"PanorellPictureBox", WS_CLIPCHILDREN));
    created();
}

picture::Surface PictureBox::setImage(picture::Surface image) {
    std::swap(image_, image);
    repaint();
    return image;
}

void PictureBox::setImage(const picture::Pixels& pixels) {
    if (image_.width() != pixels.width || image_.height() != pixels.height) {
        image_ = picture::Surface(pixels.width, pixels.height);
    }
    image_.put(pixels);
    repaint();
}

void PictureBox::clear() {
    const SIZE size = clientSize();
    if (image_.width() != size.cx || image_.height() != size.cy) {
        image_ = picture::Surface(size.cx, size.cy);
    } else {
        image_.fill(RGB(0, 0, 0));
    }
    repaint();
}

void PictureBox::drop() {
    image_ = picture::Surface();
    repaint();
}

void PictureBox::draw(const std::function<void(HDC)>& drawing) {
    if (autoRedraw_) {
        if (image_.empty()) {
            clear();
        }
        drawing(image_.dc());
        repaint();
        return;
    }
    const platform::WindowDc window(hwnd());
    drawing(window.get());
}

void PictureBox::paintNow() {
    UpdateWindow(hwnd());
    const platform::WindowDc window(hwnd());
    const SIZE size = clientSize();
    paintTo(window.get(), {0, 0, size.cx, size.cy});
}

void PictureBox::setBackground(COLORREF colour) {
    background_ = colour;
    repaint();
}

void PictureBox::onPaint(HDC dc, const RECT& area) {
    if (!autoRedraw_ && onImageWanted) {
        onImageWanted();
    }
    paintTo(dc, area);
}

void PictureBox::paintTo(HDC dc, const RECT& area) const {
    const int right = std::min<int>(area.right, image_.width());
    const int bottom = std::min<int>(area.bottom, image_.height());
    if (right > area.left && bottom > area.top) {
        BitBlt(dc, area.left, area.top, right - area.left, bottom - area.top, image_.dc(), area.left,
               area.top, SRCCOPY);
    }
    SetDCBrushColor(dc, background_);
    const HBRUSH brush = static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
    const RECT beside{std::max<LONG>(area.left, image_.width()), area.top, area.right, area.bottom};
    const RECT below{area.left, std::max<LONG>(area.top, image_.height()), beside.left, area.bottom};
    if (beside.right > beside.left) {
        FillRect(dc, &beside, brush);
    }
    if (below.bottom > below.top && below.right > below.left) {
        FillRect(dc, &below, brush);
    }
}

bool PictureBox::onEraseBackground(HDC) {
    return true;
}

bool PictureBox::onMouseDown(const MouseEvent& event) {
    pressed_ = event.button == MouseButton::Left;
    if (onPressed) {
        onPressed(event);
    }
    return true;
}

bool PictureBox::onMouseUp(const MouseEvent& event) {
    const bool clicked = std::exchange(pressed_, false) && event.button == MouseButton::Left;
    const SIZE size = clientSize();
    if (clicked && event.x >= 0 && event.y >= 0 && event.x < size.cx && event.y < size.cy && onClick) {
        onClick();
    }
    return true;
}

bool PictureBox::onMouseMove(const MouseEvent& event) {
    if (!over_) {
        over_ = true;
        trackLeave();
    }
    if (onMoved) {
        onMoved(event);
    }
    return false;
}

void PictureBox::onMouseLeave() {
    over_ = false;
    pressed_ = false;
    if (onLeft) {
        onLeft();
    }
}

bool PictureBox::onSetCursor() {
    SetCursor(pointer_ != nullptr ? pointer_ : LoadCursorW(nullptr, IDC_ARROW));
    return true;
}

}  // namespace ui
