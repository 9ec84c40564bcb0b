#pragma once

#include "platform/systemClock.h"

#include <QString>

/// Seconds between two clock readings, by their times of day: a run over midnight UTC gives a
/// negative time.
/// @throws RuntimeError 6 when the whole seconds do not fit 16 bits (from 9:06:08 hours on)
double elapsedSeconds(const SystemTime &start, const SystemTime &end);

/// `1.5 sec` from one second on, `250 msec` below.
QString elapsedText(double seconds);
