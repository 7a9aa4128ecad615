#pragma once

#include <vector>

#include "ui/twips.h"
#include "ui/vector_path.h"

namespace app::layout {

/// Places on the set-up window are written in pixels of 96 DPI, a grid of 4, and kept in twips.
constexpr ui::TwipsRect at(float left, float top, float width, float height) {
    constexpr float kTwips = 15;
    return {left * kTwips, top * kTwips, width * kTwips, height * kTwips};
}

// At 200 % it fits a screen of 1920 x 1080 beside its task bar.
inline constexpr ui::TwipsRect kWindow = at(0, 0, 900, 504);

// head
inline constexpr ui::TwipsRect kHead = at(0, 0, 900, 72);
inline constexpr ui::TwipsRect kPic3 = at(24, 12, 48, 48);
inline constexpr ui::TwipsRect kLabel1 = at(88, 4, 480, 68);
inline constexpr ui::TwipsRect kHelp = at(740, 20, 76, 32);
inline constexpr ui::TwipsRect kENDE = at(828, 20, 44, 32);

// where
inline constexpr ui::TwipsRect kCardWhere = at(16, 88, 380, 400);
inline constexpr ui::TwipsRect kDrive1 = at(28, 99, 172, 30);
inline constexpr ui::TwipsRect kDir1 = at(28, 136, 172, 340);
constexpr ui::TwipsRect typ(int index) {
    return at(212.0F + 58.0F * static_cast<float>(index), 100, 56, 28);
}
inline constexpr ui::TwipsRect kFile1 = at(212, 136, 172, 340);

// go; the preview has the shape 4:3
inline constexpr ui::TwipsRect kPic2 = at(408, 88, 256, 192);
inline constexpr ui::TwipsRect kStart = at(408, 292, 122, 44);
inline constexpr ui::TwipsRect kCTRL = at(542, 292, 122, 44);
inline constexpr ui::TwipsRect kRun = at(408, 348, 256, 140);

// how
inline constexpr ui::TwipsRect kCardHow = at(676, 88, 208, 400);
inline constexpr ui::TwipsRect kPauseWord = at(690, 96, 100, 24);
inline constexpr ui::TwipsRect kIntT = at(690, 124, 56, 40);
inline constexpr ui::TwipsRect kLabel2 = at(754, 132, 50, 24);
inline constexpr ui::TwipsRect kIntS = at(848, 100, 20, 80);
inline constexpr ui::TwipsRect kLine1 = at(690, 190, 180, 1);
constexpr ui::TwipsRect check(int row) {
    return at(690, 196.0F + 28.0F * static_cast<float>(row), 180, 28);
}
// Its glyph and its word lie in front of it, as the digits of the sets lie in front of their options, and let
// the pointer through: all of the row takes clicks.
inline constexpr ui::TwipsRect kScreen2 = at(690, 336, 180, 28);
inline constexpr ui::TwipsRect kScreenGlyph = at(710, 339, 22, 22);
inline constexpr ui::TwipsRect kScreenWord = at(736, 337, 133, 26);
inline constexpr ui::TwipsRect kLine2 = at(690, 369, 180, 1);
inline constexpr ui::TwipsRect kFrame1 = at(690, 380, 132, 96);
constexpr ui::TwipsRect option(int index) {
    return at(10.0F + 30.0F * static_cast<float>(index), 41, 20, 43);
}
constexpr ui::TwipsRect digit(int index) {
    return at(11.0F + 30.0F * static_cast<float>(index), 61, 14, 22);
}
inline constexpr ui::TwipsRect kSAVE = at(830, 380, 40, 96);

// show; the places are computed when it starts
inline constexpr ui::TwipsRect kEOT = at(0, 0, 160, 56);
inline constexpr ui::TwipsRect kUT = at(0, 0, 400, 48);
inline constexpr ui::TwipsRect kText1 = at(0, 0, 200, 26);

/// Glyphs are made for a square of 24.
inline constexpr float kGlyphSide = 24;
ui::Path playGlyph();
ui::Path overviewGlyph();
ui::Path saveGlyph();
ui::Path powerGlyph();
ui::Path screensGlyph();

}  // namespace app::layout
