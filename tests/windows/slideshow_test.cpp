#include "show/slideshow.h"

#include <gmock/gmock.h>

#include "platform/handles.h"
#include "support/show_stage.h"

namespace show {
namespace {

using support::FakePictures;
using support::ShowStage;

const std::vector<std::wstring> kThree{L"a1.jpg", L"b2.jpg", L"c3.jpg"};

TEST(SlideshowStart, ShowsTheSelectedPictureByHand) {
    ShowStage stage(kThree);
    stage.File1.setSelectedIndex(1);
    stage.show.start();
    EXPECT_EQ(stage.state.showMode, kByHand);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    EXPECT_EQ(stage.state.currentPicture, stage.pathOf(L"b2.jpg"));
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"b2.jpg"));
    EXPECT_TRUE(stage.screen.tookOver);
    EXPECT_TRUE(stage.screen.arranged);
    EXPECT_FALSE(stage.screen.movedToSecond);
    EXPECT_EQ(stage.screen.pointer().pointerHidden(), 1);
    EXPECT_FALSE(stage.Timer1.enabled());
    EXPECT_EQ(stage.music.musicFolder, stage.folderPath() + L"\\");
    stage.loop.advance(60'000);
    EXPECT_EQ(stage.state.pictureIndex, 1) << "the show waits for a key";
}

/// What the surface shows at the moment at which the window fills the monitor.
struct AtGrowth {
    bool visible = false;
    std::uint32_t colour = 0;
    RECT place{};
};

AtGrowth startAndLook(ShowStage& stage) {
    AtGrowth seen;
    stage.screen.onTakeOver = [&] {
        seen.visible = IsWindowVisible(stage.Pic2.hwnd()) != FALSE;
        seen.colour = stage.Pic2.image().empty() ? 0 : stage.shown();
        GetClientRect(stage.Pic2.hwnd(), &seen.place);
    };
    stage.form.show();
    stage.Pic2.hide();
    stage.show.start();
    return seen;
}

TEST(SlideshowStart, APictureThatIsDecodedComesWithTheWindowsGrowth) {
    ShowStage stage(kThree);
    stage.pictures.decoded = {stage.pathOf(L"a1.jpg")};
    const AtGrowth seen = startAndLook(stage);
    EXPECT_TRUE(seen.visible);
    EXPECT_EQ(seen.colour, FakePictures::colourOf(L"a1.jpg"));
    EXPECT_EQ(seen.place.right, 160);
    EXPECT_EQ(seen.place.bottom, 120);
    EXPECT_THAT(stage.pictures.taken, testing::ElementsAre(stage.pathOf(L"a1.jpg")));
    EXPECT_EQ(stage.Pic1.clientSize().cx, 400) << "its own size";
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"a1.jpg"));
}

TEST(SlideshowStart, OtherwiseTheWindowGrowsBlack) {
    for (const bool onScreen : {true, false}) {
        SCOPED_TRACE(onScreen);
        ShowStage stage(kThree);
        // Decoded, but behind a curtain that has the picture; or not decoded yet.
        stage.screen.onScreen = onScreen;
        if (!onScreen) {
            stage.pictures.decoded = {stage.pathOf(L"a1.jpg")};
        }
        EXPECT_FALSE(startAndLook(stage).visible);
        EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"a1.jpg"));
    }
}

TEST(SlideshowStart, APictureThatGoesAtTheLastMomentIsPassedOver) {
    ShowStage stage(kThree);
    stage.pictures.decoded = {stage.pathOf(L"a1.jpg")};
    stage.pictures.damaged = {L"a1.jpg"};
    EXPECT_FALSE(startAndLook(stage).visible);
    stage.loop.advance(1'000);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"b2.jpg"));
}

TEST(SlideshowStart, BeginsAtTheFirstWithoutASelection) {
    ShowStage stage(kThree);
    stage.show.start();
    EXPECT_EQ(stage.state.pictureIndex, 0);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"a1.jpg"));
}

TEST(SlideshowStart, EmptyListOnlyStopsAVideo) {
    ShowStage stage({});
    stage.show.start();
    EXPECT_EQ(stage.state.showMode, kNoShow);
    EXPECT_FALSE(stage.screen.tookOver);
    EXPECT_THAT(stage.control.commands(), testing::ElementsAre("stop VIDEO", "close VIDEO"));
}

TEST(SlideshowStart, SecondScreenMovesTheWindowFirst) {
    ShowStage stage(kThree);
    stage.Screen2.setValue(1);
    stage.show.start();
    EXPECT_TRUE(stage.screen.movedToSecond);
}

TEST(SlideshowStep, GivesBackTheSurfaceThatWasShownBefore) {
    ShowStage stage(kThree);
    stage.Check1.setValue(0);
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(60'000);
    ASSERT_EQ(stage.shown(), FakePictures::colourOf(L"c3.jpg"));
    const picture::Surface& last = stage.pictures.givenBack;
    ASSERT_FALSE(last.empty());
    EXPECT_EQ(last.bits()[60 * 160 + 80] & 0xFFFFFFU, FakePictures::colourOf(L"a1.jpg"));
}

TEST(SlideshowStart, FirstPicturesMusicRequestDoesNotAct) {
    ShowStage stage(kThree);
    stage.Musik.setValue(1);
    stage.writeScript("a1 Titel *M=Lied\r\n");
    stage.show.start();
    EXPECT_TRUE(stage.music.musicRequest.empty());
    EXPECT_TRUE(stage.UT.visible());
    EXPECT_EQ(stage.UT.text(), L"Titel ");
}

TEST(SlideshowStart, BlankReplacesTheFirstPicturesPause) {
    ShowStage stage(kThree);
    stage.writeScript("a1 *P=20\r\n");
    stage.show.start();
    EXPECT_FALSE(stage.Timer1.enabled());
    stage.type(L' ');
    EXPECT_EQ(stage.state.showMode, kAutomatically);
    EXPECT_EQ(stage.Timer1.interval(), 5000);
    EXPECT_TRUE(stage.Timer1.enabled());
}

TEST(SlideshowStart, AVideosCaptionIsShownAsWell) {
    ShowStage stage({L"A.MPG", L"b2.jpg"});
    stage.writeScript("A Der Film *P=9\r\n");
    stage.show.start();
    EXPECT_EQ(stage.video.videoShowing, 1);
    EXPECT_TRUE(stage.UT.visible());
    EXPECT_EQ(stage.UT.text(), L"Der Film ");
    EXPECT_FALSE(stage.Timer1.enabled());
    stage.loop.advance(4500);
    EXPECT_FALSE(stage.UT.visible());
}

TEST(SlideshowStart, MovesThePointerOutOfTheWay) {
    ShowStage stage(kThree);
    SetCursorPos(50, 50);
    stage.show.start();
    POINT place{};
    GetCursorPos(&place);
    EXPECT_EQ(place.x, 0);
    EXPECT_EQ(place.y, 0);
}

TEST(SlideshowStep, FollowsTheListWithThePauseOfTheBar) {
    ShowStage stage(kThree);
    stage.IntS.setValue(58);
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(2990);
    EXPECT_EQ(stage.state.pictureIndex, 0);
    stage.loop.advance(20);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"b2.jpg"));
    EXPECT_FALSE(stage.Pic3.visible());
    stage.loop.advance(3000);
    EXPECT_EQ(stage.state.pictureIndex, 2);
}

TEST(SlideshowStep, PictureStandsStillForItsPauseAfterALongEffect) {
    ShowStage stage(kThree);
    stage.Check1.setValue(1);
    stage.runner.effectNumber = 4;  // "D": 401 steps
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(5000);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    EXPECT_FALSE(stage.runner.running());
    const double stillFrom = stage.loop.now();
    while (stage.state.pictureIndex == 1 && stage.loop.now() < stillFrom + 20'000) {
        stage.loop.advance(10);
    }
    // The tick's own transition moves the clock on before the loop above sees the new index.
    EXPECT_NEAR(stage.loop.now() - stillFrom, 5000 + 4010, 60);
}

TEST(SlideshowStep, OwnPauseOfAPicture) {
    ShowStage stage(kThree);
    stage.writeScript("b2 *P=2.5\r\n");
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(5001);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    EXPECT_EQ(stage.Timer1.interval(), 2500);
    stage.loop.advance(2500);
    EXPECT_EQ(stage.state.pictureIndex, 2);
    EXPECT_EQ(stage.Timer1.interval(), 5000) << "the next one has the global pause again";
}

TEST(SlideshowStep, PauseOfZeroWaitsForAKey) {
    ShowStage stage(kThree);
    stage.writeScript("b2 *P=0\r\n");
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(60'000);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    stage.key(VK_RIGHT);
    stage.loop.advance(200);
    EXPECT_EQ(stage.state.pictureIndex, 2);
}

TEST(SlideshowEnd, KeepsTheLastPictureUnderTheEndButton) {
    ShowStage stage(kThree);
    stage.show.start();
    stage.type(L' ');
    stage.type(L'?');
    stage.loop.advance(16'500);
    EXPECT_FALSE(stage.Text1.visible());
    EXPECT_TRUE(stage.Pic3.image().empty());
    EXPECT_DOUBLE_EQ(stage.loop.slept(), 1000) << "it stands for a second before anything else";
    EXPECT_TRUE(stage.show.atEnd());
    EXPECT_EQ(stage.state.pictureIndex, 3);
    EXPECT_TRUE(stage.EOT.visible());
    EXPECT_FALSE(stage.Timer1.enabled());
    EXPECT_FALSE(stage.Timer5.enabled());
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"c3.jpg"));
    stage.key(VK_RIGHT);
    stage.key(VK_UP);
    stage.loop.advance(10'000);
    EXPECT_EQ(stage.state.pictureIndex, 3);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"c3.jpg"));
}

TEST(SlideshowEnd, TheEndButtonLeavesThePictureBesideItsCornersAlone) {
    ShowStage stage({L"a1.jpg"});
    stage.EOT.movePixels(40, 40, 80, 40);
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(7000);
    ASSERT_TRUE(stage.EOT.visible());
    const platform::Region region(CreateRectRgn(0, 0, 0, 0));
    ASSERT_NE(GetWindowRgn(stage.EOT.hwnd(), region.get()), ERROR);
    for (const POINT corner : {POINT{0, 0}, POINT{79, 0}, POINT{0, 39}, POINT{79, 39}}) {
        EXPECT_FALSE(PtInRegion(region.get(), corner.x, corner.y)) << corner.x << ' ' << corner.y;
    }
    for (const POINT edge : {POINT{40, 0}, POINT{40, 39}, POINT{0, 20}, POINT{79, 20}}) {
        EXPECT_TRUE(PtInRegion(region.get(), edge.x, edge.y)) << edge.x << ' ' << edge.y;
    }
}

TEST(SlideshowEnd, LoopBeginsAgainAfterTheLastPause) {
    ShowStage stage(kThree);
    stage.LoopC.setValue(1);
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(15'500);
    EXPECT_EQ(stage.state.pictureIndex, 0);
    EXPECT_FALSE(stage.EOT.visible());
    stage.loop.advance(60'000);
    EXPECT_FALSE(stage.show.atEnd());
}

TEST(SlideshowEnd, LeftGoesBackIntoTheShow) {
    ShowStage stage(kThree);
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(16'500);
    stage.key(VK_LEFT);
    EXPECT_FALSE(stage.EOT.visible());
    stage.loop.advance(200);
    EXPECT_EQ(stage.state.pictureIndex, 2);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"c3.jpg"));
}

TEST(SlideshowEnd, MusicFadesOutAndLeftStopsTheFade) {
    ShowStage stage({L"a1.jpg"});
    stage.music.musicList = {L"01 Lied.mp3"};
    stage.Musik.setValue(1);
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(5001);
    EXPECT_EQ(stage.control.commands().back(), "setaudio AUDIO volume to 0");
    EXPECT_TRUE(stage.show.atEnd());

    ShowStage* const before = &stage;
    before->key(VK_LEFT);
    EXPECT_EQ(stage.control.commands().back(), "setaudio AUDIO volume to 200");
    EXPECT_TRUE(stage.Timer5.enabled());
}

TEST(SlideshowPause, DownShowsTheNextAskedForAndWaits) {
    for (const char* script : {"b2 *P=1\r\n", "b2 Titel\r\n"}) {
        ShowStage stage(kThree);
        stage.writeScript(script);
        stage.show.start();
        stage.type(L' ');
        stage.key(VK_DOWN);
        EXPECT_FALSE(stage.Timer1.enabled());
        EXPECT_EQ(stage.state.pausedFlag, 1);
        stage.key(VK_RIGHT);
        stage.loop.advance(30'000);
        EXPECT_EQ(stage.state.pictureIndex, 1) << "its own pause does not set a paused show going";
        stage.key(VK_UP);
        stage.loop.advance(200);
        EXPECT_EQ(stage.state.pictureIndex, 2);
        EXPECT_EQ(stage.state.pausedFlag, 0);
        EXPECT_TRUE(stage.Timer1.enabled());
    }
}

struct Choice {
    const char* name;
    int changes;  ///< Check1
    const char* script;
    wchar_t key;
    const char* letters;  ///< of the transitions to the pictures 2, 3, 4 and 5
};

class EffectChoice : public testing::TestWithParam<Choice> {};

TEST_P(EffectChoice, IsToldByTheInformationLine) {
    ShowStage stage({L"p1.jpg", L"p2.jpg", L"p3.jpg", L"p4.jpg", L"p5.jpg"});
    stage.Check1.setValue(GetParam().changes);
    stage.writeScript(GetParam().script);
    stage.show.start();
    if (GetParam().key != 0) {
        stage.type(GetParam().key);
    }
    for (int i = 0; i < 4; ++i) {
        stage.key(VK_RIGHT);
        stage.loop.advance(110);
        const std::wstring name = L"p" + std::to_wstring(i + 2);
        EXPECT_EQ(stage.Text1.text(), name + L" (" + static_cast<wchar_t>(GetParam().letters[i]) + L")");
        EXPECT_EQ(stage.shown(), FakePictures::colourOf(name + L".jpg"));
        stage.loop.advance(200);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Roads, EffectChoice,
    testing::Values(Choice{"one_after_the_other", 1, "", 0, "ABCD"},
                    Choice{"a_letter_key_stays", 1, "", L'c', "CCCC"},
                    Choice{"without_the_box_always_A", 0, "p2 *E=D\r\n", L'c', "AAAA"},
                    Choice{"script_acts_from_the_next_on", 1, "p2 *E=N\r\n", 0, "ANNN"},
                    Choice{"script_lets_them_change_again", 1, "p2 *E=Y\r\np3 *E=#\r\n", 0, "AYZA"},
                    Choice{"small_letter_runs_none", 1, "p2 *E=b\r\np3 *E=#\r\n", 0, "AbIJ"},
                    Choice{"hash_key_lets_them_change", 1, "p1 *E=Z\r\np3 *E=Z\r\n", L'#', "ABZZ"}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST(SlideshowStart, KeepsTheDisplayAwakeUntilItsEnd) {
    constexpr EXECUTION_STATE kAwake = ES_CONTINUOUS | ES_DISPLAY_REQUIRED | ES_SYSTEM_REQUIRED;
    // Without ES_CONTINUOUS the state is told and stays.
    const auto wanted = [] { return SetThreadExecutionState(ES_SYSTEM_REQUIRED) & kAwake; };
    ShowStage stage(kThree);
    stage.show.start();
    EXPECT_EQ(wanted(), kAwake);
    stage.type(27);
    EXPECT_EQ(wanted() & ES_DISPLAY_REQUIRED, 0U);
}

TEST(SlideshowAhead, NeighboursAreDecodedInOrderOfNeed) {
    ShowStage stage({L"a.jpg", L"b.jpg", L"c.mpg", L"d.jpg"});
    stage.File1.setSelectedIndex(1);
    stage.show.start();
    EXPECT_THAT(stage.pictures.prepared,
                testing::ElementsAre(stage.pathOf(L"d.jpg"), stage.pathOf(L"a.jpg")));
}

TEST(SlideshowAhead, LoopPreparesItsBeginning) {
    ShowStage stage(kThree);
    stage.LoopC.setValue(1);
    stage.File1.setSelectedIndex(2);
    stage.show.start();
    EXPECT_THAT(stage.pictures.prepared,
                testing::ElementsAre(stage.pathOf(L"a1.jpg"), stage.pathOf(L"b2.jpg")));
}

TEST(SlideshowEnd, LetsTheDisplaySleepUntilTheShowIsGoneBackInto) {
    ShowStage stage(kThree);
    EXPECT_FALSE(stage.show.keepsAwake());
    stage.show.start();
    EXPECT_TRUE(stage.show.keepsAwake());
    stage.type(L' ');
    stage.loop.advance(16'000);
    ASSERT_TRUE(stage.show.atEnd());
    EXPECT_FALSE(stage.show.keepsAwake());
    stage.key(VK_LEFT);
    EXPECT_TRUE(stage.show.keepsAwake());
    stage.type(27);
    EXPECT_FALSE(stage.show.keepsAwake());
}

TEST(SlideshowStart, ASecondStartInTheMiddleOfTheFirstIsNone) {
    ShowStage stage(kThree);
    int taken = 0;
    stage.pictures.onTake = [&] {
        ++taken;
        stage.show.start();
    };
    stage.show.start();
    EXPECT_EQ(taken, 1);
    EXPECT_EQ(stage.state.showMode, kByHand);
}

}  // namespace
}  // namespace show
