#include "overview/grid_view.h"

#include <algorithm>
#include <utility>

#include "ui/drag_image.h"
#include "ui/without_redraw.h"

namespace overview {

namespace {

/// A panel's size is at rest when it has been the same for that long.
constexpr int kRestMs = 120;

}  // namespace

GridView::GridView(ui::EventLoop& loop, GridPanel& panel) : panel_(panel), rest_(loop, kRestMs) {
    rest_.onTimer = [this] { layOut(); };
    panel_.onResized = [this] { rest_.restart(); };
    panel_.onScrollTo = [this](int position) { scrollTo(position); };
    panel_.onScrollBy = [this](int lines, int pages) { scrollBy(lines, pages); };
}

void GridView::reset(int count) {
    boxes_.clear();
    shown_ = {};
    count_ = count;
    columns_ = 0;
    scroll_ = 0;
    layout_ = {};
    layOut();
}

GridRequest GridView::request() const {
    const SIZE size = panel_.fullSize();
    const int bar = columns_ > 0 ? panel_.scrollBarWidth() : 0;
    return {count_, std::max(1, static_cast<int>(size.cx) - bar), std::max(1, static_cast<int>(size.cy)),
            panel_.dpi(), columns_};
}

GridLayout GridView::fittingLayout() const {
    GridRequest all = request();
    all.columns = 0;
    return layoutGrid(all);
}

ThumbnailBox* GridView::box(int index) const {
    return index >= 0 && index < boxCount() ? boxes_[static_cast<std::size_t>(index)].get() : nullptr;
}

RECT GridView::placeInPanel(int index) const {
    const show::PixelRect place = cellPlace(layout_, index);
    const LONG top = place.top - scroll_;
    return {place.left, top, place.left + place.width, top + place.height};
}

void GridView::createNext(const BoxContent& content) {
    const int index = boxCount();
    boxes_.push_back(std::make_unique<ThumbnailBox>(panel_, index, placeInPanel(index), shown_.holds(index),
                                                    content, events));
    boxes_.back()->setGap(layout_.gap);
}

ItemRange GridView::inView(int screens) const {
    return itemsInView(layout_, scroll_, screens * layout_.viewHeight);
}

void GridView::layOut() {
    rest_.setEnabled(false);
    const GridLayout layout = layoutGrid(request());
    if (layout == layout_) {
        return;
    }
    const ui::DragImage::Hidden hidden;
    // What was seen at the top stays there.
    const int first = layout_.count == layout.count ? itemsInView(layout_, scroll_).first : 0;
    layout_ = layout;
    scroll_ = isEnlarged() && first < layout.count
                  ? std::clamp(cellPlace(layout_, first).top, 0, scrollEnd(layout_))
                  : 0;
    for (const auto& box : boxes_) {
        box->setGap(layout_.gap);
    }
    placeBoxes(std::exchange(shown_, inView()));
    if (onChanged) {
        onChanged();
    }
}

void GridView::hideOthers(ItemRange before, ItemRange now) {
    for (int i = before.first; i < std::min(before.end, boxCount()); ++i) {
        if (!now.holds(i)) {
            ShowWindow(boxes_[static_cast<std::size_t>(i)]->hwnd(), SW_HIDE);
        }
    }
}

void GridView::placeBoxes(ItemRange before) {
    const ui::WithoutRedraw still(panel_.hwnd());
    panel_.setScroll(scroll_, layout_.viewHeight, isEnlarged() ? layout_.contentHeight() : 0);
    hideOthers(before, shown_);
    for (int i = shown_.first; i < std::min(shown_.end, boxCount()); ++i) {
        const RECT place = placeInPanel(i);
        SetWindowPos(boxes_[static_cast<std::size_t>(i)]->hwnd(), nullptr, place.left, place.top,
                     place.right - place.left, place.bottom - place.top,
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS | SWP_SHOWWINDOW);
    }
}

void GridView::scrollTo(int position) {
    const int wanted = std::clamp(position, 0, scrollEnd(layout_));
    if (wanted != scroll_) {
        setScroll(wanted);
    }
}

// What stays in view is moved by the system, picture and all; the rest is put beside it.
void GridView::setScroll(int position) {
    const ui::DragImage::Hidden hidden;
    RECT client{};
    GetClientRect(panel_.hwnd(), &client);
    const int by = std::exchange(scroll_, position) - position;
    const ItemRange before = std::exchange(shown_, inView());
    hideOthers(before, shown_);
    ScrollWindowEx(panel_.hwnd(), 0, by, &client, &client, nullptr, nullptr,
                   SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
    for (int i = shown_.first; i < std::min(shown_.end, boxCount()); ++i) {
        const RECT place = placeInPanel(i);
        SetWindowPos(boxes_[static_cast<std::size_t>(i)]->hwnd(), nullptr, place.left, place.top,
                     place.right - place.left, place.bottom - place.top,
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    }
    panel_.setScroll(scroll_, layout_.viewHeight, layout_.contentHeight());
    UpdateWindow(panel_.hwnd());
    if (onChanged) {
        onChanged();
    }
}

void GridView::scrollBy(int lines, int pages) {
    scrollTo(scroll_ + lines * layout_.cellHeight / 2 + pages * layout_.viewHeight);
}

void GridView::bringIntoView(int index) {
    if (isEnlarged() && index >= 0 && index < layout_.count) {
        scrollTo(scrollShowing(layout_, scroll_, index));
    }
}

void GridView::zoom(int direction, int anchor) {
    const GridRequest now = request();
    const int columns = direction == 0 ? 0 : direction > 0 ? enlarged(now) : reduced(now);
    if (columns == columns_) {
        return;
    }
    const int first = inView().first;
    const show::PixelRect place = cellPlace(layout_, std::max(0, anchor));
    const int y = std::clamp(place.top + place.height / 2 - scroll_, 0, layout_.viewHeight);
    columns_ = columns;
    layout_ = layoutGrid(request());
    scroll_ = !isEnlarged() ? 0
              : anchor >= 0 ? scrollKeeping(layout_, anchor, y)
                            : std::min(cellPlace(layout_, first).top, scrollEnd(layout_));
    const ui::DragImage::Hidden hidden;
    for (const auto& box : boxes_) {
        box->setGap(layout_.gap);
    }
    placeBoxes(std::exchange(shown_, inView()));
    if (onChanged) {
        onChanged();
    }
}

std::optional<int> GridView::itemAt(POINT screen) const {
    RECT client{};
    GetClientRect(panel_.hwnd(), &client);
    ScreenToClient(panel_.hwnd(), &screen);
    const auto index =
        PtInRect(&client, screen) != FALSE ? cellAt(layout_, screen.x, screen.y + scroll_) : std::nullopt;
    return index && *index < boxCount() ? index : std::nullopt;
}

RECT GridView::onScreen(int index) const {
    RECT place = placeInPanel(index);
    MapWindowPoints(panel_.hwnd(), nullptr, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

}  // namespace overview
