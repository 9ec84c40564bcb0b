#include "platform/textForms.h"

#include "platform/RuntimeError.h"
#include "platform/characterClasses.h"

#include <algorithm>
#include <iterator>

namespace {

/// Reads numbers and separators off the front of a text.
class FieldReader
{
public:
    explicit FieldReader(QStringView text)
        : m_rest(text)
    {
    }

    bool atEnd() const { return m_rest.isEmpty(); }

    /// A number of @p fewest to @p most digits.
    int number(qsizetype fewest, qsizetype most)
    {
        const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), isDigit);
        const qsizetype length = std::distance(m_rest.begin(), end);
        if (length < fewest || length > most)
            throw RuntimeError(ErrorNumber::TypeMismatch);
        int value = 0;
        for (const QChar digit : m_rest.first(length))
            value = value * 10 + (digit.unicode() - u'0');
        m_rest = m_rest.sliced(length);
        return value;
    }

    void separator(char16_t expected)
    {
        if (!m_rest.startsWith(expected))
            throw RuntimeError(ErrorNumber::TypeMismatch);
        m_rest = m_rest.sliced(1);
    }

private:
    QStringView m_rest;
};

void appendYear(int year, ShortText &text)
{
    if (year < 0)
        text.append('-');
    const int century = qAbs(year) / 100;
    if (century < 100)
        text.appendTwoDigits(century);
    else
        text.appendNumber(century);
    text.appendTwoDigits(qAbs(year) % 100);
}

void appendTimeOfDay(const ClockTime &clockTime, ShortText &text)
{
    text.appendTwoDigits(clockTime.hour);
    text.append(':');
    text.appendTwoDigits(clockTime.minute);
    text.append(':');
    text.appendTwoDigits(clockTime.second);
    int fraction = clockTime.nanosecond;
    if (fraction != 0)
        text.append('.');
    for (int place = 100'000'000; fraction != 0; fraction %= place, place /= 10)
        text.append(static_cast<char>('0' + fraction / place));
}

} // namespace

QString trimBlanks(QStringView text)
{
    return withoutBlanks(text).toString();
}

QString dateTimeToText(const QDateTime &dateTime)
{
    if (!dateTime.isValid())
        return {};
    const QDate date = dateTime.date();
    const QTime time = dateTime.time();
    return dateTimeForm({.year = date.year(),
                         .month = date.month(),
                         .day = date.day(),
                         .hour = time.hour(),
                         .minute = time.minute(),
                         .second = time.second()})
        .toString();
}

ShortText dateTimeForm(const ClockTime &clockTime)
{
    ShortText text;
    text.appendNumber(clockTime.month);
    text.append('/');
    text.appendNumber(clockTime.day);
    text.append('/');
    appendYear(clockTime.year, text);
    if (clockTime.hour != 0 || clockTime.minute != 0 || clockTime.second != 0 ||
        clockTime.nanosecond != 0) {
        text.append(' ');
        appendTimeOfDay(clockTime, text);
    }
    return text;
}

ShortText timeOfDayForm(const ClockTime &clockTime)
{
    ShortText text;
    appendTimeOfDay(clockTime, text);
    return text;
}

ClockTime textToClockTime(QStringView text)
{
    FieldReader fields(withoutBlanks(text));
    ClockTime result;
    result.month = fields.number(1, 2);
    fields.separator(u'/');
    result.day = fields.number(1, 2);
    fields.separator(u'/');
    result.year = fields.number(4, 4);
    if (!fields.atEnd()) {
        fields.separator(u' ');
        result.hour = fields.number(1, 2);
        fields.separator(u':');
        result.minute = fields.number(2, 2);
        if (!fields.atEnd()) {
            fields.separator(u':');
            result.second = fields.number(2, 2);
        }
    }
    if (!fields.atEnd() || !QDate::isValid(result.year, result.month, result.day) ||
        !QTime::isValid(result.hour, result.minute, result.second))
        throw RuntimeError(ErrorNumber::TypeMismatch);
    return result;
}

ShortText dayMonthYearForm(const ClockTime &date)
{
    static constexpr QByteArrayView months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    ShortText text;
    if (date.month < 1 || date.month > 12)
        return text;
    text.appendTwoDigits(date.day);
    text.append('-');
    text.append(months[date.month - 1]);
    text.append('-');
    appendYear(date.year, text);
    return text;
}

QString properCase(QStringView text)
{
    QString result = text.toString();
    bool wordStart = true;
    for (QChar &c : result) {
        c = wordStart ? c.toUpper() : c.toLower();
        wordStart = c.isNull() || isWhiteSpace(c);
    }
    return result;
}
