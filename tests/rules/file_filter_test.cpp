#include "files/file_filter.h"

#include <gtest/gtest.h>

namespace files {
namespace {

struct ListCase {
    const wchar_t* name;
    bool all, pictures, videos;
};

TEST(FileFilter, TypPatterns) {
    const ListCase cases[] = {
        {L"a.jpg", true, true, false},    {L"A.JPG", true, true, false},
        {L"a.Jpg", true, true, false},    {L"a.mpg", true, false, true},
        {L"A.MPG", true, false, true},    {L".jpg", true, true, false},
        {L"a.b.jpg", true, true, false},  {L"a [1] (2) \u00FC \u6F22.jpg", true, true, false},
        {L"x.jpgx", false, false, false}, {L"x.jpeg", false, false, false},
        {L"x.mpeg", false, false, false}, {L"x.mpgx", false, false, false},
        {L"xjpg", false, false, false},   {L"x.jp", false, false, false},
        {L"x.jpg ", false, false, false}, {L"x.jpg.txt", false, false, false},
        {L"x.mp3", false, false, false},  {L"Panorell.txt", false, false, false},
        {L"x.jpg~", false, false, false}, {L"jpg", false, false, false},
        {L"", false, false, false},
    };
    for (const ListCase& c : cases) {
        EXPECT_EQ(matchesPattern(c.name, kTypPatterns[0]), c.all) << c.name;
        EXPECT_EQ(matchesPattern(c.name, kTypPatterns[1]), c.pictures) << c.name;
        EXPECT_EQ(matchesPattern(c.name, kTypPatterns[2]), c.videos) << c.name;
    }
}

TEST(FileFilter, MusicPattern) {
    EXPECT_TRUE(matchesPattern(L"01 Lied.mp3", kMusicPattern));
    EXPECT_TRUE(matchesPattern(L"LIED.MP3", kMusicPattern));
    EXPECT_FALSE(matchesPattern(L"Lied.mp3x", kMusicPattern));
    EXPECT_FALSE(matchesPattern(L"Lied.mpg", kMusicPattern));
}

struct PatternCase {
    const wchar_t* name;
    const wchar_t* pattern;
    bool expected;
};

TEST(FileFilter, Wildcards) {
    const PatternCase cases[] = {
        {L"abc", L"*", true},      {L"", L"*", true},          {L"abc", L"abc", true},
        {L"abc", L"a?c", true},    {L"abc", L"a?", false},     {L"abc", L"?", false},
        {L"", L"?", false},        {L"abc", L"a*c", true},     {L"abcbc", L"a*bc", true},
        {L"abcb", L"a*bc", false}, {L"aXbXc", L"*x*x*", true}, {L"abc", L"**c", true},
        {L"abc", L"abc*", true},   {L"abc", L"", false},       {L"", L"", false},
        {L"abc", L";", false},     {L"abc", L"x;abc", true},   {L"abc", L" x ; abc ", true},
        {L"abc", L"x;;abc", true}, {L"a*c", L"a?c", true},
    };
    for (const PatternCase& c : cases) {
        EXPECT_EQ(matchesPattern(c.name, c.pattern), c.expected) << c.name << L" " << c.pattern;
    }
}

TEST(FileFilter, ManyStarsStayFast) {
    std::wstring pattern;
    for (int i = 0; i < 50; ++i) {
        pattern += L"*a";
    }
    EXPECT_FALSE(matchesPattern(std::wstring(5000, L'a') + L"b", pattern));
}

TEST(FileFilter, HiddenFiles) {
    EXPECT_TRUE(isListed(L"a.jpg", false, kTypPatterns[0], false));
    EXPECT_FALSE(isListed(L"a.jpg", true, kTypPatterns[0], false));
    EXPECT_TRUE(isListed(L"a.jpg", true, kTypPatterns[0], true));
    EXPECT_FALSE(isListed(L"a.txt", true, kTypPatterns[0], true));
    EXPECT_FALSE(isListed(L"a.txt", false, kTypPatterns[0], false));
}

TEST(FileFilter, KindsByTheLastThreeCharacters) {
    const struct {
        const wchar_t* name;
        bool video, picture;
    } cases[] = {
        {L"clip.mpg", true, false},
        {L"CLIP.MPG", true, false},
        {L"C:\\a\\clip.Mpg", true, false},
        {L"x.mpeg", false, false},
        {L"a.jpg", false, true},
        {L"A.JPG", false, true},
        {L"a.jpeg", false, false},
        {L"mpg", true, false},
        {L"jpg", false, true},
        {L"pg", false, false},
        {L"", false, false},
        {L"a.mpg.jpg", false, true},
        {L"C:\\x.mpg\\a.jpg", false, true},
        {L"a.png", false, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(isVideoName(c.name), c.video) << c.name;
        EXPECT_EQ(isPictureName(c.name), c.picture) << c.name;
    }
}

}  // namespace
}  // namespace files
