#include "controls/FramePacer.h"

#include <QTimerEvent>

#include <utility>

namespace {

constexpr int frameMilliseconds = 16;

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
    m_work();
}

void FramePacer::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_timer.timerId())
        flush();
}

void FramePacer::start()
{
    m_timer.start(frameMilliseconds, this);
}
