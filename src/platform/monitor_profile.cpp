#include "platform/monitor_profile.h"

#include <cstddef>
#include <string>

#include "platform/error.h"
#include "platform/file_bytes.h"
#include "platform/handles.h"

namespace platform {

namespace {

/// Larger files are none of a monitor.
constexpr std::size_t kMostBytes = std::size_t{4} << 20;

const MonitorProfiles* replacement = nullptr;

/// The path of a monitor's profile; empty where it has none.
std::wstring profilePath(HMONITOR monitor) {
    MONITORINFOEXW info{};
    info.cbSize = sizeof(info);
    if (!GetMonitorInfoW(monitor, &info)) {
        return {};
    }
    const MemoryDc screen(CreateDCW(L"DISPLAY", info.szDevice, nullptr, nullptr));
    if (!screen) {
        return {};
    }
    DWORD length = 0;
    GetICMProfileW(screen.get(), &length, nullptr);
    std::wstring path(length, L'\0');
    if (length == 0 || !GetICMProfileW(screen.get(), &length, path.data())) {
        return {};
    }
    // The length counts the NUL at the end.
    path.resize(path.find(L'\0') == std::wstring::npos ? path.size() : path.find(L'\0'));
    return path;
}

}  // namespace

std::vector<std::uint8_t> MonitorProfiles::profileOf(HWND window) const {
    return read(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST));
}

std::vector<std::uint8_t> MonitorProfiles::profileAt(const RECT& area) const {
    return read(MonitorFromRect(&area, MONITOR_DEFAULTTONEAREST));
}

std::vector<std::uint8_t> MonitorProfiles::read(HMONITOR monitor) const {
    const std::wstring path = profilePath(monitor);
    if (path.empty()) {
        return {};
    }
    try {
        const std::vector<std::uint8_t> bytes = readFileBytes(path, kMostBytes + 1);
        return bytes.size() <= kMostBytes ? bytes : std::vector<std::uint8_t>();
    } catch (const Error&) {
        return {};
    }
}

const MonitorProfiles& MonitorProfiles::current() {
    static const MonitorProfiles system;
    return replacement != nullptr ? *replacement : system;
}

void MonitorProfiles::replace(const MonitorProfiles* profiles) {
    replacement = profiles;
}

}  // namespace platform
