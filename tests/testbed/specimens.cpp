// One test for each way a test program may end; selftest.sh chooses among them by name.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>

TEST(Specimen, Passes) {
    EXPECT_EQ(1 + 1, 2);
}

TEST(Specimen, Fails) {
    EXPECT_EQ(1 + 1, 3);
}

TEST(Specimen, Skips) {
    GTEST_SKIP();
}

TEST(Specimen, Crashes) {
    RaiseException(EXCEPTION_ACCESS_VIOLATION, 0, 0, nullptr);
}

TEST(Specimen, LeavesEarly) {
    std::_Exit(0);
}

TEST(Specimen, Hangs) {
    Sleep(INFINITE);
}
