#include "show/step_rule.h"

#include <gtest/gtest.h>

namespace show {
namespace {

TEST(StepRule, NextStep) {
    const struct {
        int index, count;
        bool loop;
        Step expected;
    } cases[] = {
        {0, 3, false, {1, false}},
        {1, 3, false, {2, false}},
        {2, 3, false, {3, true}},
        {2, 3, true, {0, false}},
        {0, 1, true, {0, false}},
        {0, 1, false, {1, true}},
        {-1, 3, false, {0, false}},
        {-1, 3, true, {0, false}},
        {-5, 3, false, {0, false}},
        // the list has become shorter meanwhile
        {5, 3, false, {3, true}},
        {5, 3, true, {0, false}},
        {3, 3, false, {3, true}},
        {0, 0, false, {0, true}},
        {0, 0, true, {0, true}},
        {4, 0, true, {0, true}},
        {4, -1, true, {0, true}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(nextStep(c.index, c.count, c.loop), c.expected) << c.index << " of " << c.count;
    }
}

TEST(StepRule, BackLandsOnThePicturesBefore) {
    EXPECT_EQ(backIndex(0), std::nullopt);
    EXPECT_EQ(backIndex(-1), std::nullopt);
    EXPECT_EQ(backIndex(1), -1);
    EXPECT_EQ(backIndex(5), 3);
    for (int index = 1; index < 5; ++index) {
        EXPECT_EQ(nextStep(*backIndex(index), 5, false), (Step{index - 1, false}));
    }
    // from the end of the list back to the last but one
    EXPECT_EQ(nextStep(*backIndex(5), 5, false), (Step{4, false}));
}

TEST(StepRule, PastTheEnd) {
    EXPECT_FALSE(isPastEnd(2, 3));
    EXPECT_TRUE(isPastEnd(3, 3));
    EXPECT_FALSE(isPastEnd(-1, 3));
}

TEST(StepRule, StartsAtTheSelectionOrTheFirst) {
    EXPECT_EQ(startIndex(-1), 0);
    EXPECT_EQ(startIndex(0), 0);
    EXPECT_EQ(startIndex(7), 7);
}

TEST(StepRule, EffectKeys) {
    EXPECT_EQ(effectOfKey(L'a'), 1);
    EXPECT_EQ(effectOfKey(L'z'), 26);
    EXPECT_EQ(effectOfKey(L'#'), 0);
    for (const wchar_t c : {L'A', L'Z', L'`', L'{', L'?', L' ', L'\u00E4', L'0'}) {
        EXPECT_EQ(effectOfKey(c), std::nullopt) << static_cast<int>(c);
    }
}

TEST(StepRule, DigitKeys) {
    EXPECT_EQ(secondsOfKey(L'1'), 1);
    EXPECT_EQ(secondsOfKey(L'9'), 9);
    for (const wchar_t c : {L'0', L'/', L':', L'a', L'\u00B2'}) {
        EXPECT_EQ(secondsOfKey(c), std::nullopt) << static_cast<int>(c);
    }
}

TEST(StepRule, LettersChooseFolders) {
    const std::vector<std::wstring> names{L"", L"alpen", L"Berge", L"bach", L"\u00DCbung", L"2003"};
    EXPECT_EQ(folderOfLetter(names, L'b'), 2);
    EXPECT_EQ(folderOfLetter(names, L'B'), 2);
    EXPECT_EQ(folderOfLetter(names, L'A'), 1);
    EXPECT_EQ(folderOfLetter(names, L'\u00FC'), 4);
    EXPECT_EQ(folderOfLetter(names, L'\u00DC'), 4);
    EXPECT_EQ(folderOfLetter(names, L'2'), 5);
    EXPECT_EQ(folderOfLetter(names, L'z'), std::nullopt);
    EXPECT_EQ(folderOfLetter({}, L'a'), std::nullopt);
    EXPECT_EQ(folderOfLetter({L"\u00D7"}, L'\u00F7'), std::nullopt);
}

TEST(StepRule, SecondScreen) {
    EXPECT_EQ(secondScreenLeft(1920), 2304);
    EXPECT_EQ(secondScreenLeft(1366), 1639);
    EXPECT_EQ(secondScreenPointer(1920, 1080), (ScreenPoint{2880, 540}));
}

}  // namespace
}  // namespace show
