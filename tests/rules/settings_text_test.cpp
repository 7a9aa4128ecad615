#include "edit/settings_text.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace edit {
namespace {

using testing::ElementsAre;

std::vector<std::wstring> texts(const std::vector<SettingsPiece>& pieces) {
    std::vector<std::wstring> result;
    for (const SettingsPiece& piece : pieces) {
        result.push_back((piece.ownRow ? L"" : L"+") + piece.text);
    }
    return result;
}

TEST(SettingsText, TheDateHasTwoDigitsEach) {
    EXPECT_EQ(shortDay({24, 12, 2025}), L"24.12.25");
    EXPECT_EQ(shortDay({1, 2, 2107}), L"01.02.07");
    EXPECT_EQ(shortDay({9, 10, 1980}), L"09.10.80");
}

TEST(SettingsText, WhatAnItemTells) {
    const struct {
        const wchar_t* name;
        const wchar_t* entry;
        const wchar_t* date;
        std::vector<std::wstring> expected;
    } cases[] = {
        {L"bild01.jpg", L"", L"24.12.25", {L"24.12.25", L"bild01"}},
        {L"bild01.jpg", L"Am Meer", L"24.12.25", {L"24.12.25", L"bild01", L"Am Meer"}},
        {L"bild01.jpg",
         L"Am Meer *P=5 *E=A *D *M=Wellen",
         L"24.12.25",
         {L"24.12.25", L"bild01", L"Am Meer", L"5 s", L"+Effekt A", L"+Datum", L"+Musik: Wellen"}},
        {L"bild01.jpg", L" *E=#", L"24.12.25", {L"24.12.25", L"bild01", L"Effekt #"}},
        {L"bild01.jpg", L" *D", L"24.12.25", {L"24.12.25", L"bild01", L"Datum"}},
        {L"bild01.jpg", L" *M=<", L"24.12.25", {L"24.12.25", L"bild01", L"Musik: <"}},
        {L"film.MPG", L"Fahrt", L"24.12.25", {L"24.12.25", L"film", L"Fahrt", L"Video"}},
        {L"a.b.jpg", L"", L"", {L"a.b"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(texts(settingsPieces(c.name, c.entry, c.date)), c.expected);
    }
}

TEST(SettingsText, OnlyTheDateFlagHasItsOwnColour) {
    for (const SettingsPiece& piece : settingsPieces(L"a.jpg", L"Titel *P=5 *D *M=x", L"24.12.25")) {
        EXPECT_EQ(piece.dateFlag, piece.text == L"Datum");
    }
}

/// A font whose letters are 0.7 of its pixels wide, at `dpi`.
MeasureText fontAt(int dpi) {
    return [dpi](const std::wstring& text, int points) {
        const int pixels = points * dpi / 72;
        return TextSize{static_cast<int>(text.size()) * pixels * 7 / 10, pixels * 4 / 3};
    };
}

const auto kFull = settingsPieces(L"urlaub001.jpg", L"Am Strand *P=5 *E=A *D *M=Wellen", L"24.12.25");

std::wstring kept(const SettingsLayout& layout, const std::vector<SettingsPiece>& pieces) {
    std::wstring all;
    for (const PlacedPiece& placed : layout.pieces) {
        all += (all.empty() ? L"" : L"|") + pieces[placed.piece].text;
    }
    return all;
}

TEST(SettingsText, ALargeThumbnailGivesEachItsRow) {
    const SettingsLayout layout = layOutSettings(kFull, 400, 300, 96, fontAt(96));
    EXPECT_EQ(layout.points, kLargestSettingsPoints);
    ASSERT_EQ(layout.pieces.size(), kFull.size());
    std::vector<int> rows;
    for (const PlacedPiece& piece : layout.pieces) {
        rows.push_back(piece.top);
    }
    // Date, name and title beneath one another; then the values beside one another.
    EXPECT_THAT(rows, ElementsAre(213, 234, 255, 276, 276, 276, 276));
    EXPECT_EQ(layout.pieces.back().top + layout.pieces.back().height, 297)
        << "the last row lies at the bottom";
}

TEST(SettingsText, NothingOverlapsAndNothingLeavesTheThumbnail) {
    for (const int dpi : {96, 144, 192}) {
        for (int width = 40; width <= 600; width += 7) {
            const int height = width * 3 / 4;
            const SettingsLayout layout = layOutSettings(kFull, width, height, dpi, fontAt(dpi));
            ASSERT_FALSE(layout.pieces.empty());
            EXPECT_GE(layout.points, kSmallestSettingsPoints);
            const PlacedPiece* before = nullptr;
            for (const PlacedPiece& piece : layout.pieces) {
                EXPECT_LE(piece.left + piece.width, width) << width << " at " << dpi;
                EXPECT_GE(piece.left, 1);
                EXPECT_GE(piece.top, 0);
                EXPECT_LE(piece.top + piece.height, height) << width << " at " << dpi;
                if (before != nullptr) {
                    EXPECT_TRUE(piece.top >= before->top + before->height ||
                                (piece.top == before->top && piece.left > before->left + before->width));
                }
                before = &piece;
            }
        }
    }
}

TEST(SettingsText, ASmallThumbnailKeepsWhatIsWorthMost) {
    const struct {
        int width, height;
        const wchar_t* expected;
    } cases[] = {
        {120, 90, L"24.12.25|urlaub001|Am Strand|5 s|Effekt A|Datum|Musik: Wellen"},
        {80, 60, L"urlaub001|Am Strand|5 s|Effekt A|Datum|Musik: Wellen"},
        {60, 48, L"urlaub001|Am Strand|5 s|Effekt A"},
        {60, 26, L"urlaub001|Am Strand"},
        {60, 14, L"Am Strand"},
        {20, 5, L"Am Strand"},
    };
    for (const auto& c : cases) {
        const SettingsLayout layout = layOutSettings(kFull, c.width, c.height, 96, fontAt(96));
        EXPECT_EQ(kept(layout, kFull), c.expected) << c.width << " x " << c.height;
    }
}

// A long title would make everything on a large thumbnail tiny.
TEST(SettingsText, ALongTextIsRatherCutThanMadeTiny) {
    const auto pieces = settingsPieces(
        L"a.jpg", L"Ein sehr langer Titel, der in keine Zeile dieser Welt passen will", L"24.12.25");
    const SettingsLayout layout = layOutSettings(pieces, 200, 150, 96, fontAt(96));
    EXPECT_EQ(layout.points, kComfortableSettingsPoints);
    EXPECT_EQ(layout.pieces.back().width, 194);
}

}  // namespace
}  // namespace edit
