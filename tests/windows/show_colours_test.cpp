// Pictures of a wide colour space beside their plain twin, in the preview and in the show.
#include <gtest/gtest.h>

#include "picture/embedded_profile.h"
#include "platform/monitor_profile.h"
#include "support/app_stage.h"
#include "support/colours.h"
#include "support/profile_bytes.h"
#include "support/sample_profiles.h"

namespace app {
namespace {

using support::AppStage;

constexpr std::uint32_t kGreen = 0x50C050;

/// A monitor whose profile is a test's.
class ProfiledMonitor : public platform::MonitorProfiles {
  public:
    ProfiledMonitor() { replace(this); }
    ~ProfiledMonitor() override { replace(nullptr); }
    std::vector<std::uint8_t> profile;
    mutable int reads = 0;

  protected:
    std::vector<std::uint8_t> read(HMONITOR) const override {
        ++reads;
        return profile;
    }
};

class ShowColours : public testing::Test {
  protected:
    /// A picture of one colour that says it is meant in Display P3.
    void wide(const std::wstring& name) {
        stage.picture(name, kGreen);
        support::insertSegment(stage.pictures / name, support::profileSegment(support::displayP3().bytes()));
    }
    ProfiledMonitor monitor;
    AppStage stage;
};

TEST_F(ShowColours, AWidePictureIsConvertedInPreviewAndShow) {
    wide(L"a.jpg");
    stage.picture(L"b.jpg", kGreen);
    stage.loadFolder(L" P=1");
    const std::uint32_t preview = stage.shown();
    EXPECT_GT(support::colourDistance(preview, kGreen), 20) << "stronger in sRGB's numbers";
    stage.form().Run.click();
    EXPECT_LE(support::colourDistance(stage.shown(), preview), 4);
    stage.loop.advance(1500);
    EXPECT_LE(support::colourDistance(stage.shown(), kGreen), 4)
        << "one without a profile is sRGB as it stands";
    EXPECT_EQ(monitor.reads, 1) << "the monitor's profile is read once";
}

TEST_F(ShowColours, OnAMonitorOfItsOwnColoursItStaysAsItIs) {
    monitor.profile = support::displayP3().bytes();
    wide(L"a.jpg");
    stage.picture(L"b.jpg", kGreen);
    stage.loadFolder(L" P=1 R=1");
    EXPECT_LE(support::colourDistance(stage.shown(), kGreen), 4);
    stage.loop.advance(1500);
    EXPECT_GT(support::colourDistance(stage.shown(), kGreen), 20) << "the plain one is toned down";
}

TEST_F(ShowColours, TheSettingsSwitchThemOff) {
    stage.program.file(L"Panorell.ini", "[Prog]\r\nColour=off\r\n");
    wide(L"a.jpg");
    stage.loadFolder();
    EXPECT_LE(support::colourDistance(stage.shown(), kGreen), 4);
    stage.form().Run.click();
    EXPECT_LE(support::colourDistance(stage.shown(), kGreen), 4);
    EXPECT_EQ(monitor.reads, 0);
}

TEST_F(ShowColours, AMonitorThatChangesIsAskedAnew) {
    wide(L"a.jpg");
    stage.loadFolder(L" P=60 R=1");
    ASSERT_GT(support::colourDistance(stage.shown(), kGreen), 20);
    monitor.profile = support::displayP3().bytes();
    SendMessageW(stage.form().hwnd(), WM_DISPLAYCHANGE, 32, MAKELPARAM(640, 480));
    stage.loop.settle();
    EXPECT_LE(support::colourDistance(stage.shown(), kGreen), 4);
}

}  // namespace
}  // namespace app
