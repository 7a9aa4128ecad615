// The preview of the file chosen.
#include <gmock/gmock.h>

#include "app/folder_browser.h"
#include "support/app_stage.h"

namespace app {
namespace {

using support::AppStage;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::uint32_t kRed = 0xC02020;
constexpr std::uint32_t kGreen = 0x20C020;

class PreviewTest : public testing::Test {
  protected:
    Form1& form() { return stage.form(); }
    void choose(const std::wstring& name) {
        const int index = form().File1.indexOf(name);
        ASSERT_GE(index, 0);
        form().File1.setSelectedIndex(index);
    }
    std::uint32_t at(int x, int y) {
        GdiFlush();
        const picture::Surface& image = form().Pic2.image();
        return image.bits()[y * image.width() + x] & 0xFFFFFFU;
    }
    AppStage stage;
};

TEST_F(PreviewTest, TheFirstFileIsPreviewedWithoutBeingChosen) {
    stage.picture(L"a.jpg", kRed);
    stage.picture(L"b.jpg", kGreen);
    stage.state().StartIndex = 1;
    stage.loadFolder();
    EXPECT_TRUE(support::alike(stage.shown(), kRed));
    EXPECT_EQ(form().File1.selectedIndex(), -1);
    EXPECT_EQ(stage.state().StartIndex, 1);
}

TEST_F(PreviewTest, AClickShowsItsPictureAndIsRemembered) {
    stage.picture(L"a.jpg", kRed);
    stage.picture(L"b.jpg", kGreen);
    stage.loadFolder();
    choose(L"b.jpg");
    EXPECT_FALSE(form().Start.enabled());
    EXPECT_FALSE(form().Run.enabled());
    EXPECT_FALSE(form().Pic2.visible());
    ASSERT_TRUE(stage.previewed());
    EXPECT_TRUE(form().Start.enabled());
    EXPECT_TRUE(form().Run.enabled());
    EXPECT_TRUE(form().Pic2.visible());
    EXPECT_TRUE(support::alike(stage.shown(), kGreen));
    EXPECT_EQ(stage.state().StartIndex, 1);
}

TEST_F(PreviewTest, TheArrowKeysOfTheListChooseToo) {
    stage.picture(L"a.jpg", kRed);
    stage.picture(L"b.jpg", kGreen);
    stage.loadFolder(L" L=0");
    form().File1.setFocus();
    stage.key(VK_DOWN);
    ASSERT_TRUE(stage.previewed());
    EXPECT_EQ(form().File1.selectedIndex(), 1);
    EXPECT_EQ(stage.state().StartIndex, 1);
    EXPECT_TRUE(support::alike(stage.shown(), kGreen));
    EXPECT_TRUE(form().File1.hasFocus()) << "the next key goes there as well";
}

TEST_F(PreviewTest, EndingsInCapitalsArePicturesToo) {
    stage.picture(L"A.JPG", kRed);
    stage.loadFolder();
    EXPECT_TRUE(support::alike(stage.shown(), kRed));
    for (const std::string& command : stage.control.commands()) {
        EXPECT_TRUE(command == "stop VIDEO" || command == "close VIDEO") << command;
    }
}

TEST_F(PreviewTest, TheDateIsTheToolTip) {
    stage.picture(L"a.jpg");
    const platform::File file(CreateFileW((stage.pictures / L"a.jpg").c_str(), FILE_WRITE_ATTRIBUTES, 0,
                                          nullptr, OPEN_EXISTING, 0, nullptr));
    const SYSTEMTIME local{2003, 12, 0, 24, 18, 30, 0, 0};
    SYSTEMTIME utc{};
    FILETIME time{};
    TzSpecificLocalTimeToSystemTime(nullptr, &local, &utc);
    SystemTimeToFileTime(&utc, &time);
    SetFileTime(file.get(), nullptr, nullptr, &time);
    stage.loadFolder();
    EXPECT_EQ(form().Pic2.toolTip(), L"24.12.2003");
}

struct Shape {
    int width;
    int height;
    bool lower;     ///< than the preview box
    bool narrower;  ///< than the preview box
};

class PreviewShape : public PreviewTest, public testing::WithParamInterface<Shape> {};

// Inside the box of 4:3 a wide picture gets a lower one in the middle, a tall one a narrower one.
TEST_P(PreviewShape, FollowsTheRuleOfTheShow) {
    const SIZE box = form().Pic2.clientSize();
    const auto placeNow = [&] {
        RECT place{};
        GetWindowRect(form().Pic2.hwnd(), &place);
        return place;
    };
    const RECT whole = placeNow();
    ASSERT_EQ(box.cx * 3, box.cy * 4);
    stage.picture(L"a.jpg", kRed, GetParam().width, GetParam().height);
    stage.loadFolder();
    const SIZE size = form().Pic2.clientSize();
    EXPECT_EQ(size.cx < box.cx, GetParam().narrower);
    EXPECT_EQ(size.cy < box.cy, GetParam().lower);
    const RECT place = placeNow();
    EXPECT_NEAR(place.left - whole.left, whole.right - place.right, 1);
    EXPECT_NEAR(place.top - whole.top, whole.bottom - place.bottom, 1);
    const picture::Surface& image = form().Pic2.image();
    ASSERT_EQ(image.width(), size.cx);
    ASSERT_EQ(image.height(), size.cy);
    for (const POINT corner :
         {POINT{1, 1}, POINT{size.cx - 2, 1}, POINT{1, size.cy - 2}, POINT{size.cx - 2, size.cy - 2}}) {
        EXPECT_TRUE(support::alike(at(corner.x, corner.y), kRed)) << "no surface beside the picture";
    }
    if (GetParam().lower || GetParam().narrower) {
        EXPECT_NEAR(static_cast<double>(size.cx) / size.cy,
                    static_cast<double>(GetParam().width) / GetParam().height,
                    0.05 * GetParam().width / GetParam().height);
    }
}

INSTANTIATE_TEST_SUITE_P(Shapes, PreviewShape,
                         testing::Values(Shape{320, 240, false, false}, Shape{320, 200, true, false},
                                         Shape{320, 230, false, false}, Shape{240, 320, false, true},
                                         Shape{300, 240, false, false}, Shape{1200, 300, true, false}));

TEST_F(PreviewTest, TheNextFileHasTheWholeBoxAgain) {
    const ui::TwipsRect box = form().Pic2.place();
    stage.picture(L"a.jpg", kRed, 600, 200);
    stage.picture(L"b.jpg", kGreen, 400, 300);
    stage.pictures.file(L"c.mpg", "no film");
    stage.loadFolder();
    EXPECT_NE(form().Pic2.place(), box);
    choose(L"b.jpg");
    ASSERT_TRUE(stage.previewed());
    EXPECT_EQ(form().Pic2.place(), box);
    choose(L"a.jpg");
    ASSERT_TRUE(stage.previewed());
    choose(L"c.mpg");
    EXPECT_EQ(form().Pic2.place(), box);
}

TEST_F(PreviewTest, AChangeOfDpiShowsThePictureAnew) {
    stage.picture(L"a.jpg", kRed, 600, 300);
    stage.loadFolder();
    const SIZE before = form().Pic2.clientSize();
    stage.monitors.dpi = 192;
    const RECT suggested{0, 0, 1800, 1008};
    SendMessageW(form().hwnd(), WM_DPICHANGED, MAKELONG(192, 192), reinterpret_cast<LPARAM>(&suggested));
    ASSERT_TRUE(stage.previewed());
    const SIZE after = form().Pic2.clientSize();
    EXPECT_EQ(after.cx, 2 * before.cx);
    ASSERT_EQ(form().Pic2.image().width(), after.cx);
    ASSERT_EQ(form().Pic2.image().height(), after.cy);
    EXPECT_TRUE(support::alike(at(after.cx - 2, after.cy - 2), kRed));
    EXPECT_EQ(form().File1.selectedIndex(), -1) << "nothing was chosen by that";
}

TEST_F(PreviewTest, AVideoIsOpenedInTheBox) {
    stage.pictures.file(L"clip.mpg", "no film");
    stage.load(L"C:\\");
    stage.control.clear();
    form().Dir1.setPath(stage.pictures.path());
    const std::vector<std::string> commands = stage.control.take();
    ASSERT_GE(commands.size(), 6U);
    EXPECT_EQ(commands[0], "stop VIDEO");
    EXPECT_EQ(commands[1], "close VIDEO");
    const auto open = std::find_if(commands.begin(), commands.end(),
                                   [](const std::string& command) { return command.rfind("open ", 0) == 0; });
    ASSERT_NE(open, commands.end());
    EXPECT_THAT(*open, HasSubstr(" alias VIDEO parent " +
                                 std::to_string(reinterpret_cast<std::uintptr_t>(form().Pic2.hwnd())) +
                                 " style child"));
    const SIZE size = form().Pic2.clientSize();
    EXPECT_THAT(commands, testing::Contains(" put VIDEO window at 0 0 " + std::to_string(size.cx) + " " +
                                            std::to_string(size.cy)));
    EXPECT_EQ(commands.back(), "play VIDEO");
    EXPECT_TRUE(form().Pic2.visible());
    EXPECT_TRUE(form().Start.enabled());
}

TEST_F(PreviewTest, AnotherFileStopsTheVideo) {
    stage.pictures.file(L"a.mpg", "no film");
    stage.picture(L"b.jpg", kGreen);
    stage.loadFolder();
    stage.control.clear();
    choose(L"b.jpg");
    EXPECT_THAT(stage.control.commands(), ElementsAre("stop VIDEO", "close VIDEO"));
    ASSERT_TRUE(stage.previewed());
    EXPECT_TRUE(support::alike(stage.shown(), kGreen));
}

TEST_F(PreviewTest, AnotherFolderStopsTheVideo) {
    stage.pictures.file(L"a.mpg", "no film");
    const std::wstring empty = stage.pictures.folder(L"leer");
    stage.loadFolder();
    stage.control.clear();
    form().Dir1.setPath(empty);
    EXPECT_THAT(stage.control.commands(), ElementsAre("stop VIDEO", "close VIDEO"));
    EXPECT_TRUE(form().Pic2.visible());
    EXPECT_EQ(form().Pic2.toolTip(), L"");
    EXPECT_EQ(stage.shown(), 0U);
}

TEST_F(PreviewTest, ADamagedPictureLeavesTheBoxBlack) {
    stage.picture(L"a.jpg", kRed);
    stage.pictures.file(L"b.jpg", "no picture");
    stage.loadFolder();
    choose(L"b.jpg");
    ASSERT_TRUE(stage.previewed());
    EXPECT_EQ(stage.shown(), 0U);
    EXPECT_TRUE(form().Pic2.visible());
    EXPECT_TRUE(form().Start.enabled());
}

TEST_F(PreviewTest, AFileThatIsGoneLeavesTheBoxBlack) {
    stage.picture(L"a.jpg", kRed);
    stage.picture(L"b.jpg", kGreen);
    stage.loadFolder();
    stage.pictures.remove(L"b.jpg");
    choose(L"b.jpg");
    ASSERT_TRUE(stage.previewed());
    EXPECT_EQ(stage.shown(), 0U);
    EXPECT_EQ(form().Pic2.toolTip(), L"");
}

TEST_F(PreviewTest, TheLastOfSeveralWishesIsShown) {
    stage.picture(L"a.jpg", kRed);
    stage.picture(L"b.jpg", 0x2020C0, 3000, 2000);
    stage.picture(L"c.jpg", kGreen);
    stage.loadFolder();
    choose(L"b.jpg");
    choose(L"a.jpg");
    choose(L"c.jpg");
    ASSERT_TRUE(stage.previewed());
    EXPECT_TRUE(support::alike(stage.shown(), kGreen));
    EXPECT_EQ(stage.state().StartIndex, 2);
}

TEST_F(PreviewTest, AFolderThatIsLeftShowsNothingMoreOfIt) {
    stage.picture(L"a.jpg", kRed, 3000, 2000);
    const std::wstring empty = stage.pictures.folder(L"leer");
    stage.load(stage.pictures.path());
    ASSERT_TRUE(stage.application->previewLoading());
    form().Dir1.setPath(empty);
    EXPECT_FALSE(stage.application->previewLoading());
    for (int i = 0; i < 100; ++i) {
        stage.loop.advance(10);
        Sleep(5);
    }
    EXPECT_EQ(stage.shown(), 0U);
    EXPECT_FALSE(form().Start.enabled());
}

TEST_F(PreviewTest, AnEmptyFolderHasTheWholeBoxAgain) {
    stage.picture(L"a.jpg", kRed, 600, 200);
    const std::wstring empty = stage.pictures.folder(L"leer");
    const ui::TwipsRect whole = form().Pic2.place();
    stage.loadFolder();
    ASSERT_LT(form().Pic2.place().height, whole.height - 300);
    form().Dir1.setPath(empty);
    EXPECT_TRUE(form().Pic2.place() == whole);
    EXPECT_TRUE(form().Pic2.image().empty()) << "no black hole";
    form().Dir1.setPath(stage.pictures.path());
    ASSERT_FALSE(form().Pic2.visible()) << "the picture is on its way";
    form().Dir1.setPath(empty);
    EXPECT_TRUE(form().Pic2.visible());
}

TEST_F(PreviewTest, AVideoThatIsChosenWhileAPictureLoadsIsNotCoveredByIt) {
    stage.picture(L"a.jpg", kRed, 3000, 2000);
    stage.pictures.file(L"b.mpg", "no film");
    stage.load(stage.pictures.path());
    ASSERT_TRUE(stage.application->previewLoading());
    choose(L"b.mpg");
    for (int i = 0; i < 100; ++i) {
        stage.loop.advance(10);
        Sleep(5);
    }
    EXPECT_EQ(stage.shown(), 0U);
}

// What was clicked meanwhile is done before the picture is there.
TEST_F(PreviewTest, WhatWaitsIsDoneBeforeThePictureLoads) {
    stage.picture(L"a.jpg", kRed);
    stage.loadFolder();
    PostMessageW(form().LoopC.hwnd(), BM_CLICK, 0, 0);
    choose(L"a.jpg");
    EXPECT_EQ(form().LoopC.value(), 1);
}

TEST_F(PreviewTest, TheWindowLivesWhileALargePictureLoads) {
    stage.picture(L"a.jpg", kRed, 4000, 3000);
    stage.load(stage.pictures.path());
    ASSERT_TRUE(stage.application->previewLoading());
    stage.click(form().LoopC);
    EXPECT_EQ(form().LoopC.value(), 1);
    stage.click(form().Typ[1]);
    EXPECT_EQ(form().File1.pattern(), L"*.jpg");
    EXPECT_TRUE(stage.application->previewLoading()) << "all of that while it loads";
    EXPECT_FALSE(form().Start.enabled());
    ASSERT_TRUE(stage.previewed());
    EXPECT_TRUE(support::alike(stage.shown(), kRed));
    EXPECT_TRUE(form().Start.enabled());
}

TEST_F(PreviewTest, TheProgramCanBeLeftWhileAPictureLoads) {
    stage.picture(L"a.jpg", kRed, 3000, 2000);
    stage.load(stage.pictures.path());
    ASSERT_TRUE(stage.application->previewLoading());
    form().ENDE.click();
    EXPECT_TRUE(stage.loop.leaving());
    stage.application.reset();
}

TEST_F(PreviewTest, MusikBeginsTheMusicAnew) {
    stage.pictures.file(L"01 a.mp3");
    const std::wstring other = stage.pictures.folder(L"andere");
    stage.loadFolder();
    stage.application->music().musicIndex = 3;
    stage.click(form().Musik);
    EXPECT_EQ(stage.application->music().musicIndex, 0);
    stage.application->music().musicIndex = 3;
    form().Dir1.setPath(other);
    EXPECT_EQ(stage.application->music().musicIndex, 0);
}

// No list of the program's shows one, but a preview would take it for a video.
TEST_F(PreviewTest, AFileEndingInJpegCountsAsAVideo) {
    stage.picture(L"a.jpg", kRed);
    stage.picture(L"b.jpeg", kGreen);
    stage.loadFolder();
    form().File1.setPattern(L"*.jpg;*.jpeg");
    stage.control.clear();
    choose(L"b.jpeg");
    EXPECT_FALSE(stage.application->previewLoading());
    EXPECT_THAT(stage.control.commands(), testing::Contains(HasSubstr(" alias VIDEO parent ")));
}

}  // namespace
}  // namespace app
