#include "show/effects/effect_steps.h"

namespace show::effects {

void stretchCopies(int index, int step, Surface s, std::vector<CopyRect>& copies) {
    const int width = s.width * step / 100;
    const int height = s.height * step / 100;
    PixelRect target;
    switch (index) {
        case 12:
            target = {s.width * (100 - step) / 200, 0, width, s.height};
            break;
        case 13:
            target = {s.width * (100 - step) / 200, s.height * (100 - step) / 200, width, height};
            break;
        default:
            target = {0, 0, width, height};
            break;
    }
    if (target.width > 0 && target.height > 0) {
        copies.push_back({{0, 0, s.width, s.height}, target});
    }
}

}  // namespace show::effects
