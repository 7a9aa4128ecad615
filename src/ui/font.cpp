#include "ui/font.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "platform/handles.h"

namespace ui {

namespace {

constexpr float kPointsPerInch = 72.0F;

HFONT makeFont(const FontSpec& spec, int dpi) {
    LOGFONTW description{};
    description.lfHeight =
        -static_cast<LONG>(std::lround(spec.points * static_cast<float>(dpi) / kPointsPerInch));
    description.lfWeight = spec.bold ? FW_BOLD : FW_NORMAL;
    description.lfCharSet = DEFAULT_CHARSET;
    description.lfQuality = CLEARTYPE_QUALITY;
    spec.face.copy(description.lfFaceName, std::min<std::size_t>(spec.face.size(), LF_FACESIZE - 1));
    return CreateFontIndirectW(&description);
}

// What texts are measured on, kept as the fonts are. The screen's own would do as well, but under Wine
// getting it asks the server for the visible region and all monitors.
HDC screenLike() {
    static const HDC dc = CreateCompatibleDC(nullptr);
    return dc;
}

}  // namespace

HFONT font(const FontSpec& spec, int dpi) {
    // Kept to the end of the process, so no owner: a form asks for a handful of fonts, again and again.
    static std::map<std::pair<FontSpec, int>, HFONT> made;
    HFONT& entry = made[{spec, dpi}];
    if (entry == nullptr) {
        entry = makeFont(spec, dpi);
    }
    return entry;
}

SIZE measureText(const std::wstring& text, HFONT font) {
    const platform::Selection selected(screenLike(), font);
    SIZE size{};
    GetTextExtentPoint32W(screenLike(), text.c_str(), static_cast<int>(text.size()), &size);
    return size;
}

int measureHeight(const std::wstring& text, HFONT font, int width) {
    const platform::Selection selected(screenLike(), font);
    RECT place{0, 0, width, 0};
    return DrawTextW(screenLike(), text.c_str(), static_cast<int>(text.size()), &place,
                     DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS | DT_NOPREFIX);
}

}  // namespace ui
