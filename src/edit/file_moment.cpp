#include "edit/file_moment.h"

#include "platform/file_time.h"

namespace edit {

std::optional<text::DateTime> momentOf(std::uint64_t fileTime) {
    const auto time = platform::localTime(fileTime);
    return time ? std::optional<text::DateTime>(
                      {time->wYear, time->wMonth, time->wDay, time->wHour, time->wMinute, time->wSecond})
                : std::nullopt;
}

std::optional<std::uint64_t> fileTimeOf(const text::DateTime& moment) {
    SYSTEMTIME local{};
    local.wYear = static_cast<WORD>(moment.year);
    local.wMonth = static_cast<WORD>(moment.month);
    local.wDay = static_cast<WORD>(moment.day);
    local.wHour = static_cast<WORD>(moment.hour);
    local.wMinute = static_cast<WORD>(moment.minute);
    local.wSecond = static_cast<WORD>(moment.second);
    return platform::fileTimeOf(local);
}

}  // namespace edit
