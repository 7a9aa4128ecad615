#include "text/utf8.h"

#include <gtest/gtest.h>

#include <utility>

namespace text {
namespace {

using std::string_literals::operator""s;

TEST(Utf8, KnowsTheMark) {
    EXPECT_TRUE(hasUtf8Mark("\xEF\xBB\xBF"));
    EXPECT_TRUE(hasUtf8Mark("\xEF\xBB\xBFtext"));
    EXPECT_FALSE(hasUtf8Mark("\xEF\xBB"));
    EXPECT_FALSE(hasUtf8Mark(""));
    EXPECT_FALSE(hasUtf8Mark("text"));
}

TEST(Utf8, ReadsAndWritesTheSame) {
    const std::pair<std::string, std::wstring> cases[] = {
        {"", L""},
        {"Bild1 *P=5", L"Bild1 *P=5"},
        {"\x7F", L"\x7F"},
        {"\xC2\x80", L"\u0080"},
        {"Gr\xC3\xBC\xC3\x9F"
         "e",
         L"Gr\u00FC\u00DFe"},
        {"\xDF\xBF", L"\u07FF"},
        {"\xE0\xA0\x80", L"\u0800"},
        {"\xE2\x82\xAC", L"\u20AC"},
        {"\xE6\xBC\xA2\xE5\xAD\x97", L"\u6F22\u5B57"},
        {"\xEF\xBF\xBF", L"\uFFFF"},
        {"\xF0\x90\x80\x80", L"\U00010000"},
        {"a\xF0\x9F\x98\x80z", L"a\U0001F600z"},
        {"\xF4\x8F\xBF\xBF", L"\U0010FFFF"},
        {"a\0b"s, std::wstring(L"a\0b", 3)},
        {"\xEF\xBB\xBF", L"\uFEFF"},
    };
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(decodeUtf8(bytes), text) << bytes;
        EXPECT_EQ(encodeUtf8(text), bytes) << bytes;
        EXPECT_EQ(encodeUtf8File(text), std::string(kUtf8Mark) + bytes);
    }
}

TEST(Utf8, RefusesWhatIsNotUtf8) {
    const std::string cases[] = {
        "\x80",              // stray continuation byte
        "\xBF",              //
        "a\xFC"              // western code page
        "b",                 //
        "\xC3",              // cut off
        "\xC3(",             // continuation byte missing
        "\xE2\x82",          //
        "\xE2(\xAC",         //
        "\xE2\x82(",         //
        "\xF0\x9F\x98",      //
        "\xF0\x9F\x98(",     //
        "\xC0\x80",          // overlong
        "\xC1\xBF",          //
        "\xE0\x9F\xBF",      //
        "\xF0\x8F\xBF\xBF",  //
        "\xF4\x90\x80\x80",  // beyond the last character
        "\xF5\x80\x80\x80",  //
        "\xF8\x88\x80\x80\x80",
        "\xFE",
        "\xFF",
        "\xED\xA0\xBD\xED\xB8\x80",  // a pair of surrogates, each as a character
    };
    for (const std::string& bytes : cases) {
        EXPECT_EQ(decodeUtf8(bytes), std::nullopt) << bytes;
        EXPECT_EQ(decodeUtf8("valid " + bytes), std::nullopt) << bytes;
    }
}

TEST(Utf8, KeepsLoneSurrogatesOfFileNames) {
    const wchar_t high = static_cast<wchar_t>(0xD83D);
    const wchar_t low = static_cast<wchar_t>(0xDE00);
    const std::wstring texts[] = {{high}, {low}, {low, high}, {high, L'a', low}, {high, high}};
    for (const std::wstring& text : texts) {
        EXPECT_EQ(decodeUtf8(encodeUtf8(text)), text);
    }
}

TEST(Utf8, JoinsPairsOfAnyCharacterWidth) {
    const std::wstring pair{static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
    EXPECT_EQ(encodeUtf8(pair), "\xF0\x9F\x98\x80");
    EXPECT_EQ(encodeUtf8(pair + pair), "\xF0\x9F\x98\x80\xF0\x9F\x98\x80");
}

}  // namespace
}  // namespace text
