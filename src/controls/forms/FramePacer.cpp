#include "controls/forms/FramePacer.h"

#include <QTimerEvent>

#include <algorithm>
#include <utility>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr Clock::duration shortestFrame = 33ms;
constexpr Clock::duration longestFrame = 100ms;
/// Work that gets slower, as a view's does with its rows, takes at most this part of the time.
constexpr int workShare = 20;

} // namespace

FramePacer::FramePacer(std::function<void()> work, QObject *parent)
    : QObject(parent)
    , m_work(std::move(work))
{
}

void FramePacer::flush()
{
    if (!m_timer.isActive())
        return;
    m_timer.stop();
    const Clock::time_point begin = Clock::now();
    m_work();
    const Clock::duration pause = (Clock::now() - begin) * workShare;
    m_frame = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::clamp(pause, shortestFrame, longestFrame));
}

void FramePacer::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_timer.timerId())
        flush();
}

void FramePacer::start()
{
    m_timer.start(static_cast<int>(m_frame.count()), this);
}
