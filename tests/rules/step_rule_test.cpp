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

TEST(StepRule, FurtherBackIsOneMore) {
    EXPECT_EQ(furtherBackIndex(3), 2);
    EXPECT_EQ(furtherBackIndex(0), -1);
    EXPECT_EQ(furtherBackIndex(-1), std::nullopt) << "the first item is on its way already";
}

TEST(StepRule, BystandersSteerNothing) {
    const int bystanders[] = {0x10, 0x11, 0x12, 0x14, 0x5B, 0x5C, 0x5F, 0x90, 0x91, 0xA0,
                              0xA3, 0xA5, 0xA6, 0xAD, 0xAE, 0xAF, 0xB0, 0xB3, 0xB7, 0xFF};
    for (const int key : bystanders) {
        EXPECT_TRUE(isBystanderKey(key)) << key;
    }
    // Enter, pause, Escape, blank, arrows, digits, letters, the menu key, the number block, F1, German signs.
    const int others[] = {0x0D, 0x13, 0x1B, 0x20, 0x25, 0x28, 0x30, 0x41, 0x5A,
                          0x5D, 0x60, 0x6F, 0x70, 0x92, 0xBA, 0xBF, 0xE2};
    for (const int key : others) {
        EXPECT_FALSE(isBystanderKey(key)) << key;
    }
}

}  // namespace
}  // namespace show
