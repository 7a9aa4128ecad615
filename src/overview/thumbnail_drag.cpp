#include "overview/thumbnail_drag.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace overview {

namespace {

constexpr int kScrollMs = 15;
constexpr int kWidestImage = 160;  // pixels at 96 DPI
constexpr int kScreenDpi = 96;
constexpr int kEdge = 40;  // pixels at 96 DPI

picture::Pixels dragPicture(const picture::Pixels& image, const GridLayout& layout, int widest) {
    const int width = std::min(layout.imageWidth(), widest);
    const int height = std::max(1, layout.imageHeight() * width / layout.imageWidth());
    return image.empty() ? picture::Pixels(width, height) : scaledTo(image, width, height);
}

}  // namespace

ThumbnailDrag::ThumbnailDrag(const Parts& parts) : parts_(parts), scrolling_(parts.loop, kScrollMs) {
    scrolling_.onTimer = [this] { scroll(); };
    parts_.panel.onDragged = [this](POINT screen) { moved(screen); };
    parts_.panel.onReleased = [this](POINT screen) { released(screen); };
    parts_.panel.onCaptureLost = [this] { cancel(); };
}

ThumbnailDrag::~ThumbnailDrag() {
    image_.reset();
}

void ThumbnailDrag::pressed(int index, POINT screen) {
    cancel();
    dragSource_ = index;
    origin_ = screen;
    SetCapture(parts_.panel.hwnd());
}

void ThumbnailDrag::moved(POINT screen) {
    if (dragSource_ < 0) {
        return;
    }
    const bool beyond = std::abs(screen.x - origin_.x) > GetSystemMetrics(SM_CXDRAG) ||
                        std::abs(screen.y - origin_.y) > GetSystemMetrics(SM_CYDRAG);
    if (!dragging() && beyond) {
        begin(screen);
    }
    if (dragging()) {
        aim(screen);
    }
}

void ThumbnailDrag::begin(POINT screen) {
    const GridLayout& layout = parts_.view.layout();
    const picture::Pixels picture =
        dragPicture(parts_.grid.image(dragSource_), layout, kWidestImage * parts_.panel.dpi() / kScreenDpi);
    const RECT cell = parts_.view.onScreen(dragSource_);
    // The picture is held by the place that was pressed.
    const POINT grip{(origin_.x - cell.left) * picture.width / layout.cellWidth,
                     (origin_.y - cell.top) * picture.height / layout.cellHeight};
    image_ = std::make_unique<ui::DragImage>(parts_.panel.hwnd(), picture, grip, screen);
    scrolling_.setEnabled(true);
}

void ThumbnailDrag::aim(POINT screen) {
    image_->moveTo(screen);
    const auto target = parts_.view.itemAt(screen);
    SetCursor(LoadCursorW(nullptr, target ? IDC_ARROW : IDC_NO));
    mark(target.value_or(-1));
}

void ThumbnailDrag::mark(int target) {
    const int before = std::exchange(dropTarget_, target);
    if (before == target) {
        return;
    }
    const ui::DragImage::Hidden hidden;
    if (ThumbnailBox* box = parts_.view.box(before)) {
        box->setLanding(Landing::None);
        UpdateWindow(box->hwnd());
    }
    if (ThumbnailBox* box = parts_.view.box(target); box != nullptr && target != dragSource_) {
        box->setLanding(target < dragSource_ ? Landing::Before : Landing::After);
        UpdateWindow(box->hwnd());
    }
}

// The pointer may rest at an edge: the grid goes on without a message of the mouse.
void ThumbnailDrag::scroll() {
    POINT pointer{};
    GetCursorPos(&pointer);
    POINT place = pointer;
    ScreenToClient(parts_.panel.hwnd(), &place);
    const int by =
        dragScroll(place.y, parts_.view.layout().viewHeight, kEdge * parts_.panel.dpi() / kScreenDpi);
    const int before = parts_.view.scroll();
    if (by != 0) {
        parts_.view.scrollTo(before + by);
    }
    if (parts_.view.scroll() != before) {
        aim(pointer);
    }
}

void ThumbnailDrag::released(POINT screen) {
    const int source = dragSource_;
    const int target = dragging() ? parts_.view.itemAt(screen).value_or(-1) : -1;
    end();
    if (target >= 0 && target != source) {
        parts_.grid.move(source, target);
        parts_.records.changed = true;
        onDropped(source, target);
    }
}

bool ThumbnailDrag::cancel() {
    const bool was = dragging();
    if (dragSource_ >= 0) {
        end();
    }
    return was;
}

void ThumbnailDrag::end() {
    dragSource_ = -1;
    scrolling_.setEnabled(false);
    image_.reset();
    mark(-1);
    if (GetCapture() == parts_.panel.hwnd()) {
        ReleaseCapture();
    }
}

}  // namespace overview
