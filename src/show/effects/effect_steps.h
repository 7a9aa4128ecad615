#pragma once

#include <cstdint>
#include <vector>

#include "show/transition_effects.h"

/// The geometry of the single effects, for transition_effects.cpp only. A step has been checked to be one
/// of the effect's own, a surface to have at least one pixel.
namespace show::effects {

inline constexpr int kFirstCopyEffect = 12;
inline constexpr int kSquareSize = 15;  // "Y": side of a square where neighbours touch
inline constexpr int kRadiusStep = 5;   // "Y": from one circle to the next
inline constexpr int kColumnWidth = 5;  // "W"
inline constexpr int kLineSteps = 300;  // "W" and "X"
inline constexpr int kImmediately = 1;  // "Z": Timer2's interval

struct Surface {
    int width;
    int height;
};

/// "Y": how many circles it takes to reach the surface's corners.
int circleCount(Surface surface);

OverlayStep overlayGeometry(int index, int step, Surface surface);

/// "M" ... "O": whether a picture of the surface's size is too large to be stretched in every step.
bool halvesPicture(int index, Surface surface);

// Copies of one step, appended to `copies`.
void stretchCopies(int index, int step, Surface surface, std::vector<CopyRect>& copies);  // "M" ... "O"
void spiralCopies(int step, Surface surface, std::vector<CopyRect>& copies);              // "P"
void passCopies(int step, Surface surface, std::vector<CopyRect>& copies);                // "Q"
void slatCopies(int step, Surface surface, std::vector<CopyRect>& copies);                // "R"
void doorCopies(int step, Surface surface, std::vector<CopyRect>& copies);                // "S"
void plaidCopies(int step, Surface surface, std::vector<CopyRect>& copies);               // "T"
void blindCopies(int step, Surface surface, std::vector<CopyRect>& copies);               // "U"
void gridCopies(int step, Surface surface, std::vector<CopyRect>& copies);                // "V"
void columnCopies(int step, Surface surface, std::vector<CopyRect>& copies);              // "W"
void rowCopies(int step, Surface surface, std::vector<CopyRect>& copies);                 // "X"
void circleCopies(int step, Surface surface, std::vector<CopyRect>& copies);              // "Y"

/// Appends a copy at the same place from (left, top) up to, not including, (right, bottom): the part of it
/// that lies on the surface, if any.
void copyInPlace(int left, int top, int right, int bottom, Surface surface, std::vector<CopyRect>& copies);

/// A number that looks random but is always the same for the same input.
constexpr std::uint32_t scattered(std::uint32_t value) {
    value ^= value >> 16;
    value *= 0x7feb352dU;
    value ^= value >> 15;
    value *= 0x846ca68bU;
    return value ^ (value >> 16);
}

}  // namespace show::effects
