#include "app/option_set.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace app {
namespace {

using Store = std::map<std::wstring, std::wstring>;

OptionReader readerOf(const Store& store) {
    return [&store](const OptionKey& key) {
        const auto found = store.find(key.name);
        return found == store.end() ? std::wstring(key.fallback) : found->second;
    };
}

TEST(OptionSet, DefaultsWithoutAFile) {
    const OptionSet set = readOptionSet(readerOf({}));
    EXPECT_EQ(set, OptionSet{});
    EXPECT_EQ(set.drive, L"C:");
    EXPECT_EQ(set.dir, L"\\");
    EXPECT_EQ(set.delay, L"5");
    EXPECT_EQ(set.loop, 0);
    EXPECT_EQ(set.date, 0);
    EXPECT_EQ(set.sound, 1);
    EXPECT_EQ(set.music, 1);
    EXPECT_EQ(set.effects, 1);
}

TEST(OptionSet, ReadsBackWhatItWrites) {
    const OptionSet set{L"D:", L"D:\\Bilder\\\u00DCbung", L"12", 1, 1, 0, 2, 0};
    Store store;
    EXPECT_TRUE(writeOptionSet(set, [&](const OptionKey& key, const std::wstring& value) {
        store[key.name] = value;
        return true;
    }));
    EXPECT_EQ(readOptionSet(readerOf(store)), set);
}

TEST(OptionSet, WritesInTheOrderOfTheFile) {
    std::vector<std::wstring> lines;
    writeOptionSet({L"D:", L"D:\\a", L"7", 1, 0, 1, 2, 0},
                   [&](const OptionKey& key, const std::wstring& value) {
                       lines.push_back(std::wstring(key.name) + L"=" + value);
                       return true;
                   });
    const std::vector<std::wstring> expected{L"Drive=D:", L"Dir=D:\\a", L"Delay=7", L"Loop=1",
                                             L"Date=0",   L"Sound=1",   L"Music=2", L"Effekte=0"};
    EXPECT_EQ(lines, expected);
}

TEST(OptionSet, TellsThatItCouldNotBeWritten) {
    for (const wchar_t* refused : {L"Drive", L"Delay", L"Effekte"}) {
        const bool written = writeOptionSet(
            {}, [&](const OptionKey& key, const std::wstring&) { return std::wstring(key.name) != refused; });
        EXPECT_FALSE(written) << refused;
    }
}

TEST(OptionSet, CutsLongValues) {
    const std::pair<OptionKey, std::pair<std::wstring, std::wstring>> cases[] = {
        {kDelayKey, {L"100", L"10"}},
        {kDelayKey, {L"5", L"5"}},
        {kDelayKey, {L"", L""}},
        {kDriveKey, {L"C: [System]", L"C:"}},
        {kLoopKey, {L"10", L"1"}},
        {kSoundKey, {L"01", L"0"}},
        {kMusicKey, {L"21", L"2"}},
        {kEffectsKey, {L"12", L"1"}},
        {kDateKey, {L"12", L"12"}},
        {kDirKey, {std::wstring(100, L'x'), std::wstring(79, L'x')}},
        {kEditorKey, {std::wstring(80, L'x'), std::wstring(79, L'x')}},
        {kDirKey, {std::wstring(L"C:\\a\0rest", 9), L"C:\\a"}},
        {kDelayKey, {std::wstring(L"7\0005", 3), L"7"}},
    };
    for (const auto& [key, texts] : cases) {
        EXPECT_EQ(cutOptionValue(key, texts.first), texts.second) << key.name;
    }
}

TEST(OptionSet, UnusableCheckBoxesGetTheirDefault) {
    const std::pair<const wchar_t*, std::pair<int, int>> cases[] = {
        // value, what Loop (default 0) and Sound (default 1) become
        {L"0", {0, 0}}, {L"1", {1, 1}}, {L"2", {2, 2}},  {L"3", {0, 1}}, {L"x", {0, 1}},
        {L"", {0, 1}},  {L"-", {0, 1}}, {L"11", {1, 1}}, {L" ", {0, 1}},
    };
    for (const auto& [value, expected] : cases) {
        const OptionSet set = readOptionSet(readerOf({{L"Loop", value}, {L"Sound", value}}));
        EXPECT_EQ(set.loop, expected.first) << value;
        EXPECT_EQ(set.sound, expected.second) << value;
    }
    // read with more room than a digit needs, so it is not cut to one
    EXPECT_EQ(readOptionSet(readerOf({{L"Date", L"11"}})).date, 0);
    EXPECT_EQ(readOptionSet(readerOf({{L"Date", L" 1"}})).date, 1);
}

TEST(OptionSet, LongDelayIsCut) {
    EXPECT_EQ(readOptionSet(readerOf({{L"Delay", L"100"}})).delay, L"10");
}

TEST(OptionSet, NamesAndIndices) {
    for (int index = 0; index < kOptionSetCount; ++index) {
        EXPECT_EQ(optionSetIndex(optionSetName(index)), index);
    }
    EXPECT_EQ(optionSetName(0), L"Set1");
    EXPECT_EQ(optionSetName(3), L"Set4");
    EXPECT_EQ(optionSetIndex(L"Set0"), std::nullopt);
    EXPECT_EQ(optionSetIndex(L"Set5"), std::nullopt);
    EXPECT_EQ(optionSetIndex(L"Set"), std::nullopt);
    EXPECT_EQ(optionSetIndex(L""), std::nullopt);
}

TEST(OptionSet, FolderDisplayName) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"\\", L""},
        {L"C:\\", L""},
        {L"C:\\Bilder", L"Bilder"},
        {L"C:\\Bilder\\Urlaub", L"Urlaub"},
        {L"C:\\Bilder\\Urlaub 2003.08", L"Urlaub 2003"},
        {L"C:\\Bilder\\a.b.c", L"a"},
        {L"C:\\Bilder\\.git", L""},
        {L"C:\\Fotos.2003\\Urlaub", L""},
        {L"C:\\Fotos.2003\\Urlaub.x", L""},
        {L"C:\\Fotos.2003\\", L""},
        {L"C:\\Bilder\\", L""},
        {L"Bilder", L"Bilder"},
        {L"Bilder.x", L"Bilder"},
        {L"", L""},
        {L"\\\\server\\bilder\\\u00DCbung", L"\u00DCbung"},
    };
    for (const auto& [path, expected] : cases) {
        EXPECT_EQ(folderDisplayName(path), expected) << path;
    }
}

TEST(OptionSet, ProgramDirectoryEndsInABackslash) {
    EXPECT_EQ(withBackslash(L"C:\\Programme"), L"C:\\Programme\\");
    EXPECT_EQ(withBackslash(L"C:\\"), L"C:\\");
    EXPECT_EQ(withBackslash(L""), L"\\");
}

TEST(OptionSet, ShapeKey) {
    EXPECT_TRUE(usesScreenShape(L"screen"));
    EXPECT_TRUE(usesScreenShape(kShapeKey.fallback));
    EXPECT_TRUE(usesScreenShape(L""));
    EXPECT_TRUE(usesScreenShape(L"16:9"));
    EXPECT_FALSE(usesScreenShape(L"4:3"));
    EXPECT_FALSE(usesScreenShape(L" 4:3 "));
}

TEST(OptionSet, ColourKey) {
    EXPECT_TRUE(matchesColours(kColourKey.fallback));
    EXPECT_TRUE(matchesColours(L"on"));
    EXPECT_TRUE(matchesColours(L""));
    EXPECT_TRUE(matchesColours(L"offen"));
    EXPECT_FALSE(matchesColours(L"off"));
    EXPECT_FALSE(matchesColours(L" Off "));
}

}  // namespace
}  // namespace app
