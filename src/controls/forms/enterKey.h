#pragma once

#include <QKeyEvent>

/// Whether an event is Enter going down, on either part of the keyboard.
inline bool isEnterPress(const QEvent &event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent &>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}
