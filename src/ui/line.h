#pragma once

#include "ui/control.h"

namespace ui {

/// A filled strip of one colour: a line as wide as its place is high, or as high as it is wide.
class Line : public Control {
  public:
    Line(const CreateArgs& args, Rgb colour);

  protected:
    bool paints() const override { return true; }
    void onPaint(HDC dc, const RECT& area) override;
    bool onEraseBackground(HDC dc) override;
    bool onHitTest(POINT screen, LRESULT& where) override;

  private:
    Rgb colour_;
};

}  // namespace ui
