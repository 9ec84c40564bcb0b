#pragma once

#include "platform/ByteBuffer.h"
#include "platform/ShortText.h"

#include <QDateTime>
#include <QString>
#include <QStringView>

/// The one place that says how dates and numbers look as text: in the grid, the status bar, the
/// history, the exports and the explain statement id.

/// Takes off blanks (U+0020) at both ends; tabs and line ends stay.
QString trimBlanks(QStringView text);

/// `M/d/yyyy HH:mm:ss`, the date alone at midnight. An invalid @p dateTime gives an empty text.
/// Fractions of a second are not shown: they are no part of the time of a clock on the wall.
QString dateTimeToText(const QDateTime &dateTime);

/// A date and a time of day on the clock of whoever reads it. Unlike QDateTime it asks nobody for
/// the time zone, which counts where there are thousands of them.
struct ClockTime
{
    int year = 0; ///< -9999 to 9999, negative before the common era
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int nanosecond = 0;
};
/// As dateTimeToText(), but a fraction of a second follows behind a point, without the zeros at its
/// end.
ShortText dateTimeForm(const ClockTime &clockTime);
/// `HH:mm:ss`, with a fraction of a second in the same way.
ShortText timeOfDayForm(const ClockTime &clockTime);
/// Reads like textToDateTime().
ClockTime textToClockTime(QStringView text);

/// Reads what dateTimeToText() writes, blanks around it allowed; seconds may be left out.
/// The result is in local time.
/// @throws RuntimeError 13 (type mismatch) for anything else, impossible days included.
QDateTime textToDateTime(QStringView text);

/// The date as `05-Mar-2024`: two-digit day, English three-letter month, four-digit year.
ShortText dayMonthYearForm(const ClockTime &date);

/// At most 15 significant digits, no trailing zeros; scientific form (`1E+15`,
/// `1.23456789012345E-04`) where the plain one would be longer than 15 digits.
QString doubleToText(double value);
ShortText doubleForm(double value);

/// Digits as the server sent them, without the zeros that end its fraction ("1.50" is 1.5,
/// ".5" is 0.5). Text that is not a plain decimal number comes back unchanged.
QString exactNumberToText(QStringView digits);
/// The same for digits in UTF-8, behind what @p text holds already.
void appendExactNumber(QByteArrayView digits, ByteBuffer &text);

/// Text to a whole number, rounding halves to even. Understands what people write for numbers:
/// surrounding blanks, tabs and line feeds, a sign on either side, parentheses for negative, `$`,
/// thousands commas, exponents, `&H` and `&O` prefixes.
/// @throws RuntimeError 13 when @p text is no number, 6 when it does not fit 32 bits.
qint32 textToInteger(QStringView text);

/// The letter after a character 0, 9 to 13 or 32, and the first one, in upper case; every other
/// letter in lower case.
QString properCase(QStringView text);
