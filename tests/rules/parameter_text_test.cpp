#include "app/parameter_text.h"

#include <gtest/gtest.h>

namespace app {
namespace {

ParameterState holiday() {
    return {L"C:\\Bilder\\Urlaub", L"5", 1, 0, 1, 0, 1};
}

TEST(ParameterText, BuildsInItsOrder) {
    EXPECT_EQ(buildParameterText(holiday()), L"C:\\Bilder\\Urlaub P=5 D=1 E=0 V=1 M=0 S=2");
}

TEST(ParameterText, LeavesOutAMissingSet) {
    ParameterState state = holiday();
    state.optionIndex.reset();
    state.music = 2;
    EXPECT_EQ(buildParameterText(state), L"C:\\Bilder\\Urlaub P=5 D=1 E=0 V=1 M=2");
}

TEST(ParameterText, KeepsAnEmptyPause) {
    EXPECT_EQ(buildParameterText({L"C:\\", L"", 0, 0, 0, 0, {}}), L"C:\\ P= D=0 E=0 V=0 M=0");
}

TEST(ParameterText, CommandsAreNotQuoted) {
    EXPECT_EQ(buildCommand(L"C:\\Pro gramme\\", holiday()),
              L"C:\\Pro gramme\\Panorell.exe C:\\Bilder\\Urlaub P=5 D=1 E=0 V=1 M=0 S=2");
    EXPECT_EQ(buildRestartCommand(L"D:\\", holiday(), 12),
              L"D:\\Panorell.exe C:\\Bilder\\Urlaub P=5 D=1 E=0 V=1 M=0 S=2 L=12");
}

TEST(ParameterText, ReadsBackWhatItBuilds) {
    Parameters expected;
    expected.optionIndex = 1;
    expected.drive = L"C:";
    expected.folder = L"C:\\Bilder\\Urlaub";
    expected.pauseText = L"5";
    expected.date = 1;
    expected.loop = 0;
    expected.videoSound = 1;
    expected.music = 0;
    EXPECT_EQ(parseParameters(buildParameterText(holiday())), expected);
    expected.startIndex = 7;
    const std::wstring command = buildRestartCommand(L"C:\\Programme\\", holiday(), 7);
    EXPECT_EQ(parseParameters(parametersOfCommandLine(command)), expected);
}

TEST(ParameterText, EmptyTextAsksForNothing) {
    EXPECT_EQ(parseParameters(L""), Parameters{});
    EXPECT_EQ(parseParameters(L"Bilder"), Parameters{});
    EXPECT_EQ(parseParameters(L"\"\""), Parameters{});
}

struct FolderCase {
    const wchar_t* text;
    std::optional<std::wstring> drive;
    std::optional<std::wstring> folder;
};

TEST(ParameterText, FindsTheFolder) {
    const FolderCase cases[] = {
        {L"C:\\ P=5 D=1", L"C:", L"C:\\"},
        {L"C:\\Bilder P=5", L"C:", L"C:\\Bilder"},
        {L"C:\\Bilder X P=5", L"C:", L"C:\\Bilder X"},
        {L"C:\\Bilder", L"C:", L"C:\\Bilder"},
        {L"C:\\Bilder ", L"C:", L"C:\\Bilder "},
        {L"C:\\Bilder R=1", L"C:", L"C:\\Bilder"},
        {L"P=5 D=1 C:\\Bilder", L"C:", L"C:\\Bilder"},
        {L"P=5 C:\\Bilder D=1", L"C:", L"C:\\Bilder"},
        {L"xC:\\a P=1", L"C:", L"C:\\a"},
        {L"C: P=5", L"C:", L"C:"},
        {L"C:", L"C:", L"C:"},
        {L"C:\\a:b P=5", L"C:", L"C:\\a:b"},
        // a folder with "=" is cut
        {L"C:\\a=b", L"C:", L"C:"},
        {L"C:\\Jahr=2003 P=5", L"C:", L"C:\\Ja"},
        {L"C:=", L"C:", L""},
        {L"C:x=1", L"C:", L"C"},
        // no drive
        {L"Bilder P=5", {}, {}},
        {L"\\\\server\\bilder P=5", {}, {}},
        {L":\\a P=5", {}, {}},
        {L":", {}, {}},
        // quotes
        {L"\"C:\\Bilder X\" R=1", L"C:", L"C:\\Bilder X"},
        {L"\"C:\\Bilder X\"", L"C:", L"C:\\Bilder X"},
        {L"\"C:\\Bilder X", L"C:", L"C:\\Bilder X"},
        {L"R=1 \"C:\\Bilder X\"", L"C:", L"C:\\Bilder X"},
        {L"\"C:\\a=b\" P=5", L"C:", L"C:\\a=b"},
        {L"\"C:\\a = b\"", L"C:", L"C:\\a = b"},
        {L"\"C:\\Bilder X P=5 R=1\"", L"C:", L"C:\\Bilder X"},
        {L"\"C:\\\" P=5", L"C:", L"C:\\"},
        {L"\"x C:\\a\" P=5", L"C:", L"C:\\a"},
        {L"\":\\a\" P=5", {}, {}},
        {L"\"", {}, {}},
        {L"C\":\\a\" P=5", L"C:", L"C:\\a"},
        {L"x\"\":\\a=b\"", L"x:", L"x:"},
    };
    for (const FolderCase& c : cases) {
        const Parameters parameters = parseParameters(c.text);
        EXPECT_EQ(parameters.drive, c.drive) << c.text;
        EXPECT_EQ(parameters.folder, c.folder) << c.text;
    }
}

TEST(ParameterText, ReadsThePause) {
    const std::pair<const wchar_t*, std::optional<std::wstring>> cases[] = {
        {L"P=7", L"7"},     {L"P=12", L"12"},     {L"P=123", L"12"},      {L"P=7 D=1", L"7"},
        {L"P= 7", L"7"},    {L"P=", L""},         {L"P=  ", L""},         {L"P=ab", L"ab"},
        {L"P=5 P=9", L"5"}, {L"p=5", {}},         {L"D=1 P=60", L"60"},   {L"", {}},
        {L"XP=4", L"4"},    {L"P=75 L=1", L"75"}, {L"C:\\P=3 P=8", L"3"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(parseParameters(text).pauseText, expected) << text;
    }
}

using Flag = std::optional<int> Parameters::*;

class ParameterFlag : public testing::TestWithParam<std::pair<std::wstring, Flag>> {};

TEST_P(ParameterFlag, TakesOneDigitOfACheckBox) {
    const auto& [key, flag] = GetParam();
    const std::pair<const wchar_t*, std::optional<int>> cases[] = {
        {L"0", 0},  {L"1", 1},  {L"2", 2},   {L"10", 1}, {L"3", {}},
        {L"9", {}}, {L"x", {}}, {L" 1", {}}, {L"", {}},  {L"-1", {}},
    };
    for (const auto& [value, expected] : cases) {
        EXPECT_EQ(parseParameters(key + value).*flag, expected) << key << value;
        EXPECT_EQ(parseParameters(L"C:\\a " + key + value).*flag, expected) << key << value;
    }
    EXPECT_EQ(parseParameters(L"C:\\a").*flag, std::nullopt);
    EXPECT_EQ(parseParameters(key + L"1 " + key + L"0").*flag, 1);
    EXPECT_EQ(parseParameters(key + L"x " + key + L"1").*flag, std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Keys, ParameterFlag,
                         testing::Values(std::pair(L"D=", &Parameters::date),
                                         std::pair(L"E=", &Parameters::loop),
                                         std::pair(L"V=", &Parameters::videoSound),
                                         std::pair(L"M=", &Parameters::music)));

TEST(ParameterText, SetIsOneOfFour) {
    const std::pair<const wchar_t*, std::optional<int>> cases[] = {
        {L"S=1", 0}, {L"S=4", 3},  {L"S=0", {}}, {L"S=5", {}},      {L"S=9", {}},
        {L"S=", {}}, {L"S=x", {}}, {L"S=12", 0}, {L"C:\\a S=3", 2}, {L"s=1", {}},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(parseParameters(text).optionIndex, expected) << text;
    }
}

TEST(ParameterText, IndexIsOneDigit) {
    const std::pair<const wchar_t*, std::optional<int>> cases[] = {
        {L"L=0", 0}, {L"L=9", 9}, {L"L=12", 1}, {L"L=", 0}, {L"L=x", 0}, {L"L=-1", 0}, {L"C:\\a", {}},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(parseParameters(text).startIndex, expected) << text;
    }
}

TEST(ParameterText, RunsAtOnceWhereverItIsAsked) {
    EXPECT_TRUE(parseParameters(L"R=1").runAtOnce);
    EXPECT_TRUE(parseParameters(L"C:\\Bilder R=1").runAtOnce);
    EXPECT_TRUE(parseParameters(L"R=1 C:\\Bilder").runAtOnce);
    EXPECT_TRUE(parseParameters(L"C:\\BilderR=1\\x P=5").runAtOnce);
    EXPECT_TRUE(parseParameters(L"R=12").runAtOnce);
    EXPECT_FALSE(parseParameters(L"R=0").runAtOnce);
    EXPECT_FALSE(parseParameters(L"r=1").runAtOnce);
    EXPECT_FALSE(parseParameters(L"R = 1").runAtOnce);
    EXPECT_TRUE(parseParameters(L"R=0 R=1").runAtOnce);
}

TEST(ParameterText, KeysStandInAnyOrder) {
    const Parameters parameters = parseParameters(L"C:\\a M=1 V=0 E=1 D=0 P=9 S=4 R=1 L=3");
    EXPECT_EQ(parameters.music, 1);
    EXPECT_EQ(parameters.videoSound, 0);
    EXPECT_EQ(parameters.loop, 1);
    EXPECT_EQ(parameters.date, 0);
    EXPECT_EQ(parameters.pauseText, L"9");
    EXPECT_EQ(parameters.optionIndex, 3);
    EXPECT_EQ(parameters.startIndex, 3);
    EXPECT_TRUE(parameters.runAtOnce);
}

TEST(ParameterText, DropsTheProgramsName) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"Panorell.exe", L""},
        {L"", L""},
        {L"Panorell.exe C:\\a P=5", L"C:\\a P=5"},
        {L"Panorell.exe   C:\\a  ", L"C:\\a"},
        {L"\"C:\\Pro gramme\\Panorell.exe\" C:\\a", L"C:\\a"},
        {L"\"C:\\Pro gramme\\Panorell.exe\"", L""},
        {L"\"C:\\Pro gramme\\Panorell.exe\" \"C:\\Bilder X\" R=1", L"\"C:\\Bilder X\" R=1"},
        {L"\"Panorell.exe", L""},
        {L"Panorell.exe \"\"", L""},
        {L"\"C:\\Pro gramme\\Panorell.exe\"  \"\" ", L""},
        {L"Panorell.exe \"\" R=1", L"\"\" R=1"},
    };
    for (const auto& [line, expected] : cases) {
        EXPECT_EQ(parametersOfCommandLine(line), expected) << line;
    }
}

}  // namespace
}  // namespace app
