#include "support/EventTurns.h"

#include <algorithm>

EventTurns::EventTurns()
{
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { noteTurn(); });
}

void EventTurns::start(std::chrono::milliseconds interval)
{
    m_gaps.clear();
    m_last = std::chrono::steady_clock::now();
    m_timer.start(interval);
}

void EventTurns::stop()
{
    m_timer.stop();
    noteTurn(); // a loop that never came back to the events shows as one long gap
}

double EventTurns::milliseconds(double share) const
{
    if (m_gaps.empty())
        return 0;
    std::vector<double> gaps = m_gaps;
    const auto last = static_cast<double>(gaps.size() - 1);
    const auto place = gaps.begin() + static_cast<std::ptrdiff_t>(last * share);
    std::nth_element(gaps.begin(), place, gaps.end());
    return *place;
}

void EventTurns::noteTurn()
{
    const auto now = std::chrono::steady_clock::now();
    m_gaps.push_back(std::chrono::duration<double, std::milli>(now - m_last).count());
    m_last = now;
}
