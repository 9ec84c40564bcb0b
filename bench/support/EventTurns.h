#pragma once

#include <QTimer>

#include <chrono>
#include <vector>

/// Watches how often the event loop gets its turn while something else goes on: a timer notes when
/// it is served.
class EventTurns
{
public:
    EventTurns();

    /// @param interval  of the timer. Without one it keeps the thread busy all the time, and a
    ///                  busy system lets such a thread wait for the others; a program that waits
    ///                  for a user is not one.
    void start(std::chrono::milliseconds interval = {});
    void stop();

    /// Milliseconds that at most @p share (0 to 1) of the turns were apart; 0 without any.
    double milliseconds(double share) const;
    qint64 count() const { return static_cast<qint64>(m_gaps.size()); }

private:
    void noteTurn();

    QTimer m_timer;
    std::chrono::steady_clock::time_point m_last;
    std::vector<double> m_gaps;
};
