// The program is left from inside whatever may be running: it ends without a crash, and no handler runs on
// controls that are gone.
#include <gmock/gmock.h>

#include "support/app_stage.h"
#include "support/message_boxes.h"

namespace app {
namespace {

using support::AppStage;

class LeavingTest : public testing::Test {
  protected:
    LeavingTest() {
        stage.picture(L"a.jpg", 0xC02020);
        stage.picture(L"b.jpg", 0x20C020);
        stage.picture(L"c.jpg", 0x2020C0);
    }
    ~LeavingTest() override {
        // What was posted to the windows meanwhile, and timers, come to nothing.
        stage.application.reset();
        stage.loop.settle();
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            DispatchMessageW(&message);
        }
    }
    Form1& form() { return stage.form(); }
    /// Lets the show run until something happens, and leaves then by Escape.
    bool escapeWhen(const std::function<bool()>& reached) {
        bool left = false;
        for (int ms = 50; ms < 20'000 && !left; ms += 50) {
            stage.loop.at(ms, [&] {
                if (!left && reached()) {
                    left = true;
                    stage.type(27);
                }
            });
        }
        stage.loop.advance(20'000);
        return left;
    }
    AppStage stage;
};

TEST_F(LeavingTest, FromTheHelpBox) {
    stage.loadFolder();
    bool goneOn = false;
    const support::MessageBoxes boxes([&] { stage.loop.leave(); });
    stage.loop.guarded([&] {
        form().Help.onClick();
        goneOn = true;
    });
    EXPECT_EQ(boxes.seen().size(), 1U);
    EXPECT_FALSE(goneOn) << "the handler that waited ends";
    EXPECT_TRUE(stage.loop.leaving());
}

TEST_F(LeavingTest, FromTheHelpBoxByClosingTheProgram) {
    stage.loadFolder();
    const support::MessageBoxes boxes([&] { SendMessageW(form().hwnd(), WM_CLOSE, 0, 0); });
    form().Help.click();
    EXPECT_EQ(boxes.seen().size(), 1U);
    EXPECT_TRUE(stage.loop.leaving());
    EXPECT_EQ(stage.system.count("tray delete"), 1);
}

const support::ImportHook* drivesHook = nullptr;
DWORD WINAPI oneDriveMore() {
    return drivesHook->original<decltype(GetLogicalDrives)>()() | 1U << (L'Q' - L'A');
}

TEST_F(LeavingTest, FromTheMessageOfADrive) {
    const support::ImportHook hook("GetLogicalDrives", &oneDriveMore);
    drivesHook = &hook;
    stage.loadFolder();
    const support::MessageBoxes boxes([&] { stage.loop.leave(); });
    stage.loop.guarded([&] { form().Drive1.setDrive(L"Q:"); });
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_EQ(boxes.seen()[0].title, L" Fehler");
    EXPECT_TRUE(stage.loop.leaving());
    EXPECT_EQ(form().Dir1.path(), stage.pictures.path());
}

TEST_F(LeavingTest, FromTheMiddleOfATransition) {
    stage.loadFolder(L" P=1");
    form().Run.click();
    EXPECT_TRUE(escapeWhen([&] { return form().Timer2.enabled(); }));
    EXPECT_TRUE(stage.loop.leaving());
    EXPECT_EQ(stage.system.count("tray delete"), 1);
    const int index = stage.showState().pictureIndex;
    stage.loop.advance(10'000);
    EXPECT_EQ(stage.showState().pictureIndex, index);
}

TEST_F(LeavingTest, FromATitleThatSlidesOut) {
    stage.pictures.file(L"Panorell.txt", "a Ein Titel *P=30\r\n");
    stage.loadFolder();
    form().Run.click();
    ASSERT_TRUE(form().UT.visible());
    const float top = form().UT.top();
    EXPECT_TRUE(escapeWhen([&] { return form().UT.visible() && form().UT.top() > top; }));
    EXPECT_TRUE(stage.loop.leaving());
}

TEST_F(LeavingTest, FromTheFadeOutOfTheMusic) {
    stage.pictures.file(L"01 Lied.mp3");
    stage.loadFolder(L" P=1 M=1");
    form().Run.click();
    const auto fades = [&] {
        const auto commands = stage.control.commands();
        return form().EOT.visible() && !commands.empty() && commands.back() == "setaudio AUDIO volume to 150";
    };
    bool left = false;
    stage.control.onSend = [&](const std::string&) {
        if (!left && fades()) {
            left = true;
            stage.control.onSend = nullptr;
            PostMessageW(form().hwnd(), WM_CLOSE, 0, 0);
        }
    };
    stage.loop.advance(30'000);
    EXPECT_TRUE(left);
    EXPECT_TRUE(stage.loop.leaving());
    const auto commands = stage.control.commands();
    ASSERT_GE(commands.size(), 4U);
    EXPECT_EQ(commands.back(), "close AUDIO");
    EXPECT_EQ(std::count(commands.begin(), commands.end(), "setaudio AUDIO volume to 100"), 0)
        << "the fade goes on no more";
}

TEST_F(LeavingTest, FromAStepThatWaitsForItsPicture) {
    stage.picture(L"b.jpg", 0x20C020, 4000, 3000);
    stage.loadFolder(L" P=1");
    form().Run.click();
    stage.loop.at(1000, [&] { PostMessageW(form().hwnd(), WM_CLOSE, 0, 0); });
    stage.loop.advance(5000);
    EXPECT_TRUE(stage.loop.leaving());
}

TEST_F(LeavingTest, WhenTheSystemAsksTheThreadToQuit) {
    stage.loadFolder();
    PostQuitMessage(0);
    stage.loop.settle();
    EXPECT_TRUE(stage.loop.leaving());
    form().Run.click();
    EXPECT_EQ(stage.showState().showMode, show::kNoShow);
}

}  // namespace
}  // namespace app
