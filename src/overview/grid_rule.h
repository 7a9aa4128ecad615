#pragma once

#include <optional>

#include "show/fit_rule.h"

namespace overview {

/// What a grid of thumbnails is laid out for. Lengths in pixels.
struct GridRequest {
    int count = 0;  ///< items
    int width = 0;  ///< of the place that the grid is seen in
    int height = 0;
    int dpi = 96;
    /// How many cells lie in a row of an enlarged grid; 0: as many as show all items at once.
    int columns = 0;
};

/// Where the cells of a grid lie. A cell is a thumbnail with its share of the gap around it; thumbnails have
/// the shape 4:3. Places are counted from the top left corner of the grid's content, of which a window of
/// the request's size is seen.
struct GridLayout {
    int count = 0;
    int columns = 1;
    int rows = 0;
    int left = 0;  ///< of the first cell
    int top = 0;
    int cellWidth = 0;  ///< from one cell to the next
    int cellHeight = 0;
    int gap = 0;        ///< between two thumbnails
    int viewWidth = 0;  ///< what is seen of the content
    int viewHeight = 0;
    int imageWidth() const { return cellWidth - gap; }
    int imageHeight() const { return cellHeight - gap; }
    int contentHeight() const { return 2 * top + rows * cellHeight; }
    friend bool operator==(const GridLayout&, const GridLayout&) = default;
};

/// The cells of a row when all items are shown at once: the smallest c with c * c >= count; at least 1.
int columnsFor(int count);

/// Lays a grid out. With all items shown the cells are a c-th of the largest area of 4:3 that has room, c
/// being columnsFor(count), and what is left lies around them evenly. An enlarged grid fills the width, but
/// no cell is higher than what is seen.
GridLayout layoutGrid(const GridRequest& request);

/// A cell's place in the content.
show::PixelRect cellPlace(const GridLayout& layout, int index);

/// The item whose cell holds a place of the content.
std::optional<int> cellAt(const GridLayout& layout, int x, int y);

/// Items from `first` to before `end`.
struct ItemRange {
    int first = 0;
    int end = 0;
    bool holds(int index) const { return index >= first && index < end; }
    friend bool operator==(const ItemRange&, const ItemRange&) = default;
};

/// The items of which something is seen, with as many rows more on either side as `margin` pixels reach.
ItemRange itemsInView(const GridLayout& layout, int scroll, int margin = 0);

/// How far the content can be scrolled; 0 where all of it is seen.
int scrollEnd(const GridLayout& layout);

/// The scroll position next to `scroll` at which an item's whole cell is seen.
int scrollShowing(const GridLayout& layout, int scroll, int index);

/// The scroll position at which the middle of an item's cell is seen `y` pixels below the top.
int scrollKeeping(const GridLayout& layout, int index, int y);

/// The cells of a row after one step of enlarging or of reducing a grid, by a quarter or at least one column;
/// `columns` as in the request. Where the cells would hardly be larger than when all items are shown, that is
/// shown: 0. Steps in one direction are taken back by as many in the other.
int enlarged(const GridRequest& request);
int reduced(const GridRequest& request);

/// How many pixels a grid scrolls per tick while something is dragged at `y`: negative at the upper edge of
/// the view, positive at the lower one and beyond, the faster the nearer to it, 0 between.
int dragScroll(int y, int viewHeight, int edge);

enum class Step { Left, Right, Up, Down, RowStart, RowEnd, PageUp, PageDown, First, Last };

/// The item that a step of the keyboard leads to; from -1 (none) to the first. It stays where there is no
/// further one; a step down from the last full row to a place that is empty leads to the last item.
int stepped(const GridLayout& layout, int index, Step step);

}  // namespace overview
