#include <algorithm>
#include <cmath>
#include <numbers>

#include "show/effects/effect_steps.h"

namespace show::effects {

namespace {

struct Cell {
    int column;
    int row;
};

// The cell that a spiral from the left top corner inwards, clockwise, reaches after `place` others.
Cell spiralCell(int place, int side) {
    int ring = 0;
    int length = side - 1;
    while (length > 0 && place >= 4 * length) {
        place -= 4 * length;
        length -= 2;
        ++ring;
    }
    if (length <= 0) {
        return {ring, ring};
    }
    const int along = place % length;
    switch (place / length) {
        case 0:
            return {ring + along, ring};
        case 1:
            return {ring + length, ring + along};
        case 2:
            return {ring + length - along, ring + length};
        default:
            return {ring, ring + length - along};
    }
}

}  // namespace

void spiralCopies(int step, Surface s, std::vector<CopyRect>& copies) {
    constexpr int kSide = 20;
    if (step >= kSide * kSide) {
        copyInPlace(0, 0, s.width, s.height, s, copies);
        return;
    }
    const Cell cell = spiralCell(step, kSide);
    copyInPlace(s.width * cell.column / kSide, s.height * cell.row / kSide,
                s.width * (cell.column + 1) / kSide, s.height * (cell.row + 1) / kSide, s, copies);
}

void gridCopies(int step, Surface s, std::vector<CopyRect>& copies) {
    constexpr int kSteps = 101;
    constexpr int kLongSide = 64;  // cells along the surface's longer side
    const int cellSize = std::max(1, (std::max(s.width, s.height) + kLongSide - 1) / kLongSide);
    const int columns = (s.width + cellSize - 1) / cellSize;
    const int rows = (s.height + cellSize - 1) / cellSize;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const auto chance = scattered(static_cast<std::uint32_t>(row * columns + column) + 1U);
            if (static_cast<int>(chance % kSteps) == step) {
                const int left = column * cellSize;
                const int top = row * cellSize;
                copyInPlace(left, top, left + cellSize, top + cellSize, s, copies);
            }
        }
    }
}

int circleCount(Surface s) {
    const double corner = std::hypot(s.width, s.height) / 2.0;
    return static_cast<int>(std::ceil(corner / kRadiusStep)) + 1;
}

namespace {

// Squares one degree apart touch up to a radius of about 800 pixels; further out they grow with their
// distance, or rays of the old picture would be left between them.
int squareSize(int radius) {
    const double apart = radius * std::numbers::pi / 180.0;
    return std::max(kSquareSize, static_cast<int>(std::ceil(apart)) + 1);
}

}  // namespace

void circleCopies(int step, Surface s, std::vector<CopyRect>& copies) {
    const int radius = step * kRadiusStep;
    const int side = squareSize(radius);
    for (int degrees = 0; degrees <= 360; ++degrees) {
        const double angle = degrees * std::numbers::pi / 180.0;
        const int left = static_cast<int>(std::lround(s.width / 2.0 + radius * std::cos(angle))) - side / 2;
        const int top = static_cast<int>(std::lround(s.height / 2.0 + radius * std::sin(angle))) - side / 2;
        copyInPlace(left, top, left + side, top + side, s, copies);
    }
}

}  // namespace show::effects
