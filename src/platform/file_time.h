#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

/// When a file was last written, local time; std::nullopt when it is missing.
std::optional<SYSTEMTIME> fileWriteTime(const std::wstring& path);

/// A time of the file system (units of 100 ns since 1601, UTC) as local time, with daylight saving as it was
/// at that time; std::nullopt for one beyond the calendar. `zone`: null for the user's own.
std::optional<SYSTEMTIME> localTime(std::uint64_t fileTime, const TIME_ZONE_INFORMATION* zone = nullptr);

/// The way back. std::nullopt for a local time that there never was: in spring the clocks leave an hour out.
/// Of the two times that a clock shows alike in autumn the system chooses one.
std::optional<std::uint64_t> fileTimeOf(const SYSTEMTIME& local, const TIME_ZONE_INFORMATION* zone = nullptr);

/// One of the file system's times in the one number that the program counts in.
constexpr std::uint64_t fileTimeNumber(const FILETIME& time) {
    return (std::uint64_t{time.dwHighDateTime} << 32U) | time.dwLowDateTime;
}
constexpr FILETIME toFileTime(std::uint64_t number) {
    return {static_cast<DWORD>(number), static_cast<DWORD>(number >> 32U)};
}

/// A date or time in the user's own formats: "Samstag, 21. November 2026", "21.11.2026", "14:05",
/// "14:05:09".
std::wstring longDate(const SYSTEMTIME& time);
std::wstring shortDate(const SYSTEMTIME& time);
std::wstring shortTime(const SYSTEMTIME& time);
std::wstring longTime(const SYSTEMTIME& time);

/// Short date, a blank, long time.
std::wstring dateAndTime(const SYSTEMTIME& time);

}  // namespace platform
