#pragma once

#include <functional>

#include "ui/control.h"
#include "ui/focus_frame.h"

namespace ui {

/// A check box with the three states 0 (empty), 1 (ticked) and 2 (greyed). A user's click goes from 0 to 1
/// and from 1 or 2 to 0.
class CheckBox : public Control {
  public:
    explicit CheckBox(const CreateArgs& args);

    int value() const;
    /// Raises onClick when the value becomes another one, as a user's click does. Throws std::out_of_range
    /// for anything but 0, 1 and 2.
    void setValue(int value);
    void press() override;
    bool underlines() const override { return true; }

    std::function<void()> onClick;

  protected:
    bool onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;
    bool onReflected(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;

  private:
    FocusFrame focusFrame_{*this};
};

}  // namespace ui
