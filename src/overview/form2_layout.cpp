#include "overview/form2_layout.h"

#include <algorithm>

namespace overview {

namespace {

using ui::Twips;

constexpr Twips kMargin = 120;
constexpr Twips kProgressHeight = 45;
constexpr Twips kListWidth = 3600;
constexpr Twips kPadding = 150;
constexpr Twips kCaptionHeight = 840;
constexpr Twips kButtonWidth = 1350;
constexpr Twips kButtonHeight = 420;

}  // namespace

Form2Layout layOutForm2(Twips width, Twips height, bool music) {
    Form2Layout layout;
    const Twips inner = std::max(kMargin, height - 2 * kMargin - kProgressHeight);
    const Twips column = music ? kListWidth + kMargin : 0;
    layout.grid = {kMargin, kMargin, std::max(kMargin, width - 2 * kMargin - column), inner};
    layout.progress = {0, height - kProgressHeight, width, kProgressHeight};

    const Twips left = width - kMargin - kListWidth;
    layout.card = {left, kMargin, kListWidth, inner};
    layout.caption = {left + kPadding, kMargin + kPadding, kListWidth - 2 * kPadding, kCaptionHeight};
    // The buttons stand centred under the list, half of their height below it.
    const Twips listTop = layout.caption.top + kCaptionHeight;
    const Twips listBottom = kMargin + inner - kPadding - kButtonHeight - kButtonHeight / 2;
    layout.List1 = {left + kPadding, listTop, kListWidth - 2 * kPadding,
                    std::max(kButtonHeight, listBottom - listTop)};
    const Twips buttonTop = layout.List1.top + layout.List1.height + kButtonHeight / 2;
    const Twips middle = layout.List1.left + layout.List1.width / 2;
    layout.OK = {middle - kButtonWidth - kPadding / 2, buttonTop, kButtonWidth, kButtonHeight};
    layout.CAN = {middle + kPadding / 2, buttonTop, kButtonWidth, kButtonHeight};
    return layout;
}

}  // namespace overview
