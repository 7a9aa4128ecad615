#include "ui/line.h"

#include "ui/theme.h"

namespace ui {

Line::Line(const CreateArgs& args, Rgb colour) : Control(args), colour_(colour) {
    create(styleFor(args, L"PanorellLine", 0));
    created();
}

void Line::onPaint(HDC dc, const RECT& area) {
    SetDCBrushColor(dc, colorref(colour_));
    FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

bool Line::onEraseBackground(HDC) {
    return true;
}

bool Line::onHitTest(POINT, LRESULT& where) {
    where = HTTRANSPARENT;
    return true;
}

}  // namespace ui
