// What lies over the surface of a show while its screen changes: captions, date and end button.
#include <gmock/gmock.h>

#include <cstdlib>

#include "platform/handles.h"
#include "support/screen_test.h"

namespace app {
namespace {

using support::windowOf;

class SurfaceCaptionsTest : public support::ScreenTest {};

/// Of the font that a control was told to write in.
LONG letterHeight(const ui::Control& control) {
    LOGFONTW font{};
    const auto used = reinterpret_cast<HFONT>(SendMessageW(control.hwnd(), WM_GETFONT, 0, 0));
    EXPECT_NE(GetObjectW(used, sizeof font, &font), 0);
    return std::abs(font.lfHeight);
}

TEST_F(SurfaceCaptionsTest, TitleAndDateStandAtTheirPlacesAgain) {
    stage.pictures.file(L"Panorell.txt", "a Am Strand *D\r\n");
    stage.loadFolder();
    form().Start.click();
    ASSERT_TRUE(form().UT.visible());
    resize({0, 0, 800, 600});
    EXPECT_TRUE(form().UT.visible());
    const RECT title = windowOf(form().UT.hwnd());
    EXPECT_EQ(title.left, 0);
    EXPECT_EQ(title.right, 800);
    EXPECT_NEAR(title.top, 600 - 2 * (title.bottom - title.top), 1);
    EXPECT_GT(datePixels(), 50) << "the date in cyan";
    stage.loop.advance(4500);
    EXPECT_FALSE(form().UT.visible());
    EXPECT_EQ(datePixels(), 0);
    EXPECT_TRUE(support::alike(at(400, 20), kRed));
}

TEST_F(SurfaceCaptionsTest, TheInformationLineStandsAtTheRightEdgeAgain) {
    stage.loadFolder();
    form().Start.click();
    stage.type(L'?');
    ASSERT_TRUE(form().Text1.visible());
    resize({0, 0, 800, 300});
    EXPECT_NEAR(windowOf(form().Text1.hwnd()).right, 800, 1);
    resize({0, 0, 640, 480});
    EXPECT_NEAR(windowOf(form().Text1.hwnd()).right, 640, 1);
}

TEST_F(SurfaceCaptionsTest, AnotherScalingEnlargesWhatLiesOnTheSurface) {
    stage.monitors.dpi = 96;
    stage.pictures.file(L"Panorell.txt", "a Am Strand\r\n");
    stage.loadFolder();
    form().Start.click();
    ASSERT_TRUE(form().UT.visible());
    const auto heightOf = [](const ui::Control& control) { return control.clientSize().cy; };
    const LONG title = heightOf(form().UT);
    const LONG end = heightOf(form().EOT);
    const LONG letters = letterHeight(form().UT);
    rescale(192);
    expectSurface({0, 0, 640, 480});
    EXPECT_NEAR(heightOf(form().UT), 2 * title, 2);
    EXPECT_NEAR(heightOf(form().EOT), 2 * end, 2);
    EXPECT_NEAR(letterHeight(form().UT), 2 * letters, 2);
    const RECT place = windowOf(form().UT.hwnd());
    EXPECT_EQ(place.right, 640);
    EXPECT_NEAR(place.top, 480 - 2 * (place.bottom - place.top), 1);
    EXPECT_TRUE(support::alike(at(320, 100), kRed));
}

TEST_F(SurfaceCaptionsTest, TheEndStaysTheEnd) {
    stage.loadFolder(L" P=1");
    form().Run.click();
    stage.loop.advance(6000);
    ASSERT_TRUE(form().EOT.visible());
    resize({0, 0, 800, 600});
    expectSurface({0, 0, 800, 600});
    EXPECT_TRUE(form().EOT.visible());
    EXPECT_TRUE(support::alike(at(10, 10), kGreen));
    const RECT end = windowOf(form().EOT.hwnd());
    EXPECT_NEAR(end.left + end.right, 800, 1);
    EXPECT_NEAR(end.top + end.bottom, 600, 1);
}

// Rounded where it stood, it would be cut off.
TEST_F(SurfaceCaptionsTest, TheEndButtonIsRoundedAnewForAnotherScaling) {
    stage.monitors.dpi = 96;
    stage.loadFolder(L" P=1");
    form().Run.click();
    stage.loop.advance(6000);
    ASSERT_TRUE(form().EOT.visible());
    rescale(192);
    const platform::Region region(CreateRectRgn(0, 0, 0, 0));
    ASSERT_NE(GetWindowRgn(form().EOT.hwnd(), region.get()), ERROR);
    RECT rounded{};
    GetRgnBox(region.get(), &rounded);
    EXPECT_NEAR(rounded.right, form().EOT.clientSize().cx, 1);
    EXPECT_NEAR(rounded.bottom, form().EOT.clientSize().cy, 1);
}

TEST_F(SurfaceCaptionsTest, ADateIsNotStretchedWithAPictureThatHasGone) {
    stage.pictures.file(L"Panorell.txt", "a *D\r\n");
    stage.loadFolder();
    form().Start.click();
    ASSERT_GT(datePixels(), 50);
    stage.pictures.remove(L"a.jpg");
    resize({0, 0, 800, 600});
    EXPECT_GT(datePixels(), 50);
    stage.loop.advance(4500);
    EXPECT_EQ(datePixels(), 0);
    EXPECT_TRUE(support::alike(at(400, 20), kRed));
}

}  // namespace
}  // namespace app
