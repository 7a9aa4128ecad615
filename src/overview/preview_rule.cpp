#include "overview/preview_rule.h"

#include <algorithm>

#include "show/fit_rule.h"
#include "text/text_number.h"
#include "text/trimming.h"

namespace overview {

namespace {

constexpr int kInfos = 4;
constexpr double kMsPerSecond = 1000.0;
/// The box of a switch has no edge of its own, other than a button.
constexpr ui::Twips kSoundIndent = 90;

bool hasSomething(PreviewInfo info, const PreviewTexts& texts) {
    return info == PreviewInfo::Position ? texts.film : !previewText(info, texts).empty();
}

}  // namespace

PreviewInfo firstPreviewInfo(const PreviewTexts& texts) {
    const PreviewInfo wanted = texts.film ? PreviewInfo::Position : PreviewInfo::Date;
    return hasSomething(wanted, texts) ? wanted : nextPreviewInfo(wanted, texts);
}

PreviewInfo nextPreviewInfo(PreviewInfo now, const PreviewTexts& texts) {
    for (int step = 1; step < kInfos; ++step) {
        const auto next = static_cast<PreviewInfo>((static_cast<int>(now) - 1 + step) % kInfos + 1);
        if (hasSomething(next, texts)) {
            return next;
        }
    }
    return now;
}

std::wstring previewText(PreviewInfo info, const PreviewTexts& texts) {
    switch (info) {
        case PreviewInfo::Title:
            return texts.title;
        case PreviewInfo::Date:
            return texts.date;
        case PreviewInfo::Name:
            return texts.name;
        case PreviewInfo::Position:
            break;
    }
    return {};
}

std::wstring entryTitle(std::wstring_view entry) {
    return std::wstring(text::trimmed(entry.substr(0, entry.find(L'*'))));
}

std::wstring nameWithoutExtension(std::wstring_view fileName) {
    return std::wstring(fileName.substr(0, fileName.find(L'.')));
}

std::wstring secondsText(double ms) {
    return text::decimalText(ms / kMsPerSecond);
}

std::wstring positionText(double positionMs, std::wstring_view lengthText) {
    return secondsText(positionMs).append(L"/").append(lengthText).append(L" s");
}

PreviewLayout layoutPreview(const ui::TwipsRect& area, ui::Twips rowHeight, ui::Twips soundWidth,
                            const std::array<ui::Twips, kPreviewButtons>& widths) {
    const ui::Twips room = std::max(0.0F, area.height - rowHeight);
    constexpr auto kShape = static_cast<float>(show::kDesignShape);
    const ui::Twips width = std::max(0.0F, std::min(area.width, room * kShape));
    const ui::Twips height = width / kShape;
    PreviewLayout layout;
    layout.box = {area.left + (area.width - width) / 2, area.top + (room - height) / 2, width, height};
    const ui::Twips top = layout.box.top + height;
    ui::Twips left = layout.box.left;
    layout.sound = {left + kSoundIndent, top, std::max(0.0F, soundWidth - kSoundIndent), rowHeight};
    left += soundWidth;
    for (std::size_t i = 0; i < kPreviewButtons; ++i) {
        const bool last = i + 1 == kPreviewButtons;
        const ui::Twips rest = std::max(0.0F, layout.box.left + width - left);
        const ui::Twips own = last ? rest : std::min(widths[i], rest);
        layout.buttons[i] = {left, top, own, rowHeight};
        left += own;
    }
    return layout;
}

}  // namespace overview
