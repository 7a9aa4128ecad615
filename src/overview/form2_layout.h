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

inline constexpr ui::Twips kForm2SmallestWidth = 9600;
inline constexpr ui::Twips kForm2SmallestHeight = 7200;

}  // namespace overview
