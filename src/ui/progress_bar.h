#pragma once

#include "ui/control.h"

namespace ui {

/// A bar that fills from the left: the system's, in the colours of the program's windows and without a frame.
class ProgressBar : public Control {
  public:
    explicit ProgressBar(const CreateArgs& args);

    /// The value at which the bar is full, at least 1; 100 at first. Throws std::out_of_range.
    void setMaximum(int maximum);
    int maximum() const;
    /// 0 ... maximum; what lies outside becomes the nearer bound.
    void setValue(int value);
    int value() const;

  protected:
    bool paints() const override { return true; }
    void onPaint(HDC dc, const RECT& area) override;
    bool onEraseBackground(HDC dc) override;
};

}  // namespace ui
