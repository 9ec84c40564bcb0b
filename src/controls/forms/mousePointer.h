#pragma once

#include <QCursor>
#include <QGuiApplication>

/// Shows the hourglass over every window of the program for as long as it lives, then the shape
/// that was there before, also when the work in between fails.
class HourglassPointer
{
public:
    HourglassPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~HourglassPointer() { QGuiApplication::restoreOverrideCursor(); }
    HourglassPointer(const HourglassPointer &) = delete;
    HourglassPointer &operator=(const HourglassPointer &) = delete;
};
