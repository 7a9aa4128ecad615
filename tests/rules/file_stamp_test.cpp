#include "files/file_stamp.h"

#include <gtest/gtest.h>

#include <ostream>

namespace files {
namespace {

constexpr std::uint64_t kSecond = 10'000'000;
constexpr std::uint64_t kNoon = 133'000'000'000'000'000;

struct Case {
    const char* what;
    FileStamp one;
    FileStamp other;
    bool same;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.what;
}

class FileStampTest : public testing::TestWithParam<Case> {};

TEST_P(FileStampTest, TellsWhetherAFileIsUnchanged) {
    EXPECT_EQ(sameFile(GetParam().one, GetParam().other), GetParam().same);
    EXPECT_EQ(sameFile(GetParam().other, GetParam().one), GetParam().same);
}

INSTANTIATE_TEST_SUITE_P(
    Stamps, FileStampTest,
    testing::Values(
        Case{"equal", {7, kNoon, 3}, {7, kNoon, 3}, true},
        Case{"another size", {7, kNoon, 3}, {8, kNoon, 3}, false},
        Case{"another file", {7, kNoon, 3}, {7, kNoon, 4}, false},
        Case{"a number known only once", {7, kNoon, 3}, {7, kNoon, 0}, true},
        Case{"rounded to two seconds", {7, kNoon, 3}, {7, kNoon + (2 * kSecond), 3}, true},
        Case{"three seconds later", {7, kNoon, 3}, {7, kNoon + (3 * kSecond), 3}, false},
        Case{"an hour later", {7, kNoon, 3}, {7, kNoon + (3600 * kSecond), 3}, true},
        Case{"an hour less a second", {7, kNoon, 3}, {7, kNoon + (3599 * kSecond), 3}, true},
        Case{"half an hour later", {7, kNoon, 3}, {7, kNoon + (1800 * kSecond), 3}, false},
        Case{"thirteen hours and a second later",
             {7, kNoon, 3},
             {7, kNoon + (13 * 3600 + 1) * kSecond, 3},
             true},
        Case{"a day and an hour later", {7, kNoon, 3}, {7, kNoon + (25 * 3600 * kSecond), 3}, false}));

}  // namespace
}  // namespace files
