#include "script/script_writer.h"

#include <gtest/gtest.h>

#include <random>

#include "edit/entry_line.h"
#include "script/show_script.h"
#include "text/utf8.h"

namespace script {
namespace {

/// A code page that holds the first 256 characters.
std::optional<std::string> toLatin(std::wstring_view text) {
    std::string bytes;
    for (const wchar_t c : text) {
        if (static_cast<unsigned>(c) > 0xFF) {
            return std::nullopt;
        }
        bytes += static_cast<char>(c);
    }
    return bytes;
}

/// Reads the bytes of a file as the reader of the folder's script does.
std::wstring textOfFile(const std::string& bytes) {
    if (text::hasUtf8Mark(bytes)) {
        if (auto text = text::decodeUtf8(std::string_view(bytes).substr(text::kUtf8Mark.size()))) {
            return *text;
        }
    }
    std::wstring text;
    for (const char c : bytes) {
        text += static_cast<wchar_t>(static_cast<unsigned char>(c));
    }
    return text;
}

TEST(ScriptWriter, LinesInTheirOrder) {
    struct Case {
        std::vector<ScriptLine> lines;
        std::vector<std::wstring> kept;
        const wchar_t* text;
    };
    const Case cases[] = {
        {{}, {}, L""},
        {{{L"a001", L""}, {L"a002", L""}}, {}, L""},
        {{{L"a001", L"Haus *D"}, {L"a002", L""}, {L"a003", L" *P=5"}}, {}, L"a001 Haus *D\r\na003  *P=5\r\n"},
        {{{L"a001", L" "}}, {}, L"a001  \r\n"},
        {{}, {L"Fremd Titel"}, L"Fremd Titel\r\n"},
        {{{L"a001", L"Haus"}}, {L"x", L"y z"}, L"a001 Haus\r\nx\r\ny z\r\n"},
        {{{L"a001", L"ein\r\nBruch"}}, {L"noch\neiner"}, L"a001 ein  Bruch\r\nnoch einer\r\n"},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(scriptText(one.lines, one.kept), one.text) << testing::PrintToString(one.text);
    }
}

TEST(ScriptWriter, TheCodePageWhereItCanElseUtf8) {
    EXPECT_EQ(scriptBytes(L"a Gr\u00F6\u00DFe\r\n", toLatin),
              "a Gr\xF6\xDF"
              "e\r\n");
    EXPECT_EQ(scriptBytes(L"a \u65E5\r\n", toLatin),
              "\xEF\xBB\xBF"
              "a \xE6\x97\xA5\r\n");
    EXPECT_EQ(scriptBytes(L"", toLatin), "");
    // In the code page these three letters are the mark.
    const std::wstring marked = L"\u00EF\u00BB\u00BF Titel\r\n";
    EXPECT_EQ(scriptBytes(marked, toLatin), text::encodeUtf8File(marked));
    EXPECT_EQ(textOfFile(scriptBytes(marked, toLatin)), marked);
}

/// Texts such as users write, and such as they do not.
class RandomEntries {
  public:
    explicit RandomEntries(unsigned seed) : random_(seed) {}

    std::wstring entry() {
        if (below(4) == 0) {
            return words();
        }
        const auto pauses = edit::pauseItems();
        const auto effects = edit::effectItems();
        return edit::writeEntryLine({words(), pauses[below(pauses.size())], effects[below(effects.size())],
                                     below(2) == 0, below(2) == 0 ? L"" : words()});
    }
    std::size_t below(std::size_t bound) { return random_() % bound; }

  private:
    std::wstring words() {
        static constexpr std::wstring_view kLetters =
            L"aeZ019 .=<#*-\u00E4\u00DF\u00EF\u00BB\u00BF\u20AC\u0416\u65E5\uFEFF";
        std::wstring text;
        for (std::size_t i = below(12); i > 0; --i) {
            text += kLetters[below(kLetters.size())];
        }
        return text;
    }
    std::mt19937 random_;
};

TEST(ScriptWriter, EveryEntryIsReadAsItWasWritten) {
    RandomEntries random(20251221);
    for (int round = 0; round < 300; ++round) {
        std::vector<ScriptLine> lines;
        for (std::size_t i = 1 + random.below(20); i > 0; --i) {
            const std::wstring number = std::to_wstring(i);
            lines.push_back(
                {L"\u00DCrlaub" + std::wstring(3 - number.size(), L'0') + number, random.entry()});
        }
        const std::wstring text = textOfFile(scriptBytes(scriptText(lines), toLatin));
        for (const ScriptLine& line : lines) {
            const Entry alone =
                line.entry.empty() ? Entry{} : readEntry(line.key + L" " + line.entry, line.key);
            EXPECT_EQ(readEntry(text, line.key), alone) << testing::PrintToString(line.entry);
            if (!line.entry.empty()) {
                EXPECT_EQ(alone.title, line.entry.substr(0, line.entry.find(L'*')));
            }
        }
    }
}

}  // namespace
}  // namespace script
