// Screens that differ, and screens that change while a show runs.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <utility>

#include "support/import_hook.h"
#include "support/screen_test.h"

namespace app {
namespace {

using support::windowOf;

class ScreensTest : public support::ScreenTest {
  protected:
    /// Loads the folder with a second monitor beside the first one, and chooses it for the show.
    void chooseSecondScreenOfAnotherScaling() {
        stage.application.reset();
        stage.monitors.second = RECT{640, 0, 1440, 600};
        stage.monitors.dpi = 144;
        stage.monitors.secondDpi = 96;
        stage.create();
        stage.loadFolder();
        SetWindowPos(form().hwnd(), nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        stage.click(form().Screen2);
    }
};

/// Tells a form of a change of scaling when it comes to the second monitor, as the system does.
class ScalingTeller {
  public:
    ScalingTeller(HWND form, const support::FakeMonitors& monitors) : form_(form), monitors_(monitors) {
        SetWindowSubclass(form, tell, 77, reinterpret_cast<DWORD_PTR>(this));
    }
    ~ScalingTeller() { RemoveWindowSubclass(form_, tell, 77); }
    ScalingTeller(const ScalingTeller&) = delete;
    ScalingTeller& operator=(const ScalingTeller&) = delete;
    int told() const { return told_; }

  private:
    static LRESULT CALLBACK tell(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                 DWORD_PTR self) noexcept {
        const LRESULT result = DefSubclassProc(window, message, w, l);
        auto* teller = reinterpret_cast<ScalingTeller*>(self);
        const int dpi = teller->monitors_.dpiOf(window);
        if (message == WM_WINDOWPOSCHANGED && dpi != teller->dpi_) {
            const int before = std::exchange(teller->dpi_, dpi);
            ++teller->told_;
            RECT suggested{};
            GetWindowRect(window, &suggested);
            suggested.right = suggested.left + MulDiv(suggested.right - suggested.left, dpi, before);
            suggested.bottom = suggested.top + MulDiv(suggested.bottom - suggested.top, dpi, before);
            SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
        }
        return result;
    }

    HWND form_;
    const support::FakeMonitors& monitors_;
    int dpi_ = 144;
    int told_ = 0;
};

// The scaling that changes with the move asks for a new preview, which would shrink the surface to its place.
TEST_F(ScreensTest, AShowOnASecondScreenOfAnotherScalingFillsIt) {
    chooseSecondScreenOfAnotherScaling();
    const ScalingTeller teller(form().hwnd(), stage.monitors);
    form().Run.click();
    EXPECT_EQ(teller.told(), 1);
    expectSurface(*stage.monitors.second);
    EXPECT_FALSE(stage.application->previewLoading());
    for (int i = 0; i < 50; ++i) {
        stage.loop.advance(20);
        Sleep(2);
    }
    expectSurface(*stage.monitors.second);
    EXPECT_TRUE(support::alike(at(790, 10), kRed)) << "to its corners";
}

// A film would be opened for it in the middle of the start.
TEST_F(ScreensTest, TheMoveToASecondScreenBringsNoPreviewOfAFilm) {
    stage.pictures.remove(L"a.jpg");
    stage.pictures.file(L"a.mpg", "no film");
    chooseSecondScreenOfAnotherScaling();
    const ScalingTeller teller(form().hwnd(), stage.monitors);
    stage.control.clear();
    form().Start.click();
    ASSERT_EQ(teller.told(), 1);
    const auto commands = stage.control.commands();
    EXPECT_EQ(std::count_if(commands.begin(), commands.end(),
                            [](const std::string& command) { return command.rfind("open ", 0) == 0; }),
              1)
        << "for the show itself";
}

TEST_F(ScreensTest, NoPreviewBeginsInAShow) {
    stage.loadFolder();
    form().Start.click();
    form().File1.setSelectedIndex(1);
    EXPECT_FALSE(stage.application->previewLoading());
    stage.loop.advance(1000);
    expectSurface({0, 0, 640, 480});
    EXPECT_TRUE(support::alike(at(320, 240), kRed));
}

TEST_F(ScreensTest, APreviewIsPossibleAgainWhereNoShowBegan) {
    stage.loadFolder();
    stage.pictures.remove(L"a.jpg");
    stage.pictures.remove(L"b.jpg");
    form().File1.refresh();
    form().Start.click();
    ASSERT_TRUE(form().Start.visible());
    stage.picture(L"c.jpg", kGreen);
    stage.activate();
    form().File1.setSelectedIndex(0);
    ASSERT_TRUE(stage.previewed());
    EXPECT_TRUE(support::alike(stage.shown(), kGreen));
}

TEST_F(ScreensTest, TheSurfaceFollowsAScreenOfAnotherSize) {
    stage.loadFolder();
    form().Run.click();
    expectSurface({0, 0, 640, 480});
    resize({0, 0, 800, 300});
    expectSurface({0, 0, 800, 300});
    EXPECT_TRUE(support::alike(at(400, 150), kRed));
    EXPECT_TRUE(support::alike(at(205, 5), kRed)) << "400 x 300 in the middle";
    EXPECT_EQ(at(190, 150), 0U);
    EXPECT_EQ(at(610, 150), 0U);
    const RECT end = windowOf(form().EOT.hwnd());
    EXPECT_NEAR(end.left + end.right, 800, 1);
    stage.loop.advance(5200);
    EXPECT_EQ(stage.showState().pictureIndex, 1) << "the show goes on";
    EXPECT_TRUE(support::alike(at(400, 150), kGreen));
    expectSurface({0, 0, 800, 300});
    resize({0, 0, 640, 480});
    expectSurface({0, 0, 640, 480});
    EXPECT_TRUE(support::alike(at(2, 2), kGreen));
}

// Wine tells its programs nothing of it.
TEST_F(ScreensTest, TheSurfaceFollowsAScreenThatChangesInSilence) {
    stage.loadFolder(L" P=60");
    form().Run.click();
    stage.monitors.first = RECT{0, 0, 800, 300};
    stage.loop.advance(1100);
    expectSurface({0, 0, 800, 300});
    EXPECT_TRUE(support::alike(at(400, 150), kRed));
    EXPECT_EQ(at(190, 150), 0U);
    stage.monitors.first = RECT{0, 0, 640, 480};
    stage.loop.advance(1100);
    expectSurface({0, 0, 640, 480});
    EXPECT_EQ(stage.showState().pictureIndex, 0) << "the pause goes on";
}

TEST_F(ScreensTest, TheSurfaceGoesWhereAMonitorIsLeft) {
    stage.monitors.second = RECT{640, 0, 1440, 600};
    stage.loadFolder();
    SetWindowPos(form().hwnd(), nullptr, 700, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    form().Run.click();
    expectSurface({640, 0, 1440, 600});
    stage.monitors.second.reset();
    SendMessageW(form().hwnd(), WM_DISPLAYCHANGE, 32, MAKELPARAM(640, 480));
    stage.loop.settle();
    expectSurface({0, 0, 640, 480});
    SetWindowPos(form().hwnd(), nullptr, 900, 100, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    expectSurface({0, 0, 640, 480});
}

TEST_F(ScreensTest, ATransitionEndsBeforeTheSurfaceFollows) {
    stage.loadFolder(L" P=1");
    form().Check1.setValue(1);
    form().Run.click();
    form().Timer2.setInterval(10);
    stage.type(L'd');  // four seconds
    bool seen = false;
    const double begin = stage.loop.now();
    stage.loop.at(2500, [&] {
        seen = form().Pic3.visible();
        resize({0, 0, 800, 300});
    });
    stage.loop.advance(3000);
    EXPECT_TRUE(seen) << "in its middle";
    EXPECT_LT(stage.loop.now(), begin + 3100) << "at once, not when its four seconds are over";
    EXPECT_FALSE(form().Pic3.visible());
    expectSurface({0, 0, 800, 300});
    EXPECT_TRUE(support::alike(at(400, 150), kGreen));
    EXPECT_EQ(at(100, 150), 0U);
}

TEST_F(ScreensTest, AScreenThatChangesWhileAShowBeginsIsFollowedToo) {
    stage.pictures.remove(L"a.jpg");
    stage.pictures.file(L"a.mpg", "no film");
    stage.control.replyTo("status VIDEO length", "60000");
    stage.loadFolder();
    stage.control.onSend = [&, changed = false](const std::string& command) mutable {
        // The film is open, and the window is told while the start still works on it.
        if (command.rfind("open ", 0) == 0 && form().Pic2.clientSize().cx == 640 &&
            !std::exchange(changed, true)) {
            stage.monitors.first = RECT{0, 0, 800, 300};
            PostMessageW(form().hwnd(), WM_DISPLAYCHANGE, 32, MAKELPARAM(800, 300));
        }
    };
    form().Start.click();
    expectSurface({0, 0, 800, 300});
    EXPECT_THAT(stage.control.commands(), testing::Contains(" put VIDEO window at 0 0 800 300"));
}

TEST_F(ScreensTest, AFilmFillsTheScreenThatIsThere) {
    stage.pictures.remove(L"b.jpg");
    stage.pictures.file(L"b.mpg", "no film");
    stage.control.replyTo("status VIDEO length", "60000");
    stage.loadFolder(L" P=1");
    form().Run.click();
    stage.loop.advance(1200);
    stage.control.clear();
    resize({0, 0, 800, 300});
    EXPECT_THAT(stage.control.commands(), testing::ElementsAre(" put VIDEO window at 0 0 800 300"));
    expectSurface({0, 0, 800, 300});
}

TEST_F(ScreensTest, InTheSetupNothingFollows) {
    stage.loadFolder();
    const RECT before = windowOf(form().hwnd());
    resize({0, 0, 800, 600});
    const RECT after = windowOf(form().hwnd());
    EXPECT_TRUE(EqualRect(&before, &after));
    EXPECT_TRUE(form().Start.visible());
}

/// Commands of the system menu that reach the system, which does not carry them out.
std::vector<WPARAM> passedOn;

const support::ImportHook* defaultProcedure = nullptr;

LRESULT WINAPI noteCommands(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_SYSCOMMAND) {
        passedOn.push_back(w);
        return 0;
    }
    return defaultProcedure->original<decltype(DefWindowProcW)>()(window, message, w, l);
}

TEST_F(ScreensTest, AShowRefusesScreenSaverAndSleepUntilItsEnd) {
    const support::ImportHook hook("DefWindowProcW", noteCommands);
    defaultProcedure = &hook;
    stage.loadFolder(L" P=1");
    const auto refuses = [&](WPARAM command) {
        passedOn.clear();
        SendMessageW(form().hwnd(), WM_SYSCOMMAND, command, 0);
        return passedOn.empty();
    };
    EXPECT_FALSE(refuses(SC_SCREENSAVE));
    form().Run.click();
    EXPECT_TRUE(refuses(SC_SCREENSAVE));
    EXPECT_TRUE(refuses(SC_MONITORPOWER));
    EXPECT_TRUE(refuses(SC_SCREENSAVE | 2)) << "the low bits are the system's own";
    EXPECT_FALSE(refuses(SC_MINIMIZE));
    stage.loop.advance(6000);
    ASSERT_TRUE(form().EOT.visible());
    EXPECT_FALSE(refuses(SC_SCREENSAVE));
    EXPECT_FALSE(refuses(SC_MONITORPOWER));
}

// Who has brought another window before the show has it there still.
TEST_F(ScreensTest, AShowThatFollowsStaysBehindWhatLiesBeforeIt) {
    stage.loadFolder();
    form().Start.click();
    const HWND other = CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_VISIBLE, 10, 10, 50, 50, nullptr,
                                       nullptr, nullptr, nullptr);
    SetWindowPos(other, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    const auto liesBefore = [&] {
        HWND above = GetWindow(form().hwnd(), GW_HWNDPREV);
        while (above != nullptr && above != other) {
            above = GetWindow(above, GW_HWNDPREV);
        }
        return above == other;
    };
    EXPECT_TRUE(liesBefore());
    resize({0, 0, 800, 300});
    EXPECT_TRUE(liesBefore());
    DestroyWindow(other);
}

TEST_F(ScreensTest, AMinimisedShowFollowsWhenItComesBack) {
    stage.loadFolder();
    form().Run.click();
    ShowWindow(form().hwnd(), SW_MINIMIZE);
    ASSERT_TRUE(IsIconic(form().hwnd()));
    resize({0, 0, 800, 300});
    EXPECT_EQ(form().Pic2.image().width(), 640) << "as it was";
    ShowWindow(form().hwnd(), SW_RESTORE);
    ASSERT_TRUE(stage.until([&] { return form().Pic2.image().width() == 800; }));
    expectSurface({0, 0, 800, 300});
    EXPECT_TRUE(support::alike(at(400, 150), kRed));
    stage.loop.advance(5200);
    EXPECT_EQ(stage.showState().pictureIndex, 1);
}

TEST_F(ScreensTest, ADoubleClickOnRunIsOneClickWhereAFilmFadesInFirst) {
    stage.pictures.file(L"0.mpg", "no film");
    stage.control.replyTo("status VIDEO length", "60000");
    stage.loadFolder();
    ASSERT_EQ(form().MUTE.value(), 1);
    form().Run.click();
    stage.control.clear();
    SendMessageW(form().Pic2.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(300, 300));
    EXPECT_EQ(stage.showState().showMode, show::kAutomatically);
    EXPECT_THAT(stage.control.commands(), testing::IsEmpty()) << "the film is not halted";
    stage.loop.advance(GetDoubleClickTime() + 10);
    SendMessageW(form().Pic2.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(300, 300));
    EXPECT_EQ(stage.showState().showMode, show::kByHand);
}

// The second press of the double click on Load comes while the film is still being opened.
TEST_F(ScreensTest, APressWhileTheShowBeginsIsNone) {
    stage.pictures.file(L"0.mpg", "no film");
    stage.loadFolder();
    bool pressed = false;
    stage.control.onSend = [&](const std::string& command) {
        if (!pressed && command.starts_with("open ") && stage.showState().showMode == show::kByHand) {
            pressed = true;
            SendMessageW(form().Pic2.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(300, 300));
        }
    };
    form().Start.click();
    EXPECT_TRUE(pressed);
    EXPECT_FALSE(stage.showState().quickStepPending);
    stage.loop.advance(200);
    EXPECT_EQ(stage.showState().pictureIndex, 0);
}

TEST_F(ScreensTest, TheSettingsTellTheShapeThatPicturesAreComparedWith) {
    stage.monitors.first = RECT{0, 0, 640, 360};
    stage.loadFolder();
    form().Start.click();
    EXPECT_EQ(at(40, 180), 0U) << "4:3 keeps its shape on a wide screen";
    EXPECT_TRUE(support::alike(at(320, 2), kRed));
    stage.application.reset();
    stage.program.file(L"Panorell.ini", "[Prog]\r\nShape=4:3\r\n");
    stage.create();
    stage.loadFolder();
    form().Start.click();
    EXPECT_TRUE(support::alike(at(2, 180), kRed)) << "or is stretched over it";
    EXPECT_TRUE(support::alike(at(637, 180), kRed));
}

}  // namespace
}  // namespace app
