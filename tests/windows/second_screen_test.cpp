// The window as the surface of a show: to the pixel, on the monitor that it belongs to.
#include <gmock/gmock.h>

#include <cmath>

#include "support/screen_test.h"

namespace app {
namespace {

using support::AppStage;
using support::windowOf;

class SurfaceTest : public testing::Test {
  protected:
    SurfaceTest() { stage.picture(L"a.jpg", 0xC02020, 320, 240); }
    Form1& form() { return stage.form(); }
    RECT insideOf(const ui::Control& control) {
        RECT place = windowOf(control.hwnd());
        MapWindowPoints(nullptr, form().hwnd(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    void expectSurface(const RECT& monitor) {
        support::expectPlace(form(), monitor);
        const int width = monitor.right - monitor.left;
        const int height = monitor.bottom - monitor.top;
        EXPECT_EQ(form().clientSize().cx, width);
        EXPECT_EQ(form().clientSize().cy, height);
        EXPECT_EQ(stage.showState().screenWidth, width);
        EXPECT_EQ(stage.showState().screenHeight, height);
        const RECT all{0, 0, width, height};
        const RECT pic2 = insideOf(form().Pic2);
        EXPECT_TRUE(EqualRect(&pic2, &all));
        const RECT pic3 = insideOf(form().Pic3);
        EXPECT_EQ(pic3.left, 0);
        EXPECT_EQ(pic3.top, 0);
        const RECT end = insideOf(form().EOT);
        EXPECT_LE(std::abs(end.left + end.right - width), 1);
        EXPECT_LE(std::abs(end.top + end.bottom - height), 1);
        const RECT title = insideOf(form().UT);
        EXPECT_EQ(title.left, 0);
        EXPECT_EQ(title.right, width);
        EXPECT_LE(std::abs(title.top - (height - 2 * (title.bottom - title.top))), 1);
    }
    AppStage stage;
};

TEST_F(SurfaceTest, FillsTheMonitorOfTheWindow) {
    stage.monitors.second = RECT{640, 0, 1440, 600};
    stage.loadFolder();
    SetWindowPos(form().hwnd(), nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    form().Start.click();
    expectSurface(stage.monitors.first);
}

TEST_F(SurfaceTest, StaysOnTheSecondMonitorWhenTheWindowIsThere) {
    stage.monitors.second = RECT{640, 0, 1440, 600};
    stage.loadFolder();
    SetWindowPos(form().hwnd(), nullptr, 700, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    form().Start.click();
    expectSurface(*stage.monitors.second);
}

TEST_F(SurfaceTest, Screen2MovesItToTheMonitorOnTheRight) {
    stage.monitors.second = RECT{640, 0, 1440, 600};
    stage.loadFolder();
    SetWindowPos(form().hwnd(), nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    stage.click(form().Screen2);
    ASSERT_EQ(stage.state().SecondScreen, 1);
    form().Start.click();
    expectSurface(*stage.monitors.second);
    POINT pointer{};
    GetCursorPos(&pointer);
    EXPECT_EQ(pointer.x, 960);
    EXPECT_EQ(pointer.y, 300);
}

// As a window manager does that answers late with the place of the set-up window.
TEST_F(SurfaceTest, StaysWhereItIsWhateverIsAskedFor) {
    stage.loadFolder();
    const RECT before = windowOf(form().hwnd());
    form().Start.click();
    SetWindowPos(form().hwnd(), nullptr, before.left, before.top, before.right - before.left,
                 before.bottom - before.top, SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowPos(form().hwnd(), nullptr, 30, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowPos(form().hwnd(), nullptr, 0, 0, 50, 60, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    stage.loop.settle();
    expectSurface(stage.monitors.first);
    ShowWindow(form().hwnd(), SW_MINIMIZE);
    EXPECT_TRUE(IsIconic(form().hwnd()));
    ShowWindow(form().hwnd(), SW_RESTORE);
    stage.until([&] { return IsIconic(form().hwnd()) == FALSE && form().clientSize().cx > 0; });
    EXPECT_FALSE(IsIconic(form().hwnd()));
    expectSurface(stage.monitors.first);
}

TEST_F(SurfaceTest, Screen2WithoutASecondMonitorFillsTheOnlyOne) {
    stage.loadFolder();
    stage.click(form().Screen2);
    form().Start.click();
    expectSurface(stage.monitors.first);
}

TEST_F(SurfaceTest, Screen2ClickedAgainIsForgotten) {
    stage.monitors.second = RECT{640, 0, 1440, 600};
    stage.loadFolder();
    SetWindowPos(form().hwnd(), nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    stage.click(form().Screen2);
    stage.click(form().Screen2);
    EXPECT_EQ(stage.state().SecondScreen, 0);
    form().Start.click();
    expectSurface(stage.monitors.first);
}

TEST_F(SurfaceTest, OnlyTheSurfaceIsLeftOfTheSetup) {
    stage.loadFolder();
    form().Text1.show();
    form().Start.click();
    for (const ui::Control* control : form().controls()) {
        EXPECT_EQ(control->visible(), control == &form().Pic2) << GetDlgCtrlID(control->hwnd());
    }
    EXPECT_EQ(form().background(), 0U);
    EXPECT_EQ(form().Pic2.toolTip(), L"");
    EXPECT_TRUE(form().Pic2.hasFocus());
    EXPECT_EQ(stage.system.pointer, -1);
}

TEST_F(SurfaceTest, IsRectangularToItsCorners) {
    stage.loadFolder();
    form().Start.click();
    const platform::Region region(CreateRectRgn(0, 0, 0, 0));
    EXPECT_EQ(GetWindowRgn(form().hwnd(), region.get()), ERROR) << "no region";
}

TEST_F(SurfaceTest, TheTabKeyWalksNowhere) {
    stage.loadFolder();
    form().Start.click();
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1);
    stage.loop.settle();
    EXPECT_TRUE(form().Pic2.hasFocus());
}

// Another scaling must not bring the rounded corners back, nor another size.
TEST_F(SurfaceTest, AChangeOfScalingLeavesTheSurfaceAsItIs) {
    stage.loadFolder();
    form().Start.click();
    stage.monitors.dpi = 144;
    const RECT suggested{50, 50, 900, 700};
    SendMessageW(form().hwnd(), WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&suggested));
    expectSurface(stage.monitors.first);
    const platform::Region region(CreateRectRgn(0, 0, 0, 0));
    EXPECT_EQ(GetWindowRgn(form().hwnd(), region.get()), ERROR);
    EXPECT_TRUE(support::alike(stage.shown(), 0xC02020));
}

TEST_F(SurfaceTest, AChangeOfScalingInTheSetupRoundsTheWindowAnew) {
    stage.loadFolder();
    const RECT suggested{0, 0, 800, 500};
    SendMessageW(form().hwnd(), WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&suggested));
    const platform::Region region(CreateRectRgn(0, 0, 0, 0));
    ASSERT_NE(GetWindowRgn(form().hwnd(), region.get()), ERROR);
    RECT box{};
    GetRgnBox(region.get(), &box);
    EXPECT_EQ(box.right, 799);
    EXPECT_EQ(box.bottom, 499);
}

TEST_F(SurfaceTest, WithoutASelectionTheFirstFileIsShown) {
    stage.picture(L"b.jpg", 0x20C020);
    stage.loadFolder();
    ASSERT_EQ(form().File1.selectedIndex(), -1);
    form().Start.click();
    EXPECT_EQ(stage.showState().pictureIndex, 0);
    EXPECT_TRUE(support::alike(stage.shown(), 0xC02020));
}

TEST_F(SurfaceTest, TheSelectedFileIsShown) {
    stage.picture(L"b.jpg", 0x20C020);
    stage.loadFolder(L" L=1");
    form().Start.click();
    EXPECT_EQ(stage.showState().pictureIndex, 1);
    EXPECT_EQ(stage.showState().currentPicture, stage.pictures / L"b.jpg");
    EXPECT_EQ(stage.application->music().musicFolder, stage.pictures.path() + L"\\");
    EXPECT_TRUE(support::alike(stage.shown(), 0x20C020));
}

}  // namespace
}  // namespace app
