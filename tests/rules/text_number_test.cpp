#include "text/text_number.h"

#include "text/trimming.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

namespace text {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

struct ValueCase {
    std::wstring_view text;
    double expected;
};

TEST(NumericValue, ReadsTheLeadingNumber) {
    const ValueCase cases[] = {
        {L"", 0},
        {L"0", 0},
        {L"7", 7},
        {L"07", 7},
        {L"12", 12},
        {L"2.5", 2.5},
        {L"2,5", 2},
        {L".5", 0.5},
        {L"5.", 5},
        {L".", 0},
        {L"1.2.3", 1.2},
        {L"ab", 0},
        {L"a7", 0},
        {L"7 Sek", 7},
        {L"7Sek", 7},
        {L"  7", 7},
        {L"\t\r\n 7", 7},
        {L"   ", 0},
        {L"-3", -3},
        {L"+3", 3},
        {L"--3", 0},
        {L"+-3", 0},
        {L"- 3", 0},
        {L"-", 0},
        {L"+", 0},
        {L"-.5x", -0.5},
        {L"1 2", 1},
        {L"1e3", 1000},
        {L"1E3", 1000},
        {L"1e+3", 1000},
        {L"25e-1", 2.5},
        {L"1e", 1},
        {L"1e+", 1},
        {L"1e-", 1},
        {L"1ex", 1},
        // a view ends where it ends, whatever lies behind
        {std::wstring_view(L"1e5", 2), 1},
        {std::wstring_view(L"1e+5", 3), 1},
        {std::wstring_view(L"123", 2), 12},
        {std::wstring_view(L"1.5", 2), 1},
        {L"e5", 0},
        {L".e5", 0},
        {L"0x10", 0},
        {L"&H10", 0},
        {L"inf", 0},
        {L"nan", 0},
        {L"infinity", 0},
        {std::wstring_view(L"4\0002", 3), 4},
        {L"\u0664", 0},
        {L"\uFF17", 0},
        {L"\u00B2", 0},
        {L"4294967296", 4294967296.0},
        {L"86399999", 86399999},
    };
    for (const ValueCase& c : cases) {
        EXPECT_EQ(numericValue(c.text), c.expected) << std::wstring(c.text);
    }
}

TEST(NumericValue, ReadsBytes) {
    EXPECT_EQ(numericValue("12500"), 12500);
    EXPECT_EQ(numericValue(" 2.5\0junk"), 2.5);
    EXPECT_EQ(numericValue(""), 0);
    EXPECT_EQ(numericValue("\xB2"), 0);
}

TEST(NumericValue, StaysFinite) {
    const std::wstring nines(400, L'9');
    const std::wstring zeros(400, L'0');
    const std::pair<std::wstring, double> cases[] = {
        {L"1e309", kLargest},
        {L"-1e309", -kLargest},
        {L"1e99999999999999999999", kLargest},
        {L"1e-99999999999999999999", 0},
        {L"-1e-400", 0},
        {nines, kLargest},
        {L"-" + nines, -kLargest},
        {zeros + L"5", 5},
        {L"0." + zeros + L"1", 0},
        {L"0." + zeros + L"1e401", 1},
        {L"0." + zeros + L"1e900", kLargest},
        {L"1" + zeros + L"e-400", 1},
        {L"1" + zeros + L"e-900", 0},
        {L"0e999999", 0},
        {L"-0", 0},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(numericValue(text), expected) << text;
        EXPECT_FALSE(std::signbit(numericValue(text)) && expected == 0) << text;
    }
}

TEST(WholeNumber16, RoundsToEvenAndStaysInRange) {
    const std::pair<double, int> cases[] = {
        {0, 0},
        {0.5, 0},
        {1.5, 2},
        {2.5, 2},
        {-0.5, 0},
        {-1.5, -2},
        {2.51, 3},
        {32767, 32767},
        {32767.4, 32767},
        {32768, 32767},
        {-32768, -32768},
        {-32769, -32768},
        {1e300, 32767},
        {-1e300, -32768},
        {std::numeric_limits<double>::infinity(), 32767},
        {std::numeric_limits<double>::quiet_NaN(), 0},
    };
    for (const auto& [value, expected] : cases) {
        EXPECT_EQ(wholeNumber16(value), expected) << value;
    }
}

TEST(WholeNumber16, ReadsText) {
    EXPECT_EQ(wholeNumber16(L"12"), 12);
    EXPECT_EQ(wholeNumber16(L" 2.5"), 2);
    EXPECT_EQ(wholeNumber16(L"99999"), 32767);
    EXPECT_EQ(wholeNumber16(L"-99999"), -32768);
    EXPECT_EQ(wholeNumber16(L"x"), 0);
    EXPECT_EQ(wholeNumber16(L""), 0);
}

TEST(WholeNumber, EndsAtTheBoundsOfInt) {
    EXPECT_EQ(wholeNumber(1e18), std::numeric_limits<int>::max());
    EXPECT_EQ(wholeNumber(-1e18), std::numeric_limits<int>::min());
    EXPECT_EQ(wholeNumber(2147483646.5), 2147483646);
    EXPECT_EQ(wholeNumber(2147483647.5), std::numeric_limits<int>::max());
    EXPECT_EQ(wholeNumber(-2147483648.5), std::numeric_limits<int>::min());
    EXPECT_EQ(wholeNumber(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(DecimalText, IsShortAndPlain) {
    const std::pair<float, const char*> floats[] = {
        {0.0F, "0"},       {-0.0F, "0"},        {1.0F, "1"},       {640.0F, "640"},
        {853.5F, "853.5"}, {0.1F, "0.1"},       {-2.5F, "-2.5"},   {1e7F, "10000000"},
        {1e-4F, "0.0001"}, {100.25F, "100.25"}, {1920.0F, "1920"}, {1280.0F / 15.0F, "85.333336"},
    };
    for (const auto& [value, expected] : floats) {
        EXPECT_EQ(decimalBytes(value), expected) << value;
    }
    EXPECT_EQ(decimalText(12.5), L"12.5");
    EXPECT_EQ(decimalText(0.1), L"0.1");
    EXPECT_EQ(decimalBytes(std::numeric_limits<float>::infinity()), "0");
    EXPECT_EQ(decimalText(std::numeric_limits<double>::quiet_NaN()), L"0");
    EXPECT_EQ(decimalText(std::numeric_limits<double>::denorm_min()).substr(0, 4), L"0.00");
    EXPECT_EQ(decimalText(-kLargest).size(), 310U);
}

TEST(Text, TrimsBlanksOnly) {
    EXPECT_EQ(trimmed(L"  a b  "), L"a b");
    EXPECT_EQ(trimmed(L"   "), L"");
    EXPECT_EQ(trimmed(L""), L"");
    EXPECT_EQ(trimmed(L"\ta"), L"\ta");
}

TEST(Text, TakesTheEndOfAText) {
    EXPECT_EQ(lastCharacters(L"clip.mpg", 3), L"mpg");
    EXPECT_EQ(lastCharacters(L"pg", 3), L"pg");
    EXPECT_EQ(lastCharacters(L"", 3), L"");
    EXPECT_EQ(lastCharacters(L"abc", 0), L"");
}

TEST(Text, EndsAtNul) {
    EXPECT_EQ(untilNul(std::wstring_view(L"ab\0c", 4)), L"ab");
    EXPECT_EQ(untilNul(L"ab"), L"ab");
    EXPECT_EQ(untilNul(std::wstring_view(L"\0", 1)), L"");
}

TEST(Text, FoldsAsciiLettersOnly) {
    EXPECT_TRUE(equalsIgnoringCase(L"JPG", L"jpg"));
    EXPECT_TRUE(equalsIgnoringCase(L"@[`{", L"@[`{"));
    EXPECT_FALSE(equalsIgnoringCase(L"@", L"`"));
    EXPECT_FALSE(equalsIgnoringCase(L"[", L"{"));
    EXPECT_FALSE(equalsIgnoringCase(L"\u00C4", L"\u00E4"));
    EXPECT_FALSE(equalsIgnoringCase(L"jpg", L"jpgx"));
}

}  // namespace
}  // namespace text
