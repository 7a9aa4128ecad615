#pragma once

#include "ui/control.h"

namespace ui {

/// A card with rounded corners and a caption that holds other controls: they are its children, their places
/// are in twips of the card.
class Frame : public Control {
  public:
    explicit Frame(const CreateArgs& args);

    void setText(const std::wstring& text) override;
    Rgb groundAt(POINT place) const override;

  protected:
    bool paints() const override { return true; }
    void onPaint(HDC dc, const RECT& area) override;
    bool onEraseBackground(HDC dc) override;
    bool onHitTest(POINT screen, LRESULT& where) override;

  private:
    void paintTo(HDC dc, const RECT& area);
};

/// A card as frames and forms draw it; `place` in pixels.
class Painting;
void paintCard(Painting& painting, const RECT& place, int dpi);

}  // namespace ui
