#include "ui/event_loop.h"

#include <gmock/gmock.h>

#include <thread>

#include "platform/handles.h"
#include "support/virtual_loop.h"
#include "ui/timer.h"
#include "ui/window.h"
#include "ui/windows_loop.h"

namespace ui {
namespace {

using support::VirtualLoop;
using testing::ElementsAre;

/// A window that runs what it is given for each WM_APP message.
class Receiver : public Window {
  public:
    Receiver() {
        Style style;
        style.className = L"PanorellTestReceiver";
        style.style = WS_POPUP;
        create(style);
    }
    void post() { PostMessageW(hwnd(), WM_APP, 0, 0); }
    std::function<void()> onApp;

  private:
    bool onMessage(UINT message, WPARAM, LPARAM, LRESULT&) override {
        if (message != WM_APP) {
            return false;
        }
        onApp();
        return true;
    }
};

TEST(Timer, FiresEachPeriodOnTheVirtualClock) {
    VirtualLoop loop;
    Timer timer(loop, 100);
    std::vector<double> times;
    const double start = loop.now();
    timer.onTimer = [&] { times.push_back(loop.now() - start); };
    loop.advance(500);
    EXPECT_TRUE(times.empty()) << "a timer is off at first";
    timer.setEnabled(true);
    loop.advance(350);
    EXPECT_THAT(times, ElementsAre(600, 700, 800));
}

TEST(Timer, IntervalOfZeroNeverFires) {
    VirtualLoop loop;
    Timer timer(loop, 0);
    int fired = 0;
    timer.onTimer = [&] { ++fired; };
    timer.setEnabled(true);
    loop.advance(10'000);
    timer.setInterval(-5);
    loop.advance(10'000);
    EXPECT_EQ(fired, 0);
    timer.setInterval(10);
    loop.advance(10);
    EXPECT_EQ(fired, 1);
}

TEST(Timer, SettingIntervalOrEnabledStartsThePeriodAnew) {
    VirtualLoop loop;
    Timer timer(loop, 100);
    int fired = 0;
    timer.onTimer = [&] { ++fired; };
    timer.setEnabled(true);
    loop.advance(90);
    timer.setInterval(100);
    loop.advance(90);
    timer.setEnabled(true);
    loop.advance(90);
    EXPECT_EQ(fired, 0);
    loop.advance(10);
    EXPECT_EQ(fired, 1);
}

TEST(Timer, NeverFiresIntoItself) {
    VirtualLoop loop;
    Timer timer(loop, 10);
    Timer other(loop, 5);
    int depth = 0;
    int deepest = 0;
    int others = 0;
    int fired = 0;
    other.onTimer = [&] { ++others; };
    timer.onTimer = [&] {
        deepest = std::max(deepest, ++depth);
        const double until = loop.now() + 45;
        while (loop.now() < until) {
            loop.waitEvents();
        }
        --depth;
        ++fired;
    };
    timer.setEnabled(true);
    other.setEnabled(true);
    loop.advance(100);
    EXPECT_EQ(deepest, 1);
    EXPECT_GE(others, 15);
    EXPECT_GE(fired, 2);
    EXPECT_LE(fired, 3) << "what fell due meanwhile fires once";
}

/// How long 100 paced steps of 10 ms take, step i working for `work(i)` ms.
double pacedSteps(const std::function<int(int)>& work) {
    VirtualLoop loop;
    Timer timer(loop, 10, Timer::Pacing::FromTick);
    timer.onTimer = [&] { timer.setEnabled(false); };
    const double start = loop.now();
    timer.restart();
    for (int i = 0; i < 100; ++i) {
        while (timer.enabled()) {
            loop.waitEvents();
        }
        loop.sleep(work(i));
        timer.restart();
    }
    return loop.now() - start;
}

TEST(Timer, PacedTimerCountsFromTheTick) {
    EXPECT_NEAR(pacedSteps([](int) { return 4; }), 1000, 10);
}

TEST(Timer, PacedTimerCatchesUpWithALongStepButNotWithAHalt) {
    EXPECT_NEAR(pacedSteps([](int i) { return i % 4 == 0 ? 18 : 4; }), 1000, 20);
    EXPECT_NEAR(pacedSteps([](int i) { return i == 50 ? 300 : 4; }), 1290, 20) << "no rush after it";
    EXPECT_NEAR(pacedSteps([](int) { return 12; }), 1200, 40) << "as fast as the work goes";
}

TEST(WindowsLoop, PacedTimerKeepsTenMilliseconds) {
    WindowsLoop loop;
    Timer timer(loop, 10, Timer::Pacing::FromTick);
    timer.onTimer = [&] { timer.setEnabled(false); };
    const double start = loop.now();
    timer.restart();
    constexpr int kSteps = 50;
    for (int i = 0; i < kSteps; ++i) {
        while (timer.enabled()) {
            loop.waitEvents();
        }
        timer.restart();
    }
    // Earlier would be wrong on any machine; how late it may come is the benchmark's business.
    EXPECT_GE(loop.now() - start, kSteps * 10 - 1);
}

TEST(WindowsLoop, TimersFireInTheSystemsOwnModalLoops) {
    WindowsLoop loop;
    Timer timer(loop, 30);
    int fired = 0;
    timer.onTimer = [&] { ++fired; };
    timer.setEnabled(true);
    // What a modal loop of the system does: it dispatches and knows nothing of ours.
    MSG message{};
    while (fired < 3 && GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
    EXPECT_EQ(fired, 3);
}

// As a film's frames are painted by a thread of their own while a fade of its sound lets nothing else run.
TEST(WindowsLoop, WhatAnotherThreadPaintsIsSeenWhileItSleeps) {
    WindowsLoop loop;
    const Receiver window;
    SetWindowPos(window.hwnd(), HWND_TOPMOST, 40, 40, 60, 60, SWP_SHOWWINDOW | SWP_NOACTIVATE);
    loop.doEvents();
    // Before the other one paints: to ask for a device context brings to the screen what was painted, too.
    const platform::WindowDc screen(nullptr);
    // For 50 ms after a wait nothing but another wait does.
    MsgWaitForMultipleObjectsEx(0, nullptr, 0, 0, 0);
    std::thread([&] {
        const platform::WindowDc frame(window.hwnd());
        const RECT all{0, 0, 60, 60};
        SetDCBrushColor(frame.get(), RGB(255, 0, 0));
        FillRect(frame.get(), &all, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    }).join();
    bool seen = false;
    for (const double end = loop.now() + 5000; !seen && loop.now() < end;) {
        loop.sleepUntil(loop.now() + 4);
        seen = GetPixel(screen.get(), 70, 70) == RGB(255, 0, 0);
    }
    EXPECT_TRUE(seen);
}

TEST(WindowsLoop, TimeOfDayIsTheLocalTime) {
    WindowsLoop loop;
    SYSTEMTIME time{};
    GetLocalTime(&time);
    const double expected = time.wHour * 3600.0 + time.wMinute * 60.0 + time.wSecond;
    const double difference = loop.timeOfDay() - expected;
    EXPECT_TRUE((difference >= 0 && difference < 3) || difference < -86'390) << difference;
}

TEST(Leaving, EndsAWaitInsideAHandler) {
    VirtualLoop loop;
    Receiver window;
    bool cameBack = false;
    bool unwound = false;
    window.onApp = [&] {
        struct Unwound {
            bool& flag;
            ~Unwound() { flag = true; }
        } guard{unwound};
        loop.at(50, [&] { loop.leave(); });
        loop.waitEvents();
        cameBack = true;
    };
    window.post();
    loop.run();
    EXPECT_TRUE(unwound);
    EXPECT_FALSE(cameBack);
    EXPECT_THROW(loop.doEvents(), Leaving);
    EXPECT_THROW(loop.waitEvents(), Leaving);
    EXPECT_THROW(loop.sleep(1), Leaving);
}

TEST(Leaving, PassesThroughNestedHandlersAndWindowProcedures) {
    VirtualLoop loop;
    Receiver outer;
    Receiver inner;
    int passed = 0;
    inner.onApp = [&] {
        loop.leave();
        loop.doEvents();
        ++passed;
    };
    outer.onApp = [&] {
        inner.post();
        loop.doEvents();
        ++passed;
    };
    outer.post();
    loop.run();
    EXPECT_EQ(passed, 0);
}

TEST(Leaving, StartsNoHandlerAnyMore) {
    VirtualLoop loop;
    Receiver window;
    int handled = 0;
    window.onApp = [&] { ++handled; };
    loop.leave();
    SendMessageW(window.hwnd(), WM_APP, 0, 0);
    EXPECT_EQ(handled, 0);
}

TEST(Trap, FailureEndsItsHandlerOnly) {
    VirtualLoop loop;
    Receiver window;
    std::string told;
    loop.onTrapped = [&](const std::exception& failure) { told = failure.what(); };
    int handled = 0;
    window.onApp = [&] {
        if (++handled == 1) {
            throw std::runtime_error("first");
        }
    };
    window.post();
    window.post();
    loop.settle();
    EXPECT_EQ(handled, 2);
    EXPECT_EQ(told, "first");
}

TEST(Trap, FailureInATimerLeavesTheTimerRunning) {
    VirtualLoop loop;
    Timer timer(loop, 10);
    int fired = 0;
    timer.onTimer = [&] {
        ++fired;
        throw std::runtime_error("tick");
    };
    timer.setEnabled(true);
    loop.advance(30);
    EXPECT_EQ(fired, 3);
    EXPECT_FALSE(timer.firing());
}

TEST(Leaving, EndsModalBoxesNewestFirst) {
    VirtualLoop loop;
    std::vector<int> ended;
    loop.pushModal([&] { ended.push_back(1); });
    loop.pushModal([&] { ended.push_back(2); });
    loop.leave();
    EXPECT_THAT(ended, ElementsAre(2, 1));
}

}  // namespace
}  // namespace ui
