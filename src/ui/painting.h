#pragma once

#include <windows.h>

#include <string>

#include "picture/surface.h"
#include "ui/vector_path.h"

namespace ui {

/// Paints a part of a window off screen and shows it in one copy, so that nothing flickers. All coordinates
/// are those of the window.
class Painting {
  public:
    /// `area` in pixels of the window's client area; an empty one paints nothing.
    Painting(const RECT& area, Rgb ground);

    void shape(const Path& path, Rgb colour, float opacity = 1.0F);
    /// `format`: the flags of DrawTextW.
    void text(const std::wstring& text, const RECT& place, HFONT font, Rgb colour, UINT format);
    void copyTo(HDC dc) const;

  private:
    RECT area_;
    picture::Surface surface_;
};

}  // namespace ui
