#pragma once

#include <windows.h>

#include <string>

namespace ui {

/// The tips of one top-level window's controls, shown by one tooltip window of the system.
class Tooltip {
  public:
    /// The tips of a top-level window, made on first use; they end with the window.
    static Tooltip& of(HWND owner);

    /// Shows `text` while the pointer rests on the control, also on a disabled one's place; empty text takes
    /// the tip away.
    void set(HWND control, const std::wstring& text);
    /// Lets the tips of a window's form, if it has any, see a mouse message of that window: they appear,
    /// change and end by what the mouse does.
    static void relay(HWND window, UINT message, WPARAM w, LPARAM l);
    HWND hwnd() const { return window_; }

  private:
    explicit Tooltip(HWND owner);
    bool alive() const;

    HWND owner_;
    HWND window_;
};

}  // namespace ui
