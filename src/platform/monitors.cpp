#include "platform/monitors.h"

namespace platform {

namespace {

const Monitors* replacement = nullptr;

MONITORINFO infoOf(HMONITOR monitor) {
    MONITORINFO info{};
    info.cbSize = sizeof(info);
    GetMonitorInfoW(monitor, &info);
    return info;
}

}  // namespace

RECT Monitors::areaOf(HWND window) const {
    return infoOf(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST)).rcMonitor;
}

RECT Monitors::areaAt(POINT place) const {
    return infoOf(MonitorFromPoint(place, MONITOR_DEFAULTTONEAREST)).rcMonitor;
}

int Monitors::primaryWidth() const {
    return GetSystemMetrics(SM_CXSCREEN);
}

RECT Monitors::primaryWorkArea() const {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

RECT Monitors::workAreaOf(HWND window) const {
    return infoOf(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST)).rcWork;
}

RECT Monitors::workAreaAt(POINT place) const {
    return infoOf(MonitorFromPoint(place, MONITOR_DEFAULTTONEAREST)).rcWork;
}

int Monitors::dpiOf(HWND window) const {
    const UINT dpi = GetDpiForWindow(window);
    return dpi != 0 ? static_cast<int>(dpi) : USER_DEFAULT_SCREEN_DPI;
}

const Monitors& Monitors::current() {
    static const Monitors system;
    return replacement != nullptr ? *replacement : system;
}

void Monitors::replace(const Monitors* monitors) {
    replacement = monitors;
}

}  // namespace platform
