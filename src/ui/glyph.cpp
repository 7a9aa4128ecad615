#include "ui/glyph.h"

#include <algorithm>
#include <utility>

#include "ui/painting.h"

namespace ui {

Glyph::Glyph(const CreateArgs& args, Path shape, float side, Rgb colour)
    : Control(args), shape_(std::move(shape)), side_(side), colour_(colour) {
    create(styleFor(args, L"PanorellGlyph", 0));
    created();
}

void Glyph::onPaint(HDC dc, const RECT& area) {
    const SIZE size = clientSize();
    const auto width = static_cast<float>(size.cx);
    const auto height = static_cast<float>(size.cy);
    const float wanted = std::min(width, height);
    Painting painting(area, ground());
    painting.shape(Path().add(shape_, wanted / side_, (width - wanted) / 2, (height - wanted) / 2), colour_);
    painting.copyTo(dc);
}

bool Glyph::onEraseBackground(HDC) {
    return true;
}

bool Glyph::onHitTest(POINT, LRESULT& where) {
    where = HTTRANSPARENT;
    return true;
}

}  // namespace ui
