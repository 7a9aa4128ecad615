#include "overview/reorder_rule.h"

#include <gtest/gtest.h>

namespace overview {
namespace {

const std::vector<int> kOrder{1, 2, 3, 4, 5, 6};

TEST(ReorderRule, TheItemTakesTheTargetsPlaceAndTheOthersCloseUp) {
    const struct {
        int source, target;
        std::vector<int> expected;
    } cases[] = {
        {4, 1, {1, 5, 2, 3, 4, 6}}, {1, 4, {1, 3, 4, 5, 2, 6}}, {0, 5, {2, 3, 4, 5, 6, 1}},
        {5, 0, {6, 1, 2, 3, 4, 5}}, {2, 2, {1, 2, 3, 4, 5, 6}}, {2, 3, {1, 2, 4, 3, 5, 6}},
        {3, 2, {1, 2, 4, 3, 5, 6}},
    };
    for (const auto& c : cases) {
        std::vector<int> items = kOrder;
        moveItem(items, c.source, c.target);
        EXPECT_EQ(items, c.expected) << c.source << " to " << c.target;
    }
}

TEST(ReorderRule, MovedIndexTellsWhereEachItemLies) {
    for (int source = 0; source < 6; ++source) {
        for (int target = 0; target < 6; ++target) {
            std::vector<int> items = kOrder;
            moveItem(items, source, target);
            for (int i = 0; i < 6; ++i) {
                EXPECT_EQ(items[static_cast<std::size_t>(movedIndex(i, source, target))], i + 1)
                    << i << " after " << source << " to " << target;
            }
        }
    }
}

}  // namespace
}  // namespace overview
