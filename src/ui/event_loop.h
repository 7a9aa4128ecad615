#pragma once

#include <windows.h>

#include <exception>
#include <functional>
#include <vector>

namespace ui {

class Timer;

/// Thrown by the waits of an EventLoop while the program is being left; unwinds the handler that waits.
struct Leaving {};

/// The one way to wait. One thread owns all windows; its loop lets window events and timers run.
///
/// A handler that must go on with the user interface alive calls doEvents() or waitEvents(). While the
/// program is being left these and sleep() throw Leaving, which ends the waiting handler; no handler
/// starts any more. The exception never crosses a window procedure: run() and the trap of each handler
/// catch it, and the wait one level further out throws it anew when its dispatch returns.
class EventLoop {
  public:
    EventLoop();
    virtual ~EventLoop();
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    /// The loop of this thread; exactly one lives while windows or timers do.
    static EventLoop& current();

    /// Lets everything that is pending run, without waiting for more. Throws Leaving.
    void doEvents();
    /// Waits until at least one event or timer has run. Throws Leaving.
    void waitEvents();
    /// Blocks for `ms` milliseconds; nothing runs meanwhile. Throws Leaving.
    void sleep(int ms);
    /// Blocks until the clock of now() reaches `due`, not at all when it is past; nothing runs meanwhile. A
    /// row of steps that waits so keeps its length, however long each step's own work takes. Throws Leaving.
    void sleepUntil(double due);
    /// Blocks until a process or another object of the system is signalled; windows paint meanwhile and do
    /// nothing else. What is typed and clicked, timers and requests to close are dropped, not kept for later;
    /// leaving is held back until something waits again. Never throws Leaving, so that what has been changed
    /// for the time of the wait can be put right.
    void waitPainting(HANDLE object);
    /// Lets `ms` milliseconds pass (0: what is pending paints); windows paint meanwhile and do nothing else,
    /// as in waitPainting(). Never throws Leaving.
    void sleepPainting(int ms);
    /// The outermost loop: waits for events until the program is left.
    void run();

    /// Milliseconds of a steady clock with an arbitrary start.
    virtual double now() const = 0;
    /// Seconds since local midnight, 0 to below 86,400.
    virtual double timeOfDay() const = 0;

    /// Begins to leave the program: boxes and menus are closed, a window being moved is let go, a held scroll
    /// bar as well; every wait throws Leaving. While leaving is held back (ui/leaving_hold.h) it begins when
    /// that ends.
    void leave();
    bool leaving() const { return leaving_; }
    bool held() const { return holds_ > 0; }

    /// Runs a handler under the one trap: a failure ends it quietly, and so does leaving. While the program
    /// is being left the handler is not started.
    void guarded(const std::function<void()>& handler) noexcept;

    /// Lets a form look at a message before it is dispatched; true when it was used up.
    using Filter = std::function<bool(MSG&)>;
    void setFilter(Filter filter) { filter_ = std::move(filter); }

    /// Called by leave() so that an open box or menu ends; the newest is asked first.
    void pushModal(std::function<void()> end) { modals_.push_back(std::move(end)); }
    void popModal() { modals_.pop_back(); }

    /// Told of each failure that the trap caught; tests watch it, the program writes it to the debugger.
    std::function<void(const std::exception&)> onTrapped;

    /// Runs the handlers of all timers that are due. For loops and their wake-up window.
    void fireTimers() noexcept;

  protected:
    /// Takes the next pending window message and dispatches it; false when there is none.
    virtual bool dispatchOne();
    /// Blocks until a message arrives or the clock reaches `due` (ms; negative: no timer is running).
    virtual void block(double due) = 0;
    /// Blocks for `ms` (above 0) whatever arrives.
    virtual void blockFor(double ms) = 0;
    /// A timer was started, stopped or changed.
    virtual void timersChanged() {}

    /// When the next timer is due, or a negative value when none runs.
    double nextDue() const;
    bool firesSomething() const;
    void checkLeaving() const;

  private:
    friend class Timer;
    friend class LeavingHold;
    void hold() { ++holds_; }
    void release();
    void leaveIfAsked();
    bool paintOne();
    void add(Timer& timer);
    void remove(Timer& timer);
    bool step();

    std::vector<Timer*> timers_;
    std::vector<std::function<void()>> modals_;
    Filter filter_;
    bool leaving_ = false;
    int holds_ = 0;
    bool leaveAsked_ = false;  ///< for when nothing holds it back any more
};

}  // namespace ui
