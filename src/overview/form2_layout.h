#pragma once

#include "ui/twips.h"

namespace overview {

/// Where the controls of the overview lie, in twips of a client area of a given size.
struct Form2Layout {
    ui::TwipsRect grid;
    ui::TwipsRect progress;
    ui::TwipsRect card;  ///< behind what belongs to the music list
    ui::TwipsRect caption;
    ui::TwipsRect List1;
    ui::TwipsRect OK;
    ui::TwipsRect CAN;
};

/// `music`: whether the music list is shown, which takes its place from the grid.
Form2Layout layOutForm2(ui::Twips width, ui::Twips height, bool music);

/// The controls in the row below an enlarged film.
inline constexpr ui::Twips kTonWidth = 1200;
inline constexpr ui::Twips kCommandWidth = 600;
inline constexpr ui::Twips kInfoWidth = 2400;
/// The four buttons with a caption of their own, the sound before and the information behind them.
inline constexpr ui::Twips kRowWidth = kTonWidth + 4 * kCommandWidth + kInfoWidth;

/// The smallest client area: there is room for that row beside the music list.
inline constexpr ui::Twips kForm2SmallestWidth = 10200;
inline constexpr ui::Twips kForm2SmallestHeight = 6900;

}  // namespace overview
