#pragma once

#include <windows.h>

#include "show/picture_source.h"
#include "ui/pointer.h"

namespace show {

/// The window that becomes the show surface.
class ShowScreen {
  public:
    virtual ~ShowScreen() = default;

    /// Whether the window still shows its set-up controls.
    virtual bool inSetup() const = 0;
    /// Moves the window so that it opens on a monitor to the right of the primary one.
    virtual void moveToSecondScreen() = 0;
    /// Hides the set-up controls, drops the rounded region and turns black. From now on the pointer over it
    /// is the show's own. Returns whether it stands like that on the screen, and not hidden or behind a
    /// curtain.
    virtual bool leaveSetup() = 0;
    /// Fills the monitor that the window is on, to the pixel, and paints it.
    virtual void takeOver() = 0;
    /// Brings a window that was not on the screen before onto it, with what it shows by now.
    virtual void uncover() = 0;
    /// Inner size in pixels, once the window has taken over.
    virtual SIZE size() const = 0;
    /// Places what lies over the surface (end button, title box) for that size.
    virtual void arrange() = 0;
    /// The surface as pictures are made ready for it.
    virtual ShowSurface surface() const = 0;
    /// The mouse pointer over it.
    virtual ui::Pointer& pointer() = 0;
    /// The window's rectangle on the desktop.
    virtual RECT rectangle() const = 0;
};

}  // namespace show
