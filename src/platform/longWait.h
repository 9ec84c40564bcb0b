#pragma once

#include <chrono>
#include <functional>

/// A call that is under way on another thread while the user interface waits for it. Of the user
/// interface's thread, as all of this.
class LongWait
{
public:
    virtual bool isOver() const = 0;
    /// Asks for the call to end; its own failure then says that it did. Comes too late when it has
    /// ended, and then does nothing.
    virtual void cancel() = 0;
    /// Leaves the call to itself for good: what waited for it fails.
    virtual void giveUp() = 0;

protected:
    ~LongWait() = default;
};

/// As long as nobody takes a window for frozen.
inline constexpr std::chrono::milliseconds unnoticedWait{100};

/// What keeps the windows alive during a wait that lasts longer: lets them paint, and takes nothing
/// from the user but the wish to end it. Returns when the wait is over. The event loop is woken
/// then. Without a presenter there is nobody to wait, and calls are made where they stand.
using WaitPresenter = std::function<void(LongWait &)>;
void setWaitPresenter(WaitPresenter presenter);
bool hasWaitPresenter();

/// Shows @p wait until it is over. Meanwhile no command may begin.
void showWait(LongWait &wait);
bool isWaiting();

/// When the windows have last lived during work that goes on: a wait was shown, or the work has
/// yielded to the events.
std::chrono::steady_clock::time_point lastTurn();

/// Lets the user interface process what has arrived. Made to be called after every row of a long
/// run, for some 50 nanoseconds on average where asking the window system each time would cost
/// twenty times that.
///
/// What the program itself has posted (queued calls, layout requests) is handled in every call.
/// Input, timers and painting come from the window system and are asked for when a millisecond has
/// passed since it was last done: in every call where a row takes that long, and otherwise sooner
/// than anybody can press a button.
void yieldToEvents();
