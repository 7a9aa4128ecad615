// The harness proved on the sample program: does a capture show what other processes painted, and can
// pictures be told apart?
#include <gtest/gtest.h>

#include "platform/error.h"
#include "program/sample_ids.h"
#include "program/support/compare.h"
#include "program/support/control.h"
#include "program/support/environment.h"
#include "program/support/failure_listener.h"
#include "program/support/files.h"
#include "program/support/input.h"
#include "program/support/picture_file.h"
#include "program/support/program.h"
#include "program/support/screen.h"
#include "program/support/test_pictures.h"

namespace program {
namespace {

TEST(HarnessScreen, SeesTheColourAnotherProcessPaints) {
    Program sample(sampleExe());
    sample.start();
    const HWND form = sample.window();
    ASSERT_NE(form, nullptr);
    const RECT r = Control(form).rectangle();
    const Area free{r.left + 240, r.top + 20, 140, 260};
    EXPECT_TRUE(waitFor([&] { return shareOf(cut(captureScreen(), free), sample::kFresh, 0) == 1.0; },
                        kPatience, "colour"));
    EXPECT_EQ(colourAt({free.left, free.top}), sample::kFresh);
}

TEST(HarnessScreen, TellsABlackScreenFromOneThatIsNot) {
    Program sample(sampleExe());
    sample.start(L"full");
    const HWND form = sample.window();
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(waitFor([] { return isBlack(captureScreen()); }, kPatience, "the screen is black"));
    ASSERT_TRUE(bringToFront(form));
    ASSERT_TRUE(clickAt({5, 5}));
    EXPECT_TRUE(waitFor([] { return shareOf(captureScreen(), sample::kLeftClicked, 0) == 1.0; }, kPatience,
                        "the screen is green"));
    EXPECT_FALSE(isBlack(captureScreen()));
}

TEST(HarnessScreen, OneForeignPixelIsNotBlack) {
    picture::Pixels surface(40, 30);
    EXPECT_TRUE(isBlack(surface));
    surface.row(17)[23] = 1;
    EXPECT_FALSE(isBlack(surface));
    EXPECT_FALSE(isBlack({}));
}

TEST(HarnessScreen, SavesAScreenshotThatReadsBack) {
    const std::wstring path = saveScreenshot("HarnessScreen/self-test");
    ASSERT_TRUE(exists(path));
    const picture::Pixels read = readPicture(path);
    EXPECT_EQ(read.width, screenSize().cx);
    EXPECT_EQ(read.height, screenSize().cy);
    DeleteFileW(path.c_str());
}

TEST(HarnessPictures, EveryPictureDiffersFromEveryOther) {
    for (int a = 0; a < 36; ++a) {
        for (int b = 0; b < a; ++b) {
            EXPECT_LT(psnr(draw({a, 160, 120}), draw({b, 160, 120})), 20) << a << " and " << b;
        }
    }
}

TEST(HarnessPictures, AWrittenPictureReadsBack) {
    TemporaryFolder folder;
    for (const TestPicture& picture : {TestPicture{12, 640, 480}, TestPicture{7, 300, 401}}) {
        const std::wstring path = folder.file(L"Größe ü " + std::to_wstring(picture.number) + L".jpg");
        writePicture(path, picture);
        EXPECT_GT(psnr(readPicture(path), draw(picture)), 30);
    }
}

TEST(HarnessPictures, TheFittedPictureLiesWhereTheFitRulePutsIt) {
    const picture::Pixels upright = drawFitted({3, 1200, 1600}, 1024, 768);
    EXPECT_EQ(upright.row(400)[223], 0U);
    EXPECT_NE(upright.row(400)[224], 0U);
    EXPECT_NE(upright.row(400)[799], 0U);
    EXPECT_EQ(upright.row(400)[800], 0U);
    EXPECT_TRUE(similar(upright.row(60)[512], groundColour(3)));
    const picture::Pixels wide = drawFitted({3, 6000, 4000}, 1920, 1080);
    EXPECT_NE(wide.row(0)[960], 0U);
    EXPECT_EQ(wide.row(540)[149], 0U);
    EXPECT_NE(wide.row(540)[150], 0U);
}

TEST(HarnessPictures, ADamagedPictureDoesNotRead) {
    TemporaryFolder folder;
    writeDamagedPicture(folder.file(L"bad.jpg"));
    EXPECT_THROW(readPicture(folder.file(L"bad.jpg")), platform::Error);
}

TEST(HarnessPictures, ComparisonsKnowTheirScale) {
    const picture::Pixels a = draw({1, 64, 48});
    picture::Pixels b = a;
    EXPECT_EQ(psnr(a, b), 99.0);
    EXPECT_EQ(meanDifference(a, b), 0.0);
    for (auto& pixel : b.data) {
        pixel ^= 0x010101;
    }
    EXPECT_NEAR(psnr(a, b), 48.13, 0.01);
    EXPECT_EQ(meanDifference(a, b), 1.0);
    EXPECT_EQ(psnr(a, draw({1, 64, 47})), 0.0);
}

TEST(HarnessFiles, HidesAndReadsBytes) {
    TemporaryFolder folder;
    const std::wstring path = folder.file(L"Panorell.txt");
    writeBytes(path, std::string_view("a\0b\r\n", 5));
    EXPECT_EQ(readBytes(path), std::string("a\0b\r\n", 5));
    hide(path);
    EXPECT_NE(GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
}

TEST(HarnessFiles, AFolderGoesWithAllItHolds) {
    std::wstring path;
    {
        TemporaryFolder folder;
        path = folder.path();
        writeBytes(folder.addFolder(L"ä ö") + L"\\locked.txt", "x");
        SetFileAttributesW((path + L"\\ä ö\\locked.txt").c_str(), FILE_ATTRIBUTE_READONLY);
    }
    EXPECT_FALSE(exists(path));
}

}  // namespace
}  // namespace program
