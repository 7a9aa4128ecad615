#pragma once

#include "ui/control.h"

namespace ui {

/// A small picture on the colour of what lies behind it: a shape made for a square of a given side, scaled
/// to the place. The pointer reaches what lies behind.
class Glyph : public Control {
  public:
    Glyph(const CreateArgs& args, Path shape, float side, Rgb colour);

  protected:
    bool paints() const override { return true; }
    void onPaint(HDC dc, const RECT& area) override;
    bool onEraseBackground(HDC dc) override;
    bool onHitTest(POINT screen, LRESULT& where) override;

  private:
    Path shape_;
    float side_;
    Rgb colour_;
};

}  // namespace ui
