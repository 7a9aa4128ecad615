#include "app/help_text.h"

#include <gtest/gtest.h>

#include <vector>

namespace app {
namespace {

std::vector<std::wstring> linesOf(const std::wstring& text) {
    std::vector<std::wstring> lines(1);
    for (const wchar_t c : text) {
        if (c == L'\r') {
            lines.emplace_back();
        } else {
            lines.back() += c;
        }
    }
    return lines;
}

TEST(HelpText, LinesAreExact) {
    const std::vector<std::wstring> expected{
        L"    Show:",
        L"DOWN\t= Pause",
        L"UP\t= weiter",
        L"LEFT\t= zurück",
        L"RIGHT\t= vor",
        L"+\t= Musik lauter",
        L"-\t= Musik leiser",
        L".\t= Musik stumm",
        L"A..Z/#/?\t= Effekt wählen / alle / Infoanzeige",
        L"1..9\t= Pausenzeit (Sek)",
        L"ESC\t= beenden",
        L"Maus links   = Pause + Zeiger ein / nächstes Bild",
        L"Maus rechts = automatisch weiter",
        L"",
        L"    Vorschau:",
        L"Maus links    = Bild verschieben (Drag&Drop) ",
        L"Maus rechts = Bearbeiten-Menü",
        L"",
        L"    Hintergrundmusik:",
        L"MP3-Dateien in das Bilderverzeichnis kopieren.",
        L"Reihenfolge über Bearbeiten-Menü ändern.",
        L"",
        L"www.panorell.example",
    };
    EXPECT_EQ(linesOf(helpText()), expected);
}

TEST(HelpText, TitleHasItsBlank) {
    EXPECT_STREQ(kHelpTitle, L" Panorell");
}

TEST(HelpText, TitleAndVersion) {
    EXPECT_EQ(titleAndVersion(1, 0), L"Panorell\r\nV 1.0");
    EXPECT_EQ(titleAndVersion(2, 13), L"Panorell\r\nV 2.13");
}

}  // namespace
}  // namespace app
