#pragma once

#include <windows.h>

#include "picture/pixels.h"

namespace ui {

/// The picture that follows the pointer while something is dragged over a window. The system draws it onto
/// the window and keeps what was beneath; whatever paints there meanwhile holds a Hidden. There is one such
/// picture at a time, and it goes when the object does.
class DragImage {
  public:
    /// Shows `picture` (not empty) over `window` and all that lies in it; `grip` is the place in the picture
    /// that the pointer, at `screen`, holds. Where the system has no memory for it nothing is shown.
    DragImage(HWND window, const picture::Pixels& picture, POINT grip, POINT screen);
    ~DragImage();
    DragImage(const DragImage&) = delete;
    DragImage& operator=(const DragImage&) = delete;

    void moveTo(POINT screen);

    /// While one of these lives the picture is not on the screen. Costs nothing when none is dragged.
    class Hidden {
      public:
        Hidden();
        ~Hidden();
        Hidden(const Hidden&) = delete;
        Hidden& operator=(const Hidden&) = delete;

      private:
        bool counted_;
    };

  private:
    POINT inWindow(POINT screen) const;

    HWND window_;
    bool shown_ = false;
};

}  // namespace ui
