#include "ui/event_loop.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "ui/held_input.h"
#include "ui/timer.h"

namespace ui {

namespace {

// A turn of the loop dispatches no more.
constexpr int kMostMessages = 1000;

thread_local EventLoop* currentLoop = nullptr;

// The loops that the system runs while a menu is open, a window is moved or a scroll bar is held know nothing
// of ours. Losing the capture ends them on Windows; the moving loop of Wine goes on and looks at keys only.
void endSystemLoops() {
    EndMenu();
    GUITHREADINFO state{};
    state.cbSize = sizeof(state);
    if (GetGUIThreadInfo(GetCurrentThreadId(), &state) == FALSE) {
        return;
    }
    if (state.hwndCapture != nullptr) {
        SendMessageW(state.hwndCapture, WM_CANCELMODE, 0, 0);
    }
    if (state.hwndMoveSize != nullptr) {
        PostMessageW(state.hwndMoveSize, WM_KEYDOWN, VK_ESCAPE, 1);
    }
}

bool within(UINT message, UINT first, UINT last) {
    return message >= first && message <= last;
}

// The next message of the queue, but keys and mouse where they are held.
bool takeMessage(MSG& message) {
    if (!inputHeld()) {
        return PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;
    }
    constexpr UINT kLast = 0xFFFF;
    return PeekMessageW(&message, nullptr, WM_NULL, WM_KEYFIRST - 1, PM_REMOVE) != FALSE ||
           PeekMessageW(&message, nullptr, WM_KEYLAST + 1, WM_MOUSEFIRST - 1, PM_REMOVE) != FALSE ||
           PeekMessageW(&message, nullptr, WM_MOUSELAST + 1, kLast, PM_REMOVE) != FALSE;
}

// What a user wants of a window, and what a window wants of itself after a time.
bool asksForSomething(UINT message) {
    constexpr UINT kFirstPointer = 0x0240;  // WM_TOUCH, and the pointer messages behind it
    constexpr UINT kLastPointer = 0x0257;
    return within(message, WM_KEYFIRST, WM_KEYLAST) || within(message, WM_MOUSEFIRST, WM_MOUSELAST) ||
           within(message, WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK) ||
           within(message, kFirstPointer, kLastPointer) || message == WM_CLOSE || message == WM_SYSCOMMAND ||
           message == WM_COMMAND || message == WM_CONTEXTMENU || message == WM_HOTKEY ||
           message == WM_APPCOMMAND || message == WM_TIMER;
}

}  // namespace

EventLoop::EventLoop() {
    if (currentLoop != nullptr) {
        throw std::logic_error("a second event loop on one thread");
    }
    currentLoop = this;
}

EventLoop::~EventLoop() {
    currentLoop = nullptr;
}

EventLoop& EventLoop::current() {
    if (currentLoop == nullptr) {
        throw std::logic_error("no event loop on this thread");
    }
    return *currentLoop;
}

void EventLoop::checkLeaving() const {
    if (leaving_) {
        throw Leaving{};
    }
}

bool EventLoop::step() {
    const bool fires = firesSomething();
    if (fires) {
        fireTimers();
        checkLeaving();
    }
    const bool dispatched = dispatchOne();
    checkLeaving();
    return fires || dispatched;
}

void EventLoop::doEvents() {
    checkLeaving();
    // Timers once: one whose handler takes longer than its interval is due again at once. Messages bounded:
    // a handler that keeps invalidating would never let the queue run empty.
    fireTimers();
    checkLeaving();
    for (int i = 0; i < kMostMessages && dispatchOne(); ++i) {
        checkLeaving();
    }
    checkLeaving();
}

void EventLoop::waitEvents() {
    checkLeaving();
    while (!step()) {
        block(nextDue());
    }
}

void EventLoop::sleep(int ms) {
    checkLeaving();
    if (ms > 0) {
        blockFor(ms);
    }
}

void EventLoop::sleepUntil(double due) {
    checkLeaving();
    if (const double left = due - now(); left > 0) {
        blockFor(left);
    }
}

// Takes the next pending message and lets it do nothing but paint; false when there is none.
bool EventLoop::paintOne() {
    MSG message{};
    if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == FALSE) {
        return false;
    }
    if (message.message == WM_QUIT) {
        leaveAsked_ = true;
    } else if (!asksForSomething(message.message)) {
        DispatchMessageW(&message);
    }
    return true;
}

void EventLoop::waitPainting(HANDLE object) {
    while (MsgWaitForMultipleObjectsEx(1, &object, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE) ==
           WAIT_OBJECT_0 + 1) {
        paintOne();
    }
    // Also what came last was not meant for what follows. Bounded as in doEvents().
    for (int i = 0; i < kMostMessages && paintOne(); ++i) {
    }
    leaveIfAsked();
}

void EventLoop::sleepPainting(int ms) {
    const double due = now() + ms;
    do {
        for (int i = 0; i < kMostMessages && paintOne(); ++i) {
        }
        if (now() < due) {
            block(due);
        }
    } while (now() < due);
    leaveIfAsked();
}

void EventLoop::run() {
    try {
        for (;;) {
            waitEvents();
        }
    } catch (const Leaving&) {
        // The program is left: the caller destroys the forms.
    }
}

void EventLoop::leave() {
    if (held()) {
        leaveAsked_ = true;
        return;
    }
    leaving_ = true;
    for (std::size_t i = modals_.size(); i > 0; --i) {
        modals_[i - 1]();
    }
    endSystemLoops();
    // Wakes a loop that waits, also one of the system's own.
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

void EventLoop::release() {
    --holds_;
    leaveIfAsked();
}

void EventLoop::leaveIfAsked() {
    if (!held() && std::exchange(leaveAsked_, false)) {
        leave();
    }
}

void EventLoop::guarded(const std::function<void()>& handler) noexcept {
    if (leaving_) {
        return;
    }
    try {
        handler();
    } catch (const Leaving&) {
        // The wait one level further out throws it anew.
    } catch (const std::exception& failure) {
        if (onTrapped) {
            onTrapped(failure);
        }
    }
}

bool EventLoop::dispatchOne() {
    MSG message{};
    if (!takeMessage(message)) {
        return false;
    }
    if (message.message == WM_QUIT) {
        leave();
        return true;
    }
    if (!filter_ || !filter_(message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

void EventLoop::add(Timer& timer) {
    timers_.push_back(&timer);
}

void EventLoop::remove(Timer& timer) {
    timers_.erase(std::remove(timers_.begin(), timers_.end(), &timer), timers_.end());
    timersChanged();
}

double EventLoop::nextDue() const {
    double next = -1;
    for (const Timer* timer : timers_) {
        if (timer->running() && !timer->firing_ && (next < 0 || timer->due_ < next)) {
            next = timer->due_;
        }
    }
    return next;
}

bool EventLoop::firesSomething() const {
    const double next = nextDue();
    return next >= 0 && next <= now();
}

void EventLoop::fireTimers() noexcept {
    // A handler may start, stop or end timers, so the list is searched anew for each one; only what was due
    // on entry fires, or handlers longer than their interval would keep the loop here for ever.
    const double until = now();
    for (;;) {
        Timer* next = nullptr;
        for (Timer* timer : timers_) {
            if (timer->running() && !timer->firing_ && timer->due_ <= until &&
                (next == nullptr || timer->due_ < next->due_)) {
                next = timer;
            }
        }
        if (next == nullptr || leaving_) {
            return;
        }
        next->fire();
    }
}

}  // namespace ui
