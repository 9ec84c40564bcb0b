#pragma once

#include <QDateTime>

#include <functional>

/// A UTC clock reading with the fields of the Win32 SYSTEMTIME record, 16 bits each.
struct SystemTime
{
    qint16 year = 0;
    qint16 month = 0;
    qint16 dayOfWeek = 0; ///< 0 is Sunday
    qint16 day = 0;
    qint16 hour = 0;
    qint16 minute = 0;
    qint16 second = 0;
    qint16 millisecond = 0;
};

/// The current time in UTC.
SystemTime systemTime();

/// The current local date and time, to the second.
QDateTime localNow();

/// Replaces the clock that both readings come from, so that elapsed times and stamps can be
/// checked; an empty function restores the real one. The function returns the time in UTC.
void setClockSource(std::function<QDateTime()> source);
