#pragma once

#include <windows.h>

#include "ui/vector_path.h"

namespace ui {

constexpr COLORREF colorref(Rgb colour) {
    return RGB((colour >> 16) & 0xFF, (colour >> 8) & 0xFF, colour & 0xFF);
}

/// The colours of the program's windows.
namespace theme {

inline constexpr Rgb kGround = 0xE9EEF5;
inline constexpr Rgb kCard = 0xFBFCFE;
inline constexpr Rgb kEdge = 0xCBD5E1;
inline constexpr Rgb kText = 0x1B2430;
inline constexpr Rgb kMutedText = 0x566375;
inline constexpr Rgb kDisabledText = 0x9AA5B4;
inline constexpr Rgb kAccent = 0x1F5FBF;
inline constexpr Rgb kOnAccent = 0xFFFFFF;
inline constexpr Rgb kButton = 0xFFFFFF;
inline constexpr Rgb kDark = 0x16202E;

}  // namespace theme

}  // namespace ui
