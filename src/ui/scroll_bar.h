#pragma once

#include <functional>

#include "ui/control.h"

namespace ui {

/// A vertical scroll bar: the value runs from `min` at the top to `max` at the bottom. Worked by the mouse,
/// the wheel and, when it has the focus, the arrow and page keys.
class ScrollBar : public Control {
  public:
    struct Range {
        int min = 0;
        int max = 100;
        int value = 0;
        int largeChange = 5;  ///< of a click beside the thumb
    };

    ScrollBar(const CreateArgs& args, const Range& range);

    int min() const { return range_.min; }
    int max() const { return range_.max; }
    int value() const { return range_.value; }
    /// Raises onChange when the value becomes another one, as a user's change does. Throws
    /// std::out_of_range outside min ... max and changes nothing then.
    void setValue(int value);

    /// Also while the thumb is being dragged.
    std::function<void()> onChange;

  protected:
    bool onReflected(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    bool onWheel(int notches) override;

  private:
    void changeTo(int value);

    Range range_;
};

}  // namespace ui
