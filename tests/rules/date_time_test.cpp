#include "text/date_time.h"

#include <gtest/gtest.h>

namespace text {
namespace {

TEST(DateTime, TellsWhatIsInTheCalendar) {
    const struct {
        DateTime moment;
        bool expected;
    } cases[] = {
        {{2026, 1, 1, 0, 0, 0}, true},   {{2026, 12, 31, 23, 59, 59}, true}, {{1, 1, 1, 0, 0, 0}, true},
        {{0, 1, 1, 0, 0, 0}, false},     {{2026, 0, 1, 0, 0, 0}, false},     {{2026, 13, 1, 0, 0, 0}, false},
        {{2026, 1, 0, 0, 0, 0}, false},  {{2026, 1, 32, 0, 0, 0}, false},    {{2026, 4, 31, 0, 0, 0}, false},
        {{2026, 2, 29, 0, 0, 0}, false}, {{2024, 2, 29, 0, 0, 0}, true},     {{2000, 2, 29, 0, 0, 0}, true},
        {{2100, 2, 29, 0, 0, 0}, false}, {{2026, 1, 1, 24, 0, 0}, false},    {{2026, 1, 1, 0, 60, 0}, false},
        {{2026, 1, 1, 0, 0, 60}, false}, {{2026, 1, 1, -1, 0, 0}, false},    {{2026, 1, 1, 0, 0, -1}, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(isInCalendar(c.moment), c.expected)
            << c.moment.year << '-' << c.moment.month << '-' << c.moment.day << ' ' << c.moment.hour << ':'
            << c.moment.minute << ':' << c.moment.second;
    }
}

}  // namespace
}  // namespace text
