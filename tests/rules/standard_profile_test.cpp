#include "picture/standard_profile.h"

#include <gtest/gtest.h>

#include "picture/colour_profile.h"

namespace picture {
namespace {

TEST(StandardProfile, ReadsBackAsItself) {
    const std::vector<std::uint8_t> bytes = standardProfileBytes();
    ASSERT_TRUE(describesRgb(bytes));
    const auto profile = readColourProfile(bytes);
    ASSERT_TRUE(profile);
    EXPECT_TRUE(sameEffect(*profile, standardProfile()));
    EXPECT_EQ(bytes.size() % 4, 0U);
    // No byte is left over: the size stands in the header.
    EXPECT_FALSE(describesRgb(std::span(bytes).first(bytes.size() - 1)));
}

}  // namespace
}  // namespace picture
