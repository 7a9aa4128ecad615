#include "edit/save_pace.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace edit {
namespace {

TEST(SavePaceTest, FewItemsWaitFully) {
    EXPECT_EQ(itemWait(1, 0), 200);
    EXPECT_EQ(itemWait(22, 4000), 200);
    EXPECT_EQ(itemWait(0, 0), 200);
    EXPECT_EQ(itemWait(45, 0), 100);
    EXPECT_EQ(itemWait(8000, 0), 0);
}

// A timer of the system takes at least a tick of its clock, however little was asked of it.
TEST(SavePaceTest, AllWaitsTogetherStayBelowFiveSecondsAlsoWithCoarseTimers) {
    for (const double tick : {1.0, 10.0, 15.6, 40.0}) {
        for (const int items : {1, 5, 22, 23, 60, 300, 999, 4500, 8000}) {
            double waited = 0;
            for (int i = 0; i < items; ++i) {
                const int wait = itemWait(items, waited);
                waited += wait > 0 ? std::max<double>(wait, tick) : 0;
            }
            EXPECT_LT(waited, 5000) << items << " items, " << tick;
            EXPECT_TRUE(items < 60 || items > 4500 || waited > 3500) << items << " items, " << tick;
        }
    }
}

TEST(SavePaceTest, TellsPicturesFirstAndThenThumbnails) {
    EXPECT_EQ(progressText(0, 3, 5), L"Bild 1 von 3");
    EXPECT_EQ(progressText(2, 3, 5), L"Bild 3 von 3");
    EXPECT_EQ(progressText(3, 3, 5), L"Minibild 1 von 2");
    EXPECT_EQ(progressText(4, 3, 5), L"Minibild 2 von 2");
}

}  // namespace
}  // namespace edit
