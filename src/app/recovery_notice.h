#pragma once

#include <optional>

#include "ui/event_loop.h"
#include "ui/form.h"
#include "ui/label.h"

namespace app {

/// A small window that says that a folder is being put in order, once that takes long. All windows paint
/// meanwhile and do nothing else.
class RecoveryNotice {
  public:
    explicit RecoveryNotice(ui::EventLoop& loop) : loop_(loop), begun_(loop.now()) {}

    /// To be called between two files.
    void step() { pause(0); }
    /// Lets so many milliseconds pass.
    void pause(int ms);
    /// Whether it is seen.
    bool shown() const { return form_.has_value(); }

  private:
    void show();

    ui::EventLoop& loop_;
    double begun_;
    std::optional<ui::Form> form_;
    std::optional<ui::Label> text_;
};

}  // namespace app
