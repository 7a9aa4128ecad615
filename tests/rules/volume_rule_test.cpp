#include "media/volume_rule.h"

#include <gtest/gtest.h>

namespace media {
namespace {

struct Case {
    int volume;
    long expected;
};

class Attenuation : public testing::TestWithParam<Case> {};

TEST_P(Attenuation, IsInHundredthsOfADecibel) {
    EXPECT_EQ(attenuation(GetParam().volume), GetParam().expected) << GetParam().volume;
}

INSTANTIATE_TEST_SUITE_P(Volumes, Attenuation,
                         testing::Values(Case{-1, -10000}, Case{0, -10000}, Case{1, -6000}, Case{10, -4000},
                                         Case{40, -2796}, Case{100, -2000}, Case{200, -1398},
                                         Case{300, -1046}, Case{500, -602}, Case{600, -444}, Case{999, -1},
                                         Case{1000, 0}, Case{1001, 0}, Case{2147483647, 0}));

TEST(Attenuation, EveryStepIsLouder) {
    for (int volume = 0; volume < kFullVolume; ++volume) {
        EXPECT_LE(attenuation(volume), attenuation(volume + 1)) << volume;
    }
}

}  // namespace
}  // namespace media
