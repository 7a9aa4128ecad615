#include "edit/date_input.h"

#include <gtest/gtest.h>

namespace edit {
namespace {

using text::DateTime;

TEST(DateInput, ReadsGermanAndIsoDates) {
    const struct {
        const wchar_t* input;
        DateTime expected;
    } cases[] = {
        {L"24.12.2025 18:30", {2025, 12, 24, 18, 30, 0}},
        {L"24.12.2025 18:30:15", {2025, 12, 24, 18, 30, 15}},
        {L"24.12.2025", {2025, 12, 24, 0, 0, 0}},
        {L"  24.12.2025  ", {2025, 12, 24, 0, 0, 0}},
        {L"\t24.12.2025   18:30:15  ", {2025, 12, 24, 18, 30, 15}},
        {L"24.12.2025\u00A018:30\r\n", {2025, 12, 24, 18, 30, 0}},
        {L"1.2.2026 7:05", {2026, 2, 1, 7, 5, 0}},
        {L"01.02.2026 07:05:09", {2026, 2, 1, 7, 5, 9}},
        {L"2025-12-24 18:30:00", {2025, 12, 24, 18, 30, 0}},
        {L"2025-12-24T18:30:01", {2025, 12, 24, 18, 30, 1}},
        {L"2025-12-24", {2025, 12, 24, 0, 0, 0}},
        {L"2025-2-4 0:00", {2025, 2, 4, 0, 0, 0}},
        {L"29.02.2024", {2024, 2, 29, 0, 0, 0}},
        {L"01.01.1980 00:00:00", {1980, 1, 1, 0, 0, 0}},
        {L"31.12.2107 23:59:59", {2107, 12, 31, 23, 59, 59}},
        // Whether a clock ever showed these is not asked here.
        {L"29.03.2026 02:30", {2026, 3, 29, 2, 30, 0}},
        {L"25.10.2026 02:30", {2026, 10, 25, 2, 30, 0}},
    };
    for (const auto& c : cases) {
        const auto read = parseDateInput(c.input);
        ASSERT_TRUE(read) << c.input;
        EXPECT_EQ(*read, c.expected) << c.input;
        EXPECT_EQ(parseDateInput(dateTimeText(*read)), read) << c.input;
    }
}

TEST(DateInput, RefusesEverythingElse) {
    for (const wchar_t* input : {L"",
                                 L"   ",
                                 L"morgen",
                                 L"24.12.25",
                                 L"24.12.25 18:30",
                                 L"24.12.",
                                 L"24.12",
                                 L"24.12.20255",
                                 L"024.12.2025",
                                 L"24. 12. 2025",
                                 L"24.12.2025 18",
                                 L"24.12.2025 18:3",
                                 L"24.12.2025 18:300",
                                 L"24.12.2025 18:30:",
                                 L"24.12.2025 18:30:1",
                                 L"24.12.2025 18.30",
                                 L"24.12.2025 18:30 Uhr",
                                 L"24.12.2025 18:30:15.5",
                                 L"24.12.2025 24:00",
                                 L"24.12.2025 18:60",
                                 L"24.12.2025 18:30:60",
                                 L"24.12.2025T18:30",
                                 L"24.12.202518:30",
                                 L"2025-12-24T",
                                 L"2025-12-24T 18:30",
                                 L"25-12-24",
                                 L"2025.12.24",
                                 L"24-12-2025",
                                 L"24.2025-12-24",
                                 L"24.12.2025-12-24",
                                 L"12/24/2025",
                                 L"29.02.2025",
                                 L"31.04.2025",
                                 L"0.1.2025",
                                 L"1.0.2025",
                                 L"1.13.2025",
                                 L"-1.1.2025",
                                 L"31.12.1979 23:59:59",
                                 L"01.01.2108",
                                 L"0000-01-01",
                                 L"99999999999.1.2025",
                                 L"?",
                                 L"24.12.2025x"}) {
        EXPECT_FALSE(parseDateInput(input)) << input;
    }
}

TEST(DateInput, TextHasAllDigits) {
    EXPECT_EQ(dateTimeText({2025, 12, 24, 18, 30, 15}), L"24.12.2025 18:30:15");
    EXPECT_EQ(dateTimeText({2026, 1, 2, 3, 4, 5}), L"02.01.2026 03:04:05");
    EXPECT_EQ(dateTimeText({804, 1, 2, 0, 0, 0}), L"02.01.0804 00:00:00");
}

TEST(DateInput, OnlyTheDateOfATipChanges) {
    const struct {
        const wchar_t* tip;
        const wchar_t* expected;
    } cases[] = {
        {L"alt\r", L"neu\r"},
        {L"Am Meer\rPause:9s    \ralt\r", L"Am Meer\rPause:9s    \rneu\r"},
        {L"alt\ralt\r", L"alt\rneu\r"},
        {L"sehr alt\r", L"sehr alt\rneu\r"},
        {L"Titel*P9", L"Titel*P9\rneu\r"},
        {L"Titel\r", L"Titel\rneu\r"},
        {L"", L"neu\r"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(tipWithDate(c.tip, L"alt", L"neu"), c.expected) << c.tip;
    }
}

}  // namespace
}  // namespace edit
