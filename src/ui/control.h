#pragma once

#include <string>

#include "ui/font.h"
#include "ui/tooltip.h"
#include "ui/twips.h"
#include "ui/window.h"

namespace ui {

/// What every control is made from. `place` is in twips of the parent's client area.
struct CreateArgs {
    Window& parent;
    int id = 0;  ///< from ui/control_ids.h
    TwipsRect place{};
    std::wstring text{};
    bool visible = true;
    bool tabStop = false;
    bool startsGroup = false;  ///< first of the controls that the arrow keys walk through
    FontSpec font{};
};

/// A child window with the properties that all controls share. The place is kept in twips as it was set, so
/// it reads back exactly and follows a change of DPI.
class Control : public Window {
  public:
    const TwipsRect& place() const { return place_; }
    Twips left() const { return place_.left; }
    Twips top() const { return place_.top; }
    Twips width() const { return place_.width; }
    Twips height() const { return place_.height; }
    void setLeft(Twips left) { move({left, place_.top, place_.width, place_.height}); }
    void setTop(Twips top) { move({place_.left, top, place_.width, place_.height}); }
    void setWidth(Twips width) { move({place_.left, place_.top, width, place_.height}); }
    void setHeight(Twips height) { move({place_.left, place_.top, place_.width, height}); }
    void move(const TwipsRect& place);
    /// Places the control on whole pixels; the twips follow.
    void movePixels(int left, int top, int width, int height);

    /// The control's own state; a visible control on a hidden form counts as visible.
    bool visible() const { return visible_; }
    void setVisible(bool visible);
    void show() { setVisible(true); }
    void hide() { setVisible(false); }
    /// Hides it where what lies below it looks the same: nothing is painted.
    void hideUnpainted();
    bool enabled() const;
    /// A control that had the focus when it was disabled gets it back, unless it went elsewhere meanwhile.
    void setEnabled(bool enabled);

    std::wstring text() const;
    virtual void setText(const std::wstring& text);
    /// The tip shown while the pointer rests on the control; empty takes it away. Lines end in CR LF.
    void setToolTip(const std::wstring& text);
    const std::wstring& toolTip() const { return toolTip_; }
    const FontSpec& fontSpec() const { return font_; }
    void setFont(const FontSpec& font);
    void setFocus();
    bool hasFocus() const;
    bool concealed() const override { return parent_.concealed(); }
    /// Shows a control that was made out of sight, and its tip, now that its form comes into sight.
    void reveal();
    /// Brings the control in front of its siblings.
    void toFront();
    void repaint();

    /// The letter that works the control together with Alt: the one set here, else the one behind "&" in the
    /// text of a control that shows it underlined; 0 for none. Capital.
    wchar_t accessKey() const;
    void setAccessKey(wchar_t letter) { accessKey_ = letter; }
    /// What its letter does; the control itself decides, most take the focus.
    virtual void press() { setFocus(); }
    /// Whether "&" in the text underlines the letter behind it.
    virtual bool underlines() const { return false; }

    /// Recomputes pixels and font after the form's DPI changed.
    void applyDpi();

  protected:
    explicit Control(const CreateArgs& args);
    /// Style bits and place in pixels that `args` ask for.
    Style styleFor(const CreateArgs& args, const wchar_t* className, DWORD style, DWORD exStyle = 0) const;
    /// To be called at the end of each control's constructor, which made the window at its place.
    void created();
    /// What else depends on the DPI: measures within the control.
    virtual void applyMeasures() {}
    HFONT fontHandle() const { return ui::font(font_, dpi()); }
    /// The colour behind the control.
    Rgb ground() const { return groundAt({clientSize().cx / 2, clientSize().cy / 2}); }
    /// The answer to a question for colours (WM_CTLCOLOR...): text and ground.
    static LRESULT colours(WPARAM dc, Rgb text, Rgb ground);

  private:
    enum class Redraw { No, Yes };
    void applyFont(Redraw redraw);
    void applyPlace();

    TwipsRect place_;
    FontSpec font_;
    std::wstring toolTip_;
    bool visible_;
    bool lostFocus_ = false;
    wchar_t accessKey_ = 0;
    const Window& parent_;
};

}  // namespace ui
