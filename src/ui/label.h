#pragma once

#include "ui/control.h"

namespace ui {

enum class Alignment { Left, Centre, Right };

/// A text on the colour of what lies behind it. The pointer reaches what lies behind as well. Lines break at
/// CR LF, and at blanks where the text is too wide, unless `oneLine` is set: then the end of a text that is
/// too wide becomes an ellipsis.
class Label : public Control {
  public:
    explicit Label(const CreateArgs& args, Alignment alignment = Alignment::Left, bool oneLine = false);

    void setText(const std::wstring& text) override;
    void setColour(Rgb colour);
    /// A ground of its own instead of what lies behind.
    void setGround(Rgb ground);

  protected:
    bool onReflected(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;

  private:
    Rgb colour_;
    Rgb ground_ = 0;
    bool ownGround_ = false;
};

}  // namespace ui
