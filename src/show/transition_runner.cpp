#include "show/transition_runner.h"

#include <utility>

namespace show {

namespace {

constexpr int kFirstCopyEffect = 12;

/// True while the object lives, whatever ends it.
class Flag {
  public:
    explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
    ~Flag() { flag_ = false; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

  private:
    bool& flag_;
};

}  // namespace

TransitionRunner::TransitionRunner(const Parts& parts) : parts_(parts) {
    parts_.Timer2.onTimer = [this] { parts_.Timer2.setEnabled(false); };
    copies_.reserve(kMostCopiesPerStep);
}

void TransitionRunner::run(const std::function<void()>& chosen) {
    const Flag running(running_);
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
    if (plan.family == EffectFamily::Overlay && plan.paced) {
        // A single step covers the whole surface, and finish() does the same with half the painting.
        runOverlay(plan, width, height);
    } else if (plan.family == EffectFamily::Copy) {
        runCopies(plan, width, height);
    }
    finish();
    currentEffect = effectAfter(currentEffect);
}

bool TransitionRunner::waitForStep(const EffectPlan& plan) {
    while (plan.paced && parts_.Timer2.enabled() && !completing_) {
        parts_.loop.waitEvents();
    }
    return !completing_;
}

void TransitionRunner::runOverlay(const EffectPlan& plan, int width, int height) {
    for (int i = 0; i < plan.stepCount && waitForStep(plan); ++i) {
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
    picture::Surface half;
    if (plan.halved) {
        half = picture::Surface(width / 2, height / 2);
        SetStretchBltMode(half.dc(), COLORONCOLOR);
        StretchBlt(half.dc(), 0, 0, half.width(), half.height(), parts_.Pic3.image().dc(), 0, 0, width,
                   height, SRCCOPY);
    }
    for (int i = 0; i < plan.stepCount && waitForStep(plan); ++i) {
        copyStep(currentEffect, i, width, height, copies_);
        const bool halved = plan.halved && i + 1 < plan.stepCount;
        const HDC source = halved ? half.dc() : parts_.Pic3.image().dc();
        parts_.Pic2.draw([this, source](HDC dc) {
            SetStretchBltMode(dc, COLORONCOLOR);
            for (const CopyRect& copy : copies_) {
                const PixelRect& from = copy.source;
                const PixelRect& to = copy.target;
                if (from.width == to.width && from.height == to.height) {
                    BitBlt(dc, to.left, to.top, to.width, to.height, source, from.left, from.top, SRCCOPY);
                } else {
                    StretchBlt(dc, to.left, to.top, to.width, to.height, source, from.left, from.top,
                               from.width, from.height, SRCCOPY);
                }
            }
        });
        if (plan.paced) {
            parts_.Timer2.restart();
        }
    }
}

// The images change owners instead of being copied; the surface is painted while Pic3 still covers it or
// equals it, so nothing of the old picture comes up again.
void TransitionRunner::finish() {
    parts_.Timer2.setEnabled(false);
    parts_.Timer2.setInterval(kStepInterval);
    if (!exchanged_) {
        std::swap(parts_.Pic2.image(), parts_.Pic3.image());
    }
    parts_.Pic2.setAutoRedraw(true);
    parts_.Pic2.show();
    parts_.Pic2.paintNow();
    parts_.Pic3.hide();
    UpdateWindow(parts_.Pic2.hwnd());
}

}  // namespace show
