#pragma once

#include <windows.h>

namespace platform {

/// Where the monitors lie, in pixels of the desktop. Replaceable, so that arrangements of monitors that a
/// computer does not have can be tried.
class Monitors {
  public:
    virtual ~Monitors() = default;

    /// The whole monitor that most of a window, or a point, lies on; the nearest one when it lies on none.
    virtual RECT areaOf(HWND window) const;
    virtual RECT areaAt(POINT place) const;
    /// The primary monitor: its width, and what the task bar leaves of it.
    virtual int primaryWidth() const;
    virtual RECT primaryWorkArea() const;
    /// What the task bar leaves of the monitor that most of a window, or a point, lies on.
    virtual RECT workAreaOf(HWND window) const;
    virtual RECT workAreaAt(POINT place) const;
    /// Dots per inch where a window is.
    virtual int dpiOf(HWND window) const;

    /// The arrangement in use: the system's, unless a test has set another one.
    static const Monitors& current();
    /// `monitors` must outlive its use; null brings the system's back.
    static void replace(const Monitors* monitors);
};

}  // namespace platform
