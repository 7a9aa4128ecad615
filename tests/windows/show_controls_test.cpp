#include "show/show_controls.h"

#include <gmock/gmock.h>

#include "show/step_rule.h"
#include "support/show_stage.h"

namespace show {
namespace {

using support::FakePictures;
using support::ShowStage;
using testing::ElementsAre;

constexpr wchar_t kEscape = 27;

const std::vector<std::wstring> kFour{L"a1.jpg", L"b2.jpg", L"c3.jpg", L"d4.jpg"};

/// A show that steps by itself, with the clipboard of commands empty.
struct RunningShow : ShowStage {
    explicit RunningShow(const std::vector<std::wstring>& names = kFour) : ShowStage(names) {
        show.start();
        type(L' ');
        loop.advance(kBeyondADoubleClick);
        Timer1.restart();
        control.clear();
    }
    /// A press this long after the start is no second one of a double click.
    static constexpr double kBeyondADoubleClick = 600;
};

TEST(Keys, DoNothingWithoutAShow) {
    ShowStage stage(kFour);
    EXPECT_FALSE(stage.controls.keyDown(VK_RIGHT));
    EXPECT_FALSE(stage.controls.keyPress(L'c'));
    EXPECT_FALSE(stage.controls.keyPress(kEscape));
    stage.controls.mousePressed(ui::MouseButton::Right);
    EXPECT_EQ(stage.state.showMode, kNoShow);
    EXPECT_EQ(stage.runner.effectNumber, 0);
    EXPECT_FALSE(stage.Timer1.enabled());
}

TEST(Keys, RightStepsAfterAHundredMilliseconds) {
    RunningShow stage;
    stage.key(VK_RIGHT);
    EXPECT_EQ(stage.Timer1.interval(), kQuickStepMs);
    stage.loop.advance(90);
    EXPECT_EQ(stage.state.pictureIndex, 0);
    stage.loop.advance(20);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    EXPECT_TRUE(stage.Timer1.enabled()) << "the show goes on by itself";
}

TEST(Keys, HoldingRightStepsTenTimesASecondAndStopsWhenReleased) {
    std::vector<std::wstring> names;
    for (int i = 0; i < 40; ++i) {
        names.push_back(L"p" + std::to_wstring(i) + L".jpg");
    }
    RunningShow stage(names);
    for (int i = 0; i < 30; ++i) {  // auto-repeat: a key every 33 ms for a second
        stage.key(VK_RIGHT);
        stage.loop.advance(33);
    }
    EXPECT_GE(stage.state.pictureIndex, 7);
    EXPECT_LE(stage.state.pictureIndex, 10);
    stage.loop.advance(200);
    const int standing = stage.state.pictureIndex;
    stage.loop.advance(3000);
    EXPECT_EQ(stage.state.pictureIndex, standing);
}

TEST(Keys, LeftOnTheFirstPictureDoesNothing) {
    RunningShow stage;
    stage.key(VK_LEFT);
    EXPECT_EQ(stage.state.pictureIndex, 0);
    EXPECT_EQ(stage.Timer1.interval(), 5000);
}

TEST(Keys, LeftLandsOnThePreviousPicture) {
    RunningShow stage;
    stage.key(VK_RIGHT);
    stage.loop.advance(150);
    stage.key(VK_RIGHT);
    stage.loop.advance(150);
    ASSERT_EQ(stage.state.pictureIndex, 2);
    stage.key(VK_LEFT);
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"b2.jpg"));
}

TEST(Keys, LeftSubtractsOnlyWhileTheResultIsAtLeastMinusOne) {
    RunningShow stage;
    for (int i = 0; i < 3; ++i) {
        stage.key(VK_RIGHT);
        stage.loop.advance(150);
    }
    ASSERT_EQ(stage.state.pictureIndex, 3);
    for (int i = 0; i < 5; ++i) {
        stage.key(VK_LEFT);
        EXPECT_GE(stage.state.pictureIndex, -1);
    }
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, 0);
}

TEST(Keys, DownStopsAndUpGoesOn) {
    RunningShow stage;
    stage.key(VK_DOWN);
    stage.loop.advance(60'000);
    EXPECT_EQ(stage.state.pictureIndex, 0);
    EXPECT_EQ(stage.state.showMode, kAutomatically) << "DOWN leaves the mode";
    stage.key(VK_UP);
    stage.loop.advance(110);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    stage.loop.advance(5000);
    EXPECT_EQ(stage.state.pictureIndex, 2);
}

TEST(Keys, EnterIsIgnored) {
    RunningShow stage;
    EXPECT_TRUE(stage.controls.keyDown(VK_RETURN));
    EXPECT_EQ(stage.Timer1.interval(), 5000);
}

TEST(Keys, RightInATransitionCompletesItAndGoesOn) {
    RunningShow stage;
    stage.Check1.setValue(1);
    stage.runner.effectNumber = 2;  // "B": three seconds
    stage.key(VK_RIGHT);
    const double start = stage.loop.now();
    stage.loop.at(600, [&] {
        EXPECT_TRUE(stage.runner.running());
        stage.key(VK_RIGHT);
        stage.runner.effectNumber = 1;
    });
    stage.loop.advance(1000);
    EXPECT_EQ(stage.state.pictureIndex, 2);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(L"c3.jpg"));
    EXPECT_LT(stage.loop.now() - start, 1100);
}

TEST(Keys, LettersChooseTheEffectAndHashChangesIt) {
    RunningShow stage;
    stage.type(L'c');
    EXPECT_EQ(stage.runner.effectNumber, 3);
    stage.controls.keyPress(L'z');
    EXPECT_EQ(stage.runner.effectNumber, 26);
    stage.controls.keyPress(L'B');
    EXPECT_EQ(stage.runner.effectNumber, 26) << "upper case chooses none";
    stage.controls.keyPress(L'#');
    EXPECT_EQ(stage.runner.effectNumber, 0);
}

TEST(Keys, DigitSetsThePauseAndTheBar) {
    RunningShow stage;
    stage.controls.keyPress(L'9');
    EXPECT_EQ(stage.IntS.value(), 52);
    EXPECT_EQ(stage.Timer1.interval(), 9000);
    stage.controls.keyPress(L'5');
    EXPECT_EQ(stage.IntS.value(), 56);
    EXPECT_EQ(stage.Timer1.interval(), 5000);
    stage.controls.keyPress(L'0');
    EXPECT_EQ(stage.IntS.value(), 56);
}

TEST(Keys, VolumeMovesByTwentyWithinItsBounds) {
    RunningShow stage;
    stage.controls.keyPress(L'+');
    EXPECT_THAT(stage.control.take(), ElementsAre("setaudio AUDIO volume to 220"));
    stage.controls.keyPress(L'.');
    EXPECT_THAT(stage.control.take(), ElementsAre("setaudio AUDIO volume to 0"));
    EXPECT_EQ(stage.music.musicVolume, 220);
    stage.controls.keyPress(L'-');
    EXPECT_THAT(stage.control.take(), ElementsAre("setaudio AUDIO volume to 200"));
    for (int i = 0; i < 40; ++i) {
        stage.controls.keyPress(L'+');
    }
    EXPECT_EQ(stage.music.musicVolume, 600);
    stage.control.clear();
    stage.controls.keyPress(L'+');
    EXPECT_TRUE(stage.control.commands().empty()) << "at 600 nothing is sent";
    for (int i = 0; i < 40; ++i) {
        stage.controls.keyPress(L'-');
    }
    EXPECT_EQ(stage.music.musicVolume, 40);
    stage.control.clear();
    stage.controls.keyPress(L'-');
    EXPECT_TRUE(stage.control.commands().empty()) << "at 40 nothing is sent";
}

TEST(Keys, QuestionMarkTogglesTheInformationLine) {
    RunningShow stage;
    stage.controls.keyPress(L'?');
    EXPECT_TRUE(stage.Text1.visible());
    EXPECT_EQ(stage.Text1.text(), L"a1 (A)");
    stage.controls.keyPress(L'?');
    EXPECT_FALSE(stage.Text1.visible());
}

TEST(Keys, EscapeEndsTheShow) {
    RunningShow stage;
    EXPECT_TRUE(stage.controls.keyPress(kEscape));
    EXPECT_EQ(stage.state.showMode, kNoShow);
    EXPECT_EQ(stage.ends, 1);
    EXPECT_FALSE(stage.Timer1.enabled());
}

TEST(Keys, EscapeInATransitionEndsTheShow) {
    RunningShow stage;
    stage.Check1.setValue(1);
    stage.runner.effectNumber = 2;
    stage.key(VK_RIGHT);
    stage.loop.at(600, [&] { stage.controls.keyPress(kEscape); });
    stage.loop.advance(2000);
    EXPECT_EQ(stage.ends, 1);
    EXPECT_FALSE(stage.runner.running());
    EXPECT_FALSE(stage.Timer1.enabled());
}

TEST(AfterTheEnd, AnyCharacterRestartsOnceAndDoesNothingElse) {
    RunningShow stage({L"a1.jpg"});
    stage.loop.advance(7000);
    ASSERT_TRUE(stage.show.atEnd());
    stage.controls.keyPress(L'c');
    stage.controls.keyPress(L'5');
    EXPECT_EQ(stage.restarts, 1);
    EXPECT_EQ(stage.runner.effectNumber, 0);
    EXPECT_EQ(stage.ends, 0);
}

TEST(AfterTheEnd, EscapeEnds) {
    RunningShow stage({L"a1.jpg"});
    stage.loop.advance(7000);
    stage.controls.keyPress(kEscape);
    EXPECT_EQ(stage.ends, 1);
    EXPECT_EQ(stage.restarts, 0);
}

TEST(Mouse, LeftPausesAndShowsThePointerThenSteps) {
    RunningShow stage;
    stage.controls.mousePressed(ui::MouseButton::Left);
    EXPECT_EQ(stage.state.showMode, kByHand);
    EXPECT_FALSE(stage.Timer1.enabled());
    EXPECT_EQ(stage.screen.pointer().pointerHidden(), 0);
    stage.loop.advance(30'000);
    EXPECT_EQ(stage.state.pictureIndex, 0);
    stage.controls.mousePressed(ui::MouseButton::Left);
    stage.loop.advance(30'000);
    EXPECT_EQ(stage.state.pictureIndex, 1) << "one step by hand";
}

TEST(Mouse, LeftPausesAlsoWithThePointerShown) {
    RunningShow stage;
    stage.screen.pointer().show();
    stage.controls.mousePressed(ui::MouseButton::Left);
    EXPECT_EQ(stage.state.showMode, kByHand);
}

TEST(Mouse, TwoQuickClicksOfAPausedShowAreOneStep) {
    RunningShow stage;
    stage.controls.mousePressed(ui::MouseButton::Left);
    stage.controls.mousePressed(ui::MouseButton::Left);
    stage.controls.mousePressed(ui::MouseButton::Left);
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, 1);
}

TEST(Mouse, LeftPausesAShowThatStepsQuickly) {
    RunningShow stage;
    for (int i = 0; i < 5; ++i) {  // RIGHT held down
        stage.key(VK_RIGHT);
        stage.loop.advance(33);
    }
    stage.key(VK_RIGHT);
    ASSERT_TRUE(stage.state.quickStepPending);
    const int standing = stage.state.pictureIndex;
    stage.controls.mousePressed(ui::MouseButton::Left);
    EXPECT_EQ(stage.state.showMode, kByHand);
    EXPECT_EQ(stage.screen.pointer().pointerHidden(), 0);
    stage.loop.advance(10'000);
    EXPECT_EQ(stage.state.pictureIndex, standing);
}

TEST(Mouse, TwoQuickClicksOfAShowHeldByDownAreOneStep) {
    RunningShow stage;
    stage.key(VK_DOWN);
    stage.controls.mousePressed(ui::MouseButton::Left);
    stage.controls.mousePressed(ui::MouseButton::Left);
    stage.loop.advance(10'000);
    EXPECT_EQ(stage.state.pictureIndex, 1);
}

TEST(Mouse, PausePutsThePointerInTheMiddleOfTheScreen) {
    RunningShow stage;
    stage.controls.mousePressed(ui::MouseButton::Left);
    POINT place{};
    GetCursorPos(&place);
    EXPECT_EQ(place.x, 80);
    EXPECT_EQ(place.y, 60);
}

TEST(Mouse, RightGoesOnByItself) {
    RunningShow stage;
    stage.key(VK_DOWN);
    stage.controls.mousePressed(ui::MouseButton::Left);
    stage.controls.mousePressed(ui::MouseButton::Right);
    EXPECT_EQ(stage.state.showMode, kAutomatically);
    EXPECT_EQ(stage.state.pausedFlag, 0);
    EXPECT_EQ(stage.screen.pointer().pointerHidden(), 1);
    stage.loop.advance(11'000);
    EXPECT_GE(stage.state.pictureIndex, 2);
}

TEST(Mouse, BlankContinuesAfterALeftClick) {
    RunningShow stage;
    stage.controls.mousePressed(ui::MouseButton::Left);
    stage.type(L' ');
    EXPECT_EQ(stage.state.showMode, kAutomatically);
    EXPECT_EQ(stage.screen.pointer().pointerHidden(), 1);
    stage.loop.advance(5010);
    EXPECT_EQ(stage.state.pictureIndex, 1);
}

TEST(AfterTheEnd, ThePointerIsThereForTheEndButtonAndGoesWithIt) {
    RunningShow stage({L"a1.jpg"});
    SetCursorPos(50, 50);
    ASSERT_EQ(stage.screen.pointer().pointerHidden(), 1);
    stage.loop.advance(7000);
    EXPECT_EQ(stage.screen.pointer().pointerHidden(), 0);
    POINT place{};
    GetCursorPos(&place);
    EXPECT_EQ(place.x, 0);
    EXPECT_EQ(place.y, 0);
    stage.key(VK_LEFT);
    EXPECT_EQ(stage.screen.pointer().pointerHidden(), 1);
    stage.loop.advance(7000);
    ASSERT_TRUE(stage.show.atEnd());
    stage.screen.pointer().hide();
    stage.controls.mousePressed(ui::MouseButton::Left);
    EXPECT_EQ(stage.screen.pointer().pointerHidden(), 0);
}

TEST(Mouse, ClicksAfterTheEndDoNothing) {
    RunningShow stage({L"a1.jpg"});
    stage.loop.advance(7000);
    stage.controls.mousePressed(ui::MouseButton::Left);
    stage.controls.mousePressed(ui::MouseButton::Right);
    stage.loop.advance(7000);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    EXPECT_TRUE(stage.EOT.visible());
    EXPECT_FALSE(stage.Timer1.enabled());
}

TEST(Keys, UpGoesOnByItselfAlsoAfterAClick) {
    RunningShow stage;
    stage.controls.mousePressed(ui::MouseButton::Left);
    ASSERT_EQ(stage.state.showMode, kByHand);
    ASSERT_EQ(stage.screen.pointer().pointerHidden(), 0);
    stage.key(VK_DOWN);
    stage.key(VK_UP);
    EXPECT_EQ(stage.state.showMode, kAutomatically);
    EXPECT_EQ(stage.state.pausedFlag, 0);
    EXPECT_EQ(stage.screen.pointer().pointerHidden(), 1);
    stage.loop.advance(150 + 5000 + 50);
    EXPECT_EQ(stage.state.pictureIndex, 2);
}

TEST(Keys, BlankEndsTheHoldOfDown) {
    RunningShow stage;
    stage.controls.mousePressed(ui::MouseButton::Left);
    stage.key(VK_DOWN);
    ASSERT_EQ(stage.state.pausedFlag, 1);
    stage.type(L' ');
    EXPECT_EQ(stage.state.pausedFlag, 0);
    stage.loop.advance(2 * 5000 + 300);
    EXPECT_EQ(stage.state.pictureIndex, 2) << "it goes on and on";
}

TEST(Keys, LeftTwiceGoesBackTwo) {
    RunningShow stage;
    for (int i = 0; i < 3; ++i) {
        stage.key(VK_RIGHT);
        stage.loop.advance(110);
    }
    ASSERT_EQ(stage.state.pictureIndex, 3);
    stage.key(VK_LEFT);
    stage.loop.advance(30);
    stage.key(VK_LEFT);
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, 1);
    EXPECT_EQ(stage.shown(), FakePictures::colourOf(stage.File1.entries()[1]));
    for (int i = 0; i < 4; ++i) {
        stage.key(VK_LEFT);
    }
    stage.loop.advance(150);
    EXPECT_EQ(stage.state.pictureIndex, 0) << "not before the first one";
}

TEST(Keys, AStepBackThatIsCalledOffLeavesThePlaceAsItIs) {
    for (const bool byMouse : {false, true}) {
        RunningShow stage;
        stage.key(VK_RIGHT);
        stage.loop.advance(110);
        stage.key(VK_RIGHT);
        stage.loop.advance(110);
        ASSERT_EQ(stage.state.pictureIndex, 2);
        stage.key(VK_LEFT);
        stage.loop.advance(30);
        byMouse ? stage.controls.mousePressed(ui::MouseButton::Left) : stage.key(VK_DOWN);
        EXPECT_EQ(stage.state.pictureIndex, 2) << byMouse;
        stage.key(VK_RIGHT);
        stage.loop.advance(150);
        EXPECT_EQ(stage.state.pictureIndex, 3) << byMouse;
    }
}

TEST(Mouse, TheSecondPressOfTheDoubleClickThatStartedTheShowDoesNothing) {
    ShowStage stage(kFour);
    stage.show.start();
    stage.type(L' ');
    stage.loop.advance(GetDoubleClickTime() - 50);
    stage.controls.mousePressed(ui::MouseButton::Left);
    EXPECT_EQ(stage.state.showMode, kAutomatically);
    EXPECT_TRUE(stage.Timer1.enabled());
    EXPECT_EQ(stage.screen.pointer().pointerHidden(), 1);
    stage.controls.mousePressed(ui::MouseButton::Right);
    EXPECT_FALSE(stage.state.quickStepPending);
    stage.loop.advance(100);
    stage.controls.mousePressed(ui::MouseButton::Left);
    EXPECT_EQ(stage.state.showMode, kByHand);
}

TEST(Keys, CountFromTheStartOn) {
    ShowStage stage(kFour);
    stage.show.start();
    stage.key(VK_RIGHT);
    stage.loop.advance(110);
    EXPECT_EQ(stage.state.pictureIndex, 1);
}

}  // namespace
}  // namespace show
