#include "show/captions.h"

#include <gmock/gmock.h>

#include <functional>

#include "support/app_stage.h"
#include "support/show_stage.h"
#include "support/video_stage.h"

namespace show {
namespace {

using support::FakePictures;
using support::ShowStage;

/// How many pixels of the surface differ from the clean picture.
int changedPixels(const ShowStage& stage, std::uint32_t clean) {
    GdiFlush();
    const picture::Surface& image = stage.Pic2.image();
    EXPECT_FALSE(image.empty());
    return static_cast<int>(std::count_if(
        image.bits(), image.bits() + static_cast<std::ptrdiff_t>(image.width()) * image.height(),
        [=](std::uint32_t pixel) { return (pixel & 0x00FFFFFFU) != clean; }));
}

TEST(Captions, TitleSlidesOutAfterFourSeconds) {
    ShowStage stage({L"a.jpg", L"b.jpg"});
    stage.writeScript("a Am Strand\r\n");
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

TEST(Captions, TitleOfThreeHundredCharactersEndsInAnEllipsis) {
    ShowStage stage({L"a.jpg"});
    stage.UT.setWidth(2400);
    std::string script = "a ";
    for (int i = 0; i < 50; ++i) {
        script += "Sonne ";
    }
    stage.writeScript(script + "\r\n");
    stage.show.start();
    const std::wstring text = stage.UT.text();
    EXPECT_EQ(text.back(), L'\u2026');
    EXPECT_EQ(text.substr(0, 5), L"Sonne");
    const SIZE size = ui::measureText(text, ui::font(stage.UT.fontSpec(), stage.UT.dpi()));
    EXPECT_LE(ui::toTwips(size.cx, stage.UT.dpi()), stage.UT.width());
}

TEST(Captions, TitleOfABlankIsNone) {
    ShowStage stage({L"a.jpg"});
    stage.writeScript("a  *P=5\r\n");
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

TEST(Captions, TitleAndDateGoWithTheSameTick) {
    ShowStage stage({L"a.jpg"});
    stage.writeScript("a Am Strand *D\r\n");
    stage.show.start();
    const std::uint32_t clean = FakePictures::colourOf(L"a.jpg");
    stage.loop.advance(3990);
    EXPECT_TRUE(stage.UT.visible());
    EXPECT_GT(changedPixels(stage, clean), 50);
    stage.loop.advance(20);
    EXPECT_FALSE(stage.UT.visible());
    EXPECT_EQ(changedPixels(stage, clean), 0);
    EXPECT_FALSE(stage.Timer3.enabled());
}

/// Stops a show that steps by itself.
using Hold = void (*)(ShowStage&);

class CaptionsOfAHeldShow : public testing::TestWithParam<Hold> {};

TEST_P(CaptionsOfAHeldShow, GoAllTheSame) {
    ShowStage stage({L"a.jpg", L"b.jpg"});
    stage.writeScript("b Am Strand *P=3 *D\r\n");
    stage.show.start();
    stage.loop.advance(600);  // the time of a double click
    stage.type(L' ');
    stage.key(VK_RIGHT);
    stage.loop.advance(110);
    ASSERT_TRUE(stage.UT.visible());
    GetParam()(stage);
    stage.loop.advance(3800);
    EXPECT_TRUE(stage.UT.visible());
    stage.loop.advance(300);
    EXPECT_FALSE(stage.UT.visible());
    EXPECT_EQ(changedPixels(stage, FakePictures::colourOf(L"b.jpg")), 0);
    stage.loop.advance(20'000);
    EXPECT_EQ(stage.state.pictureIndex, 1);
}

INSTANTIATE_TEST_SUITE_P(Ways, CaptionsOfAHeldShow,
                         testing::Values(Hold([](ShowStage& stage) { stage.key(VK_DOWN); }),
                                         Hold([](ShowStage& stage) {
                                             stage.controls.mousePressed(ui::MouseButton::Left);
                                         })));

TEST(Captions, QuickStepsLeaveNoneBehind) {
    std::vector<std::wstring> names;
    std::string script;
    for (char c = 'a'; c <= 'l'; ++c) {
        names.push_back(std::wstring(1, static_cast<wchar_t>(c)) + L".jpg");
        script += std::string(1, c) + " Titel " + c + " *D\r\n";
    }
    ShowStage stage(names);
    stage.writeScript(script);
    stage.show.start();
    stage.type(L' ');
    for (int i = 0; i < 30; ++i) {  // RIGHT held down for a second
        stage.key(VK_RIGHT);
        stage.loop.advance(33);
    }
    stage.loop.advance(200);
    const auto index = static_cast<std::size_t>(stage.state.pictureIndex);
    ASSERT_GE(index, 7U);
    ASSERT_LT(index, names.size());
    EXPECT_EQ(stage.UT.text(), L"Titel " + names[index].substr(0, 1) + L" ");
    EXPECT_GT(changedPixels(stage, FakePictures::colourOf(names[index])), 50);
    stage.loop.advance(4200);
    EXPECT_FALSE(stage.UT.visible());
    EXPECT_EQ(changedPixels(stage, FakePictures::colourOf(names[index])), 0);
}

/// A surface wide enough for a whole date, painted as a picture would.
class DateOnAPicture : public testing::Test {
  protected:
    static constexpr int kWidth = 600;
    static constexpr int kHeight = 60;
    static constexpr std::uint32_t kCyan = 0x00FFFF;

    void paint(const std::function<std::uint32_t(int x, int y)>& colourAt) {
        stage_.state.screenWidth = kWidth;
        stage_.state.screenHeight = kHeight;
        stage_.Pic2.movePixels(0, 0, kWidth, kHeight);
        picture::Pixels pixels(kWidth, kHeight);
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                pixels.data[static_cast<std::size_t>(y * kWidth + x)] = colourAt(x, y);
            }
        }
        stage_.Pic2.setImage(pixels);
    }
    std::uint32_t at(int x, int y) const { return stage_.Pic2.image().bits()[y * kWidth + x] & 0xFFFFFFU; }
    int cyanPixels() const {
        int found = 0;
        for (int i = 0; i < kWidth * kHeight; ++i) {
            found += at(i % kWidth, i / kWidth) == kCyan ? 1 : 0;
        }
        return found;
    }
    /// Every bright pixel has the shadow's black close by.
    void expectOutlined() const {
        for (int i = 0; i < kWidth * kHeight; ++i) {
            if (at(i % kWidth, i / kWidth) == kCyan) {
                EXPECT_TRUE(darkNear(i % kWidth, i / kWidth)) << i % kWidth << ',' << i / kWidth;
            }
        }
    }
    bool darkNear(int x, int y) const {
        constexpr int kReach = 3;
        for (int row = std::max(y - kReach, 0); row <= std::min(y + kReach, kHeight - 1); ++row) {
            for (int column = std::max(x - kReach, 0); column <= std::min(x + kReach, kWidth - 1); ++column) {
                if (darkness(at(column, row))) {
                    return true;
                }
            }
        }
        return false;
    }
    static bool darkness(std::uint32_t colour) {
        return (colour >> 16) + (colour >> 8 & 0xFF) + (colour & 0xFF) < 150;
    }
    ShowStage stage_{{L"a.jpg"}};
};

TEST_F(DateOnAPicture, IsReadableOnWhiteBlackBusyAndItsOwnColour) {
    const std::wstring date = L"Samstag, 21. November 2026";
    paint([](int, int) { return 0U; });
    stage_.captions.stampDate(date);
    const int onBlack = cyanPixels();
    EXPECT_GT(onBlack, 300);
    stage_.captions.end();
    const auto busy = [](int x, int y) { return (x * 7 + y * 13) % 5 < 2 ? 0xFFC040U : 0x2040C0U; };
    for (const auto& picture : {std::function<std::uint32_t(int, int)>([](int, int) { return 0xFFFFFFU; }),
                                std::function<std::uint32_t(int, int)>(busy)}) {
        paint(picture);
        stage_.captions.stampDate(date);
        EXPECT_EQ(cyanPixels(), onBlack) << "the same strokes on every ground";
        expectOutlined();
        stage_.captions.end();
        for (int i = 0; i < kWidth * kHeight; ++i) {
            ASSERT_EQ(at(i % kWidth, i / kWidth), picture(i % kWidth, i / kWidth)) << i;
        }
    }
}

TEST_F(DateOnAPicture, StandsAtTheTopInTheMiddle) {
    paint([](int, int) { return 0U; });
    stage_.captions.stampDate(L"Samstag, 21. November 2026");
    int left = kWidth;
    int right = 0;
    int bottom = 0;
    for (int i = 0; i < kWidth * kHeight; ++i) {
        if (at(i % kWidth, i / kWidth) == kCyan) {
            left = std::min(left, i % kWidth);
            right = std::max(right, i % kWidth);
            bottom = std::max(bottom, i / kWidth);
        }
    }
    EXPECT_NEAR((left + right) / 2, kWidth / 2, 25);
    EXPECT_GT(right - left, 150);
    EXPECT_LT(bottom, 40);
}

// The size of the letters follows the screen's scaling.
TEST(CaptionsScaled, AreTwiceAsHighOnAScreenOfTwiceTheScaling) {
    int stampHeight[2]{};
    int titleHeight[2]{};
    for (const int scaling : {1, 2}) {
        support::AppStage stage;
        stage.monitors.dpi = 96 * scaling;
        stage.monitors.first = {0, 0, 640, 480};
        stage.application.reset();
        stage.create();
        stage.picture(L"a.jpg", 0x000000);
        stage.pictures.file(L"Panorell.txt", "a Titel *D\r\n");
        stage.loadFolder();
        stage.form().Start.click();
        ASSERT_TRUE(stage.form().UT.visible());
        GdiFlush();
        const picture::Surface& image = stage.form().Pic2.image();
        int bottom = 0;
        for (int i = 0; i < image.width() * image.height(); ++i) {
            if ((image.bits()[i] & 0xFFFFFFU) == 0x00FFFFU) {
                bottom = i / image.width();
            }
        }
        RECT title{};
        GetWindowRect(stage.form().UT.hwnd(), &title);
        stampHeight[scaling - 1] = bottom;
        titleHeight[scaling - 1] = static_cast<int>(title.bottom - title.top);
    }
    EXPECT_GT(stampHeight[0], 10);
    EXPECT_NEAR(stampHeight[1], 2 * stampHeight[0], 4);
    EXPECT_NEAR(titleHeight[1], 2 * titleHeight[0], 2);
}

// The captions lie over the surface, which is what a click means.
TEST(CaptionsAndTheMouse, AClickGoesThroughThem) {
    support::AppStage stage;
    stage.picture(L"a.jpg");
    stage.pictures.file(L"Panorell.txt", "a Titel\r\n");
    stage.loadFolder();
    stage.form().Start.click();
    stage.type(L'?');
    for (ui::TextBox* box : {&stage.form().UT, &stage.form().Text1}) {
        ASSERT_TRUE(box->visible());
        RECT place{};
        GetWindowRect(box->hwnd(), &place);
        const POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
        EXPECT_EQ(SendMessageW(box->hwnd(), WM_NCHITTEST, 0, MAKELPARAM(middle.x, middle.y)), HTTRANSPARENT);
    }
}

TEST(Captions, MarkerStampsTheDateOfOnePicture) {
    ShowStage stage({L"a.jpg"});
    stage.writeScript("a *D\r\n");
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
    stage.writeScript("a Am Strand\r\n");
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
    stage.writeScript("a Am Strand\r\nb Im Wald\r\n");
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

TEST(Captions, OfAVideoDoNotComeBackOverItsLastFrame) {
    support::VideoStage stage({L"a.mpg"}, "1000");
    stage.ShowFN.setValue(1);
    stage.writeScript("a Film\r\n");
    stage.startAutomatically();
    ASSERT_TRUE(stage.Timer3.enabled());
    stage.loop.advance(1100);
    ASSERT_TRUE(stage.show.atEnd());
    EXPECT_EQ(changedPixels(stage, support::VideoStage::kFrame), 0);
    EXPECT_FALSE(stage.UT.visible());
    stage.loop.advance(5000);
    EXPECT_EQ(changedPixels(stage, support::VideoStage::kFrame), 0);
}

TEST(Captions, AnEllipsisDoesNotPartAPairOfSurrogates) {
    ShowStage stage({L"a.jpg"});
    stage.UT.setWidth(2400);
    std::string script =
        "\xEF\xBB\xBF"
        "a ";
    for (int i = 0; i < 60; ++i) {
        script += "\xF0\x9F\x8C\x8A";
    }
    stage.writeScript(script);
    for (int width = 2400; width < 3000; width += 30) {
        stage.UT.setWidth(static_cast<float>(width));
        stage.state.currentPicture = stage.pathOf(L"a.jpg");
        stage.script.ApplyScriptEntry(1);
        const std::wstring text = stage.UT.text();
        ASSERT_EQ(text.back(), L'\u2026');
        ASSERT_EQ(text.size() % 2, 1U) << width;
    }
}

TEST(Captions, InformationLineStandsAtTheRightEdge) {
    ShowStage stage({L"Bild1.jpg"});
    stage.show.start();
    stage.controls.keyPress(L'?');
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
