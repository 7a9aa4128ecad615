#include "edit/settings_display.h"

#include <algorithm>
#include <utility>

#include "platform/file_time.h"
#include "platform/handles.h"
#include "ui/font.h"

namespace edit {

namespace {

constexpr COLORREF kTextColour = RGB(255, 255, 255);
constexpr COLORREF kDateFlagColour = RGB(255, 0, 255);
constexpr COLORREF kShadowColour = RGB(50, 50, 50);
constexpr int kHaloPart = 10;  // of a row's height lies in shadow on each side of the letters
constexpr int kHaloRound = 6;  // rather more than less: in small letters a single pixel is too little

std::wstring dateOf(const overview::ThumbRecord& record) {
    const auto time = platform::localTime(record.stamp.written);
    return time ? shortDay({time->wDay, time->wMonth, time->wYear}) : std::wstring();
}

HFONT fontOf(int points, int dpi) {
    return ui::font({.points = static_cast<float>(points), .bold = true}, dpi);
}

}  // namespace

SettingsDisplay::SettingsDisplay(const overview::ThumbRecords& records, overview::GridView& view)
    : records_(records), view_(view) {
    view_.events.onDraw = [this](int index, picture::Pixels& box, const overview::ImagePlace& place) {
        if (shown_) {
            draw(index, box, place);
        }
    };
}

SettingsDisplay::~SettingsDisplay() {
    view_.events.onDraw = nullptr;
}

void SettingsDisplay::setShown(bool shown) {
    if (std::exchange(shown_, shown) != shown) {
        repaintAll();
    }
}

void SettingsDisplay::refresh() {
    if (shown_) {
        repaintAll();
    }
}

void SettingsDisplay::repaintAll() {
    for (int i = 0; i < view_.boxCount(); ++i) {
        view_.box(i)->repaint();
    }
}

// The shadow lies on all sides of the letters: beneath and beside them alone it would leave white ones on
// snow.
void SettingsDisplay::drawPiece(const SettingsPiece& piece, const RECT& place, int halo) const {
    const auto text = [&](int right, int down, COLORREF colour) {
        RECT moved = place;
        OffsetRect(&moved, right, down);
        SetTextColor(canvas_.dc(), colour);
        DrawTextW(canvas_.dc(), piece.text.c_str(), static_cast<int>(piece.text.size()), &moved,
                  DT_LEFT | DT_TOP | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    };
    for (int down = -halo; down <= halo; ++down) {
        for (int right = -halo; right <= halo; ++right) {
            if (down != 0 || right != 0) {
                text(right, down, kShadowColour);
            }
        }
    }
    text(0, 0, piece.dateFlag ? kDateFlagColour : kTextColour);
}

void SettingsDisplay::draw(int index, picture::Pixels& box, const overview::ImagePlace& place) {
    const overview::ThumbRecord& record = records_.thumbRecords[static_cast<std::size_t>(index)];
    const int dpi = view_.box(index)->dpi();
    const auto pieces =
        settingsPieces(record.fileName, record.deleted ? std::wstring() : record.entry, dateOf(record));
    const SettingsLayout layout =
        layOutSettings(pieces, place.width, place.height, dpi, [dpi](const std::wstring& text, int points) {
            const SIZE size = ui::measureText(text, fontOf(points, dpi));
            return TextSize{size.cx, size.cy};
        });
    if (canvas_.width() != box.width || canvas_.height() != box.height) {
        canvas_ = picture::Surface(box.width, box.height);
    }
    canvas_.put(box);
    {
        const platform::Selection font(canvas_.dc(), fontOf(layout.points, dpi));
        SetBkMode(canvas_.dc(), TRANSPARENT);
        for (const PlacedPiece& placed : layout.pieces) {
            const int left = place.left + placed.left;
            const int top = place.top + placed.top;
            drawPiece(pieces[placed.piece], {left, top, left + placed.width, top + placed.height},
                      std::max(1, (placed.height + kHaloRound) / kHaloPart));
        }
    }
    box = canvas_.pixels();
}

}  // namespace edit
