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

}  // namespace

std::optional<SYSTEMTIME> fileWriteTime(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) == FALSE) {
        return std::nullopt;
    }
    const ULARGE_INTEGER written{{data.ftLastWriteTime.dwLowDateTime, data.ftLastWriteTime.dwHighDateTime}};
    return localTime(written.QuadPart);
}

std::optional<SYSTEMTIME> localTime(std::uint64_t fileTime) {
    const FILETIME time{static_cast<DWORD>(fileTime), static_cast<DWORD>(fileTime >> 32U)};
    SYSTEMTIME universal{};
    SYSTEMTIME local{};
    if (FileTimeToSystemTime(&time, &universal) == FALSE ||
        SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local) == FALSE) {
        return std::nullopt;
    }
    return local;
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
