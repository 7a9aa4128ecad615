#include "edit/picture_deletion.h"

#include <windows.h>

#include "edit/menu_rule.h"
#include "overview/box_picture.h"
#include "picture/surface.h"
#include "platform/handles.h"
#include "ui/theme.h"

namespace edit {

namespace {

constexpr double kWipeMs = 350;

}  // namespace

// Rows of an empty picture of the thumbnail's size are copied over it. A row that is late is not waited for,
// so that slow painting does not stretch the time.
void PictureDeletion::wipe(int index) {
    const overview::ThumbnailBox* box = parts_.view.box(index);
    if (box == nullptr) {
        return;
    }
    const SIZE size = box->clientSize();
    const overview::ImagePlace place = overview::imagePlace(size.cx, size.cy, parts_.view.layout().gap);
    picture::Surface empty(place.width, place.height);
    empty.fill(ui::colorref(overview::kEmptyColour));
    const platform::WindowDc dc(box->hwnd());
    const double begin = parts_.loop.now();
    for (int row = 0; row < place.height; ++row) {
        BitBlt(dc.get(), place.left, place.top + row, place.width, 1, empty.dc(), 0, row, SRCCOPY);
        GdiFlush();
        parts_.loop.sleepUntil(begin + kWipeMs * (row + 1) / place.height);
    }
}

void PictureDeletion::mark(int index) {
    overview::ThumbRecord& record = parts_.records.thumbRecords[static_cast<std::size_t>(index)];
    const MenuState state = menuStateOf(parts_.records, index);
    if (record.deleted || state.lastShown || state.onlyItem) {
        return;
    }
    wipe(index);
    record.deleted = true;
    parts_.records.changed = true;
    parts_.grid.deletionChanged(index);
}

void PictureDeletion::takeBack(int index) {
    parts_.records.thumbRecords[static_cast<std::size_t>(index)].deleted = false;
    parts_.grid.deletionChanged(index);
}

}  // namespace edit
