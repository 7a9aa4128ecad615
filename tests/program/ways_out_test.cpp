// Every way out of the real program: it ends without an error, leaves no process, and leaves on the clipboard
// or starts anew what it should.
#include <gtest/gtest.h>

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

class WaysOut : public testing::Test {
  protected:
    void openSetUp() {
        ASSERT_TRUE(setClipboardText(L"nothing yet"));
        ASSERT_TRUE(panorell_.openSetUp(folder_.path() + L" P=7 D=1 E=0 V=0 M=0 S=2"));
    }

    /// Starts the show and waits for its first picture.
    void openShow(const std::wstring& parameters) {
        ASSERT_TRUE(setClipboardText(L"nothing yet"));
        panorell_.start(folder_.path() + parameters + L" M=0 R=1");
        ASSERT_TRUE(watch_.comes(1));
        ASSERT_TRUE(bringToFront(panorell_.form()));
    }

    void expectEnded() {
        ASSERT_TRUE(panorell_.ends());
        EXPECT_EQ(panorell_.exitCode(), 0U);
        EXPECT_TRUE(panorell_.leavesNoProcess());
    }

    void expectCommandLineOnClipboard() {
        EXPECT_EQ(clipboardText(), panorell_.exe() + L" " + folder_.path() + L" P=7 D=1 E=0 V=0 M=0 S=2");
    }

    PictureFolder folder_{3};
    ShowWatch watch_{folder_.pictures()};
    Panorell panorell_;
};

TEST_F(WaysOut, TheEndButtonLeavesTheCommandLine) {
    openSetUp();
    ASSERT_TRUE(panorell_.clickOn(id::kENDE));
    expectEnded();
    expectCommandLineOnClipboard();
}

TEST_F(WaysOut, TheEmblemLeavesTheCommandLine) {
    openSetUp();
    ASSERT_TRUE(panorell_.clickOn(id::kPic3));
    expectEnded();
    expectCommandLineOnClipboard();
}

TEST_F(WaysOut, EscapeInTheSetUpWindow) {
    openSetUp();
    ASSERT_TRUE(bringToFront(panorell_.form()));
    ASSERT_TRUE(pressKey(panorell_.form(), VK_ESCAPE));
    expectEnded();
    expectCommandLineOnClipboard();
}

TEST_F(WaysOut, TheWindowIsClosed) {
    openSetUp();
    PostMessageW(panorell_.form(), WM_SYSCOMMAND, SC_CLOSE, 0);
    expectEnded();
}

TEST_F(WaysOut, TheClipboardTextStartsTheSameProgram) {
    openSetUp();
    ASSERT_TRUE(panorell_.clickOn(id::kENDE));
    ASSERT_TRUE(panorell_.ends());
    const std::wstring line = clipboardText();
    ASSERT_EQ(line.find(panorell_.exe() + L" "), 0U);
    ASSERT_TRUE(panorell_.openSetUp(line.substr(panorell_.exe().size() + 1)));
    EXPECT_EQ(panorell_.at(id::kIntT).text(), L"7");
    EXPECT_EQ(panorell_.at(id::kShowFN).checkState(), 1);
    EXPECT_EQ(panorell_.at(id::kMUTE).checkState(), 0);
    EXPECT_EQ(panorell_.at(id::kFile1).items().size(), 3U);
    EXPECT_EQ(panorell_.chosenSet(), 2);
}

TEST_F(WaysOut, EscapeDuringTheShow) {
    openShow(L" P=9");
    ASSERT_TRUE(pressKey(panorell_.form(), VK_ESCAPE));
    expectEnded();
    EXPECT_EQ(clipboardText(), L"nothing yet");
}

TEST_F(WaysOut, TheWindowOfAShowIsClosed) {
    openShow(L" P=9");
    PostMessageW(panorell_.form(), WM_CLOSE, 0, 0);
    expectEnded();
}

TEST_F(WaysOut, EscapeInTheMiddleOfATransition) {
    openShow(L" P=60");
    ASSERT_TRUE(typeText(panorell_.form(), L"b"));
    ASSERT_TRUE(pressKey(panorell_.form(), VK_RIGHT));
    ASSERT_TRUE(waitFor([&] { return panorell_.at(id::kPic3).visible(); }, kPatience, "the overlay comes"));
    ASSERT_TRUE(pressKey(panorell_.form(), VK_ESCAPE));
    expectEnded();
}

TEST_F(WaysOut, EscapeWhilePaused) {
    openShow(L" P=1");
    ASSERT_TRUE(pressKey(panorell_.form(), VK_DOWN));
    ASSERT_TRUE(pressKey(panorell_.form(), VK_ESCAPE));
    expectEnded();
}

TEST_F(WaysOut, EscapeWhileATitleStands) {
    folder_.writeScript("bild01 Am Strand *P=30\r\n");
    openShow(L" P=9");
    ASSERT_TRUE(waitFor([&] { return panorell_.at(id::kUT).visible(); }, kPatience, "the title comes"));
    ASSERT_TRUE(pressKey(panorell_.form(), VK_ESCAPE));
    expectEnded();
}

TEST_F(WaysOut, EscapeWhileAVideoPlays) {
    copyFile(L"" PANORELL_TEST_DATA "/media/film_352x288.mpg", folder_.file(L"film.mpg"));
    panorell_.start(folder_.path() + L" P=9 M=0 L=3 R=1");
    ASSERT_TRUE(waitFor(
        [&] { return panorell_.form() && !panorell_.inSetUpState() && watch_.now() == ShowWatch::kOther; },
        kPatience, "the film is seen"));
    ASSERT_TRUE(bringToFront(panorell_.form()));
    ASSERT_TRUE(pressKey(panorell_.form(), VK_ESCAPE));
    expectEnded();
}

TEST_F(WaysOut, ClosedWhileTheHelpBoxIsOpen) {
    openSetUp();
    ASSERT_TRUE(panorell_.clickOn(id::kHelp));
    ASSERT_NE(panorell_.window(L"#32770"), nullptr);
    PostMessageW(panorell_.form(), WM_CLOSE, 0, 0);
    expectEnded();
    expectCommandLineOnClipboard();
}

TEST_F(WaysOut, ClosedWhileItsMenuIsOpen) {
    openSetUp();
    PostMessageW(panorell_.form(), WM_SYSCOMMAND, SC_KEYMENU, L' ');
    const DWORD thread = GetWindowThreadProcessId(panorell_.form(), nullptr);
    ASSERT_TRUE(waitFor(
        [&] {
            GUITHREADINFO state{};
            state.cbSize = sizeof(state);
            return GetGUIThreadInfo(thread, &state) != FALSE && (state.flags & GUI_INMENUMODE) != 0;
        },
        kPatience, "the menu opens"));
    PostMessageW(panorell_.form(), WM_CLOSE, 0, 0);
    expectEnded();
    expectCommandLineOnClipboard();
}

TEST_F(WaysOut, EscapeAtTheEndOfTheShow) {
    openShow(L" P=1");
    ASSERT_TRUE(
        waitFor([&] { return panorell_.at(id::kEOT).visible(); }, kPatience, "the end button appears"));
    ASSERT_TRUE(pressKey(panorell_.form(), VK_ESCAPE));
    expectEnded();
}

TEST_F(WaysOut, TheEndButtonOfTheShow) {
    openShow(L" P=1");
    ASSERT_TRUE(
        waitFor([&] { return panorell_.at(id::kEOT).visible(); }, kPatience, "the end button appears"));
    ASSERT_TRUE(click(panorell_.at(id::kEOT)));
    expectEnded();
}

TEST_F(WaysOut, TypingAfterTheLastPictureStartsTheProgramAnew) {
    openShow(L" P=1 D=0 E=0 V=0 S=3");
    ASSERT_TRUE(
        waitFor([&] { return panorell_.at(id::kEOT).visible(); }, kPatience, "the end button appears"));
    ASSERT_TRUE(typeText(panorell_.form(), L"x"));
    ASSERT_TRUE(panorell_.followSuccessor());
    ASSERT_TRUE(waitFor([&] { return panorell_.inSetUpState() && panorell_.at(id::kCTRL).enabled(); },
                        kPatience, "set-up"));
    EXPECT_EQ(panorell_.at(id::kIntT).text(), L"1");
    EXPECT_EQ(panorell_.at(id::kMUTE).checkState(), 0);
    EXPECT_EQ(panorell_.at(id::kMusik).checkState(), 0);
    EXPECT_EQ(panorell_.at(id::kFile1).items().size(), 3U);
    EXPECT_EQ(panorell_.chosenSet(), 3);
    ASSERT_TRUE(panorell_.clickOn(id::kENDE));
    expectEnded();
}

TEST_F(WaysOut, AProgramDirectoryIsLeftAsItWas) {
    openSetUp();
    ASSERT_TRUE(panorell_.clickOn(id::kENDE));
    expectEnded();
    EXPECT_EQ(iniValue(panorell_.settingsFile(), L"Set1", L"Delay"), L"(missing)");
    EXPECT_FALSE(exists(panorell_.settingsFile()));
}

}  // namespace
}  // namespace program
