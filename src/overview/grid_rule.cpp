#include "overview/grid_rule.h"

#include <algorithm>

namespace overview {

namespace {

constexpr int kScreenDpi = 96;
constexpr int kWidestGap = 6;     // pixels at 96 DPI
constexpr int kCellsPerGap = 20;  // a gap is that part of a cell's width
constexpr double kStep = 1.25;
constexpr double kLeastGrowth = 1.1;
constexpr int kDragScrollPart = 4;

int heightOf(int imageWidth) {
    return std::max(1, (imageWidth * 3 + 2) / 4);
}

int widthWithin(int imageHeight) {
    return imageHeight * 4 / 3;
}

int gapOf(int cellWidth, int dpi) {
    return std::clamp(cellWidth / kCellsPerGap, 1, std::max(1, kWidestGap * dpi / kScreenDpi));
}

// The width of a thumbnail so that `columns` of them lie in the width and `rows` in the height.
int imageWidthFor(const GridRequest& request, int columns, int rows) {
    const int cellWidth = std::min(request.width / columns, widthWithin(request.height / rows));
    const int gap = gapOf(cellWidth, request.dpi);
    return std::max(1, std::min(request.width / columns - gap, widthWithin(request.height / rows - gap)));
}

int enlargedWidth(const GridRequest& request, int columns) {
    return imageWidthFor(request, columns, 1);
}

int fittedWidth(const GridRequest& request) {
    const int columns = columnsFor(request.count);
    return imageWidthFor(request, columns, columns);
}

// The steps are the same in both directions.
int nextColumns(int columns) {
    return std::max(columns + 1, static_cast<int>(columns * kStep));
}

// Whether cells of an enlarged grid are worth it.
bool isLarger(const GridRequest& request, int columns) {
    return enlargedWidth(request, columns) > fittedWidth(request) * kLeastGrowth;
}

}  // namespace

int columnsFor(int count) {
    int columns = 1;
    while (columns * columns < count) {
        ++columns;
    }
    return columns;
}

GridLayout layoutGrid(const GridRequest& request) {
    GridLayout layout;
    layout.count = request.count;
    layout.viewWidth = request.width;
    layout.viewHeight = request.height;
    const bool all = request.columns <= 0;
    layout.columns = all ? columnsFor(request.count) : request.columns;
    layout.rows = (request.count + layout.columns - 1) / layout.columns;
    const int imageWidth = all ? fittedWidth(request) : enlargedWidth(request, layout.columns);
    layout.gap = gapOf(
        std::min(request.width / layout.columns, widthWithin(request.height / (all ? layout.columns : 1))),
        request.dpi);
    layout.cellWidth = imageWidth + layout.gap;
    layout.cellHeight = heightOf(imageWidth) + layout.gap;
    layout.left = std::max(0, (request.width - layout.columns * layout.cellWidth) / 2);
    layout.top = std::max(0, (request.height - layout.rows * layout.cellHeight) / 2);
    return layout;
}

show::PixelRect cellPlace(const GridLayout& layout, int index) {
    return {layout.left + index % layout.columns * layout.cellWidth,
            layout.top + index / layout.columns * layout.cellHeight, layout.cellWidth, layout.cellHeight};
}

std::optional<int> cellAt(const GridLayout& layout, int x, int y) {
    if (x < layout.left || y < layout.top || layout.cellWidth <= 0 || layout.cellHeight <= 0) {
        return std::nullopt;
    }
    const int column = (x - layout.left) / layout.cellWidth;
    const int index = (y - layout.top) / layout.cellHeight * layout.columns + column;
    return column < layout.columns && index < layout.count ? std::optional(index) : std::nullopt;
}

ItemRange itemsInView(const GridLayout& layout, int scroll, int margin) {
    if (layout.count <= 0 || layout.cellHeight <= 0) {
        return {};
    }
    const int from = std::max(0, scroll - margin - layout.top) / layout.cellHeight;
    const int until = std::max(0, scroll + layout.viewHeight + margin - layout.top + layout.cellHeight - 1) /
                      layout.cellHeight;
    return {std::min(layout.count, from * layout.columns),
            std::min(layout.count, std::min(until, layout.rows) * layout.columns)};
}

int scrollEnd(const GridLayout& layout) {
    return std::max(0, layout.contentHeight() - layout.viewHeight);
}

int scrollShowing(const GridLayout& layout, int scroll, int index) {
    const show::PixelRect place = cellPlace(layout, index);
    const int lowest = place.top + place.height - layout.viewHeight;
    return std::clamp(std::clamp(scroll, std::min(lowest, place.top), place.top), 0, scrollEnd(layout));
}

int scrollKeeping(const GridLayout& layout, int index, int y) {
    const show::PixelRect place = cellPlace(layout, index);
    return std::clamp(place.top + place.height / 2 - y, 0, scrollEnd(layout));
}

int enlarged(const GridRequest& request) {
    int result = request.columns;
    for (int n = 1; (request.columns <= 0 || n < request.columns) && isLarger(request, n);
         n = nextColumns(n)) {
        result = n;
    }
    return result;
}

int reduced(const GridRequest& request) {
    const int wanted = nextColumns(request.columns);
    return request.columns > 0 && isLarger(request, wanted) ? wanted : 0;
}

int dragScroll(int y, int viewHeight, int edge) {
    if (y < edge) {
        return -std::max(1, std::min(edge, edge - y) / kDragScrollPart);
    }
    if (y >= viewHeight - edge) {
        return std::max(1, std::min(edge, y - (viewHeight - edge) + 1) / kDragScrollPart);
    }
    return 0;
}

int stepped(const GridLayout& layout, int index, Step step) {
    if (layout.count <= 0) {
        return -1;
    }
    if (index < 0 || index >= layout.count) {
        return step == Step::Last ? layout.count - 1 : 0;
    }
    const int last = layout.count - 1;
    const int columns = layout.columns;
    const int page = std::max(1, layout.viewHeight / std::max(1, layout.cellHeight)) * columns;
    const int lastOfColumn = last - (last % columns - index % columns + columns) % columns;
    switch (step) {
        case Step::Left:
            return std::max(0, index - 1);
        case Step::Right:
            return std::min(last, index + 1);
        case Step::Up:
            return index >= columns ? index - columns : index;
        case Step::Down:
            return index / columns < last / columns ? std::min(last, index + columns) : index;
        case Step::RowStart:
            return index / columns * columns;
        case Step::RowEnd:
            return std::min(last, index / columns * columns + columns - 1);
        case Step::PageUp:
            return index >= page ? index - page : index % columns;
        case Step::PageDown:
            return index + page <= last ? index + page : std::max(index, lastOfColumn);
        case Step::First:
            return 0;
        case Step::Last:
            return last;
    }
    return index;
}

}  // namespace overview
