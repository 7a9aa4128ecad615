#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <vector>

#include "overview/grid_panel.h"
#include "overview/grid_rule.h"
#include "overview/thumbnail_box.h"
#include "ui/event_loop.h"
#include "ui/timer.h"

namespace overview {

/// The boxes of a grid in their panel: made in slices, laid out, scrolled and enlarged. Only those in view
/// are kept in place; the others are hidden, so that scrolling costs what is seen and not what there is.
class GridView {
  public:
    GridView(ui::EventLoop& loop, GridPanel& panel);

    /// Removes all boxes and lays a grid of `count` out, all shown at once.
    void reset(int count);
    /// Makes the next boxes, `most` at a time, for the items behind those that there are; true when some are
    /// left to make. `contents` holds one for each item and outlives the boxes.
    template <typename Content>
    bool createMore(const std::vector<Content>& contents, int most) {
        for (int i = 0; i < most && boxCount() < layout_.count; ++i) {
            createNext(contents[static_cast<std::size_t>(boxCount())]);
        }
        return boxCount() < layout_.count;
    }
    int boxCount() const { return static_cast<int>(boxes_.size()); }
    /// The box of an item; null as long as there is none.
    ThumbnailBox* box(int index) const;

    const GridLayout& layout() const { return layout_; }
    /// The layout that shows all items at once.
    GridLayout fittingLayout() const;
    int scroll() const { return scroll_; }
    bool isEnlarged() const { return columns_ > 0; }
    /// The items in view, and `screens` times the view more on either side.
    ItemRange inView(int screens = 0) const;

    void scrollTo(int position);
    void scrollBy(int lines, int pages);
    /// Scrolls as far as an item's whole cell needs.
    void bringIntoView(int index);
    /// Enlarges (+1) or reduces (-1) the cells by a step; the item at `anchor` (-1: none) stays where it is
    /// seen. 0 shows all again.
    void zoom(int direction, int anchor);
    /// The item at a place on the screen; none where its box is not made yet.
    std::optional<int> itemAt(POINT screen) const;
    /// A cell's place on the screen.
    RECT onScreen(int index) const;
    /// Lays out now instead of when the panel's size is at rest.
    void layOut();

    BoxEvents events;
    /// The cells have another size or other ones are in view.
    std::function<void()> onChanged;

  private:
    GridRequest request() const;
    void createNext(const BoxContent& content);
    void setScroll(int position);
    void placeBoxes(ItemRange before);
    void hideOthers(ItemRange before, ItemRange now);
    RECT placeInPanel(int index) const;

    GridPanel& panel_;
    ui::Timer rest_;
    std::vector<std::unique_ptr<ThumbnailBox>> boxes_;
    GridLayout layout_;
    int count_ = 0;
    int columns_ = 0;  ///< as in GridRequest
    int scroll_ = 0;
    ItemRange shown_;
};

}  // namespace overview
