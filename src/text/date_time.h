#pragma once

namespace text {

/// A moment of a clock on the wall: no time zone, no fractions.
struct DateTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    friend bool operator==(const DateTime&, const DateTime&) = default;
};

/// Whether every member is within its range: a day that the month of that year has, 0:00:00 to 23:59:59; the
/// year is 1 or later.
bool isInCalendar(const DateTime& moment);

}  // namespace text
