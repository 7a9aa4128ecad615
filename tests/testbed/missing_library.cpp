#include <gtest/gtest.h>

__declspec(dllimport) int fromTheLibrary();

TEST(MissingLibrary, IsNeverReached) {
    EXPECT_EQ(fromTheLibrary(), 1);
}
