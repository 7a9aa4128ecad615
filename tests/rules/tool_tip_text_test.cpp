#include "overview/tool_tip_text.h"

#include <gtest/gtest.h>

namespace overview {
namespace {

constexpr wchar_t kDate[] = L"Samstag, 21. November 2026, 14:05";

TEST(ToolTipText, TellsWhatTheEntrySays) {
    const struct {
        const wchar_t* entry;
        bool video;
        const wchar_t* lines;
    } cases[] = {
        {L"", false, L""},
        {L"", true, L"[Video]\r"},
        {L"Am Strand", false, L"Am Strand\r"},
        {L" ", false, L""},
        {L" *P=2.5", false, L"Pause:2.5s    \r"},
        {L" *E=C", false, L"nächster Effekt:C\r"},
        {L" *D", false, L"Datum anzeigen\r"},
        {L" *M=Am Meer", false, L"Musik: Am Meer\r"},
        {L"Am Strand *P=8 *E=C *D *M=Meer.mp3", true,
         L"Am Strand\rPause:8s    \rnächster Effekt:C\rDatum anzeigen\rMusik: Meer.mp3\r[Video]\r"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(toolTipText(c.entry, c.video, kDate), std::wstring(c.lines) + kDate + L"\r") << c.entry;
    }
}

}  // namespace
}  // namespace overview
