#pragma once

#include "dataaccess/odbc/odbcHeaders.h"
#include "platform/RuntimeError.h"

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <type_traits>

/// The one thread on which a session's driver is called, so that the windows live on while a call
/// takes its time. Whoever calls waits for the end all the same.
///
/// All calls of a session are made here and none elsewhere, freeing a handle included: some
/// drivers keep a lock of theirs locked when they refuse a text, and would never let another
/// thread in again. Work owns what it touches, for it may have to be left to itself.
class DriverThread
{
public:
    /// Null when there is nobody to keep windows alive meanwhile.
    static std::unique_ptr<DriverThread> start();
    ~DriverThread();
    DriverThread(const DriverThread &) = delete;
    DriverThread &operator=(const DriverThread &) = delete;

    /// Runs @p work and returns what it returns; on the thread itself, at once.
    /// @throws whatever it throws, a RuntimeError with a note of whether it was cancelled;
    ///         RuntimeError 3219 while other work is being waited for, and one of state 08S01 when
    ///         it was, or had been, given up
    template <typename Work>
    std::invoke_result_t<Work &> call(Work work)
    {
        using Result = std::invoke_result_t<Work &>;
        if (isCurrent())
            return work();
        struct Outcome
        {
            std::optional<std::conditional_t<std::is_void_v<Result>, char, Result>> result;
            std::exception_ptr failure;
        };
        const auto outcome = std::make_shared<Outcome>();
        runAndWait([outcome, work = std::move(work)]() mutable {
            try {
                if constexpr (std::is_void_v<Result>)
                    work();
                else
                    outcome->result.emplace(work());
            } catch (RuntimeError &error) {
                error.isCancelled = isCancelWanted();
                outcome->failure = std::current_exception();
            } catch (...) {
                outcome->failure = std::current_exception();
            }
        });
        if (outcome->failure)
            std::rethrow_exception(std::exchange(outcome->failure, nullptr));
        if constexpr (!std::is_void_v<Result>)
            return std::move(*outcome->result);
    }

    /// Runs @p work when its turn comes, and waits for nothing; on the thread itself, at once.
    void post(std::function<void()> work) noexcept;
    /// Runs the last @p work. It is waited for, but no longer than a frozen window is worth, and
    /// not behind a call that was given up.
    void finish(std::function<void()> work) noexcept;

    /// Whether the caller is on the thread.
    bool isCurrent() const;
    bool isGivenUp() const;
    /// A statement that is never executed. Where drivers end whatever runs on the connection they
    /// are to be asked on this one: asked on the busy one they free what it is reading.
    void setIdleStatement(SQLHSTMT statement);

    // For work, on whatever thread it runs; where that is no driver's thread, nothing is cancelled.
    /// Whether the user has asked for an end since the present work began.
    static bool isCancelWanted();
    static RuntimeError cancelledError();
    /// Says that a call of the driver is about to be made, which may be cancelled.
    /// @param statement  what is executed; may be null
    /// @throws RuntimeError when the user has asked for an end and no call has ended for it yet
    static void beginCall(SQLHSTMT statement);
    /// Says that it has returned, once no cancel is under way any more.
    /// @returns whether one has reached the statement itself, which is then closed, or may be
    static bool endCall();

private:
    class Shared;

    DriverThread();
    void runAndWait(std::function<void()> work);

    std::shared_ptr<Shared> m;
    std::thread m_thread;
};
