#include "overview/grid_rule.h"

#include <gtest/gtest.h>

namespace overview {
namespace {

GridRequest request(int count, int width = 1200, int height = 900, int columns = 0, int dpi = 96) {
    return {count, width, height, dpi, columns};
}

TEST(GridRule, ColumnsAreTheRootOfTheCountRoundedUp) {
    const struct {
        int count, columns;
    } cases[] = {{0, 1},  {1, 1},  {2, 2},  {4, 2},    {5, 3},    {9, 3},
                 {10, 4}, {16, 4}, {17, 5}, {137, 12}, {8000, 90}};
    for (const auto& c : cases) {
        EXPECT_EQ(columnsFor(c.count), c.columns) << c.count;
        EXPECT_EQ(layoutGrid(request(c.count)).columns, c.columns) << c.count;
    }
}

TEST(GridRule, RowsHoldAllItems) {
    const struct {
        int count, rows;
    } cases[] = {{0, 0}, {1, 1}, {2, 1}, {4, 2}, {5, 2}, {7, 3}, {10, 3}, {13, 4}};
    for (const auto& c : cases) {
        EXPECT_EQ(layoutGrid(request(c.count)).rows, c.rows) << c.count;
    }
}

TEST(GridRule, ThumbnailsHaveTheShape4To3AndFitTheView) {
    for (const int count : {1, 2, 4, 5, 10, 137, 300, 5000, 8000}) {
        for (const auto& [width, height] : {std::pair{1200, 900}, {1900, 1000}, {700, 1000}, {640, 480}}) {
            const GridLayout layout = layoutGrid(request(count, width, height));
            EXPECT_NEAR(layout.imageHeight(), layout.imageWidth() * 3 / 4.0, 1.0) << count;
            EXPECT_GE(layout.gap, 1);
            EXPECT_LE(layout.columns * layout.cellWidth, width) << count;
            EXPECT_LE(layout.columns * layout.cellHeight, height + layout.columns) << count;
            EXPECT_EQ(scrollEnd(layout), 0) << count << " in " << width << " x " << height;
        }
    }
}

// A pixel more in each cell would not fit any more.
TEST(GridRule, ThumbnailsAreAsLargeAsTheyCanBe) {
    for (const int count : {1, 5, 137}) {
        const GridLayout layout = layoutGrid(request(count, 1000, 2000));
        EXPECT_GT(layout.columns * (layout.cellWidth + 1), 1000) << count;
        const GridLayout low = layoutGrid(request(count, 2000, 750));
        EXPECT_GT(low.columns * (low.cellHeight + 2), 750) << count;
    }
}

TEST(GridRule, GapsAreAFewPixelsAndGrowWithTheDpi) {
    EXPECT_EQ(layoutGrid(request(1)).gap, 6);
    EXPECT_EQ(layoutGrid(request(1, 2400, 1800, 0, 192)).gap, 12);
    EXPECT_EQ(layoutGrid(request(8000)).gap, 1);
    EXPECT_EQ(layoutGrid(request(300)).gap, 3);
}

TEST(GridRule, CellsLieInRowsAndColumns) {
    const GridLayout layout = layoutGrid(request(10));
    for (int i = 0; i < 10; ++i) {
        const show::PixelRect place = cellPlace(layout, i);
        EXPECT_EQ(place.left, layout.left + i % 4 * layout.cellWidth);
        EXPECT_EQ(place.top, layout.top + i / 4 * layout.cellHeight);
        EXPECT_EQ(cellAt(layout, place.left, place.top), i);
        EXPECT_EQ(cellAt(layout, place.left + place.width - 1, place.top + place.height - 1), i);
    }
}

TEST(GridRule, NoCellBesideTheGrid) {
    const GridLayout layout = layoutGrid(request(5, 1900, 900));
    const show::PixelRect last = cellPlace(layout, 4);
    EXPECT_EQ(cellAt(layout, layout.left - 1, layout.top), std::nullopt);
    EXPECT_EQ(cellAt(layout, layout.left, layout.top - 1), std::nullopt);
    EXPECT_EQ(cellAt(layout, last.left + last.width, last.top), std::nullopt) << "the empty sixth cell";
    EXPECT_EQ(cellAt(layout, layout.left + 3 * layout.cellWidth, layout.top), std::nullopt);
    EXPECT_EQ(cellAt(layout, layout.left, last.top + last.height), std::nullopt);
}

TEST(GridRule, AnEnlargedGridFillsTheWidthAndScrolls) {
    const GridLayout layout = layoutGrid(request(100, 1200, 900, 4));
    EXPECT_EQ(layout.columns, 4);
    EXPECT_EQ(layout.rows, 25);
    EXPECT_EQ(layout.cellWidth, 300);
    EXPECT_EQ(layout.top, 0);
    EXPECT_EQ(scrollEnd(layout), 25 * layout.cellHeight - 900);
    EXPECT_LE(layoutGrid(request(3, 2000, 900, 1)).cellHeight, 900) << "one cell is seen as a whole";
}

TEST(GridRule, ItemsInView) {
    const GridLayout layout = layoutGrid(request(100, 1200, 900, 4));  // cells of 300 x 226
    const int row = layout.cellHeight;
    const struct {
        int scroll, margin;
        ItemRange expected;
    } cases[] = {
        {0, 0, {0, 16}},
        {1, 0, {0, 16}},
        {row, 0, {4, 20}},
        {row - 1, 0, {0, 20}},
        {scrollEnd(layout), 0, {84, 100}},
        {0, 900, {0, 32}},
        {scrollEnd(layout), 900, {68, 100}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(itemsInView(layout, c.scroll, c.margin), c.expected) << c.scroll << " " << c.margin;
    }
    EXPECT_EQ(itemsInView(layoutGrid(request(0)), 0), ItemRange{});
    EXPECT_EQ(itemsInView(layoutGrid(request(137)), 0), (ItemRange{0, 137}));
}

TEST(GridRule, ScrollsNoFurtherThanNeeded) {
    const GridLayout layout = layoutGrid(request(100, 1200, 900, 4));
    const int row = layout.cellHeight;
    EXPECT_EQ(scrollShowing(layout, 0, 0), 0);
    EXPECT_EQ(scrollShowing(layout, 0, 11), 0) << "seen already";
    EXPECT_EQ(scrollShowing(layout, 0, 16), 5 * row - 900);
    EXPECT_EQ(scrollShowing(layout, 10 * row, 8), 2 * row);
    EXPECT_EQ(scrollShowing(layout, 0, 99), scrollEnd(layout));
    EXPECT_EQ(scrollShowing(layoutGrid(request(9)), 0, 8), 0);
}

TEST(GridRule, AnItemStaysWhereItIsSeen) {
    const GridLayout layout = layoutGrid(request(100, 1200, 900, 4));
    EXPECT_EQ(scrollKeeping(layout, 40, 400), 10 * layout.cellHeight + layout.cellHeight / 2 - 400);
    EXPECT_EQ(scrollKeeping(layout, 0, 400), 0);
    EXPECT_EQ(scrollKeeping(layout, 99, 0), scrollEnd(layout));
}

// Each step makes the cells larger, and all steps back lead to where all is shown.
TEST(GridRule, ZoomStepsGrowAndLeadBack) {
    for (const int count : {2, 5, 30, 300, 5000}) {
        GridRequest now = request(count, 1900, 1000);
        int width = layoutGrid(now).imageWidth();
        int steps = 0;
        for (int next = enlarged(now); next != now.columns; next = enlarged(now)) {
            now.columns = next;
            EXPECT_GT(layoutGrid(now).imageWidth(), width) << count << " at " << next;
            width = layoutGrid(now).imageWidth();
            ASSERT_LT(++steps, 100);
        }
        EXPECT_EQ(now.columns, 1) << count;
        const int there = steps;
        for (int next = reduced(now); now.columns != 0; next = reduced(now)) {
            now.columns = next;
            const int smaller = layoutGrid(now).imageWidth();
            EXPECT_LT(smaller, width) << count << " at " << next;
            width = smaller;
            ASSERT_LT(++steps, 200);
        }
        EXPECT_EQ(steps, 2 * there) << count;
        EXPECT_EQ(reduced(now), 0);
    }
    EXPECT_EQ(enlarged(request(1, 1200, 900)), 0) << "one picture fills the view already";
}

TEST(GridRule, ADragScrollsAtTheEdges) {
    const struct {
        int y, expected;
    } cases[] = {{-50, -10}, {0, -10}, {20, -5}, {39, -1},  {40, 0},  {500, 0},
                 {859, 0},   {860, 1}, {879, 5}, {899, 10}, {990, 10}};
    for (const auto& c : cases) {
        EXPECT_EQ(dragScroll(c.y, 900, 40), c.expected) << c.y;
    }
}

TEST(GridRule, TheKeyboardMovesTheSelection) {
    const GridLayout layout = layoutGrid(request(10, 1200, 900));  // 4 columns: 4, 4, 2
    const struct {
        int index;
        Step step;
        int expected;
    } cases[] = {
        {-1, Step::Left, 0},    {-1, Step::Down, 0},  {-1, Step::Last, 9},    {12, Step::Right, 0},
        {0, Step::Left, 0},     {5, Step::Left, 4},   {4, Step::Left, 3},     {3, Step::Right, 4},
        {9, Step::Right, 9},    {2, Step::Up, 2},     {6, Step::Up, 2},       {1, Step::Down, 5},
        {5, Step::Down, 9},     {6, Step::Down, 9},   {7, Step::Down, 9},     {8, Step::Down, 8},
        {6, Step::RowStart, 4}, {5, Step::RowEnd, 7}, {8, Step::RowEnd, 9},   {7, Step::First, 0},
        {0, Step::Last, 9},     {9, Step::PageUp, 1}, {1, Step::PageDown, 9}, {2, Step::PageDown, 6},
        {9, Step::PageDown, 9},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(stepped(layout, c.index, c.step), c.expected)
            << c.index << " step " << static_cast<int>(c.step);
    }
    EXPECT_EQ(stepped(layoutGrid(request(0)), -1, Step::Right), -1);
}

TEST(GridRule, PagesOfAnEnlargedGrid) {
    const GridLayout layout = layoutGrid(request(100, 1200, 900, 4));  // 3 rows to a page
    EXPECT_EQ(stepped(layout, 1, Step::PageDown), 13);
    EXPECT_EQ(stepped(layout, 13, Step::PageUp), 1);
    EXPECT_EQ(stepped(layout, 95, Step::PageDown), 99);
}

}  // namespace
}  // namespace overview
