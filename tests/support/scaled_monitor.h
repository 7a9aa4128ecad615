#pragma once

#include "platform/monitors.h"

namespace support {

/// All monitors have the DPI given, for as long as the object lives.
class ScaledMonitor : public platform::Monitors {
  public:
    explicit ScaledMonitor(int given) : dpi(given) { replace(this); }
    ~ScaledMonitor() override { replace(nullptr); }
    ScaledMonitor(const ScaledMonitor&) = delete;
    ScaledMonitor& operator=(const ScaledMonitor&) = delete;
    int dpiOf(HWND) const override { return dpi; }
    int dpi;
};

}  // namespace support
