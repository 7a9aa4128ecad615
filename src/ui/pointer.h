#pragma once

namespace ui {

/// The visibility of the mouse pointer. The system counts hides against shows; this keeps the count at one.
class Pointer {
  public:
    Pointer() = default;
    ~Pointer() { show(); }
    Pointer(const Pointer&) = delete;
    Pointer& operator=(const Pointer&) = delete;

    void hide();
    void show();
    /// 1 while the pointer is hidden by the program.
    int pointerHidden() const { return pointerHidden_; }

  private:
    int pointerHidden_ = 0;
};

}  // namespace ui
