#pragma once

#include <functional>

#include "picture/surface.h"
#include "ui/control.h"

namespace ui {

/// A box that keeps an image and paints it from its top left corner, black where the image does not reach.
///
/// The image has a size of its own: a box made smaller shows a part of it, made larger again shows it
/// whole. With automatic redraw on, drawing goes to the image and the box repaints; with it off, drawing
/// goes to the window and the image stays as it was.
class PictureBox : public Control {
  public:
    explicit PictureBox(const CreateArgs& args);

    const picture::Surface& image() const { return image_; }
    picture::Surface& image() { return image_; }
    /// Takes an image of any size and repaints.
    /// Returns the image that was there.
    picture::Surface setImage(picture::Surface image);
    void setImage(const picture::Pixels& pixels);
    /// Gives the image the size of the box, black.
    void clear();
    /// Empties the box: no image is kept.
    void drop();
    bool autoRedraw() const { return autoRedraw_; }
    void setAutoRedraw(bool on) { autoRedraw_ = on; }
    /// Runs `drawing` on the image or the window (automatic redraw off).
    void draw(const std::function<void(HDC)>& drawing);
    /// Copies the image to the window now, without waiting for the next paint message.
    void paintNow();
    /// The colour beyond the image; black at first.
    void setBackground(COLORREF colour);
    /// The pointer over this box; null is the arrow.
    void setPointer(HCURSOR pointer) { pointer_ = pointer; }

    /// Asked before the box is painted from its image while automatic redraw is off: whoever draws onto the
    /// window brings the image up to date, so that a repaint shows what was on the screen.
    std::function<void()> onImageWanted;

    std::function<void(const MouseEvent&)> onPressed;
    std::function<void(const MouseEvent&)> onMoved;
    std::function<void()> onLeft;
    /// A left button pressed and released over the box.
    std::function<void()> onClick;

  protected:
    bool paints() const override { return true; }
    void onPaint(HDC dc, const RECT& area) override;
    bool onEraseBackground(HDC dc) override;
    bool onMouseDown(const MouseEvent& event) override;
    bool onMouseUp(const MouseEvent& event) override;
    bool onMouseMove(const MouseEvent& event) override;
    void onMouseLeave() override;
    bool onSetCursor() override;

  private:
    void paintTo(HDC dc, const RECT& area) const;

    picture::Surface image_;
    COLORREF background_ = RGB(0, 0, 0);
    HCURSOR pointer_ = nullptr;
    bool autoRedraw_ = true;
    bool pressed_ = false;
    bool over_ = false;
};

}  // namespace ui
