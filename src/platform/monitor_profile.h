#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace platform {

/// The colour profiles that the user has given the monitors. Replaceable, so that monitors that a computer
/// does not have can be tried.
class MonitorProfiles {
  public:
    virtual ~MonitorProfiles() = default;

    /// The bytes of the ICC profile of the monitor that most of a window, or of a rectangle of the desktop in
    /// pixels, lies on, of the nearest one when it lies on none. Empty where it has none or the file cannot
    /// be read. Takes a file's time: not for every picture.
    std::vector<std::uint8_t> profileOf(HWND window) const;
    std::vector<std::uint8_t> profileAt(const RECT& area) const;

    /// The ones in use: the system's, unless a test has set others.
    static const MonitorProfiles& current();
    /// `profiles` must outlive its use; null brings the system's back.
    static void replace(const MonitorProfiles* profiles);

  protected:
    /// The bytes of one monitor's profile, as above.
    virtual std::vector<std::uint8_t> read(HMONITOR monitor) const;
};

}  // namespace platform
