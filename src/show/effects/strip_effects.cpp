#include <algorithm>
#include <array>
#include <numeric>

#include "show/effects/effect_steps.h"

namespace show::effects {

namespace {

void copyStrip(int left, int right, Surface s, std::vector<CopyRect>& copies) {
    copyInPlace(left, 0, right, s.height, s, copies);
}

void copyBand(int top, int bottom, Surface s, std::vector<CopyRect>& copies) {
    copyInPlace(0, top, s.width, bottom, s, copies);
}

// The step width with which a walk round `count` places visits each of them once and spreads evenly over
// them from the start: next to the golden section of the count.
int evenStride(int count) {
    int stride = std::max(1, count * 618 / 1000);
    while (std::gcd(stride, count) != 1) {
        ++stride;
    }
    return stride;
}

}  // namespace

void passCopies(int step, Surface s, std::vector<CopyRect>& copies) {
    constexpr int kPasses = 4;
    constexpr int kStepsPerPass = 100;
    constexpr std::array<int, kPasses> kStripOfPass = {0, 2, 1, 3};
    const int pass = step / kStepsPerPass;
    const int place = step % kStepsPerPass;
    const int group = pass % 2 == 0 ? place : kStepsPerPass - 1 - place;
    const int strip = group * kPasses + kStripOfPass[static_cast<std::size_t>(pass)];
    constexpr int kStrips = kPasses * kStepsPerPass;
    copyStrip(s.width * strip / kStrips, s.width * (strip + 1) / kStrips, s, copies);
}

void slatCopies(int step, Surface s, std::vector<CopyRect>& copies) {
    constexpr int kSlats = 12;
    constexpr int kDelay = 8;   // steps by which a slat begins after its left neighbour
    constexpr int kTurn = 112;  // steps that a slat takes to open
    for (int slat = 0; slat < kSlats; ++slat) {
        const int opened = step - slat * kDelay;
        if (opened < 1 || opened > kTurn) {
            continue;
        }
        const int left = s.width * slat / kSlats;
        const int width = s.width * (slat + 1) / kSlats - left;
        copyStrip(left + width * (opened - 1) / kTurn, left + width * opened / kTurn, s, copies);
    }
}

void doorCopies(int step, Surface s, std::vector<CopyRect>& copies) {
    if (step == 0) {
        return;
    }
    const int leftDoor = s.width / 2;
    const int rightDoor = s.width - leftDoor;
    copyStrip(leftDoor * (step - 1) / 200, leftDoor * step / 200, s, copies);
    copyStrip(s.width - rightDoor * step / 200, s.width - rightDoor * (step - 1) / 200, s, copies);
}

void plaidCopies(int step, Surface s, std::vector<CopyRect>& copies) {
    constexpr int kLines = 100;
    const int strip = step * 61 % kLines;
    const int band = step * 39 % kLines;
    copyStrip(s.width * strip / kLines, s.width * (strip + 1) / kLines, s, copies);
    copyBand(s.height * band / kLines, s.height * (band + 1) / kLines, s, copies);
}

void blindCopies(int step, Surface s, std::vector<CopyRect>& copies) {
    constexpr int kBlinds = 9;
    if (step == 0) {
        return;
    }
    for (int blind = 0; blind < kBlinds; ++blind) {
        const int top = s.height * blind / kBlinds;
        const int height = s.height * (blind + 1) / kBlinds - top;
        copyBand(top + height * (step - 1) / 100, top + height * step / 100, s, copies);
    }
}

// From the right edge to the left one, with a crumbling edge: a column comes later by a random share.
void columnCopies(int step, Surface s, std::vector<CopyRect>& copies) {
    const int columns = (s.width + kColumnWidth - 1) / kColumnWidth;
    const int edge = columns / 3;
    for (int column = 0; column < columns; ++column) {
        const auto chance = scattered(static_cast<std::uint32_t>(column) + 1U);
        const int delay = static_cast<int>(chance % static_cast<std::uint32_t>(edge + 1));
        if ((columns - 1 - column + delay) * kLineSteps / (columns + edge) == step) {
            copyStrip(column * kColumnWidth, (column + 1) * kColumnWidth, s, copies);
        }
    }
}

void rowCopies(int step, Surface s, std::vector<CopyRect>& copies) {
    const int stride = evenStride(s.height);
    const int end = s.height * (step + 1) / kLineSteps;
    for (int i = s.height * step / kLineSteps; i < end; ++i) {
        const int row = static_cast<int>(static_cast<std::int64_t>(i) * stride % s.height);
        copyBand(row, row + 1, s, copies);
    }
}

}  // namespace show::effects
