#pragma once

#include <functional>

#include "ui/control.h"
#include "ui/painting.h"

namespace ui {

/// Of a button's round corners.
inline constexpr Twips kButtonRadius = 90;

/// How a button looks: quiet ones have the paper's colour, the one that matters most the accent colour.
enum class ButtonLook { Quiet, Accent };

/// What a button looks like at the moment it is drawn.
struct ButtonState {
    bool enabled = true;
    bool hot = false;      ///< the pointer is over it
    bool pressed = false;  ///< held down
    bool focused = false;  ///< has the focus, and the keyboard is being used
};

/// The system's button, worked by mouse and keyboard (space, return), with a face of the program's own.
/// Double clicks count as two clicks.
class Button : public Control {
  public:
    /// Presses the button as its user would; a disabled one does nothing.
    void click();
    void press() override;
    bool underlines() const override { return true; }

    std::function<void()> onClick;

  protected:
    Button(const CreateArgs& args, ButtonLook look);

    /// Draws what stands on the face, in the colour given, moved down while pressed.
    virtual void drawFace(Painting& painting, const RECT& face, Rgb colour) = 0;

    bool onReflected(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    bool onEraseBackground(HDC dc) override;
    bool onMouseMove(const MouseEvent& event) override;
    void onMouseLeave() override;
    void onEnabled(bool enabled) override;
    bool onKeyDown(int key, bool repeated) override;

  private:
    void draw(const DRAWITEMSTRUCT& item);

    ButtonLook look_;
    bool hot_ = false;
};

/// A button with a text.
class PushButton : public Button {
  public:
    explicit PushButton(const CreateArgs& args, ButtonLook look = ButtonLook::Quiet) : Button(args, look) {
        created();
    }

    void setText(const std::wstring& text) override;
    /// Whether the text is shown as it is: "&" underlines no letter, and what is too long ends in an
    /// ellipsis. For texts that its user wrote.
    void setVerbatim(bool verbatim);
    bool underlines() const override { return !verbatim_; }

  protected:
    void drawFace(Painting& painting, const RECT& face, Rgb colour) override;

  private:
    bool verbatim_ = false;
};

/// A button with a picture: a shape made for a square of a given side, scaled to the face. Its text names the
/// button for tools and screen readers and is shown, below the picture, only on request.
class PictureButton : public Button {
  public:
    /// `side`: of the square that the shape lies in; `share`: of the face's height that it takes.
    PictureButton(const CreateArgs& args, Path glyph, float side, float share,
                  ButtonLook look = ButtonLook::Quiet);

    void setTextShown(bool shown);

  protected:
    void drawFace(Painting& painting, const RECT& face, Rgb colour) override;

  private:
    Path glyph_;
    float side_;
    float share_;
    bool textShown_ = false;
};

}  // namespace ui
