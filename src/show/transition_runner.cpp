#include "show/transition_runner.h"

#include <algorithm>
#include <utility>

#include "show/raised_flag.h"

namespace show {

namespace {

constexpr int kFirstCopyEffect = 12;

/// While the object lives a box asks for its image before it is painted from it.
class ImageHook {
  public:
    ImageHook(ui::PictureBox& box, std::function<void()> catchUp) : box_(box) {
        box_.onImageWanted = std::move(catchUp);
    }
    ~ImageHook() { box_.onImageWanted = nullptr; }
    ImageHook(const ImageHook&) = delete;
    ImageHook& operator=(const ImageHook&) = delete;

  private:
    ui::PictureBox& box_;
};

}  // namespace

TransitionRunner::TransitionRunner(const Parts& parts) : parts_(parts) {
    parts_.Timer2.onTimer = [this] { parts_.Timer2.setEnabled(false); };
    copies_.reserve(kMostCopiesPerStep);
}

void TransitionRunner::run(const std::function<void()>& chosen) {
    const RaisedFlag running(running_);
    completing_ = false;
    exchanged_ = false;
    currentEffect = chooseEffect(effectNumber, parts_.Check1.value() != 0, currentEffect);
    chosen();
    const int width = parts_.Pic2.image().width();
    const int height = parts_.Pic2.image().height();
    const EffectPlan plan = effectPlan(currentEffect, width, height);
    if (currentEffect >= kFirstCopyEffect) {
        parts_.Pic2.setAutoRedraw(false);
        parts_.Pic3.hide();
    }
    parts_.Timer2.setInterval(plan.interval);
    if (plan.paced) {
        parts_.Timer2.restart();
    }
    bool covered = false;
    if (plan.family == EffectFamily::Overlay && plan.paced) {
        // A single step covers the whole surface, and finish() does the same with half the painting.
        covered = runOverlay(plan, width, height);
    } else if (plan.family == EffectFamily::Copy) {
        runCopies(plan, width, height);
    }
    finish(covered);
    currentEffect = effectAfter(currentEffect);
}

bool TransitionRunner::waitForStep(const EffectPlan& plan) {
    while (plan.paced && parts_.Timer2.enabled() && !completing_) {
        parts_.loop.waitEvents();
    }
    return !completing_;
}

/// Whether all steps were made: the last one covers the whole surface with the new picture.
bool TransitionRunner::runOverlay(const EffectPlan& plan, int width, int height) {
    for (int i = 0; i < plan.stepCount; ++i) {
        if (!waitForStep(plan)) {
            return false;
        }
        const OverlayStep step = overlayStep(currentEffect, i, width, height);
        if (step.picture == OverlayPicture::Exchange) {
            // Pic3 covers the surface with the old picture before Pic2 repaints with the new one.
            std::swap(parts_.Pic2.image(), parts_.Pic3.image());
            exchanged_ = true;
        } else if (step.picture == OverlayPicture::Take) {
            parts_.Pic3.image().copyFrom(parts_.Pic2.image());
        }
        place(step);
        if (step.picture == OverlayPicture::Exchange) {
            parts_.Pic2.repaint();
        }
        parts_.Timer2.setInterval(step.interval);
        if (plan.paced) {
            parts_.Timer2.restart();
        }
    }
    return true;
}

void TransitionRunner::place(const OverlayStep& step) {
    ui::PictureBox& box = parts_.Pic3;
    box.movePixels(step.left, step.top, step.width, step.height);
    if (!box.visible()) {
        box.show();
    }
    if (step.picture != OverlayPicture::Keep) {
        box.repaint();
    }
    UpdateWindow(box.hwnd());
    UpdateWindow(parts_.Pic2.hwnd());
}

void TransitionRunner::runCopies(const EffectPlan& plan, int width, int height) {
    if (plan.halved) {
        half_ = picture::Surface(width / 2, height / 2);
        SetStretchBltMode(half_.dc(), COLORONCOLOR);
        StretchBlt(half_.dc(), 0, 0, half_.width(), half_.height(), parts_.Pic3.image().dc(), 0, 0, width,
                   height, SRCCOPY);
    }
    shownSteps_ = 0;
    keptSteps_ = 0;
    const ImageHook hook(parts_.Pic2, [this, &plan] { catchUp(plan); });
    for (int i = 0; i < plan.stepCount && waitForStep(plan); ++i) {
        parts_.Pic2.draw([&](HDC dc) { drawCopies(plan, i, dc); });
        shownSteps_ = i + 1;
        if (plan.paced) {
            parts_.Timer2.restart();
        }
    }
}

void TransitionRunner::drawCopies(const EffectPlan& plan, int step, HDC target) {
    const picture::Surface& surface = parts_.Pic2.image();
    copyStep(currentEffect, step, surface.width(), surface.height(), copies_);
    const bool halved = plan.halved && step + 1 < plan.stepCount;
    const HDC source = halved ? half_.dc() : parts_.Pic3.image().dc();
    SetStretchBltMode(target, COLORONCOLOR);
    for (const CopyRect& copy : copies_) {
        const PixelRect& from = copy.source;
        const PixelRect& to = copy.target;
        if (from.width == to.width && from.height == to.height) {
            BitBlt(target, to.left, to.top, to.width, to.height, source, from.left, from.top, SRCCOPY);
        } else {
            StretchBlt(target, to.left, to.top, to.width, to.height, source, from.left, from.top, from.width,
                       from.height, SRCCOPY);
        }
    }
}

// Drawing every step twice would cost as much as the step itself; so the image follows only when it is
// painted.
void TransitionRunner::catchUp(const EffectPlan& plan) {
    const int first = plan.coversFormer ? std::max(keptSteps_, shownSteps_ - 1) : keptSteps_;
    for (int step = first; step < shownSteps_; ++step) {
        drawCopies(plan, step, parts_.Pic2.image().dc());
    }
    keptSteps_ = shownSteps_;
}

// The images change owners instead of being copied; the surface is painted while Pic3 still covers it or
// equals it, so nothing of the old picture comes up again. Where the screen shows all of the new picture it
// is not painted a second time.
void TransitionRunner::finish(bool covered) {
    parts_.Timer2.setEnabled(false);
    parts_.Timer2.setInterval(kStepInterval);
    half_ = {};
    if (!exchanged_) {
        std::swap(parts_.Pic2.image(), parts_.Pic3.image());
    }
    parts_.Pic2.setAutoRedraw(true);
    parts_.Pic2.show();
    if (covered) {
        parts_.Pic3.hideUnpainted();
    } else {
        parts_.Pic2.paintNow();
        parts_.Pic3.hide();
    }
    UpdateWindow(parts_.Pic2.hwnd());
}

}  // namespace show
