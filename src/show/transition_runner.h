#pragma once

#include <functional>
#include <vector>

#include "show/transition_effects.h"
#include "ui/check_box.h"
#include "ui/event_loop.h"
#include "ui/picture_box.h"
#include "ui/timer.h"

namespace show {

/// Brings the picture in Pic3 onto the show surface Pic2 by a transition effect, one step a tick of Timer2,
/// with the event loop alive in between.
class TransitionRunner {
  public:
    struct Parts {
        ui::EventLoop& loop;
        ui::PictureBox& Pic2;
        ui::PictureBox& Pic3;
        ui::Timer& Timer2;
        const ui::CheckBox& Check1;
    };
    explicit TransitionRunner(const Parts& parts);

    /// The effect asked for: 0 changes it at every transition, 1 ... 26 is "A" ... "Z" each time.
    int effectNumber = 0;
    /// Index 0 ... 25 of the effect that runs, or after a transition of the one that is due.
    int currentEffect = 0;

    /// Chooses the effect, calls `chosen`, and runs it. Both boxes' images have the surface's size.
    /// Afterwards Pic2 holds and shows the new picture and Pic3 is hidden. Throws Leaving.
    void run(const std::function<void()>& chosen);
    /// Called by a handler in the middle of a transition: the rest of its steps is left out.
    void complete() { completing_ = true; }
    bool running() const { return running_; }

  private:
    bool runOverlay(const EffectPlan& plan, int width, int height);
    void runCopies(const EffectPlan& plan, int width, int height);
    void place(const OverlayStep& step);
    /// Draws the copies of `step` onto `target`, which looks like Pic2.
    void drawCopies(const EffectPlan& plan, int step, HDC target);
    /// Brings Pic2's image up to what its window shows.
    void catchUp(const EffectPlan& plan);
    /// Waits for Timer2; false when the transition is to end now.
    bool waitForStep(const EffectPlan& plan);
    void finish(bool covered);

    Parts parts_;
    bool running_ = false;
    bool completing_ = false;
    /// Whether the new picture's image is in Pic2 already, as in the middle of an exchange.
    bool exchanged_ = false;
    std::vector<CopyRect> copies_;
    /// The new picture at half its size, for effects that copy from it.
    picture::Surface half_;
    /// Steps of a copy effect that Pic2's window shows, and those that its image holds as well.
    int shownSteps_ = 0;
    int keptSteps_ = 0;
};

}  // namespace show
