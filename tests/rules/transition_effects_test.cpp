#include "show/transition_effects.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string>

#include "support/effect_model.h"

namespace show {
namespace {

using support::EffectModel;
using support::Picture;

constexpr int kA = 0;
constexpr int kL = 11;
constexpr int kM = 12;
constexpr int kY = 24;
constexpr int kZ = 25;

struct Size {
    int width, height;
};

constexpr std::array<Size, 7> kSizes = {
    {{640, 480}, {801, 599}, {1024, 768}, {1080, 1920}, {1920, 1080}, {3839, 2161}, {7680, 4320}}};

std::string letter(int index) {
    return std::string(1, static_cast<char>('A' + index));
}

// No pixel of one picture equals a pixel of the other, nor another pixel of its own nearby.
Picture oldPicture(Size size) {
    Picture picture(size.width, size.height);
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            picture.row(y)[x] = static_cast<std::uint32_t>(y * size.width + x);
        }
    }
    return picture;
}

constexpr std::uint32_t kNewBit = 0x80000000U;

Picture newPicture(Size size) {
    Picture picture = oldPicture(size);
    for (std::uint32_t& pixel : picture.pixels) {
        pixel |= kNewBit;
    }
    return picture;
}

double shareOfNew(const Picture& screen) {
    const auto shown = std::count_if(screen.pixels.begin(), screen.pixels.end(),
                                     [](std::uint32_t pixel) { return (pixel & kNewBit) != 0; });
    return static_cast<double>(shown) / static_cast<double>(screen.pixels.size());
}

double difference(const Picture& one, const Picture& other) {
    std::size_t differing = 0;
    for (std::size_t i = 0; i < one.pixels.size(); ++i) {
        differing += one.pixels[i] != other.pixels[i] ? 1 : 0;
    }
    return static_cast<double>(differing) / static_cast<double>(one.pixels.size());
}

bool inside(const PixelRect& rect, Size size) {
    return rect.left >= 0 && rect.top >= 0 && rect.width > 0 && rect.height > 0 &&
           rect.left + rect.width <= size.width && rect.top + rect.height <= size.height;
}

TEST(TransitionEffects, StepCountsAreTheCatalogues) {
    const std::map<char, int> expected = {
        {'A', 1},   {'B', 301}, {'C', 301}, {'D', 401}, {'E', 301}, {'F', 601}, {'G', 601},
        {'H', 41},  {'I', 41},  {'J', 31},  {'K', 62},  {'L', 152}, {'M', 101}, {'N', 101},
        {'O', 101}, {'P', 401}, {'Q', 400}, {'R', 201}, {'S', 201}, {'T', 100}, {'U', 101},
        {'V', 101}, {'W', 300}, {'X', 300}, {'Y', 222}, {'Z', 0}};
    for (const auto& [name, steps] : expected) {
        const EffectPlan plan = effectPlan(name - 'A', 1920, 1080);
        EXPECT_EQ(plan.stepCount, steps) << name;
        EXPECT_EQ(plan.family, name <= 'L' ? EffectFamily::Overlay : EffectFamily::Copy) << name;
        EXPECT_EQ(plan.interval == 10, name != 'Z') << name;
        EXPECT_EQ(plan.paced, name != 'A' && name != 'Z') << name;
    }
}

TEST(TransitionEffects, CirclesReachTheCornersOfEverySurface) {
    for (const Size size : kSizes) {
        const int reach = (effectPlan(kY, size.width, size.height).stepCount - 1) * 5;
        const double corner = std::hypot(size.width, size.height) / 2.0;
        EXPECT_GE(reach, corner);
        EXPECT_LT(reach, corner + 5.0);
    }
}

TEST(TransitionEffects, NoEffectRunsForAnotherIndexStepOrSurface) {
    std::vector<CopyRect> copies(1);
    for (const int index : {-32768, -16, -1, 26, 32, 57, 32767}) {
        EXPECT_EQ(effectPlan(index, 640, 480), EffectPlan{}) << index;
        EXPECT_EQ(overlayStep(index, 0, 640, 480), OverlayStep{}) << index;
        copyStep(index, 0, 640, 480, copies);
        EXPECT_TRUE(copies.empty()) << index;
    }
    for (int index = 0; index < kEffectCount; ++index) {
        EXPECT_EQ(effectPlan(index, 0, 480), EffectPlan{});
        EXPECT_EQ(effectPlan(index, 640, -1), EffectPlan{});
        for (const int step : {-1, effectPlan(index, 640, 480).stepCount, 1000000}) {
            EXPECT_EQ(overlayStep(index, step, 640, 480), OverlayStep{});
            copies.resize(1);
            copyStep(index, step, 640, 480, copies);
            EXPECT_TRUE(copies.empty());
        }
    }
    // Neither family answers for the other.
    EXPECT_EQ(overlayStep(kM, 50, 640, 480), OverlayStep{});
    copies.resize(1);
    copyStep(kL, 50, 640, 480, copies);
    EXPECT_TRUE(copies.empty());
}

TEST(TransitionEffects, CopiesLieInsidePictureAndSurface) {
    std::vector<CopyRect> copies;
    for (const Size size : kSizes) {
        for (int index = kM; index < kEffectCount; ++index) {
            const EffectPlan plan = effectPlan(index, size.width, size.height);
            for (int step = 0; step < plan.stepCount; ++step) {
                const bool halved = plan.halved && step + 1 < plan.stepCount;
                const Size picture = halved ? Size{size.width / 2, size.height / 2} : size;
                copyStep(index, step, size.width, size.height, copies);
                ASSERT_LE(copies.size(), static_cast<std::size_t>(kMostCopiesPerStep));
                for (const CopyRect& copy : copies) {
                    ASSERT_TRUE(inside(copy.source, picture)) << letter(index) << " step " << step;
                    ASSERT_TRUE(inside(copy.target, size)) << letter(index) << " step " << step;
                    // Only "M" to "O" stretch; everything else is copied at its own place.
                    ASSERT_TRUE(index <= 14 || copy.source == copy.target) << letter(index);
                }
            }
        }
    }
}

TEST(TransitionEffects, OnlyCirclesTakeManyCopies) {
    std::vector<CopyRect> copies;
    for (const Size size : kSizes) {
        for (int index = kM; index < kY; ++index) {
            for (int step = 0; step < effectPlan(index, size.width, size.height).stepCount; ++step) {
                copyStep(index, step, size.width, size.height, copies);
                ASSERT_LE(copies.size(), 70U) << letter(index) << " step " << step;
            }
        }
        copyStep(kY, 20, size.width, size.height, copies);
        EXPECT_EQ(copies.size(), 361U);
    }
}

// Everything but the stretches, and the last step of "P", copies each pixel once ("Y" and "T" overlap).
TEST(TransitionEffects, CopiesOnlyWhatIsNew) {
    std::vector<CopyRect> copies;
    for (const Size size : kSizes) {
        for (int index = 15; index < kY; ++index) {
            std::int64_t area = 0;
            const int steps = effectPlan(index, size.width, size.height).stepCount - (index == 15 ? 1 : 0);
            for (int step = 0; step < steps; ++step) {
                copyStep(index, step, size.width, size.height, copies);
                for (const CopyRect& copy : copies) {
                    area += static_cast<std::int64_t>(copy.target.width) * copy.target.height;
                }
            }
            const std::int64_t whole = static_cast<std::int64_t>(size.width) * size.height;
            EXPECT_EQ(area, index == 19 ? 2 * whole : whole) << letter(index);
        }
    }
}

TEST(TransitionEffects, OverlaysBeginUnseenAndEndCoveringTheSurface) {
    for (const Size size : kSizes) {
        for (int index = kA; index <= kL; ++index) {
            const int steps = effectPlan(index, size.width, size.height).stepCount;
            const OverlayStep last = overlayStep(index, steps - 1, size.width, size.height);
            EXPECT_EQ((PixelRect{last.left, last.top, last.width, last.height}),
                      (PixelRect{0, 0, size.width, size.height}))
                << letter(index);
            for (int step = 0; step < steps; ++step) {
                const OverlayStep box = overlayStep(index, step, size.width, size.height);
                ASSERT_GE(box.width, 0);
                ASSERT_GE(box.height, 0);
                ASSERT_LE(box.width, size.width);
                ASSERT_LE(box.height, size.height);
            }
            const OverlayStep first = overlayStep(index, 0, size.width, size.height);
            if (index != kA && index != kL) {
                EXPECT_TRUE(first.width == 0 || first.height == 0 || first.left <= -size.width ||
                            first.left >= size.width || first.top <= -size.height || first.top >= size.height)
                    << letter(index);
            }
        }
    }
}

TEST(TransitionEffects, OverlayPlacesFollowTheirFormulas) {
    EXPECT_EQ(overlayStep(1, 150, 801, 599), (OverlayStep{0, 0, 400, 599}));
    EXPECT_EQ(overlayStep(2, 150, 801, 599), (OverlayStep{0, 0, 801, 299}));
    EXPECT_EQ(overlayStep(3, 100, 801, 599), (OverlayStep{-601, 0, 801, 599}));
    EXPECT_EQ(overlayStep(4, 150, 801, 599), (OverlayStep{0, 0, 400, 299}));
    EXPECT_EQ(overlayStep(5, 300, 801, 599), (OverlayStep{401, 0, 801, 299}));
    EXPECT_EQ(overlayStep(6, 300, 801, 599), (OverlayStep{401, 300, 801, 599}));
    EXPECT_EQ(overlayStep(7, 20, 640, 480), (OverlayStep{0, -360, 640, 480}));
    EXPECT_EQ(overlayStep(8, 20, 640, 480), (OverlayStep{0, 120, 640, 480}));
    EXPECT_EQ(overlayStep(9, 15, 1000, 1000), (OverlayStep{-383, 76, 1000, 1000}));
    EXPECT_EQ(overlayStep(10, 10, 640, 480), (OverlayStep{160, 219, 320, 41}));
    EXPECT_EQ(overlayStep(10, 41, 640, 480), (OverlayStep{0, 110, 640, 260}));
}

/// The rectangle that bands of equal width make up, one below the other without a gap.
PixelRect joined(const std::vector<CopyRect>& copies, PixelRect CopyRect::*side) {
    PixelRect all = copies.front().*side;
    all.height = 0;
    for (const CopyRect& copy : copies) {
        const PixelRect& band = copy.*side;
        EXPECT_EQ(band.left, all.left);
        EXPECT_EQ(band.width, all.width);
        EXPECT_EQ(band.top, all.top + all.height);
        all.height += band.height;
    }
    return all;
}

TEST(TransitionEffects, StretchesFollowTheirFormulas) {
    struct Stretch {
        int index;
        Size surface;
        int step;
        PixelRect source;
        PixelRect target;
    };
    const Stretch cases[] = {
        {12, {801, 599}, 50, {0, 0, 801, 599}, {200, 0, 400, 599}},
        {13, {801, 599}, 50, {0, 0, 801, 599}, {200, 149, 400, 299}},
        {14, {801, 599}, 50, {0, 0, 801, 599}, {0, 0, 400, 299}},
        {12, {2560, 1600}, 50, {0, 0, 2560, 1600}, {640, 0, 1280, 1600}},
        {12, {3841, 2161}, 50, {0, 0, 1920, 1080}, {960, 0, 1920, 2161}},
        {13, {3841, 2161}, 99, {0, 0, 1920, 1080}, {19, 10, 3802, 2139}},
        {14, {3841, 2161}, 100, {0, 0, 3841, 2161}, {0, 0, 3841, 2161}},
    };
    std::vector<CopyRect> copies;
    for (const Stretch& c : cases) {
        copyStep(c.index, c.step, c.surface.width, c.surface.height, copies);
        ASSERT_FALSE(copies.empty());
        EXPECT_EQ(joined(copies, &CopyRect::source), c.source) << letter(c.index) << " step " << c.step;
        EXPECT_EQ(joined(copies, &CopyRect::target), c.target) << letter(c.index) << " step " << c.step;
    }
}

TEST(TransitionEffects, OnlyStretchesOnLargeSurfacesUseHalfThePicture) {
    for (int index = 0; index < kEffectCount; ++index) {
        EXPECT_FALSE(effectPlan(index, 1920, 1080).halved) << letter(index);
        EXPECT_FALSE(effectPlan(index, 2560, 1600).halved) << letter(index);
        EXPECT_FALSE(effectPlan(index, 5'000'000, 1).halved) << letter(index);
        EXPECT_EQ(effectPlan(index, 3840, 2160).halved, index >= 12 && index <= 14) << letter(index);
    }
}

TEST(TransitionEffects, LTakesTheScreenTwiceAndChangesTheInterval) {
    int duration = 0;
    for (int step = 0; step < 152; ++step) {
        const OverlayStep box = overlayStep(kL, step, 640, 480);
        EXPECT_EQ(box.picture, step == 0     ? OverlayPicture::Exchange
                               : step == 151 ? OverlayPicture::Take
                                             : OverlayPicture::Keep);
        EXPECT_EQ(box.interval, step < 50 ? 20 : 10);
        duration += box.interval;
    }
    EXPECT_EQ(effectDuration(kL, 640, 480), duration);
    for (int index = kA; index < kL; ++index) {
        for (int step = 0; step < effectPlan(index, 640, 480).stepCount; ++step) {
            const OverlayStep box = overlayStep(index, step, 640, 480);
            ASSERT_EQ(box.picture, OverlayPicture::Keep);
            ASSERT_EQ(box.interval, kStepInterval);
        }
    }
}

TEST(TransitionEffects, DurationIsTheSumOfTheIntervals) {
    EXPECT_EQ(effectDuration(kA, 640, 480), 0);
    EXPECT_EQ(effectDuration(1, 640, 480), 3010);
    EXPECT_EQ(effectDuration(kM, 640, 480), 1010);
    EXPECT_EQ(effectDuration(kZ, 640, 480), 0);
    EXPECT_EQ(effectDuration(26, 640, 480), 0);
}

TEST(TransitionEffects, HalvedStretchesEndWithTheNewPicturePixelForPixel) {
    const Size size{2561, 1601};
    const Picture after = newPicture(size);
    for (int index = 12; index <= 14; ++index) {
        EffectModel model(index, oldPicture(size), after);
        ASSERT_TRUE(model.plan().halved);
        model.runTo(model.plan().stepCount - 1);
        EXPECT_GT(shareOfNew(model.screen()), 0.9) << letter(index);
        model.runTo(model.plan().stepCount);
        EXPECT_EQ(difference(model.screen(), after), 0.0) << letter(index);
    }
}

class PaintedEffect : public testing::TestWithParam<int> {};

TEST_P(PaintedEffect, EndsWithTheNewPicturePixelForPixel) {
    const int index = GetParam();
    for (const Size size :
         {Size{97, 61}, Size{61, 97}, Size{1, 1}, Size{7, 3}, Size{640, 480}, Size{801, 599}}) {
        const Picture after = newPicture(size);
        EffectModel model(index, oldPicture(size), after);
        model.runTo(model.plan().stepCount);
        if (!model.plan().leavesGaps) {
            EXPECT_EQ(difference(model.screen(), after), 0.0) << size.width << " x " << size.height;
        }
    }
}

TEST_P(PaintedEffect, ShowsMoreAndMoreOfTheNewPicture) {
    const Size size{97, 61};
    EffectModel model(GetParam(), oldPicture(size), newPicture(size));
    const int steps = model.plan().stepCount;
    double shown = 0.0;
    for (int step = 0; step < steps; ++step) {
        model.runTo(step + 1);
        const double now = shareOfNew(model.screen());
        ASSERT_GE(now, shown) << "step " << step;
        shown = now;
        if (step == 0 && steps > 1) {
            EXPECT_LT(now, 0.1);
        }
    }
}

// It is under way for most of its time: not there at once, not still waiting.
TEST_P(PaintedEffect, IsUnderWayInTheMiddle) {
    const Size size{640, 480};
    EffectModel model(GetParam(), oldPicture(size), newPicture(size));
    const int steps = model.plan().stepCount;
    if (!model.plan().paced) {  // a cut has no middle
        EXPECT_LE(steps, 1);
        return;
    }
    model.runTo(steps / 2);
    const double middle = shareOfNew(model.screen());
    EXPECT_GT(middle, 0.1);
    EXPECT_LT(middle, 0.9);
    model.runTo(steps * 9 / 10);
    EXPECT_LT(shareOfNew(model.screen()), 1.0);
}

INSTANTIATE_TEST_SUITE_P(AtoZ, PaintedEffect, testing::Range(0, kEffectCount),
                         [](const auto& instance) { return letter(instance.param); });

TEST(TransitionEffects, CirclesCoverNearlyEverything) {
    for (const Size size : kSizes) {
        EffectModel model(kY, oldPicture(size), newPicture(size));
        model.runTo(model.plan().stepCount);
        EXPECT_GE(shareOfNew(model.screen()), 0.998) << size.width << " x " << size.height;
    }
}

// The squares have 15 pixels as long as that makes neighbours touch.
TEST(TransitionEffects, SquaresOfTheCirclesGrowFarOut) {
    const auto sides = [](int radius) {
        std::vector<CopyRect> copies;
        copyStep(kY, radius / 5, 7680, 4320, copies);
        int most = 0;
        for (const CopyRect& copy : copies) {
            most = std::max({most, copy.target.width, copy.target.height});
        }
        return most;
    };
    EXPECT_EQ(sides(0), 15);
    EXPECT_EQ(sides(500), 15);
    EXPECT_EQ(sides(800), 15);
    EXPECT_EQ(sides(1000), 19);
    EXPECT_EQ(sides(4000), 71);
}

TEST(TransitionEffects, OnlyStretchesCoverTheirFormerSteps) {
    for (int index = 0; index < kEffectCount; ++index) {
        EXPECT_EQ(effectPlan(index, 640, 480).coversFormer, index >= 12 && index <= 14) << letter(index);
    }
}

TEST(TransitionEffects, NoTwoEffectsLookAlike) {
    const Size size{320, 240};
    for (const int percent : {30, 50, 70}) {
        std::vector<Picture> screens;
        for (int index = 0; index < kEffectCount; ++index) {
            EffectModel model(index, oldPicture(size), newPicture(size));
            model.runTo(std::max(model.plan().stepCount * percent / 100, index == kA ? 1 : 0));
            screens.push_back(model.screen());
        }
        for (int one = 0; one < kEffectCount; ++one) {
            for (int other = one + 1; other < kEffectCount; ++other) {
                EXPECT_GT(difference(screens[static_cast<std::size_t>(one)],
                                     screens[static_cast<std::size_t>(other)]),
                          0.05)
                    << letter(one) << " and " << letter(other) << " at " << percent << " %";
            }
        }
    }
}

struct Choice {
    int effectNumber;
    bool effectsChange;
    int currentEffect;
    int chosen, next;
};

TEST(TransitionEffects, ChoosesTheEffect) {
    const Choice choices[] = {
        {0, true, 0, 0, 1},      {0, true, 7, 7, 8},     {0, true, 25, 25, 0},     // in turn
        {1, true, 9, 0, 1},      {3, true, 9, 2, 3},     {26, true, 9, 25, 0},     // fixed
        {0, false, 9, 0, 1},     {3, false, 9, 0, 1},    {58, false, 9, 0, 1},     // not to change
        {33, true, 9, 32, 7},    {58, true, 9, 57, 6},   {27, true, 9, 26, 1},     // lower case
        {-15, true, 9, -16, 11}, {-25, true, 9, -26, 1}, {-63, true, 9, -64, 15},  // below "A"
    };
    for (const Choice& c : choices) {
        const int chosen = chooseEffect(c.effectNumber, c.effectsChange, c.currentEffect);
        EXPECT_EQ(chosen, c.chosen) << c.effectNumber;
        EXPECT_EQ(effectAfter(chosen), c.next) << c.effectNumber;
    }
}

TEST(TransitionEffects, AllComeInTurn) {
    std::string order;
    int currentEffect = 0;
    for (int transition = 0; transition < 27; ++transition) {
        currentEffect = chooseEffect(0, true, currentEffect);
        order += letter(currentEffect);
        currentEffect = effectAfter(currentEffect);
    }
    EXPECT_EQ(order, "ABCDEFGHIJKLMNOPQRSTUVWXYZA");
}

}  // namespace
}  // namespace show
