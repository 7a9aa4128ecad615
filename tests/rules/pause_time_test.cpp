#include "show/pause_time.h"

#include <gtest/gtest.h>

namespace show {
namespace {

TEST(PauseTime, TextMovesTheBar) {
    const struct {
        const wchar_t* text;
        PauseTextChange expected;
    } cases[] = {
        {L"1", {false, 60}},  {L"5", {false, 56}},  {L"05", {false, 56}},     {L"59", {false, 2}},
        {L"60", {false, 1}},  {L"61", {false, 1}},  {L"75", {false, 1}},      {L"99", {false, 1}},
        {L" 7", {false, 54}}, {L"7 ", {false, 54}}, {L"7x", {false, 54}},     {L"1e", {false, 60}},
        {L".5", {false, 60}}, {L"0", {false, {}}},  {L"00", {false, {}}},     {L"-1", {false, {}}},
        {L"-9", {false, {}}}, {L"ab", {false, {}}}, {L"", {false, {}}},       {L" ", {false, {}}},
        {L"123", {true, {}}}, {L"005", {true, {}}}, {L"2.5", {true, {}}},     {L"abc", {true, {}}},
        {L"   ", {true, {}}}, {L"1e9", {true, {}}}, {L"1234567", {true, {}}}, {L".4", {false, {}}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(pauseTextChanged(c.text), c.expected) << c.text;
    }
}

TEST(PauseTime, UncappedTextOutsideTheBarIsIgnored) {
    EXPECT_EQ(pauseScrollOf(L"5"), 56);
    EXPECT_EQ(pauseScrollOf(L"60"), 1);
    EXPECT_EQ(pauseScrollOf(L"1"), 60);
    EXPECT_EQ(pauseScrollOf(L"99"), std::nullopt);
    EXPECT_EQ(pauseScrollOf(L"0"), std::nullopt);
    EXPECT_EQ(pauseScrollOf(L""), std::nullopt);
    EXPECT_EQ(pauseScrollOf(L"x"), std::nullopt);
    EXPECT_EQ(pauseScrollOf(L"-1"), std::nullopt);
    EXPECT_EQ(pauseScrollOf(L"1e99"), std::nullopt);
}

TEST(PauseTime, SecondsAndBarRunAgainstEachOther) {
    for (int seconds = 1; seconds <= 60; ++seconds) {
        const std::optional<int> scroll = pauseScrollOfSeconds(seconds);
        ASSERT_EQ(scroll, 61 - seconds);
        EXPECT_EQ(pauseSeconds(*scroll), seconds);
        EXPECT_EQ(pauseMillisecondsOfScroll(*scroll), seconds * 1000);
        EXPECT_EQ(pauseTextOf(*scroll), std::to_wstring(seconds));
        EXPECT_EQ(pauseTextChanged(pauseTextOf(*scroll)), (PauseTextChange{false, scroll}));
    }
    EXPECT_EQ(pauseScrollOfSeconds(0), std::nullopt);
    EXPECT_EQ(pauseScrollOfSeconds(61), std::nullopt);
    EXPECT_EQ(pauseSeconds(kPauseScrollInitial), 5);
}

}  // namespace
}  // namespace show
