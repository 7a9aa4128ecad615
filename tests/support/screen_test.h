#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdint>

#include "support/app_stage.h"

namespace support {

inline void expectPlace(const ui::Form& form, const RECT& place) {
    const RECT window = windowOf(form.hwnd());
    EXPECT_TRUE(EqualRect(&window, &place))
        << window.left << ' ' << window.top << ' ' << window.right << ' ' << window.bottom;
}

/// A folder with a red and a green picture of 400 x 300, and a monitor of 640 x 480 that can change.
class ScreenTest : public testing::Test {
  protected:
    static constexpr std::uint32_t kRed = 0xC02020;
    static constexpr std::uint32_t kGreen = 0x20C020;

    ScreenTest() {
        stage.picture(L"a.jpg", kRed, 400, 300);
        stage.picture(L"b.jpg", kGreen, 400, 300);
    }
    app::Form1& form() { return stage.form(); }
    /// The monitor of the show has another size from now on, and the system tells so.
    void resize(const RECT& monitor) {
        stage.monitors.first = monitor;
        SendMessageW(form().hwnd(), WM_DISPLAYCHANGE, 32,
                     MAKELPARAM(monitor.right - monitor.left, monitor.bottom - monitor.top));
        stage.loop.settle();
    }
    /// And another scaling.
    void rescale(int dpi) {
        stage.monitors.dpi = dpi;
        const RECT suggested{0, 0, 1280, 960};
        SendMessageW(form().hwnd(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
                     reinterpret_cast<LPARAM>(&suggested));
        stage.loop.settle();
    }
    /// How many pixels of the surface have the colour of a date.
    int datePixels() {
        GdiFlush();
        const picture::Surface& image = form().Pic2.image();
        return static_cast<int>(
            std::count_if(image.bits(), image.bits() + image.width() * image.height(),
                          [](std::uint32_t pixel) { return (pixel & 0xFFFFFF) == 0x00FFFF; }));
    }
    void expectSurface(const RECT& monitor) {
        expectPlace(form(), monitor);
        const int width = monitor.right - monitor.left;
        const int height = monitor.bottom - monitor.top;
        EXPECT_EQ(stage.showState().screenWidth, width);
        EXPECT_EQ(stage.showState().screenHeight, height);
        EXPECT_EQ(form().Pic2.clientSize().cx, width);
        EXPECT_EQ(form().Pic2.clientSize().cy, height);
        EXPECT_EQ(form().Pic2.image().width(), width);
        EXPECT_EQ(form().Pic2.image().height(), height);
    }
    std::uint32_t at(int x, int y) {
        GdiFlush();
        const picture::Surface& image = form().Pic2.image();
        return image.bits()[y * image.width() + x] & 0xFFFFFFU;
    }
    AppStage stage;
};

}  // namespace support
