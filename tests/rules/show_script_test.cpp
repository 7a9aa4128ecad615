#include "script/show_script.h"

#include "support/literal_script_reader.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace script {
namespace {

using std::string_literals::operator""s;

Entry entryOf(std::wstring title, std::wstring pause = L"", std::wstring effect = L"",
              std::optional<std::wstring> music = {}, bool dateFlag = false) {
    return {std::move(title), std::move(pause), std::move(effect), std::move(music), dateFlag};
}

struct ScriptCase {
    const char* name;
    std::wstring text;
    std::wstring key;
    Entry expected;
};

void PrintTo(const ScriptCase& c, std::ostream* out) {
    *out << c.name;
}

class ShowScript : public testing::TestWithParam<ScriptCase> {};

TEST_P(ShowScript, GivesTheEntry) {
    const ScriptCase& c = GetParam();
    const Entry entry = readEntry(c.text, c.key);
    EXPECT_EQ(entry.title, c.expected.title);
    EXPECT_EQ(entry.pause, c.expected.pause);
    EXPECT_EQ(entry.effect, c.expected.effect);
    EXPECT_EQ(entry.music, c.expected.music);
    EXPECT_EQ(entry.dateFlag, c.expected.dateFlag);
    EXPECT_EQ(test::LiteralScriptReader::read(c.text, c.key), entry);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ShowScript,
    testing::Values(
        ScriptCase{"whole", L"Urlaub007 Am Strand *P=8 *E=C *D *M=Meer.mp3\r\n", L"Urlaub007",
                   entryOf(L"Am Strand ", L"8", L"C", L"Meer.mp3", true)},
        ScriptCase{"title_only", L"Bild1 Titel\r\n", L"Bild1", entryOf(L"Titel")},
        ScriptCase{"no_title", L"Bild1  *P=5\r\n", L"Bild1", entryOf(L" ", L"5")},
        ScriptCase{"marker_at_once", L"Bild1 *P=5\r\n", L"Bild1", entryOf(L"", L"5")},
        ScriptCase{"key_alone", L"Bild1\r\n", L"Bild1", entryOf(L"")},
        ScriptCase{"key_and_separator", L"Bild1 \r\n", L"Bild1", entryOf(L"")},
        ScriptCase{"separator_is_any_character", L"Bild1=Titel", L"Bild1", entryOf(L"Titel")},
        ScriptCase{"star_as_separator_is_skipped", L"Bild1*P=5 *D", L"Bild1",
                   entryOf(L"P=5 ", L"", L"", {}, true)},
        ScriptCase{"case_counts", L"bild1 Titel\r\n", L"Bild1", entryOf(L"")},
        ScriptCase{"blank_in_front_counts", L" Bild1 Titel\r\n", L"Bild1", entryOf(L"")},
        ScriptCase{"line_shorter_than_key", L"Bild\r\n", L"Bild1", entryOf(L"")},
        ScriptCase{"empty_file", L"", L"Bild1", entryOf(L"")},
        ScriptCase{"empty_lines", L"\r\n\r\nBild1 a\r\n\r\n", L"Bild1", entryOf(L"a")},
        ScriptCase{"other_lines_are_ignored", L"x\r\nBild2 b *P=9\r\nBild1 a\r\ny *D\r\n", L"Bild1",
                   entryOf(L"a")},
        ScriptCase{"longer_key_matches_too", L"Bild1 kurz *P=3\r\nBild10 lang *E=B\r\n", L"Bild1",
                   entryOf(L" lang ", L"3", L"B")},
        ScriptCase{"longer_key_before", L"Bild10 lang *E=B\r\nBild1 kurz *P=3\r\n", L"Bild1",
                   entryOf(L"kurz ", L"3", L"B")},
        ScriptCase{"shorter_key_does_not_match", L"Bild1 kurz *P=3\r\n", L"Bild10", entryOf(L"")},
        ScriptCase{"last_title_wins", L"Bild1 a\r\nBild1 b\r\n", L"Bild1", entryOf(L"b")},
        ScriptCase{"markers_are_kept", L"Bild1 Alt *P=9\r\nBild1 Titel\r\n", L"Bild1",
                   entryOf(L"Titel", L"9")},
        ScriptCase{"markers_are_kept_over_other_lines", L"Bild1 Alt *P=9\r\nx y\r\nBild1 Titel\r\nz\r\n",
                   L"Bild1", entryOf(L"Titel", L"9")},
        ScriptCase{"values_are_kept_marker_by_marker", L"Bild1 a *P=9 *E=C *D *M=x\r\nBild1 b *P=4\r\n",
                   L"Bild1", entryOf(L"b ", L"4", L"C", L"x", true)},
        ScriptCase{"later_line_without_title_clears_it", L"Bild1 a *P=9\r\nBild1\r\n", L"Bild1",
                   entryOf(L"", L"9")},
        ScriptCase{"first_star_ends_the_title", L"Bild1 a * b *P=5\r\n", L"Bild1", entryOf(L"a ", L"5")},
        ScriptCase{"title_with_tabs", L"Bild1 a\tb\r\n", L"Bild1", entryOf(L"a\tb")},
        ScriptCase{"pause_ends_at_blank", L"Bild1 *P=2.5 Rest\r\n", L"Bild1", entryOf(L"", L"2.5")},
        ScriptCase{"pause_at_the_end", L"Bild1 *P=\r\n", L"Bild1", entryOf(L"")},
        ScriptCase{"pause_begins_with_blank", L"Bild1 *P= 5\r\n", L"Bild1", entryOf(L"")},
        ScriptCase{"pause_runs_into_next_marker", L"Bild1 *P=5*E=C\r\n", L"Bild1",
                   entryOf(L"", L"5*E=C", L"C")},
        ScriptCase{"first_pause_counts", L"Bild1 *P=5 *P=7\r\n", L"Bild1", entryOf(L"", L"5")},
        ScriptCase{"markers_in_any_order", L"Bild1 *D *E=C *P=7\r\n", L"Bild1",
                   entryOf(L"", L"7", L"C", {}, true)},
        ScriptCase{"lower_case_markers_do_not_count", L"Bild1 *p=5 *d *e=C\r\n", L"Bild1", entryOf(L"")},
        ScriptCase{"effect_is_one_character", L"Bild1 *E=CX\r\n", L"Bild1", entryOf(L"", L"", L"C")},
        ScriptCase{"effect_at_the_end", L"Bild1 *E=\r\n", L"Bild1", entryOf(L"")},
        ScriptCase{"effect_at_the_end_clears", L"Bild1 *E=B\r\nBild1 *E=", L"Bild1", entryOf(L"")},
        ScriptCase{"effect_all", L"Bild1 *E=#\r\n", L"Bild1", entryOf(L"", L"", L"#")},
        ScriptCase{"effect_blank", L"Bild1 *E= \r\n", L"Bild1", entryOf(L"", L"", L" ")},
        ScriptCase{"music_to_the_end", L"Bild1 *M=Mein Lied\r\n", L"Bild1",
                   entryOf(L"", L"", L"", L"Mein Lied")},
        ScriptCase{"music_takes_markers_along", L"Bild1 *M=a *P=5\r\n", L"Bild1",
                   entryOf(L"", L"5", L"", L"a *P=5")},
        ScriptCase{"music_stop", L"Bild1 *M=<\r\n", L"Bild1", entryOf(L"", L"", L"", L"<")},
        ScriptCase{"music_empty", L"Bild1 *M=\r\n", L"Bild1", entryOf(L"", L"", L"", L"")},
        ScriptCase{"music_trailing_blank", L"Bild1 *M=a \r\n", L"Bild1", entryOf(L"", L"", L"", L"a ")},
        ScriptCase{"date_within_a_word", L"Bild1 *Dach\r\n", L"Bild1", entryOf(L"", L"", L"", {}, true)},
        ScriptCase{"date_in_music", L"Bild1 *M=x*D\r\n", L"Bild1", entryOf(L"", L"", L"", L"x*D", true)},
        ScriptCase{"only_line_feeds", L"Bild2 b\nBild1 a *P=5\nBild3 c\n", L"Bild1", entryOf(L"a ", L"5")},
        ScriptCase{"last_line_without_end", L"Bild2 b\r\nBild1 a *M=Lied", L"Bild1",
                   entryOf(L"a ", L"", L"", L"Lied")},
        ScriptCase{"lone_carriage_return", L"Bild2 b\rBild1 a\rBild3 c", L"Bild1", entryOf(L"a")},
        ScriptCase{"doubled_carriage_return", L"Bild1 *M=Lied\r\r\nBild2\r\r\n", L"Bild1",
                   entryOf(L"", L"", L"", L"Lied")},
        ScriptCase{"nul_in_a_line", L"Bild1 a\0b *P=5\r\n"s, L"Bild1", entryOf(L"a\0b "s, L"5")},
        ScriptCase{"nul_in_another_line", L"\0\0\r\nBild1 a\r\n"s, L"Bild1", entryOf(L"a")},
        ScriptCase{"nul_before_the_key", L"\0Bild1 a\r\n"s, L"Bild1", entryOf(L"")},
        ScriptCase{"umlauts", L"\u00DCbung \u00C4pfel *M=S\u00FC\u00DF\r\n", L"\u00DCbung",
                   entryOf(L"\u00C4pfel ", L"", L"", L"S\u00FC\u00DF")},
        ScriptCase{"key_with_blanks", L"Bild 1 Titel\r\n", L"Bild 1", entryOf(L"Titel")},
        ScriptCase{"key_with_star", L"a*b Titel *P=2\r\n", L"a*b", entryOf(L"Titel ", L"2")},
        ScriptCase{"empty_key_matches_every_line", L"xTitel *P=2\r\nyAnderer\r\n", L"",
                   entryOf(L"Anderer", L"2")},
        ScriptCase{"empty_key_and_empty_line", L"xTitel\r\n\r\n", L"", entryOf(L"")}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST(ShowScriptLines, AreReadAsIfEveryStepRanOnEveryLine) {
    std::mt19937 random(20260107);
    const std::wstring pieces[] = {L"Bild1", L"Bild10", L"B",  L" ",  L"*",   L"*P=",    L"7",
                                   L"2.5",   L"*E=",    L"#",  L"C",  L" *D", L"*M=",    L"Lied",
                                   L"<",     L"\r\n",   L"\n", L"\r", L"\n",  L"\u00FC", L"x"};
    const std::wstring keys[] = {L"Bild1", L"B", L"", L"Bild10", L"*", L" "};
    for (int round = 0; round < 20'000; ++round) {
        std::wstring text;
        for (int i = 0; i < 30; ++i) {
            text += pieces[random() % std::size(pieces)];
        }
        const std::wstring& key = keys[random() % std::size(keys)];
        ASSERT_EQ(readEntry(text, key), test::LiteralScriptReader::read(text, key)) << text;
    }
}

TEST(ShowScriptLines, AreSplit) {
    using Lines = std::vector<std::wstring_view>;
    EXPECT_EQ(splitLines(L""), Lines{});
    EXPECT_EQ(splitLines(L"a"), Lines{L"a"});
    EXPECT_EQ(splitLines(L"a\r\n"), Lines{L"a"});
    EXPECT_EQ(splitLines(L"a\n"), Lines{L"a"});
    EXPECT_EQ(splitLines(L"a\r"), Lines{L"a"});
    EXPECT_EQ(splitLines(L"\r\n"), Lines{L""});
    EXPECT_EQ(splitLines(L"\n\r\n\r"), (Lines{L"", L"", L""}));
    EXPECT_EQ(splitLines(L"a\r\n\r\nb"), (Lines{L"a", L"", L"b"}));
    EXPECT_EQ(splitLines(L"a\n\rb"), (Lines{L"a", L"", L"b"}));
    const std::wstring withNul = L"a\0b\nc"s;
    EXPECT_EQ(splitLines(withNul), (Lines{std::wstring_view(withNul).substr(0, 3), L"c"}));
}

TEST(ShowScriptLines, MayBeLong) {
    const std::wstring title(1'000'000, L'x');
    const Entry entry = readEntry(L"Bild2 b\r\nBild1 " + title + L" *P=5\r\n", L"Bild1");
    EXPECT_EQ(entry.title, title + L" ");
    EXPECT_EQ(entry.pause, L"5");
}

TEST(ShowScriptLines, MayBeMany) {
    std::wstring text;
    for (int i = 0; i < 10'000; ++i) {
        text += L"Bild" + std::to_wstring(i + 10'000) + L" Titel " + std::to_wstring(i) + L" *P=7\r\n";
    }
    EXPECT_EQ(readEntry(text, L"Bild19999"), entryOf(L"Titel 9999 ", L"7"));
    EXPECT_EQ(readEntry(text, L"Bild10000"), entryOf(L"Titel 0 ", L"7"));
    EXPECT_EQ(readEntry(text, L"Bild20000"), entryOf(L""));
}

TEST(ShowScriptValues, TitleIsShown) {
    EXPECT_FALSE(showsTitle(L""));
    EXPECT_FALSE(showsTitle(L" "));
    EXPECT_TRUE(showsTitle(L"  "));
    EXPECT_TRUE(showsTitle(L"a"));
}

TEST(ShowScriptValues, PauseInMilliseconds) {
    const std::pair<const wchar_t*, int> cases[] = {
        {L"5", 5000},
        {L"2.5", 2500},
        {L"2,5", 2000},
        {L"0", 0},
        {L"", 0},
        {L"x", 0},
        {L"-3", 0},
        {L"0.0005", 0},
        {L"0.0015", 2},
        {L"0.0025", 2},
        {L"0.0035", 4},
        {L".5", 500},
        {L"60", 60000},
        {L"3600", 3600000},
        {L"5s", 5000},
        {L"0.0006", 1},
        {L"1e9", std::numeric_limits<int>::max()},
        {L"1e999", std::numeric_limits<int>::max()},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(pauseMilliseconds(text), expected) << text;
    }
}

TEST(ShowScriptValues, EffectNumbers) {
    for (wchar_t letter = L'A'; letter <= L'Z'; ++letter) {
        EXPECT_EQ(effectNumberOf(std::wstring(1, letter)), letter - L'A' + 1);
    }
    EXPECT_EQ(effectNumberOf(L"#"), 0);
    EXPECT_EQ(effectNumberOf(L"a"), 33);
    EXPECT_EQ(effectNumberOf(L"b"), 34);
    EXPECT_EQ(effectNumberOf(L"z"), 58);
    EXPECT_EQ(effectNumberOf(L"@"), 0);
    EXPECT_EQ(effectNumberOf(L"1"), -15);
    EXPECT_EQ(effectNumberOf(L"\u00C4"), 132);
    EXPECT_EQ(effectNumberOf(L""), std::nullopt);
}

TEST(ShowScriptPath, NeedsNoCheckOfTheFolder) {
    EXPECT_EQ(scriptPath(L"C:\\Bilder"), L"C:\\Bilder\\Panorell.txt");
    EXPECT_EQ(scriptPath(L"C:\\"), L"C:\\\\Panorell.txt");
}

}  // namespace
}  // namespace script
