#pragma once

#include <vector>

#include "show/fit_rule.h"

namespace show {

/// The transition effects "A" to "Z" as rules: an effect's index (0 ... 25) and a step number give the
/// rectangles of that step. The show surface Pic2 is W x H pixels, and so is the new picture in Pic3.
///
/// A runner asks for the plan, starts Timer2 at the plan's interval, draws steps 0 ... stepCount - 1 with
/// one tick of Timer2 between them, and finally gives Pic2 the whole new picture. After that
/// the screen equals the new picture whatever the effect left undone.

inline constexpr int kEffectCount = 26;
/// Timer2's interval at the start of every transition, in milliseconds.
inline constexpr int kStepInterval = 10;
/// No step of any effect copies more rectangles than this, up to a surface of 7680 x 4320.
inline constexpr int kMostCopiesPerStep = 361;

enum class EffectFamily {
    Overlay,  ///< "A" ... "L": Pic3 lies above Pic2 and is moved or sized; use overlayStep
    Copy,     ///< "M" ... "Z": Pic3 is hidden, parts of its picture are copied onto Pic2; use copyStep
    None,     ///< no effect runs: an index outside 0 ... 25
};

struct EffectPlan {
    EffectFamily family = EffectFamily::None;
    int stepCount = 0;  ///< steps are numbered 0 ... stepCount - 1; 0: nothing is drawn step by step
    int interval = kStepInterval;  ///< Timer2's interval in ms that the effect begins with
    bool paced = false;            ///< whether its steps wait for Timer2 (only a loop does)
    bool leavesGaps = false;       ///< its steps alone do not add up to the whole new picture
    /// All its steps but the last copy from a copy of the new picture at half its width and height (rounded
    /// down): stretched from the whole one, a step on so large a surface would take longer than its interval.
    bool halved = false;
    /// Each step's copies cover those of all steps before it.
    bool coversFormer = false;
    friend bool operator==(const EffectPlan&, const EffectPlan&) = default;
};

/// How the effect with this index runs on a surface of `width` x `height` pixels.
/// Any index and any size may be asked for; without a surface or an effect there are no steps.
EffectPlan effectPlan(int index, int width, int height);

/// What happens to the pictures before Pic3 is placed at a step.
enum class OverlayPicture {
    Keep,      ///< nothing: Pic3 shows what it showed
    Exchange,  ///< Pic3 takes over what the screen shows (the old picture), Pic2 the new picture, unseen
               ///< until Pic3 has been placed over it
    Take,      ///< Pic3 takes a copy of what Pic2 shows
};

/// Where Pic3 lies on the surface at a step, in pixels. The box shows its own full-size picture 1:1 from
/// the box's left top corner: growing uncovers the picture, moving slides it. The box may lie partly or
/// wholly outside the surface.
struct OverlayStep {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    OverlayPicture picture = OverlayPicture::Keep;
    int interval = kStepInterval;  ///< Timer2's interval in ms after this step
    friend bool operator==(const OverlayStep&, const OverlayStep&) = default;
};

/// Pic3's place at `step` (0 ... stepCount - 1) of an overlay effect. Step 0 is also the place that the
/// box must have before it is made visible. The last step covers the whole surface with the new picture.
/// Any other index or step gives an empty box.
OverlayStep overlayStep(int index, int step, int width, int height);

/// One copy from Pic3's picture (where EffectPlan::halved says so, from half of it) onto Pic2, in pixels,
/// inside both. Equal sizes are a plain copy, different ones a stretch.
struct CopyRect {
    PixelRect source;
    PixelRect target;
    friend bool operator==(const CopyRect&, const CopyRect&) = default;
};

/// Replaces `copies` by the copies of `step` (0 ... stepCount - 1) of a copy effect, none of them empty; a
/// step may have none. Reuse the vector: it then allocates nothing. Any other index or step gives none.
void copyStep(int index, int step, int width, int height, std::vector<CopyRect>& copies);

/// How long the effect takes when every tick comes on time, in milliseconds: the intervals of all its steps,
/// the last one included.
int effectDuration(int index, int width, int height);

/// The effect to run at a transition: `effectNumber` 1 ... 26 asks for "A" ... "Z", 0 for `currentEffect`,
/// the one that is due; any other number, as a lower-case letter in the show script gives it (33 ... 58),
/// is passed on as an index for which no effect runs. While effects are not to change (`effectsChange` is
/// whether Check1 is ticked), it is always 0, "A".
int chooseEffect(int effectNumber, bool effectsChange, int currentEffect);

/// The effect that is due after `currentEffect` was run: always 0 ... 25, whatever was asked for.
int effectAfter(int currentEffect);

}  // namespace show
