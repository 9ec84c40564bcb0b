#pragma once

#include "platform/ByteBuffer.h"

#include <QChar>
#include <QDateTime>
#include <QString>
#include <QStringView>

/// What characters are, whatever the text.

/// Whether a QChar or a byte of UTF-8 is one of the digits 0 to 9.
inline constexpr auto isDigit = [](auto c) { return c >= u'0' && c <= u'9'; };

/// Whether a byte of UTF-8 goes on with a character that one before it has begun.
constexpr bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// What separates words and surrounds numbers: a blank, or one of the controls tab to carriage
/// return.
constexpr bool isWhiteSpace(QChar c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

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

/// A date and a time of day on the clock of whoever reads it, as a data source holds it: no time
/// zone, so that there are the hours that a change to summer time leaves out. 24:00 does not occur.
struct Timestamp
{
    qint16 year =
        0; ///< negative before the common era; 0 with month and day 0: a time of day alone
    quint8 month = 0;
    quint8 day = 0;
    quint8 hour = 0;
    quint8 minute = 0;
    quint8 second = 0;
    quint32 nanosecond = 0; ///< 0 to 999,999,999

    friend bool operator==(const Timestamp &, const Timestamp &) = default;
};
/// As dateTimeToText(), but a fraction of a second follows behind a point, without the zeros at its
/// end. Where there is no date it is the time alone: `HH:mm:ss` and such a fraction.
QString timestampToText(const Timestamp &timestamp);
void appendTimestamp(const Timestamp &timestamp, ByteBuffer &text);
/// Reads what dateTimeToText() writes, blanks around it allowed; seconds may be left out.
/// @throws RuntimeError 13 (type mismatch) for anything else, impossible days included
Timestamp textToTimestamp(QStringView text);

/// Appends the date as `05-Mar-2024`: two-digit day, English three-letter month, four-digit year.
/// Nothing where there is no date.
void appendDayMonthYear(const Timestamp &date, ByteBuffer &text);
