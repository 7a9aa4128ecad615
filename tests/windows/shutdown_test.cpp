#include "app/shutdown.h"

#include <gmock/gmock.h>

#include "app/help_text.h"
#include "platform/clipboard.h"
#include "support/app_stage.h"
#include "support/message_boxes.h"

namespace app {
namespace {

using support::AppStage;
using testing::ElementsAre;

const auto kMediaEnd = ElementsAre("stop VIDEO", "close VIDEO", "stop AUDIO", "close AUDIO");

class ShutdownTest : public testing::Test {
  protected:
    ShutdownTest() {
        stage.picture(L"a.jpg", 0xC02020);
        stage.picture(L"b.jpg", 0x20C020);
        platform::setClipboardText(nullptr, L"vorher");
    }
    Form1& form() { return stage.form(); }
    void load(const std::wstring& parameters = L"") {
        stage.loadFolder(parameters);
        stage.control.clear();
        stage.system.log.clear();
    }
    std::wstring command(const std::wstring& parameters) {
        return stage.program.path() + L"\\Panorell.exe " + stage.pictures.path() + parameters;
    }
    void expectClipboardEnd() {
        EXPECT_THAT(stage.control.commands(), kMediaEnd);
        EXPECT_EQ(platform::clipboardText(), command(L" P=5 D=0 E=0 V=1 M=1"));
        EXPECT_THAT(stage.system.log, ElementsAre("tray delete"));
        EXPECT_TRUE(stage.loop.leaving());
    }
    void expectShowEnd() {
        EXPECT_EQ(platform::clipboardText(), L"vorher");
        EXPECT_EQ(stage.system.count("tray delete"), 1);
        EXPECT_TRUE(stage.loop.leaving());
        EXPECT_FALSE(form().Pic3.visible());
        EXPECT_FALSE(form().Pic2.autoRedraw());
        EXPECT_FALSE(form().Pic3.autoRedraw());
        EXPECT_EQ(stage.showState().showMode, show::kNoShow);
        EXPECT_FALSE(form().Timer1.enabled());
        EXPECT_TRUE(stage.system.started.empty());
    }
    AppStage stage;
};

TEST_F(ShutdownTest, TheEndButtonLeavesTheCommandOnTheClipboard) {
    load();
    form().ENDE.click();
    expectClipboardEnd();
}

TEST_F(ShutdownTest, SoDoesAClickOnTheEmblem) {
    load();
    stage.click(form().Pic3);
    expectClipboardEnd();
}

TEST_F(ShutdownTest, SoDoesEscape) {
    load();
    form().Dir1.setFocus();
    stage.type(27);
    expectClipboardEnd();
}

TEST_F(ShutdownTest, EscapeInTheOpenListOfDrivesClosesOnlyThat) {
    load();
    const HWND drives = form().Drive1.hwnd();
    form().Drive1.setFocus();
    SendMessageW(drives, CB_SHOWDROPDOWN, TRUE, 0);
    ASSERT_TRUE(form().Drive1.droppedDown());
    const std::wstring folder = form().Dir1.path();
    const int chosen = form().Drive1.selectedIndex();
    PostMessageW(drives, WM_KEYDOWN, chosen > 0 ? VK_UP : VK_DOWN, 1);
    PostMessageW(drives, WM_KEYDOWN, VK_ESCAPE, 1);
    stage.loop.settle();
    EXPECT_FALSE(form().Drive1.droppedDown());
    EXPECT_FALSE(stage.loop.leaving());
    EXPECT_EQ(platform::clipboardText(), L"vorher");
    EXPECT_EQ(form().Drive1.selectedIndex(), chosen) << "what the arrow keys passed is no choice";
    EXPECT_EQ(form().Dir1.path(), folder);
    PostMessageW(drives, WM_KEYDOWN, VK_ESCAPE, 1);
    stage.loop.settle();
    expectClipboardEnd();
}

TEST_F(ShutdownTest, EscapeInTheHelpBoxClosesOnlyThat) {
    load();
    const support::MessageBoxes boxes([] {
        const HWND target = GetFocus() != nullptr ? GetFocus() : GetActiveWindow();
        PostMessageW(target, WM_KEYDOWN, VK_ESCAPE, 1);
        PostMessageW(target, WM_KEYUP, VK_ESCAPE, static_cast<LPARAM>(0xC0000001));
    });
    form().Help.click();
    stage.loop.settle();
    EXPECT_EQ(boxes.seen().size(), 1U);
    EXPECT_FALSE(stage.loop.leaving());
    EXPECT_EQ(platform::clipboardText(), L"vorher");
}

TEST_F(ShutdownTest, EscapeInTheMenuOfThePauseClosesOnlyThat) {
    load();
    static bool opened = false;
    opened = false;
    constexpr UINT kLookEveryMs = 10;
    SetTimer(form().IntT.hwnd(), 99, kLookEveryMs, [](HWND box, UINT, UINT_PTR id, DWORD) {
        GUITHREADINFO state{};
        state.cbSize = sizeof(state);
        GetGUIThreadInfo(GetCurrentThreadId(), &state);
        if ((state.flags & GUI_INMENUMODE) != 0) {
            KillTimer(box, id);
            opened = true;
            PostMessageW(state.hwndMenuOwner, WM_KEYDOWN, VK_ESCAPE, 1);
        }
    });
    form().IntT.setFocus();
    SendMessageW(form().IntT.hwnd(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(form().IntT.hwnd()),
                 MAKELPARAM(200, 200));
    stage.loop.settle();
    EXPECT_TRUE(opened);
    EXPECT_FALSE(stage.loop.leaving());
    EXPECT_EQ(platform::clipboardText(), L"vorher");
}

TEST_F(ShutdownTest, EscapeThatIsStillHeldDownSinceABoxDoesNotEndTheProgram) {
    load();
    form().Dir1.setFocus();
    constexpr LPARAM kHeld = (1L << 30) | 1;
    for (int i = 0; i < 3; ++i) {
        PostMessageW(form().Dir1.hwnd(), WM_KEYDOWN, VK_ESCAPE, kHeld);
    }
    stage.loop.settle();
    EXPECT_FALSE(stage.loop.leaving());
    PostMessageW(form().Dir1.hwnd(), WM_KEYDOWN, VK_ESCAPE, 1);
    stage.loop.settle();
    expectClipboardEnd();
}

TEST_F(ShutdownTest, ASecondEscapeThatWaitsDoesNothingMore) {
    load(L" R=1");
    PostMessageW(form().Pic2.hwnd(), WM_CHAR, 27, 1);
    PostMessageW(form().Pic2.hwnd(), WM_CHAR, 27, 1);
    PostMessageW(form().Pic2.hwnd(), WM_CHAR, 27, 1);
    stage.loop.settle();
    expectShowEnd();
    EXPECT_THAT(stage.control.commands(), kMediaEnd) << "once";
}

TEST_F(ShutdownTest, ALogOffThatWasCalledOffChangesNothing) {
    load();
    SendMessageW(form().hwnd(), WM_QUERYENDSESSION, 0, 0);
    SendMessageW(form().hwnd(), WM_ENDSESSION, FALSE, 0);
    EXPECT_EQ(stage.system.count("tray delete"), 0);
    EXPECT_FALSE(stage.loop.leaving());
}

TEST_F(ShutdownTest, SoDoesClosingTheWindow) {
    load();
    SendMessageW(form().hwnd(), WM_CLOSE, 0, 0);
    expectClipboardEnd();
}

TEST_F(ShutdownTest, ItsStepsComeInTheirOrder) {
    load();
    std::wstring atLastCommand;
    std::wstring atTray;
    std::size_t commandsAtTray = 0;
    stage.control.onSend = [&](const std::string&) {
        atLastCommand = platform::clipboardText();
        EXPECT_EQ(stage.system.count("tray delete"), 0);
    };
    stage.system.onCall = [&](const std::string&) {
        atTray = platform::clipboardText();
        commandsAtTray = stage.control.commands().size();
        EXPECT_FALSE(stage.loop.leaving());
    };
    form().ENDE.click();
    EXPECT_EQ(atLastCommand, L"vorher");
    EXPECT_EQ(atTray, command(L" P=5 D=0 E=0 V=1 M=1"));
    EXPECT_EQ(commandsAtTray, 4U);
}

TEST_F(ShutdownTest, ItStoresNoSettingsAndNamesNoPicture) {
    load(L" P=9 S=2 L=1");
    form().LoopC.setValue(1);
    form().ENDE.click();
    EXPECT_EQ(platform::clipboardText(), command(L" P=9 D=0 E=1 V=1 M=1 S=2"));
    EXPECT_EQ(GetFileAttributesW((stage.program / L"Panorell.ini").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(ShutdownTest, NoHandlerRunsAfterwards) {
    load();
    form().ENDE.click();
    stage.control.clear();
    stage.system.log.clear();
    stage.click(form().LoopC);
    stage.click(form().Pic3);
    form().Run.click();
    form().SAVE.click();
    stage.activate();
    stage.loop.advance(20'000);
    EXPECT_TRUE(stage.control.commands().empty());
    EXPECT_TRUE(stage.system.log.empty());
    EXPECT_EQ(stage.showState().showMode, show::kNoShow);
}

TEST_F(ShutdownTest, EscapeEndsAShow) {
    load();
    form().Run.click();
    stage.control.clear();
    stage.type(27);
    EXPECT_THAT(stage.control.commands(), kMediaEnd);
    expectShowEnd();
}

// The picture that comes in lies above the surface at that moment.
TEST_F(ShutdownTest, EscapeInTheMiddleOfATransitionHidesThePictureThatComesIn) {
    load(L" P=1 R=1");
    stage.type(L'd');  // four seconds
    bool seen = false;
    stage.loop.at(2500, [&] {
        seen = form().Pic3.visible();
        stage.control.clear();
        stage.type(27);
    });
    stage.loop.advance(3000);
    EXPECT_TRUE(seen) << "in its middle";
    EXPECT_THAT(stage.control.commands(), kMediaEnd);
    expectShowEnd();
}

TEST_F(ShutdownTest, WhatWaitsIsDoneBeforeTheEndOfAShow) {
    load(L" R=1");
    bool done = false;
    stage.system.onCall = [&](const std::string& call) {
        done = call == "tray delete" && form().LoopC.value() == 1;
    };
    PostMessageW(form().LoopC.hwnd(), BM_CLICK, 0, 0);
    form().onCloseAsked();
    EXPECT_TRUE(done);
    expectShowEnd();
}

TEST_F(ShutdownTest, ClosingTheWindowEndsAShow) {
    load();
    form().Run.click();
    stage.control.clear();
    SendMessageW(form().hwnd(), WM_CLOSE, 0, 0);
    EXPECT_THAT(stage.control.commands(), kMediaEnd);
    expectShowEnd();
}

TEST_F(ShutdownTest, TheEndButtonOfTheShowEndsIt) {
    load(L" P=1");
    form().Run.click();
    ASSERT_TRUE(stage.until([&] { return form().EOT.visible(); }));
    stage.loop.advance(2000);
    ASSERT_FALSE(stage.loop.leaving()) << "the last picture stands until its viewer acts";
    stage.control.clear();
    stage.click(form().EOT);
    EXPECT_THAT(stage.control.commands(), kMediaEnd);
    expectShowEnd();
}

TEST_F(ShutdownTest, AClickOnTheSurfaceOfAShowIsNoEnd) {
    load();
    form().Start.click();
    stage.click(form().Pic3);
    EXPECT_FALSE(stage.loop.leaving());
}

TEST_F(ShutdownTest, ACharacterAfterTheLastPictureStartsTheProgramAnew) {
    load(L" P=1 L=1");
    form().Run.click();
    ASSERT_TRUE(stage.until([&] { return form().EOT.visible(); }));
    stage.loop.advance(2000);
    stage.type(L'x');
    ASSERT_EQ(stage.system.started.size(), 1U);
    EXPECT_EQ(stage.system.started[0], command(L" P=1 D=0 E=0 V=1 M=1 L=1"));
    EXPECT_TRUE(stage.loop.leaving());
    EXPECT_EQ(platform::clipboardText(), L"vorher");
    stage.type(L'x');
    EXPECT_EQ(stage.system.started.size(), 1U);
}

TEST_F(ShutdownTest, WhereTheProgramCannotBeStartedAnewItGoesOnAndSaysSo) {
    load(L" P=1 L=1");
    form().Run.click();
    ASSERT_TRUE(stage.until([&] { return form().EOT.visible(); }));
    stage.loop.advance(2000);
    stage.system.startFails = true;
    {
        const support::MessageBoxes boxes;
        stage.type(L'x');
        ASSERT_EQ(boxes.seen().size(), 1U);
        EXPECT_EQ(boxes.seen()[0].text, L"Panorell konnte nicht neu gestartet werden.");
    }
    EXPECT_FALSE(stage.loop.leaving());
    EXPECT_TRUE(form().EOT.visible());
    stage.type(27);
    EXPECT_TRUE(stage.loop.leaving()) << "its end is as good as before";
}

TEST_F(ShutdownTest, ARestartIsReadBackToTheSameState) {
    load(L" P=1 D=1 V=0 M=0 S=3 L=1");
    form().Run.click();
    ASSERT_TRUE(stage.until([&] { return form().EOT.visible(); }));
    stage.loop.advance(2000);
    stage.type(L'x');
    ASSERT_EQ(stage.system.started.size(), 1U);
    const Parameters parameters = parseParameters(parametersOfCommandLine(stage.system.started[0]));
    EXPECT_EQ(parameters.folder, stage.pictures.path());
    EXPECT_EQ(parameters.startIndex, 1);
    EXPECT_EQ(parameters.optionIndex, 2);
    EXPECT_EQ(parameters.pauseText, L"1");
    EXPECT_EQ(parameters.date, 1);
    EXPECT_EQ(parameters.videoSound, 0);
    EXPECT_EQ(parameters.music, 0);
    EXPECT_FALSE(parameters.runAtOnce);
}

TEST_F(ShutdownTest, TheEndOfTheSessionTakesTheIconAway) {
    load();
    SendMessageW(form().hwnd(), WM_ENDSESSION, TRUE, 0);
    EXPECT_EQ(stage.system.count("tray delete"), 1);
}

TEST_F(ShutdownTest, TheHelpBoxShowsTheKeysAndChangesNothing) {
    load();
    const support::MessageBoxes boxes;
    form().Help.click();
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_EQ(boxes.seen()[0].title, L" Panorell");
    EXPECT_EQ(boxes.seen()[0].text, helpText());
    EXPECT_TRUE(stage.control.commands().empty());
    EXPECT_FALSE(stage.loop.leaving());
    EXPECT_EQ(stage.showState().showMode, show::kNoShow);
    form().Help.click();
    EXPECT_EQ(boxes.seen().size(), 2U) << "it can be opened again";
}

}  // namespace
}  // namespace app
