#pragma once

#include <windows.h>

#include "picture/surface.h"

namespace media {

/// Disables every child window of `parent`, such as the one that a film was just opened in: otherwise it
/// would take the clicks that are meant for its parent.
void disableChildren(HWND parent);

/// Whether a window and all that lies in it are seen on the screen as a whole: it is visible and no other
/// window lies over any part of it.
bool isUncovered(HWND window);

/// Copies what the screen shows of a window's client area, scaled to `frame`; false where the screen cannot
/// be read, as while it is locked.
bool copyFromScreen(HWND window, const picture::Surface& frame);

}  // namespace media
