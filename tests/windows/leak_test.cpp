// The whole program gives everything back, and the test bed notices what does not.
#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

#include "support/app_stage.h"
#include "support/leak_listener.h"
#include "support/process_usage.h"

namespace {

using support::AppStage;

BOOL CALLBACK countWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

int windowsOfThisThread() {
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), countWindow, reinterpret_cast<LPARAM>(&count));
    return count;
}

void wholeProgram() {
    AppStage stage;
    stage.picture(L"a.jpg", 0xC02020);
    stage.picture(L"b.jpg", 0x20C020);
    stage.pictures.file(L"Panorell.txt", "a Titel *P=1 *E=A *D\r\n");
    stage.loadFolder(L" L=1");
    stage.click(stage.form().Option1[0]);
    stage.form().Dir1.setPath(stage.pictures.path());
    stage.previewed();
    stage.form().Run.click();
    stage.loop.advance(3000);
    stage.type(27);
    EXPECT_TRUE(stage.loop.leaving());
}

TEST(Leaks, TheWholeProgramTwentyTimes) {
    // What the system itself keeps from the first time on does not count.
    wholeProgram();
    wholeProgram();
    const auto before = support::liveHandles();
    const int windows = windowsOfThisThread();
    const unsigned handles = support::ProcessUsage::now().handles;
    ASSERT_GT(handles, 0U);
    for (int i = 0; i < 20; ++i) {
        wholeProgram();
        ASSERT_EQ(support::liveHandles(), before) << i;
        ASSERT_EQ(windowsOfThisThread(), windows) << i;
    }
    EXPECT_LE(support::ProcessUsage::now().handles, handles + 5);
}

TEST(Leaks, AProgramThatIsNeverLoadedGivesEverythingBack) {
    const auto before = support::liveHandles();
    { AppStage stage; }
    EXPECT_EQ(support::liveHandles(), before);
}

class Listener : public testing::Test {
  protected:
    const testing::TestInfo& info() { return *testing::UnitTest::GetInstance()->current_test_info(); }
    support::LeakListener listener;
};

TEST_F(Listener, IsSilentWhenEverythingIsGivenBack) {
    listener.OnTestStart(info());
    {
        const platform::Region region(CreateRectRgn(0, 0, 1, 1));
        const platform::WindowDc dc(nullptr);
    }
    listener.OnTestEnd(info());
}

TEST_F(Listener, ReportsAHandleThatIsKept) {
    platform::Region region;
    listener.OnTestStart(info());
    region = platform::Region(CreateRectRgn(0, 0, 1, 1));
    EXPECT_NONFATAL_FAILURE(listener.OnTestEnd(info()), "changed the live handles of kind 0 from");
}

TEST_F(Listener, ReportsAHandleThatIsGivenAwayTwice) {
    listener.OnTestStart(info());
    platform::HandleCounts::add(platform::HandleKind::Icon, -1);
    EXPECT_NONFATAL_FAILURE(listener.OnTestEnd(info()), "changed the live handles of kind 4 from");
    platform::HandleCounts::add(platform::HandleKind::Icon, +1);
}

// ---- an exception that would cross a window procedure

struct Strange {};

/// A window whose handler fails with whatever it is told.
class FailingForm : public ui::Form {
  public:
    FailingForm() : Form({.className = L"FailingForm", .title = L"", .width = 1500, .height = 1500}) {}
    std::function<void()> fail;

  protected:
    bool onMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) override {
        if (message == WM_USER && fail) {
            fail();
        }
        return Form::onMessage(message, w, l, result);
    }
};

TEST(Trap, AFailureOfAHandlerIsCaughtBeforeTheWindowProcedureEnds) {
    support::VirtualLoop loop;
    std::vector<std::string> trapped;
    loop.onTrapped = [&](const std::exception& failure) { trapped.emplace_back(failure.what()); };
    FailingForm form;
    form.fail = [] { throw std::runtime_error("deliberate"); };
    SendMessageW(form.hwnd(), WM_USER, 0, 0);
    EXPECT_THAT(trapped, testing::ElementsAre("deliberate"));
    SendMessageW(form.hwnd(), WM_USER, 0, 0);
    EXPECT_EQ(trapped.size(), 2U) << "the window lives on";
}

void fail() {
    throw std::runtime_error("crosses");
}

LRESULT CALLBACK throwing(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
    if (message == WM_USER) {
        fail();
    }
    return DefWindowProcW(window, message, w, l);
}

void sendToARawProcedure() {
    const HWND window =
        CreateWindowExW(0, L"Static", L"", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(throwing));
    try {
        SendMessageW(window, WM_USER, 0, 0);
    } catch (const std::exception&) {
        // Where the system lets it through, nobody would have noticed.
        std::_Exit(0);
    }
    std::_Exit(0);
}

void sendWhatNobodyTraps() {
    support::VirtualLoop loop;
    FailingForm form;
    form.fail = [] { throw Strange{}; };
    SendMessageW(form.hwnd(), WM_USER, 0, 0);
    std::_Exit(0);
}

TEST(TrapDeathTest, AnExceptionThatLeavesAWindowProcedureEndsTheProcess) {
    EXPECT_DEATH(sendToARawProcedure(), "");
}

TEST(TrapDeathTest, NothingPassesTheTrapUnnoticed) {
    EXPECT_DEATH(sendWhatNobodyTraps(), "");
}

}  // namespace
