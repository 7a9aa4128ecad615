#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/date_time.h"

namespace edit {

/// What a user typed as a date, with or without a time: "24.12.2025 18:30", "24.12.2025 18:30:15",
/// "24.12.2025" (midnight) or the same as "2025-12-24 18:30:15", also with a "T" between. Day, month and hour
/// may have one digit, a year has four; blanks at the ends and more than one between do not count. None for
/// anything else, for a moment that is not in the calendar, and for years outside 1980 to 2107, which not
/// every file system can keep.
///
/// The moment is one of a clock on the wall. Once a year such a clock shows an hour twice and leaves another
/// one out; which of them it is, or that it never was, is found out where it becomes a file's time.
std::optional<text::DateTime> parseDateInput(std::wstring_view input);

/// "24.12.2025 18:30:15"
std::wstring dateTimeText(const text::DateTime& moment);

/// A thumbnail's tip with another date of the file: its last line, where that is the former date, is
/// replaced; otherwise the date comes as a line of its own. Lines end in CR.
std::wstring tipWithDate(std::wstring_view tip, std::wstring_view formerDate, std::wstring_view date);

}  // namespace edit
