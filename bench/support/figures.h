#pragma once

#include <QString>

/// One line of the table that all benchmarks print together: what was measured, the figure with
/// its unit, and what it is meant to be, which may be empty.
void printFigure(const QString &what, const QString &figure, const QString &goal = {});

/// A line with a ratio. @param goal  the largest ratio that is good enough; 0 for none
void printRatio(const QString &what, double ratio, double goal = 0);

/// A line with a time that is to be at most @p goal milliseconds.
void printMilliseconds(const QString &what, double milliseconds, double goal);

/// A line with the answer to a question of which only one answer is good.
void printOutcome(const QString &what, const QString &outcome, const QString &wanted);

/// The form of a time in seconds, and of bytes, in that table.
QString secondsText(double seconds);
QString megabytesText(qint64 bytes);

/// Ends a benchmark that cannot measure what it is meant to.
[[noreturn]] void giveUp(const QString &why);
