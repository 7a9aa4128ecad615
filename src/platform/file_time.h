#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

/// When a file was last written, local time; std::nullopt when it is missing.
std::optional<SYSTEMTIME> fileWriteTime(const std::wstring& path);

/// A time of the file system (units of 100 ns since 1601, UTC) as local time; std::nullopt for one beyond the
/// calendar.
std::optional<SYSTEMTIME> localTime(std::uint64_t fileTime);

/// A date or time in the user's own formats: "Samstag, 21. November 2026", "21.11.2026", "14:05",
/// "14:05:09".
std::wstring longDate(const SYSTEMTIME& time);
std::wstring shortDate(const SYSTEMTIME& time);
std::wstring shortTime(const SYSTEMTIME& time);
std::wstring longTime(const SYSTEMTIME& time);

/// Short date, a blank, long time.
std::wstring dateAndTime(const SYSTEMTIME& time);

}  // namespace platform
