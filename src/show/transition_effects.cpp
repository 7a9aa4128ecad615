#include "show/transition_effects.h"

#include <algorithm>
#include <array>

#include "show/effects/effect_steps.h"

namespace show {

namespace {

// Steps of "A" to "Z". 0 stands for a number that depends on the surface ("Y"), and for "Z", which has none.
constexpr std::array<int, kEffectCount> kStepCounts = {
    1,
    301,
    301,
    401,
    301,
    601,
    601,
    41,
    41,
    31,  // "A" ... "J"
    62,
    152,
    101,
    101,
    101,
    401,
    400,
    201,
    201,
    100,  // "K" ... "T"
    101,
    101,
    effects::kLineSteps,
    effects::kLineSteps,
    0,
    0,  // "U" ... "Z"
};
constexpr int kY = 24;
constexpr int kZ = 25;

bool isStep(EffectFamily family, int index, int step, int width, int height) {
    const EffectPlan plan = effectPlan(index, width, height);
    return plan.family == family && step >= 0 && step < plan.stepCount;
}

}  // namespace

EffectPlan effectPlan(int index, int width, int height) {
    if (index < 0 || index >= kEffectCount || width <= 0 || height <= 0) {
        return {};
    }
    EffectPlan plan;
    plan.family = index < effects::kFirstCopyEffect ? EffectFamily::Overlay : EffectFamily::Copy;
    plan.stepCount =
        index == kY ? effects::circleCount({width, height}) : kStepCounts[static_cast<std::size_t>(index)];
    plan.interval = index == kZ ? effects::kImmediately : kStepInterval;
    plan.paced = plan.stepCount > 1;
    plan.leavesGaps = index == kY || index == kZ;
    plan.coversFormer = index >= 12 && index <= 14;
    plan.halved = effects::halvesPicture(index, {width, height});
    return plan;
}

OverlayStep overlayStep(int index, int step, int width, int height) {
    if (!isStep(EffectFamily::Overlay, index, step, width, height)) {
        return {};
    }
    return effects::overlayGeometry(index, step, {width, height});
}

void copyStep(int index, int step, int width, int height, std::vector<CopyRect>& copies) {
    copies.clear();
    if (!isStep(EffectFamily::Copy, index, step, width, height)) {
        return;
    }
    const effects::Surface surface{width, height};
    switch (index) {
        case 15:
            return effects::spiralCopies(step, surface, copies);
        case 16:
            return effects::passCopies(step, surface, copies);
        case 17:
            return effects::slatCopies(step, surface, copies);
        case 18:
            return effects::doorCopies(step, surface, copies);
        case 19:
            return effects::plaidCopies(step, surface, copies);
        case 20:
            return effects::blindCopies(step, surface, copies);
        case 21:
            return effects::gridCopies(step, surface, copies);
        case 22:
            return effects::columnCopies(step, surface, copies);
        case 23:
            return effects::rowCopies(step, surface, copies);
        case kY:
            return effects::circleCopies(step, surface, copies);
        default:
            return effects::stretchCopies(index, step, surface, copies);
    }
}

int effectDuration(int index, int width, int height) {
    const EffectPlan plan = effectPlan(index, width, height);
    if (!plan.paced) {
        return 0;
    }
    if (plan.family == EffectFamily::Copy) {
        return plan.stepCount * plan.interval;
    }
    int duration = 0;
    for (int step = 0; step < plan.stepCount; ++step) {
        duration += overlayStep(index, step, width, height).interval;
    }
    return duration;
}

int chooseEffect(int effectNumber, bool effectsChange, int currentEffect) {
    if (!effectsChange) {
        return 0;
    }
    return effectNumber != 0 ? effectNumber - 1 : currentEffect;
}

int effectAfter(int currentEffect) {
    const int next = (currentEffect + 1) % kEffectCount;
    return next < 0 ? next + kEffectCount : next;
}

namespace effects {

void copyInPlace(int left, int top, int right, int bottom, Surface surface, std::vector<CopyRect>& copies) {
    left = std::max(left, 0);
    top = std::max(top, 0);
    right = std::min(right, surface.width);
    bottom = std::min(bottom, surface.height);
    if (left < right && top < bottom) {
        const PixelRect place{left, top, right - left, bottom - top};
        copies.push_back({place, place});
    }
}

}  // namespace effects

}  // namespace show
