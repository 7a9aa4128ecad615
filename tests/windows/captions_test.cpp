#include "show/captions.h"

#include <gmock/gmock.h>

#include "support/show_stage.h"

namespace show {
namespace {

using support::FakePictures;
using support::ShowStage;

void writeScript(const ShowStage& stage, const std::string& text) {
    support::writeBytes(stage.pathOf(L"Panorell.txt"), {text.begin(), text.end()});
}

/// How many pixels of the surface differ from the clean picture.
int changedPixels(const ShowStage& stage, std::uint32_t clean) {
    GdiFlush();
    const platform::Surface& image = stage.Pic2.image();
    return static_cast<int>(std::count_if(
        image.bits(), image.bits() + static_cast<std::ptrdiff_t>(image.width()) * image.height(),
        [=](std::uint32_t pixel) { return (pixel & 0x00FFFFFFU) != clean; }));
}

TEST(Captions, TitleSlidesOutAfterFourSeconds) {
    ShowStage stage({L"a.jpg", L"b.jpg"});
    writeScript(stage, "a Am Strand\r\n");
    stage.show.start();
    EXPECT_TRUE(stage.UT.visible());
    EXPECT_EQ(stage.UT.text(), L"Am Strand");
    const float height = ui::toTwips(120, stage.UT.dpi());
    EXPECT_FLOAT_EQ(stage.UT.top(), height - 2 * stage.UT.height());
    stage.loop.advance(3990);
    EXPECT_TRUE(stage.UT.visible());
    stage.loop.advance(20);
    EXPECT_FALSE(stage.UT.visible());
    EXPECT_GE(stage.UT.top(), height);
    EXPECT_FALSE(stage.Timer3.enabled());
    EXPECT_GT(stage.loop.slept(), 100);
    EXPECT_LT(stage.loop.slept(), 1000);
}

TEST(Captions, LongTitleEndsInAnEllipsis) {
    ShowStage stage({L"a.jpg"});
    stage.UT.setWidth(2400);
    std::string script = "a ";
    for (int i = 0; i < 60; ++i) {
        script += "Sonne ";
    }
    writeScript(stage, script + "\r\n");
    stage.show.start();
    const std::wstring text = stage.UT.text();
    EXPECT_EQ(text.back(), L'\u2026');
    EXPECT_EQ(text.substr(0, 5), L"Sonne");
    const SIZE size = ui::measureText(text, ui::font(stage.UT.fontSpec(), stage.UT.dpi()));
    EXPECT_LE(ui::toTwips(size.cx, stage.UT.dpi()), stage.UT.width());
}

TEST(Captions, TitleOfABlankIsNone) {
    ShowStage stage({L"a.jpg"});
    writeScript(stage, "a  *P=5\r\n");
    stage.show.start();
    EXPECT_FALSE(stage.UT.visible());
    EXPECT_FALSE(stage.Timer3.enabled());
}

TEST(Captions, DateIsPrintedAndGoesWithoutATrace) {
    ShowStage stage({L"a.jpg"});
    stage.ShowFN.setValue(1);
    stage.show.start();
    const std::uint32_t clean = FakePictures::colourOf(L"a.jpg");
    EXPECT_GT(changedPixels(stage, clean), 50);
    stage.loop.advance(4100);
    EXPECT_EQ(changedPixels(stage, clean), 0);
}

TEST(Captions, MarkerStampsTheDateOfOnePicture) {
    ShowStage stage({L"a.jpg"});
    writeScript(stage, "a *D\r\n");
    stage.show.start();
    EXPECT_GT(changedPixels(stage, FakePictures::colourOf(L"a.jpg")), 50);
}

TEST(Captions, NoDateWithoutBoxOrMarker) {
    ShowStage stage({L"a.jpg"});
    stage.show.start();
    EXPECT_EQ(changedPixels(stage, FakePictures::colourOf(L"a.jpg")), 0);
}

TEST(Captions, StepEndsAStandingCaption) {
    ShowStage stage({L"a.jpg", L"b.jpg"});
    stage.ShowFN.setValue(1);
    writeScript(stage, "a Am Strand\r\n");
    stage.show.start();
    stage.ShowFN.setValue(0);
    stage.key(VK_RIGHT);
    stage.loop.advance(150);
    EXPECT_FALSE(stage.UT.visible());
    stage.loop.advance(10'000);
    EXPECT_EQ(changedPixels(stage, FakePictures::colourOf(L"b.jpg")), 0)
        << "the old picture must not come back";
}

TEST(Captions, StepWhileTheTitleSlidesEndsTheSlide) {
    ShowStage stage({L"a.jpg", L"b.jpg"});
    writeScript(stage, "a Am Strand\r\nb Im Wald\r\n");
    stage.show.start();
    stage.key(VK_UP);
    stage.Timer1.setInterval(4050);
    stage.loop.advance(4200);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    EXPECT_TRUE(stage.UT.visible()) << "the new title stands, the old slide does not take it away";
    EXPECT_EQ(stage.UT.text(), L"Im Wald");
    EXPECT_LT(stage.UT.top(), ui::toTwips(120, stage.UT.dpi()) - stage.UT.height());
    stage.loop.advance(4500);
    EXPECT_FALSE(stage.UT.visible());
}

TEST(Captions, InformationLineStandsAtTheRightEdge) {
    ShowStage stage({L"Bild1.jpg"});
    stage.show.start();
    stage.controls->keyPress(L'?');
    EXPECT_EQ(stage.Text1.text(), L"Bild1 (A)");
    EXPECT_FLOAT_EQ(stage.Text1.left() + stage.Text1.width(), ui::toTwips(160, stage.Text1.dpi()));
}

TEST(Captions, InformationLineIsRefreshedAtEveryTransition) {
    ShowStage stage({L"a.jpg", L"b.jpg", L"c.jpg"});
    stage.Check1.setValue(1);
    stage.show.start();
    stage.runner.effectNumber = 26;
    stage.key(VK_RIGHT);
    stage.loop.advance(200);
    EXPECT_EQ(stage.Text1.text(), L"b (Z)");
    EXPECT_FALSE(stage.Text1.visible());
}

}  // namespace
}  // namespace show
