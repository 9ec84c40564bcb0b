#pragma once

#include "platform/ShortText.h"

#include <QDateTime>
#include <QString>
#include <QStringView>

/// The one place that says how dates look as text: in the grid, the status bar, the history, the
/// exports and the explain statement id; numberForms.h says it of numbers.

/// The part of @p text, UTF-16 or UTF-8, between the blanks (U+0020) at its ends; tabs and line
/// ends stay.
template <typename View>
View withoutBlanks(View text)
{
    while (!text.isEmpty() && text.front() == u' ')
        text = text.sliced(1);
    while (!text.isEmpty() && text.back() == u' ')
        text.chop(1);
    return text;
}
/// The same as a text of its own.
QString trimBlanks(QStringView text);

/// `M/d/yyyy HH:mm:ss`, the date alone at midnight. An invalid @p dateTime gives an empty text.
/// Fractions of a second are not shown: they are no part of the time of a clock on the wall.
QString dateTimeToText(const QDateTime &dateTime);

/// A date and a time of day on the clock of whoever reads it. Unlike QDateTime it knows no time
/// zone: it holds the hours that a change to summer time leaves out, and is cheap where there are
/// thousands.
struct ClockTime
{
    int year = 0; ///< -32768 to 32767, negative before the common era
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int nanosecond = 0; ///< 0 to 999,999,999
};
/// As dateTimeToText(), but a fraction of a second follows behind a point, without the zeros at its
/// end.
ShortText dateTimeForm(const ClockTime &clockTime);
/// `HH:mm:ss`, with a fraction of a second in the same way.
ShortText timeOfDayForm(const ClockTime &clockTime);
/// Reads what dateTimeToText() writes, blanks around it allowed; seconds may be left out.
/// @throws RuntimeError 13 (type mismatch) for anything else, impossible days included
ClockTime textToClockTime(QStringView text);

/// The date as `05-Mar-2024`: two-digit day, English three-letter month, four-digit year. An empty
/// text where there is no date.
ShortText dayMonthYearForm(const ClockTime &date);

/// The letter after a character 0, 9 to 13 or 32, and the first one, in upper case; every other
/// letter in lower case.
QString properCase(QStringView text);
