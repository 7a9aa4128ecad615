#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "show/transition_effects.h"

namespace support {

/// A picture in memory, 0xRRGGBB a pixel, row by row from the top.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    Picture(int w, int h)
        : width(w), height(h), pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h)) {}
    std::uint32_t* row(int y) { return pixels.data() + static_cast<std::ptrdiff_t>(y) * width; }
    const std::uint32_t* row(int y) const { return pixels.data() + static_cast<std::ptrdiff_t>(y) * width; }
    friend bool operator==(const Picture&, const Picture&) = default;
};

/// Carries out an effect's steps on pictures as the screen would show them: Pic2 below, Pic3 above it or
/// hidden.
class EffectModel {
  public:
    EffectModel(int index, const Picture& oldPicture, const Picture& newPicture)
        : index_(index),
          plan_(show::effectPlan(index, oldPicture.width, oldPicture.height)),
          surface_(oldPicture),
          box_(newPicture),
          half_(halfOf(newPicture)) {}

    const show::EffectPlan& plan() const { return plan_; }

    /// Draws every step up to, not including, `end`, as far as the effect has them.
    void runTo(int end) {
        for (; next_ < std::min(end, plan_.stepCount); ++next_) {
            if (plan_.family == show::EffectFamily::Overlay) {
                place(show::overlayStep(index_, next_, surface_.width, surface_.height));
            } else {
                show::copyStep(index_, next_, surface_.width, surface_.height, copies_);
                const bool halved = plan_.halved && next_ + 1 < plan_.stepCount;
                for (const show::CopyRect& copy : copies_) {
                    stretch(copy, halved ? half_ : box_);
                }
            }
        }
    }

    /// What the screen shows now.
    Picture screen() const {
        Picture shown = surface_;
        const int left = std::max(place_.left, 0);
        const int right = std::min({place_.left + place_.width, shown.width, place_.left + box_.width});
        const int top = std::max(place_.top, 0);
        const int bottom = std::min({place_.top + place_.height, shown.height, place_.top + box_.height});
        for (int y = top; y < bottom && left < right; ++y) {
            const std::uint32_t* source = box_.row(y - place_.top) - place_.left;
            std::copy(source + left, source + right, shown.row(y) + left);
        }
        return shown;
    }

  private:
    void place(const show::OverlayStep& step) {
        if (step.picture == show::OverlayPicture::Exchange) {
            std::swap(surface_, box_);
        } else if (step.picture == show::OverlayPicture::Take) {
            box_ = surface_;
        }
        place_ = step;
    }

    static Picture halfOf(const Picture& whole) {
        Picture half(whole.width / 2, whole.height / 2);
        for (int y = 0; y < half.height; ++y) {
            for (int x = 0; x < half.width; ++x) {
                half.row(y)[x] = whole.row(2 * y)[2 * x];
            }
        }
        return half;
    }

    void stretch(const show::CopyRect& copy, const Picture& picture) {
        const auto& [source, target] = copy;
        for (int y = 0; y < target.height; ++y) {
            const int sourceY = source.top + (2 * y + 1) * source.height / (2 * target.height);
            const std::uint32_t* from = picture.row(sourceY) + source.left;
            std::uint32_t* to = surface_.row(target.top + y) + target.left;
            if (source.width == target.width) {
                std::copy(from, from + source.width, to);
                continue;
            }
            for (int x = 0; x < target.width; ++x) {
                to[x] = from[(2 * x + 1) * source.width / (2 * target.width)];
            }
        }
    }

    int index_;
    show::EffectPlan plan_;
    Picture surface_;
    Picture box_;
    Picture half_;
    show::OverlayStep place_;
    int next_ = 0;
    std::vector<show::CopyRect> copies_;
};

}  // namespace support
