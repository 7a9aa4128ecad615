#include "platform/file_time.h"

namespace platform {

namespace {

constexpr int kLongest = 160;

std::wstring date(const SYSTEMTIME& time, DWORD flags) {
    wchar_t text[kLongest]{};
    GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, flags, &time, nullptr, text, kLongest, nullptr);
    return text;
}

std::wstring clock(const SYSTEMTIME& time, DWORD flags) {
    wchar_t text[kLongest]{};
    GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, flags, &time, nullptr, text, kLongest);
    return text;
}

bool sameMoment(const SYSTEMTIME& one, const SYSTEMTIME& other) {
    return one.wYear == other.wYear && one.wMonth == other.wMonth && one.wDay == other.wDay &&
           one.wHour == other.wHour && one.wMinute == other.wMinute && one.wSecond == other.wSecond;
}

}  // namespace

std::optional<SYSTEMTIME> fileWriteTime(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) == FALSE) {
        return std::nullopt;
    }
    return localTime(fileTimeNumber(data.ftLastWriteTime));
}

std::optional<SYSTEMTIME> localTime(std::uint64_t fileTime, const TIME_ZONE_INFORMATION* zone) {
    const FILETIME time = toFileTime(fileTime);
    SYSTEMTIME universal{};
    SYSTEMTIME local{};
    if (FileTimeToSystemTime(&time, &universal) == FALSE ||
        SystemTimeToTzSpecificLocalTime(zone, &universal, &local) == FALSE) {
        return std::nullopt;
    }
    return local;
}

std::optional<std::uint64_t> fileTimeOf(const SYSTEMTIME& local, const TIME_ZONE_INFORMATION* zone) {
    SYSTEMTIME universal{};
    FILETIME time{};
    if (TzSpecificLocalTimeToSystemTime(zone, &local, &universal) == FALSE ||
        SystemTimeToFileTime(&universal, &time) == FALSE) {
        return std::nullopt;
    }
    const std::uint64_t fileTime = fileTimeNumber(time);
    // A moment in the hour that was left out is answered with one beside it.
    const auto back = localTime(fileTime, zone);
    return back && sameMoment(*back, local) ? std::optional(fileTime) : std::nullopt;
}

std::wstring longDate(const SYSTEMTIME& time) {
    return date(time, DATE_LONGDATE);
}

std::wstring shortDate(const SYSTEMTIME& time) {
    return date(time, DATE_SHORTDATE);
}

std::wstring shortTime(const SYSTEMTIME& time) {
    return clock(time, TIME_NOSECONDS);
}

std::wstring longTime(const SYSTEMTIME& time) {
    return clock(time, 0);
}

std::wstring dateAndTime(const SYSTEMTIME& time) {
    return shortDate(time) + L" " + longTime(time);
}

}  // namespace platform
