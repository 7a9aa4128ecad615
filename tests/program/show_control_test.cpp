// A running show of the real program, steered by keys and mouse, with its captions, compared on the screen.
#include <gmock/gmock.h>

#include "program/support/compare.h"
#include "program/support/files.h"
#include "program/support/input.h"
#include "program/support/panorell.h"
#include "program/support/picture_folder.h"
#include "program/support/screen.h"
#include "program/support/show_watch.h"
#include "ui/control_ids.h"

namespace program {
namespace {

namespace id = ui::id;
using std::chrono::milliseconds;

/// A show with plain cuts and a pause so long that nothing comes by itself.
class ShowControlTest : public testing::Test {
  protected:
    void open(const PictureFolder& folder) {
        panorell_.keepShow(folder.path(), {L"60"});
        ASSERT_TRUE(panorell_.openSetUp());
        ASSERT_TRUE(panorell_.clickOn(id::kRun));
        ASSERT_TRUE(bringToFront(panorell_.form()));
    }
    testing::AssertionResult press(WORD key) { return pressKey(panorell_.form(), key); }
    testing::AssertionResult type(const wchar_t* text) { return typeText(panorell_.form(), text); }
    Control at(int control) const { return panorell_.at(control); }
    testing::AssertionResult becomes(int control, bool visible) {
        return waitFor([&] { return at(control).visible() == visible; }, kPatience,
                       visible ? "a caption comes" : "a caption goes");
    }
    /// The show stands at a picture for longer than a double click may last, so that a press is one of its
    /// own.
    static testing::AssertionResult beyondADoubleClick(const ShowWatch& watch, int number) {
        return stays([&] { return watch.now() == number; }, milliseconds(GetDoubleClickTime() + 100),
                     "the picture stands");
    }
    static bool pointerInTheMiddle() {
        POINT place{};
        GetCursorPos(&place);
        const SIZE screen = screenSize();
        return std::abs(place.x - screen.cx / 2) <= 1 && std::abs(place.y - screen.cy / 2) <= 1;
    }

    Panorell panorell_;
};

TEST_F(ShowControlTest, ArrowsAndDigitsMoveThroughThePictures) {
    PictureFolder folder(5);
    const ShowWatch watch(folder.pictures());
    open(folder);
    ASSERT_TRUE(watch.comes(1));
    ASSERT_TRUE(press(VK_LEFT));
    EXPECT_TRUE(stays([&] { return watch.now() == 1; }, milliseconds(600), "the first picture stands"));
    ASSERT_TRUE(press(VK_RIGHT));
    ASSERT_TRUE(watch.comes(2));
    ASSERT_TRUE(press(VK_RIGHT));
    ASSERT_TRUE(watch.comes(3));
    ASSERT_TRUE(press(VK_LEFT));
    ASSERT_TRUE(watch.comes(2));
    ASSERT_TRUE(press(VK_DOWN));
    ASSERT_TRUE(type(L"1"));  // starts the timer again: one more picture, then the show waits
    ASSERT_TRUE(watch.comes(3));
    EXPECT_TRUE(stays([&] { return watch.now() == 3; }, milliseconds(2000), "the show waits"));
    ASSERT_TRUE(press(VK_UP));
    ASSERT_TRUE(watch.comes(4));
    ASSERT_TRUE(watch.comes(5)) << "one second each from now on";
    EXPECT_EQ(at(id::kIntS).position(), 60);
    ASSERT_TRUE(type(L"\x1B"));
    EXPECT_TRUE(panorell_.ends());
    EXPECT_EQ(panorell_.exitCode(), 0U);
}

TEST_F(ShowControlTest, RightHeldDownRunsThroughThePicturesAndStopsWithTheKey) {
    PictureFolder folder(24);
    const ShowWatch watch(folder.pictures());
    open(folder);
    ASSERT_TRUE(watch.comes(1));
    const auto until = std::chrono::steady_clock::now() + milliseconds(1500);
    while (std::chrono::steady_clock::now() < until) {
        ASSERT_TRUE(press(VK_RIGHT));
        Sleep(33);
    }
    // One step may still be on its way.
    Sleep(400);
    const int standing = watch.now();
    EXPECT_GE(standing, 3);
    EXPECT_LE(standing, 18);
    EXPECT_TRUE(stays([&] { return watch.now() == standing; }, milliseconds(1500), "the show stands"));
}

TEST_F(ShowControlTest, ClicksPauseStepAndGoOn) {
    PictureFolder folder(5);
    const ShowWatch watch(folder.pictures());
    open(folder);
    ASSERT_TRUE(watch.comes(1));
    ASSERT_TRUE(waitFor([] { return !pointerVisible(); }, kPatience, "the pointer is hidden"));
    ASSERT_TRUE(beyondADoubleClick(watch, 1));
    ASSERT_TRUE(clickAt({300, 300}));
    EXPECT_TRUE(waitFor([] { return pointerVisible() && pointerInTheMiddle(); }, kPatience, "the pointer"));
    EXPECT_TRUE(stays([&] { return watch.now() == 1; }, milliseconds(500), "the picture stands"));
    ASSERT_TRUE(clickAt({300, 300}));
    ASSERT_TRUE(watch.comes(2));
    EXPECT_TRUE(pointerVisible());
    ASSERT_TRUE(clickAt({300, 300}, MouseButton::Right));
    ASSERT_TRUE(watch.comes(3));
    EXPECT_TRUE(waitFor([] { return !pointerVisible(); }, kPatience, "the pointer is hidden"));
    ASSERT_TRUE(type(L"1"));
    ASSERT_TRUE(watch.comes(4));
    ASSERT_TRUE(watch.comes(5));
}

TEST_F(ShowControlTest, CaptionsGoAndLeaveThePictureAsItWas) {
    PictureFolder folder(2);
    copyFile(folder.file(pictureName(1)), folder.file(L"bild00.jpg"));
    folder.writeScript("bild01 Am Strand von \xC4ngelholm *D\r\n");
    const ShowWatch watch(folder.pictures());
    open(folder);
    ASSERT_TRUE(watch.comes(1));  // bild00, which looks the same
    EXPECT_TRUE(stays([&] { return !at(id::kUT).visible(); }, milliseconds(400), "no caption"));
    const picture::Pixels clean = captureScreen();
    ASSERT_TRUE(press(VK_RIGHT));
    ASSERT_TRUE(becomes(id::kUT, true));
    EXPECT_EQ(at(id::kUT).text(), L"Am Strand von Ängelholm ");
    const Area top{0, 0, static_cast<int>(screenSize().cx), 60};
    EXPECT_EQ(shareOf(cut(clean, top), 0x00FFFF), 0.0);
    EXPECT_TRUE(
        waitFor([&] { return shareOf(cut(captureScreen(), top), 0x00FFFF) > 0.002; }, kPatience, "the date"));
    ASSERT_TRUE(becomes(id::kUT, false));
    EXPECT_TRUE(waitFor([&] { return captureScreen().data == clean.data; }, kPatience, "the clean picture"));
}

TEST_F(ShowControlTest, AClickOnTheTitleIsAClickOnThePicture) {
    PictureFolder folder(3);
    folder.writeScript("bild02 Titel\r\n");
    const ShowWatch watch(folder.pictures());
    open(folder);
    ASSERT_TRUE(watch.comes(1));
    ASSERT_TRUE(press(VK_RIGHT));
    ASSERT_TRUE(watch.comes(2));
    ASSERT_TRUE(becomes(id::kUT, true));
    ASSERT_TRUE(beyondADoubleClick(watch, 2));
    ASSERT_TRUE(clickAt(at(id::kUT).centre()));
    EXPECT_TRUE(waitFor([] { return pointerVisible() && pointerInTheMiddle(); }, kPatience, "the pointer"));
    EXPECT_EQ(focusIn(panorell_.form()), at(id::kPic2).handle());
    ASSERT_TRUE(clickAt(at(id::kUT).centre()));
    EXPECT_TRUE(watch.comes(3));
    EXPECT_FALSE(at(id::kUT).visible()) << "the step ends the caption";
}

TEST_F(ShowControlTest, TheInformationLineNamesPictureAndEffect) {
    PictureFolder folder(2);
    const ShowWatch watch(folder.pictures());
    open(folder);
    ASSERT_TRUE(watch.comes(1));
    ASSERT_TRUE(type(L"?"));
    ASSERT_TRUE(becomes(id::kText1, true));
    EXPECT_EQ(at(id::kText1).text(), L"bild01 (A)");
    EXPECT_EQ(at(id::kText1).rectangle().right, screenSize().cx);
    ASSERT_TRUE(press(VK_RIGHT));
    EXPECT_TRUE(waitFor([&] { return at(id::kText1).text() == L"bild02 (A)"; }, kPatience, "the new line"));
    ASSERT_TRUE(type(L"?"));
    EXPECT_TRUE(becomes(id::kText1, false));
}

TEST_F(ShowControlTest, ADoubleClickOnRunIsOneClick) {
    PictureFolder folder(3);
    panorell_.keepShow(folder.path(), {L"2"});
    const ShowWatch watch(folder.pictures());
    ASSERT_TRUE(panorell_.openSetUp());
    ASSERT_TRUE(waitFor([&] { return at(id::kRun).enabled(); }, kPatience, "the preview is there"));
    const POINT run = at(id::kRun).centre();
    ASSERT_TRUE(clickAt(run));
    ASSERT_TRUE(clickAt(run));
    ASSERT_TRUE(watch.comes(1));
    EXPECT_TRUE(watch.comes(2)) << "it steps by itself";
    EXPECT_FALSE(pointerVisible());
    EXPECT_TRUE(watch.comes(3));
}

TEST_F(ShowControlTest, TheEndShowsThePointerAndLeftGoesBack) {
    PictureFolder folder(2);
    const ShowWatch watch(folder.pictures());
    open(folder);
    ASSERT_TRUE(watch.comes(1));
    ASSERT_TRUE(press(VK_RIGHT));
    ASSERT_TRUE(watch.comes(2));
    ASSERT_TRUE(press(VK_RIGHT));
    ASSERT_TRUE(becomes(id::kEOT, true));
    EXPECT_TRUE(waitFor([] { return pointerVisible(); }, kPatience, "the pointer"));
    // Nothing but the button stands on the last picture, black corners neither.
    const RECT button = at(id::kEOT).rectangle();
    const picture::Pixels screen = captureScreen();
    for (const POINT corner :
         {POINT{button.left, button.top}, POINT{button.right - 1, button.top},
          POINT{button.left, button.bottom - 1}, POINT{button.right - 1, button.bottom - 1}}) {
        EXPECT_NE(screen.row(static_cast<int>(corner.y))[corner.x] & 0xFFFFFFU, 0U);
    }
    ASSERT_TRUE(press(VK_LEFT));
    ASSERT_TRUE(becomes(id::kEOT, false));
    // The picture is the same, so the step is not to be seen.
    EXPECT_TRUE(stays([&] { return watch.now() == 2; }, milliseconds(500), "the last picture"));
    ASSERT_TRUE(press(VK_RIGHT));
    ASSERT_TRUE(becomes(id::kEOT, true));
    ASSERT_TRUE(click(at(id::kEOT)));
    EXPECT_TRUE(panorell_.ends());
    EXPECT_EQ(panorell_.exitCode(), 0U);
}

}  // namespace
}  // namespace program
