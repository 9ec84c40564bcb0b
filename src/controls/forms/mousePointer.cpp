#include "controls/forms/mousePointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace {

int currentShape = MousePointer::Default;

} // namespace

int mousePointer()
{
    return currentShape;
}

/// One shape at a time: the hourglass is put on when it is not there, and taken off when it is.
void setMousePointer(int shape)
{
    if (shape == currentShape)
        return;
    currentShape = shape;
    if (shape == MousePointer::Hourglass)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}
