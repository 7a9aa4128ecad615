#include "platform/monitor_profile.h"

#include <gtest/gtest.h>

#include "picture/colour_profile.h"

namespace platform {
namespace {

/// Gives the monitor's handle as its profile.
class Recording : public MonitorProfiles {
  public:
    Recording() { replace(this); }
    ~Recording() override { replace(nullptr); }
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

  protected:
    std::vector<std::uint8_t> read(HMONITOR monitor) const override {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(&monitor);
        return {bytes, bytes + sizeof(monitor)};
    }
};

TEST(MonitorProfilesTest, AsksForTheNearestMonitor) {
    const Recording recording;
    const HMONITOR primary = MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(&primary);
    const std::vector<std::uint8_t> expected(bytes, bytes + sizeof(primary));
    EXPECT_EQ(MonitorProfiles::current().profileOf(GetDesktopWindow()), expected);
    EXPECT_EQ(MonitorProfiles::current().profileAt({-100, -100, -50, -50}), expected);
}

TEST(MonitorProfilesTest, TheSystemGivesAProfileOrNone) {
    const RECT place{0, 0, 10, 10};
    const std::vector<std::uint8_t> profile = MonitorProfiles::current().profileAt(place);
    EXPECT_TRUE(profile.empty() || picture::describesRgb(profile)) << profile.size();
    EXPECT_EQ(MonitorProfiles::current().profileOf(GetDesktopWindow()), profile);
}

}  // namespace
}  // namespace platform
