// Pictures decoded ahead of the show, on real files.
#include "show/picture_ahead.h"

#include <gtest/gtest.h>

#include "support/picture_writer.h"
#include "support/scratch_folder.h"

namespace show {
namespace {

constexpr int kWidth = 160;
constexpr int kHeight = 120;
constexpr std::uint32_t kGreen = 0x20C040;
constexpr std::uint32_t kBlue = 0x2040C0;

class PictureAheadTest : public testing::Test {
  protected:
    PictureAheadTest() { ahead.setSurface({kWidth, kHeight}); }

    /// A 4:3 picture of one colour; a later one of that name has another length.
    std::wstring picture(const std::wstring& name, std::uint32_t colour, int width = 400) const {
        const std::wstring path = folder / name;
        support::writePicture(path, support::PictureKind::Jpeg, width, width * 3 / 4,
                              [=](int, int) { return colour; });
        return path;
    }
    /// Whether the middle of the surface has about that colour.
    static bool shows(const ShowPicture& taken, std::uint32_t colour) {
        const picture::Surface& surface = taken.surface;
        const std::uint32_t middle =
            surface.bits()[surface.height() / 2 * surface.width() + surface.width() / 2];
        int distance = 0;
        for (int shift = 0; shift <= 16; shift += 8) {
            distance +=
                std::abs(static_cast<int>(middle >> shift & 0xFF) - static_cast<int>(colour >> shift & 0xFF));
        }
        return distance < 24;
    }
    void waitUntilIdle() {
        while (!ahead.idle()) {
            Sleep(1);
        }
    }

    support::ScratchFolder folder;
    PictureAhead ahead;
};

TEST_F(PictureAheadTest, APictureIsThereAtOnceOrWhenItIsDecoded) {
    const std::wstring first = picture(L"1.jpg", kGreen);
    const std::wstring second = picture(L"2.jpg", kBlue);
    ahead.prepare({second});
    waitUntilIdle();
    for (const std::wstring& path : {first, second}) {
        const auto taken = ahead.take(path);
        ASSERT_TRUE(taken);
        EXPECT_EQ(taken->nativeWidth, 400);
        EXPECT_EQ(taken->nativeHeight, 300);
        EXPECT_EQ(taken->surface.width(), kWidth);
        EXPECT_EQ(taken->surface.height(), kHeight);
        EXPECT_TRUE(shows(*taken, path == first ? kGreen : kBlue));
    }
}

TEST_F(PictureAheadTest, IsReadyOnceItIsDecodedForTheSurface) {
    const std::wstring good = picture(L"1.jpg", kGreen);
    const std::wstring bad = folder / L"2.jpg";
    support::writeBytes(bad, {'x'});
    EXPECT_FALSE(ahead.ready(good));
    ahead.prepare({good, bad});
    waitUntilIdle();
    EXPECT_TRUE(ahead.ready(good));
    EXPECT_FALSE(ahead.ready(bad));
    ahead.setSurface({kWidth / 2, kHeight / 2});
    ahead.prepare({});
    EXPECT_FALSE(ahead.ready(good));
}

TEST_F(PictureAheadTest, AFileReplacedMeanwhileIsDecodedAnew) {
    const std::wstring path = picture(L"1.jpg", kGreen);
    ahead.prepare({path});
    waitUntilIdle();
    picture(L"1.jpg", kBlue, 800);
    const auto taken = ahead.take(path);
    ASSERT_TRUE(taken);
    EXPECT_TRUE(shows(*taken, kBlue));
    EXPECT_EQ(taken->nativeWidth, 800);
}

TEST_F(PictureAheadTest, AFileDeletedMeanwhileIsNoPicture) {
    const std::wstring path = picture(L"1.jpg", kGreen);
    ahead.prepare({path});
    waitUntilIdle();
    folder.remove(L"1.jpg");
    EXPECT_FALSE(ahead.take(path));
}

TEST_F(PictureAheadTest, DamagedAndMissingFilesAreNoPictures) {
    const std::wstring damaged = folder.file(L"1.jpg", "no picture");
    ahead.prepare({damaged, folder / L"2.jpg"});
    waitUntilIdle();
    EXPECT_FALSE(ahead.take(damaged));
    EXPECT_FALSE(ahead.take(folder / L"2.jpg"));
    EXPECT_FALSE(ahead.take(folder / L"3.jpg"));
}

TEST_F(PictureAheadTest, AnotherSurfaceDecodesAgain) {
    const std::wstring path = picture(L"1.jpg", kGreen);
    ahead.prepare({path});
    waitUntilIdle();
    ahead.setSurface({320, 200});
    const auto taken = ahead.take(path);
    ASSERT_TRUE(taken);
    EXPECT_EQ(taken->surface.width(), 320);
    EXPECT_EQ(taken->surface.height(), 200);
    EXPECT_TRUE(shows(*taken, kGreen));
}

TEST_F(PictureAheadTest, WhatIsGivenBackIsUsedAgainAndBlackBeforeThat) {
    const std::wstring upright = folder / L"1.jpg";
    support::writePicture(upright, support::PictureKind::Jpeg, 300, 400, [](int, int) { return kGreen; });
    picture::Surface used(kWidth, kHeight);
    used.fill(RGB(255, 0, 0));
    const std::uint32_t* bits = used.bits();
    ahead.giveBack(std::move(used));
    const picture::Surface other(kWidth, kHeight);  // would lie where one that has ended lay
    const auto taken = ahead.take(upright);
    ASSERT_TRUE(taken);
    EXPECT_EQ(taken->surface.bits(), bits);
    EXPECT_TRUE(shows(*taken, kGreen));
    EXPECT_EQ(taken->surface.bits()[0] & 0xFFFFFFU, 0U) << "beside the picture";
}

TEST_F(PictureAheadTest, OfAPictureThatIsNotWantedAnyMoreTheSurfaceIsUsedAgain) {
    picture::Surface known(kWidth, kHeight);
    const std::uint32_t* bits = known.bits();
    ahead.giveBack(std::move(known));
    ahead.prepare({picture(L"1.jpg", kBlue)});
    waitUntilIdle();
    ahead.prepare({});
    const picture::Surface other(kWidth, kHeight);  // would lie where one that has ended lay
    const auto taken = ahead.take(picture(L"2.jpg", kGreen));
    ASSERT_TRUE(taken);
    EXPECT_EQ(taken->surface.bits(), bits);
    EXPECT_TRUE(shows(*taken, kGreen));
}

TEST_F(PictureAheadTest, SurfacesOfAnotherSizeAreNotUsedAgain) {
    const std::wstring path = picture(L"1.jpg", kGreen);
    ahead.giveBack(picture::Surface(kHeight, kWidth));
    ahead.giveBack(picture::Surface());
    const auto taken = ahead.take(path);
    ASSERT_TRUE(taken);
    EXPECT_EQ(taken->surface.width(), kWidth);
    EXPECT_TRUE(shows(*taken, kGreen));
}

TEST_F(PictureAheadTest, EndsInTheMiddleOfItsWork) {
    std::vector<std::wstring> paths;
    for (int i = 0; i < 5; ++i) {
        paths.push_back(picture(std::to_wstring(i) + L".jpg", kGreen, 2000));
    }
    PictureAhead other;
    other.setSurface({kWidth, kHeight});
    other.prepare(paths);
    EXPECT_TRUE(other.take(paths[3]));
}

TEST(PictureAheadWithoutASurface, GivesNothing) {
    const support::ScratchFolder folder;
    support::writePicture(folder / L"1.jpg", support::PictureKind::Jpeg, 40, 30,
                          [](int, int) { return kGreen; });
    PictureAhead ahead;
    EXPECT_FALSE(ahead.take(folder / L"1.jpg"));
}

}  // namespace
}  // namespace show
