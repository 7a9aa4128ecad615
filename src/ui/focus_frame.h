#pragma once

#include <windows.h>

namespace ui {

class Control;

/// Shows the keyboard focus on a button that has no caption: the system draws its focus around the caption
/// alone. The control passes its messages through.
class FocusFrame {
  public:
    explicit FocusFrame(const Control& control) : control_(control) {}

    /// True where the message was handled, with its result.
    bool onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) const;

  private:
    void paint() const;

    const Control& control_;
};

}  // namespace ui
