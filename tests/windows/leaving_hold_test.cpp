// Leaving the program, and the end of the session, wait until files have their names.
#include "ui/leaving_hold.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>

#include "support/import_hook.h"
#include "support/test_form.h"
#include "ui/timer.h"

namespace ui {
namespace {

using testing::ElementsAre;

constexpr const wchar_t* kReason = L"Dateien werden umbenannt.";

std::vector<std::pair<HWND, std::wstring>> blocked;
std::vector<HWND> unblocked;

BOOL WINAPI noteBlock(HWND window, LPCWSTR reason) {
    blocked.emplace_back(window, reason);
    return TRUE;
}

BOOL WINAPI noteUnblock(HWND window) {
    unblocked.push_back(window);
    return TRUE;
}

class LeavingHoldTest : public testing::Test {
  protected:
    LeavingHoldTest() {
        blocked.clear();
        unblocked.clear();
    }
    bool sessionMayEnd() const { return SendMessageW(test.form.hwnd(), WM_QUERYENDSESSION, 0, 0) != FALSE; }

    support::TestForm test;
    support::ImportHook block_{"ShutdownBlockReasonCreate", &noteBlock};
    support::ImportHook unblock_{"ShutdownBlockReasonDestroy", &noteUnblock};
};

TEST_F(LeavingHoldTest, LeavingComesWhenTheLastOneEnds) {
    std::optional<LeavingHold> outer(std::in_place, test.loop, kReason);
    std::optional<LeavingHold> inner(std::in_place, test.loop, kReason);
    test.loop.leave();
    EXPECT_FALSE(test.loop.leaving());
    EXPECT_NO_THROW(test.loop.doEvents());
    inner.reset();
    EXPECT_FALSE(test.loop.leaving());
    outer.reset();
    EXPECT_TRUE(test.loop.leaving());
    EXPECT_THROW(test.loop.doEvents(), Leaving);
}

TEST_F(LeavingHoldTest, WhereNobodyAskedNothingComes) {
    std::optional<LeavingHold> hold(std::in_place, test.loop, kReason);
    hold.reset();
    EXPECT_FALSE(test.loop.leaving());
}

TEST_F(LeavingHoldTest, TheSystemsMessageToQuitWaitsToo) {
    std::optional<LeavingHold> hold(std::in_place, test.loop, kReason);
    PostQuitMessage(0);
    EXPECT_NO_THROW(test.loop.doEvents());
    EXPECT_FALSE(test.loop.leaving());
    hold.reset();
    EXPECT_TRUE(test.loop.leaving());
}

TEST_F(LeavingHoldTest, TheSessionIsNotEndedAndItsUserToldWhy) {
    EXPECT_TRUE(sessionMayEnd());
    const Form hidden({.className = L"PanorellTestForm", .title = L"Test", .width = 900, .height = 600});
    {
        const LeavingHold hold(test.loop, kReason);
        EXPECT_FALSE(sessionMayEnd());
        EXPECT_THAT(blocked, ElementsAre(std::pair(test.form.hwnd(), std::wstring(kReason))));
        EXPECT_TRUE(unblocked.empty());
    }
    EXPECT_THAT(unblocked, ElementsAre(test.form.hwnd()));
    EXPECT_TRUE(sessionMayEnd());
}

TEST_F(LeavingHoldTest, SleepingPaintsAndDoesNothingElse) {
    int closes = 0;
    int keys = 0;
    int fired = 0;
    test.form.onCloseAsked = [&] { ++closes; };
    test.form.onKey = [&](int, bool) { return ++keys > 0; };
    Timer timer(test.loop, 10);
    timer.onTimer = [&] { ++fired; };
    timer.setEnabled(true);
    PostMessageW(test.form.hwnd(), WM_CLOSE, 0, 0);
    PostMessageW(test.form.hwnd(), WM_KEYDOWN, VK_RIGHT, 1);
    InvalidateRect(test.form.hwnd(), nullptr, TRUE);
    const double before = test.loop.now();
    test.loop.sleepPainting(50);
    EXPECT_GE(test.loop.now() - before, 50);
    EXPECT_EQ(GetUpdateRect(test.form.hwnd(), nullptr, FALSE), FALSE) << "it has painted";
    EXPECT_EQ(fired, 0);
    test.loop.settle();
    EXPECT_EQ(closes + keys, 0) << "what was asked for is dropped";
}

TEST_F(LeavingHoldTest, LeavingComesWhenTheSleepIsOver) {
    PostQuitMessage(0);
    EXPECT_NO_THROW(test.loop.sleepPainting(20));
    EXPECT_TRUE(test.loop.leaving());
}

}  // namespace
}  // namespace ui
