#include "dataaccess/odbc/DriverThread.h"

#include "platform/longWait.h"

#include <QAbstractEventDispatcher>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;

/// Calls that follow each other so closely are one stretch of work.
constexpr auto pauseBetweenStretches = 30ms;
/// What the end of a session may take before it goes on alone.
constexpr auto longestFarewell = 3s;

RuntimeError errorOfState(const QString &state, const QString &text)
{
    RuntimeError error(ErrorNumber::ProviderFailed, text);
    error.sqlState = state;
    return error;
}

RuntimeError givenUpError()
{
    return errorOfState(u"08S01"_s, u"The server did not answer, and the connection was given up. "
                                    "What was not committed is lost."_s);
}

} // namespace

/// What the thread and those that call on it have in common; lives as long as either.
class DriverThread::Shared final : public LongWait, public std::enable_shared_from_this<Shared>
{
public:
    void serve();
    quint64 post(std::function<void()> work);
    bool isAwaitedRunning() const { return doneWorks + 1 == awaited; }

    bool isOver() const override;
    void cancel() override;
    void giveUp() override;

    static thread_local Shared *current;

    mutable std::mutex mutex;
    std::condition_variable posted, done;
    std::deque<std::function<void()>> works;
    quint64 postedWorks = 0, doneWorks = 0;
    quint64 awaited = 0;  ///< the work that is waited for, by its number
    bool isShown = false; ///< the wait is, and its event loop is to be woken
    bool isEnding = false;
    std::atomic<bool> isGivenUp = false;

    SQLHSTMT idle = nullptr;
    SQLHSTMT busy = nullptr;
    bool isInCall = false;
    bool isCancelling = false;
    bool hasCancelledBusy = false;
    bool isCancelDue = false; ///< for the awaited work, in which there was nothing to cancel yet
    std::atomic<bool> isCancelWanted = false;

    // Of the callers' thread alone.
    QThread *callers = QThread::currentThread();
    Clock::time_point stretchBegin, lastEnd;
};

thread_local DriverThread::Shared *DriverThread::Shared::current = nullptr;

void DriverThread::Shared::serve()
{
    current = this;
    std::unique_lock lock(mutex);
    for (;;) {
        posted.wait(lock, [&] { return !works.empty() || isEnding; });
        if (works.empty())
            return;
        std::function<void()> work = std::move(works.front());
        works.pop_front();
        lock.unlock();
        work();
        work = nullptr; // what it owns has its end on this thread
        lock.lock();
        if (++doneWorks == awaited)
            isCancelWanted = isCancelDue = false;
        done.notify_all();
        if (isShown && QAbstractEventDispatcher::instance(callers) != nullptr)
            QAbstractEventDispatcher::instance(callers)->wakeUp();
    }
}

quint64 DriverThread::Shared::post(std::function<void()> work)
{
    works.push_back(std::move(work));
    posted.notify_one();
    return ++postedWorks;
}

bool DriverThread::Shared::isOver() const
{
    const std::lock_guard lock(mutex);
    return isGivenUp || doneWorks >= awaited;
}

void DriverThread::Shared::cancel()
{
    const std::lock_guard lock(mutex);
    if (doneWorks >= awaited)
        return;
    isCancelWanted = true;
    const SQLHSTMT statement = idle != nullptr ? idle : busy;
    const bool canCancel = isInCall && statement != nullptr;
    // What runs may be other work still, which the awaited is behind: both are to end.
    isCancelDue = !canCancel || !isAwaitedRunning();
    if (!canCancel)
        return;
    // A second one on the same statement would meet the end of the call that the first has brought.
    if (isCancelling || hasCancelledBusy)
        return;
    isCancelling = true;
    hasCancelledBusy = statement == busy;
    // The driver may have to reach the server for it, which may not answer that either.
    std::thread([statement, self = shared_from_this()] {
        SQLCancel(statement);
        const std::lock_guard end(self->mutex);
        self->isCancelling = false;
        self->done.notify_all();
    }).detach();
}

void DriverThread::Shared::giveUp()
{
    const std::lock_guard lock(mutex);
    isGivenUp = isGivenUp || doneWorks < awaited;
}

std::unique_ptr<DriverThread> DriverThread::start()
{
    return hasWaitPresenter() ? std::unique_ptr<DriverThread>(new DriverThread) : nullptr;
}

DriverThread::DriverThread()
    : m(std::make_shared<Shared>())
    , m_thread([shared = m] { shared->serve(); })
{
}

DriverThread::~DriverThread()
{
    {
        const std::lock_guard lock(m->mutex);
        m->isEnding = true;
        m->posted.notify_one();
    }
    if (isCurrent() || m->isGivenUp)
        m_thread.detach();
    else
        m_thread.join();
}

bool DriverThread::isCurrent() const
{
    return Shared::current == m.get();
}

void DriverThread::runAndWait(std::function<void()> work)
{
    if (isWaiting())
        throw RuntimeError(ErrorNumber::IllegalOperation);
    const Clock::time_point begin = Clock::now();
    std::unique_lock lock(m->mutex);
    if (m->isGivenUp)
        throw givenUpError();
    m->awaited = m->post(std::move(work));
    if (begin - m->lastEnd > pauseBetweenStretches)
        m->stretchBegin = begin;
    m->stretchBegin = std::max(m->stretchBegin, lastTurn());
    if (!m->done.wait_until(lock, m->stretchBegin + unnoticedWait,
                            [&] { return m->doneWorks >= m->awaited; })) {
        m->isShown = true;
        lock.unlock();
        showWait(*m);
        lock.lock();
        m->isShown = false;
    }
    m->lastEnd = Clock::now();
    if (m->isGivenUp)
        throw givenUpError();
}

void DriverThread::post(std::function<void()> work) noexcept
{
    if (isCurrent())
        return work();
    const std::lock_guard lock(m->mutex);
    m->post(std::move(work));
}

void DriverThread::finish(std::function<void()> work) noexcept
{
    if (isCurrent())
        return work();
    std::unique_lock lock(m->mutex);
    const quint64 number = m->post(std::move(work));
    if (m->isGivenUp || isWaiting())
        return;
    if (!m->done.wait_for(lock, longestFarewell, [&] { return m->doneWorks >= number; }))
        m->isGivenUp = true;
}

bool DriverThread::isGivenUp() const
{
    return m->isGivenUp;
}

void DriverThread::setIdleStatement(SQLHSTMT statement)
{
    const std::lock_guard lock(m->mutex);
    m->idle = statement;
}

bool DriverThread::isCancelWanted()
{
    return Shared::current != nullptr && Shared::current->isCancelWanted;
}

RuntimeError DriverThread::cancelledError()
{
    return errorOfState(u"HY008"_s, u"Operation canceled. What it was to change may have been "
                                    "changed."_s);
}

void DriverThread::beginCall(SQLHSTMT statement)
{
    Shared *const shared = Shared::current;
    if (shared == nullptr)
        return;
    const std::lock_guard lock(shared->mutex);
    if (shared->isGivenUp)
        throw givenUpError();
    if (shared->isAwaitedRunning() && std::exchange(shared->isCancelDue, false))
        throw cancelledError();
    shared->busy = statement;
    shared->hasCancelledBusy = false;
    shared->isInCall = true;
}

bool DriverThread::endCall()
{
    Shared *const shared = Shared::current;
    if (shared == nullptr)
        return false;
    std::unique_lock lock(shared->mutex);
    shared->done.wait(lock, [&] { return !shared->isCancelling; });
    shared->isInCall = false;
    return shared->hasCancelledBusy;
}
