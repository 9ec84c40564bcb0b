#include "uisupport/PaintWatch.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <utility>

PaintWatch::PaintWatch(QWidget *widget)
{
    widget->installEventFilter(this);
}

void PaintWatch::wait()
{
    while (!m_painted)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    m_painted = false;
}

bool PaintWatch::eventFilter(QObject *watched, QEvent *event)
{
    m_painted = m_painted || event->type() == QEvent::Paint;
    return QObject::eventFilter(watched, event);
}
