#pragma once

#include <windows.h>

#include <string>

#include "media/media_control.h"
#include "picture/surface.h"
#include "ui/picture_box.h"

namespace media {

/// Opens a film under the alias VIDEO, in a window within `box` that takes no clicks. The reply's error tells
/// whether it could be opened.
MediaReply openFilm(MediaControl& control, const std::wstring& path, const ui::PictureBox& box);

/// Stretches the open film's window over the whole of its box.
void fitFilm(MediaControl& control, const ui::PictureBox& box);

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
