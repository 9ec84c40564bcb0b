#include "platform/textForms.h"

#include "platform/RuntimeError.h"
#include "platform/numberForms.h"

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

    /// Reads a number of @p fewest to @p most digits.
    template <typename Number>
    void read(Number &number, qsizetype fewest, qsizetype most)
    {
        const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), isDigit);
        const qsizetype length = std::distance(m_rest.begin(), end);
        if (length < fewest || length > most)
            throw RuntimeError(ErrorNumber::TypeMismatch);
        int value = 0;
        for (const QChar digit : m_rest.first(length))
            value = 10 * value + digit.unicode() - u'0';
        number = static_cast<Number>(value);
        m_rest = m_rest.sliced(length);
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

void appendYear(int year, ByteBuffer &text)
{
    if (year < 0)
        text.append('-');
    const int century = qAbs(year) / 100;
    if (century < 100)
        appendTwoDigits(century, text);
    else
        appendInteger(century, text);
    appendTwoDigits(qAbs(year) % 100, text);
}

void appendDate(const Timestamp &date, ByteBuffer &text)
{
    appendInteger(date.month, text);
    text.append('/');
    appendInteger(date.day, text);
    text.append('/');
    appendYear(date.year, text);
}

void appendTimeOfDay(const Timestamp &time, ByteBuffer &text)
{
    appendTwoDigits(time.hour, text);
    text.append(':');
    appendTwoDigits(time.minute, text);
    text.append(':');
    appendTwoDigits(time.second, text);
    quint32 fraction = time.nanosecond;
    if (fraction != 0)
        text.append('.');
    for (quint32 place = 100'000'000; fraction != 0; fraction %= place, place /= 10)
        text.append(static_cast<char>('0' + fraction / place));
}

} // namespace

QString trimBlanks(QStringView text)
{
    return withoutBlanks(text).toString();
}

QString dateTimeToText(const QDateTime &dateTime)
{
    const QTime time = dateTime.time();
    const bool isMidnight = time.hour() == 0 && time.minute() == 0 && time.second() == 0;
    return dateTime.toString(isMidnight ? u"M/d/yyyy" : u"M/d/yyyy HH:mm:ss");
}

QString timestampToText(const Timestamp &timestamp)
{
    ByteBuffer text;
    appendTimestamp(timestamp, text);
    return QString::fromLatin1(text.view());
}

void appendTimestamp(const Timestamp &timestamp, ByteBuffer &text)
{
    const bool hasDate = timestamp.year != 0 || timestamp.month != 0 || timestamp.day != 0;
    const bool hasTime = timestamp.hour != 0 || timestamp.minute != 0 || timestamp.second != 0 ||
                         timestamp.nanosecond != 0;
    if (hasDate)
        appendDate(timestamp, text);
    if (hasDate && hasTime)
        text.append(' ');
    if (hasTime || !hasDate)
        appendTimeOfDay(timestamp, text);
}

Timestamp textToTimestamp(QStringView text)
{
    FieldReader fields(withoutBlanks(text));
    Timestamp result;
    fields.read(result.month, 1, 2);
    fields.separator(u'/');
    fields.read(result.day, 1, 2);
    fields.separator(u'/');
    fields.read(result.year, 4, 4);
    if (!fields.atEnd()) {
        fields.separator(u' ');
        fields.read(result.hour, 1, 2);
        fields.separator(u':');
        fields.read(result.minute, 2, 2);
        if (!fields.atEnd()) {
            fields.separator(u':');
            fields.read(result.second, 2, 2);
        }
    }
    if (!fields.atEnd() || !QDate::isValid(result.year, result.month, result.day) ||
        !QTime::isValid(result.hour, result.minute, result.second))
        throw RuntimeError(ErrorNumber::TypeMismatch);
    return result;
}

void appendDayMonthYear(const Timestamp &date, ByteBuffer &text)
{
    static constexpr QByteArrayView months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    if (date.month < 1 || date.month > 12)
        return;
    appendTwoDigits(date.day, text);
    text.append('-');
    text.append(months[date.month - 1]);
    text.append('-');
    appendYear(date.year, text);
}
