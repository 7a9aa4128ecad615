// Pictures that cannot be loaded: the show passes over them quietly, wherever they stand.
#include "show/slideshow.h"

#include <gmock/gmock.h>

#include "support/show_stage.h"

namespace show {
namespace {

using support::FakePictures;
using support::ShowStage;

const std::vector<std::wstring> kThree{L"a1.jpg", L"b2.jpg", L"c3.jpg"};

TEST(SlideshowDamage, UnloadablePictureIsPassedOver) {
    ShowStage stage(kThree);
    stage.pictures.damaged = {L"b2.jpg"};
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(5050);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"a1.jpg")) << "the picture before stays meanwhile";
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, 2);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"c3.jpg"));
    EXPECT_EQ(stage.Timer1.interval(), 5000);
}

TEST(SlideshowDamage, FirstPictureIsPassedOverQuietly) {
    ShowStage stage(kThree);
    stage.pictures.damaged = {L"a1.jpg"};
    stage.ShowFN.setValue(1);
    stage.writeScript("a1 Titel\r\n");
    stage.show.start();
    EXPECT_FALSE(stage.UT.visible()) << "no caption of a picture that is not there";
    EXPECT_EQ(stage.shown(), 0U);
    EXPECT_FALSE(stage.Timer3.enabled());
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"b2.jpg"));
    stage.loop.advance(60'000);
    EXPECT_EQ(stage.state.pictureIndex, 1) << "by hand the show waits there";
}

TEST(SlideshowDamage, FirstPictureOfAnAutomaticShow) {
    ShowStage stage(kThree);
    stage.pictures.damaged = {L"a1.jpg"};
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    stage.loop.advance(4900);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    stage.loop.advance(100);
    EXPECT_EQ(stage.state.pictureIndex, 2);
}

TEST(SlideshowDamage, LastPictureLeadsToTheEnd) {
    ShowStage stage(kThree);
    stage.pictures.damaged = {L"c3.jpg"};
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(10'300);
    EXPECT_TRUE(stage.show.atEnd());
    EXPECT_TRUE(stage.EOT.visible());
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"b2.jpg")) << "the last one that could be shown";
    stage.key(VK_LEFT);
    stage.loop.advance(300);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"b2.jpg"));
}

TEST(SlideshowDamage, LastPictureOfAnEndlessShowLeadsToTheFirst) {
    ShowStage stage(kThree);
    stage.pictures.damaged = {L"c3.jpg"};
    stage.LoopC.setValue(1);
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(10'300);
    EXPECT_EQ(stage.state.pictureIndex, 0);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"a1.jpg"));
}

TEST(SlideshowDamage, IsPassedOverBackwardsToo) {
    ShowStage stage(kThree);
    stage.pictures.damaged = {L"b2.jpg"};
    stage.File1.setSelectedIndex(2);
    stage.show.start();
    stage.key(VK_LEFT);
    stage.loop.advance(500);
    EXPECT_EQ(stage.state.pictureIndex, 0);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"a1.jpg"));
}

TEST(SlideshowDamage, ShowOfDamagedPicturesOnlyReachesItsEnd) {
    ShowStage stage(kThree);
    stage.pictures.damaged = {L"a1.jpg", L"b2.jpg", L"c3.jpg"};
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(5000);
    EXPECT_TRUE(stage.show.atEnd());
    EXPECT_TRUE(stage.EOT.visible());
}

}  // namespace
}  // namespace show
