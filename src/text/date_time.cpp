#include "text/date_time.h"

#include <array>
#include <cstddef>

namespace text {

namespace {

int daysOf(int month, int year) {
    constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

bool within(int value, int lowest, int highest) {
    return value >= lowest && value <= highest;
}

}  // namespace

bool isInCalendar(const DateTime& moment) {
    return moment.year >= 1 && within(moment.month, 1, 12) &&
           within(moment.day, 1, daysOf(moment.month, moment.year)) && within(moment.hour, 0, 23) &&
           within(moment.minute, 0, 59) && within(moment.second, 0, 59);
}

}  // namespace text
