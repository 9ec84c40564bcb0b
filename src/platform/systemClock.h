#pragma once

#include <QDateTime>
#include <QString>

#include <functional>

/// The time of day in UTC.
QTime utcTimeOfDay();

/// The current local date and time, to the second.
QDateTime localNow();

/// Seconds between two times of day: a run over midnight gives a negative time.
/// @throws RuntimeError 6 when the whole seconds do not fit 16 bits (from 9:06:08 hours on)
double elapsedSeconds(QTime start, QTime end);

/// `1.5 sec` from one second on, `250 msec` below.
QString elapsedText(double seconds);

/// Replaces the clock that both readings come from, so that elapsed times and stamps can be
/// checked; an empty function restores the real one. The function returns the time in UTC.
void setClockSource(std::function<QDateTime()> source);
