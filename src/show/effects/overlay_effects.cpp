#include <cmath>
#include <numbers>

#include "show/effects/effect_steps.h"

namespace show::effects {

namespace {

// "J": swings in from outside the left bottom corner along a quarter of an ellipse and comes to rest softly.
OverlayStep swing(int i, Surface s) {
    const double rest = 1.0 - i / 150.0;
    const double angle = (1.0 - rest * rest) * std::numbers::pi / 2.0;
    return {static_cast<int>(std::lround(-s.width * std::cos(angle))),
            static_cast<int>(std::lround(s.height * (1.0 - std::sin(angle)))), s.width, s.height};
}

// "K": a slit opens sideways from the centre, then up and down.
OverlayStep slit(int step, Surface s) {
    constexpr int kSidewaysSteps = 21;
    const bool sideways = step < kSidewaysSteps;
    const int slitHeight = s.height / 12 + 1;
    const int width = sideways ? s.width * (step * 5) / 100 : s.width;
    const int height =
        sideways ? slitHeight : slitHeight + (s.height - slitHeight) * ((step - kSidewaysSteps) * 5) / 200;
    return {(s.width - width) / 2, (s.height - height) / 2, width, height};
}

// "L": the old picture, taken from the screen, shrinks into the left top corner, hesitating at first, and
// frees the new one below; at the end the box takes the new one from the screen as well.
OverlayStep shrinkOld(int step, Surface s) {
    constexpr int kShrinkSteps = 150;
    constexpr int kSlowSteps = 50;
    if (step > kShrinkSteps) {
        return {0, 0, s.width, s.height, OverlayPicture::Take};
    }
    const int left = kShrinkSteps - step;
    return {0,
            0,
            s.width * left / kShrinkSteps,
            s.height * left / kShrinkSteps,
            step == 0 ? OverlayPicture::Exchange : OverlayPicture::Keep,
            step < kSlowSteps ? 2 * kStepInterval : kStepInterval};
}

}  // namespace

OverlayStep overlayGeometry(int index, int step, Surface s) {
    const int w = s.width;
    const int h = s.height;
    switch (index) {
        case 1:
            return {0, 0, w * step / 300, h};
        case 2:
            return {0, 0, w, h * step / 300};
        case 3:
            return {w * step / 400 - w, 0, w, h};
        case 4:
            return {0, 0, w * step / 300, h * step / 300};
        case 5:
            return {w - w * step / 600, 0, w, h * step / 600};
        case 6:
            return {w - w * step / 600, h - h * step / 600, w, h};
        case 7: {  // falls from above, faster and faster
            const int i = step * 5;
            return {0, h * i / 200 * i / 200 - h, w, h};
        }
        case 8: {  // rises from below and slows down
            const int rest = 200 - step * 5;
            return {0, h * rest / 200 * rest / 200, w, h};
        }
        case 9:
            return swing(step * 5, s);
        case 10:
            return slit(step, s);
        case 11:
            return shrinkOld(step, s);
        default:
            return {0, 0, w, h};
    }
}

}  // namespace show::effects
