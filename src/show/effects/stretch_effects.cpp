#include "show/effects/effect_steps.h"

namespace show::effects {

namespace {

constexpr int kLastStep = 100;
/// Pixels of the largest surface, 2560 x 1600, on which the whole picture is stretched.
constexpr int kMostStretched = 2560 * 1600;
/// A picture is copied in bands: what one of them needs stays in the processor's cache.
constexpr int kBands = 60;

}  // namespace

bool halvesPicture(int index, Surface s) {
    return index >= 12 && index <= 14 && s.width > 1 && s.height > 1 && s.width > kMostStretched / s.height;
}

void stretchCopies(int index, int step, Surface s, std::vector<CopyRect>& copies) {
    const bool halved = halvesPicture(index, s) && step < kLastStep;
    const Surface source = halved ? Surface{s.width / 2, s.height / 2} : s;
    const int width = s.width * step / kLastStep;
    const int height = s.height * step / kLastStep;
    PixelRect target;
    switch (index) {
        case 12:
            target = {s.width * (kLastStep - step) / (2 * kLastStep), 0, width, s.height};
            break;
        case 13:
            target = {s.width * (kLastStep - step) / (2 * kLastStep),
                      s.height * (kLastStep - step) / (2 * kLastStep), width, height};
            break;
        default:
            target = {0, 0, width, height};
            break;
    }
    if (target.width <= 0) {
        return;
    }
    for (int band = 0; band < kBands; ++band) {
        const int from = source.height * band / kBands;
        const int until = source.height * (band + 1) / kBands;
        const int top = target.height * band / kBands;
        const int bottom = target.height * (band + 1) / kBands;
        if (bottom > top && until > from) {
            copies.push_back({{0, from, source.width, until - from},
                              {target.left, target.top + top, target.width, bottom - top}});
        }
    }
}

}  // namespace show::effects
