#pragma once

#include <functional>

#include "ui/control.h"

namespace overview {

/// What the thumbnails of a grid lie in: their ground, a scroll bar, and the keyboard focus of them all.
class GridPanel : public ui::Control {
  public:
    explicit GridPanel(const ui::CreateArgs& args);

    /// Nobody is told of anything any more.
    void disconnect();

    /// Shows a scroll bar for a content of that height in pixels, or none where all of it is seen.
    void setScroll(int position, int viewHeight, int contentHeight);
    /// Of the scroll bar in pixels.
    int scrollBarWidth() const;
    /// The panel's size in pixels, the scroll bar included.
    SIZE fullSize() const;

    /// Where the scroll bar was moved to.
    std::function<void(int position)> onScrollTo;
    /// One line or page further (the number of them; negative upwards).
    std::function<void(int lines, int pages)> onScrollBy;
    std::function<void(int notches, bool control)> onWheelTurned;
    /// A key went down; true uses it up.
    std::function<bool(int key)> onKey;
    /// The menu of the selected item is wanted from the keyboard.
    std::function<void()> onMenuKey;
    std::function<void()> onResized;
    /// The ground was pressed, beside all items.
    std::function<void(const ui::MouseEvent&)> onGroundPressed;

    /// The mouse moved, or its left button went up, while the panel has the capture; places on the screen.
    std::function<void(POINT screen)> onDragged;
    std::function<void(POINT screen)> onReleased;
    std::function<void()> onCaptureLost;

  protected:
    bool paints() const override { return true; }
    void onPaint(HDC dc, const RECT& area) override;
    bool onEraseBackground(HDC) override { return true; }
    bool onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    bool onKeyDown(int key, bool repeated) override;
    bool onMouseDown(const ui::MouseEvent& event) override;
    bool onMouseMove(const ui::MouseEvent& event) override;
    bool onMouseUp(const ui::MouseEvent& event) override;
    void onSize(int width, int height) override;

  private:
    void scrolled(int code);
    void turned(int delta, bool control);
    POINT onScreen(const ui::MouseEvent& event) const;

    int wheel_ = 0;  ///< what is left of a notch
};

}  // namespace overview
