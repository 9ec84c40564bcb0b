#include "platform/textForms.h"

#include "platform/checkedArithmetic.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// What separates words and surrounds numbers: a blank, or one of the controls tab to carriage
/// return.
constexpr bool isWhiteSpace(QChar c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

/// Builds a short text in place; thousands of dates are written one after the other.
class ShortText
{
public:
    void append(QLatin1StringView characters)
    {
        for (const char c : characters)
            append(c);
    }
    void append(char character) { m_characters[m_length++] = QLatin1Char(character); }
    /// A number of up to six digits, with zeros in front up to @p width digits.
    void append(int number, int width)
    {
        int place = 100'000;
        for (int digits = 6; digits > 1 && digits > width && number < place; --digits)
            place /= 10;
        for (; place > 0; place /= 10)
            append(static_cast<char>('0' + number / place % 10));
    }
    QString toString() const { return QString(m_characters, m_length); }

private:
    QChar m_characters[32];
    qsizetype m_length = 0;
};

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

/// A positive decimal number: the digits before and after the point, without leading and trailing
/// zeros, and where the point stands (0: before the first digit).
struct Decimal
{
    QString digits;
    qint64 point = 0;
};

/// Reads a decimal number with thousands commas and an exponent. The exponent is cut to a size
/// that is far beyond every range, so that sums with it cannot overflow.
class DecimalReader
{
public:
    explicit DecimalReader(QStringView text)
        : m_text(text)
    {
    }

    Decimal read()
    {
        readDigits();
        if (!m_anyDigit)
            throw RuntimeError(ErrorNumber::TypeMismatch);
        if (m_pos < m_text.size())
            readExponent();
        const auto last = std::find_if_not(m_result.digits.crbegin(), m_result.digits.crend(),
                                           [](QChar c) { return c == u'0'; });
        m_result.digits.chop(std::distance(m_result.digits.crbegin(), last));
        return m_result;
    }

private:
    void readDigits()
    {
        bool fraction = false;
        for (; m_pos < m_text.size(); ++m_pos) {
            const QChar c = m_text[m_pos];
            if (c == u'.' && !fraction) {
                fraction = true;
            } else if (isDigit(c)) {
                m_anyDigit = true;
                takeDigit(c, fraction);
            } else if (c != u',' || fraction || !m_anyDigit) {
                break;
            }
        }
    }

    void takeDigit(QChar digit, bool fraction)
    {
        const bool leadingZero = digit == u'0' && m_result.digits.isEmpty();
        if (!leadingZero)
            m_result.digits.append(digit);
        if (fraction && leadingZero)
            --m_result.point;
        else if (!fraction && !leadingZero)
            ++m_result.point;
    }

    void readExponent()
    {
        constexpr qint64 limit = 1'000'000'000'000;
        if (m_text[m_pos] != u'e' && m_text[m_pos] != u'E')
            throw RuntimeError(ErrorNumber::TypeMismatch);
        QStringView rest = m_text.sliced(m_pos + 1);
        const bool negative = rest.startsWith(u'-');
        if (negative || rest.startsWith(u'+'))
            rest = rest.sliced(1);
        if (rest.isEmpty() || !std::all_of(rest.begin(), rest.end(), isDigit))
            throw RuntimeError(ErrorNumber::TypeMismatch);
        qint64 exponent = 0;
        for (const QChar c : rest)
            exponent = qMin(limit, exponent * 10 + c.digitValue());
        m_result.point += negative ? -exponent : exponent;
    }

    QStringView m_text;
    qsizetype m_pos = 0;
    bool m_anyDigit = false;
    Decimal m_result;
};

/// The nearest whole number, halves to even.
/// @throws RuntimeError 6 when it has more digits than any 32-bit number
qint64 roundHalfToEven(const Decimal &number)
{
    constexpr qint64 mostDigits = 10;
    if (number.digits.isEmpty() || number.point < 0)
        return 0;
    if (number.point > mostDigits)
        throw RuntimeError(ErrorNumber::Overflow);
    qint64 whole = 0;
    for (qint64 i = 0; i < number.point; ++i)
        whole = whole * 10 + (i < number.digits.size() ? number.digits[i].digitValue() : 0);
    if (number.point >= number.digits.size())
        return whole;
    const int next = number.digits[number.point].digitValue();
    const bool exactHalf = next == 5 && number.digits.size() == number.point + 1;
    const bool up = exactHalf ? whole % 2 != 0 : next >= 5;
    return whole + (up ? 1 : 0);
}

/// `&H` and `&O` numbers are bit patterns: &HFFFFFFFF is -1.
qint32 prefixedNumber(QStringView text)
{
    const QChar kind = text.size() > 2 ? text[1].toUpper() : QChar();
    const int base = kind == u'H' ? 16 : kind == u'O' ? 8 : 0;
    if (base == 0)
        throw RuntimeError(ErrorNumber::TypeMismatch);
    const qint64 limit = qint64{1} << 32;
    qint64 bits = 0;
    for (const QChar c : text.sliced(2)) {
        const ushort lower = c.unicode() | 0x20;
        const int digit = isDigit(c)                       ? c.unicode() - u'0'
                          : lower >= u'a' && lower <= u'f' ? lower - u'a' + 10
                                                           : base;
        if (digit >= base)
            throw RuntimeError(ErrorNumber::TypeMismatch);
        bits = qMin(limit, bits * base + digit);
    }
    if (bits == limit)
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<qint32>(static_cast<quint32>(bits));
}

QStringView withoutBlanks(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

QStringView withoutWhiteSpace(QStringView text)
{
    while (!text.isEmpty() && isWhiteSpace(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isWhiteSpace(text.back()))
        text.chop(1);
    return text;
}

/// Takes the signs that may stand round a number off it: one of `-`, `+` on either side, or a pair
/// of parentheses, and a `$` in front.
/// @returns whether the number is negative
bool takeSigns(QStringView &text)
{
    bool negative = false;
    bool sign = false;
    bool currency = false;
    if (text.startsWith(u'(') && text.endsWith(u')')) {
        negative = sign = true;
        text = withoutWhiteSpace(text.sliced(1).chopped(1));
    }
    while (!text.isEmpty()) {
        if (!sign && (text.front() == u'-' || text.front() == u'+')) {
            sign = true;
            negative = text.front() == u'-';
        } else if (!currency && text.front() == u'$') {
            currency = true;
        } else {
            break;
        }
        text = withoutWhiteSpace(text.sliced(1));
    }
    if (!sign && (text.endsWith(u'-') || text.endsWith(u'+'))) {
        negative = text.endsWith(u'-');
        text = withoutWhiteSpace(text.chopped(1));
    }
    return negative;
}

} // namespace

QString trimBlanks(QStringView text)
{
    return withoutBlanks(text).toString();
}

QString dateTimeToText(const QDateTime &dateTime)
{
    return dateTimeToText(ClockTime{dateTime.date(), dateTime.time()});
}

QString dateTimeToText(const ClockTime &clockTime)
{
    const auto &[date, time] = clockTime;
    if (!date.isValid() || !time.isValid())
        return {};
    int year = 0;
    int month = 0;
    int day = 0;
    date.getDate(&year, &month, &day);
    ShortText text;
    text.append(month, 1);
    text.append('/');
    text.append(day, 1);
    text.append('/');
    text.append(year, 4);
    if (time.hour() != 0 || time.minute() != 0 || time.second() != 0) {
        text.append(' ');
        text.append(time.hour(), 2);
        text.append(':');
        text.append(time.minute(), 2);
        text.append(':');
        text.append(time.second(), 2);
    }
    return text.toString();
}

ClockTime textToClockTime(QStringView text)
{
    FieldReader fields(withoutBlanks(text));
    const int month = fields.number(1, 2);
    fields.separator(u'/');
    const int day = fields.number(1, 2);
    fields.separator(u'/');
    const QDate date(fields.number(4, 4), month, day);
    QTime time(0, 0);
    if (!fields.atEnd()) {
        fields.separator(u' ');
        const int hour = fields.number(1, 2);
        fields.separator(u':');
        const int minute = fields.number(2, 2);
        int second = 0;
        if (!fields.atEnd()) {
            fields.separator(u':');
            second = fields.number(2, 2);
        }
        time = QTime(hour, minute, second);
    }
    if (!fields.atEnd() || !date.isValid() || !time.isValid())
        throw RuntimeError(ErrorNumber::TypeMismatch);
    return {date, time};
}

QDateTime textToDateTime(QStringView text)
{
    const auto [date, time] = textToClockTime(text);
    const QDateTime local(date, time);
    // A time that the clocks here skipped was right where it was written: it keeps its fields.
    return local.isValid() ? local : QDateTime(date, time, Qt::UTC);
}

QString dayMonthYear(const QDate &date)
{
    static constexpr QLatin1StringView months[] = {"Jan"_L1, "Feb"_L1, "Mar"_L1, "Apr"_L1,
                                                   "May"_L1, "Jun"_L1, "Jul"_L1, "Aug"_L1,
                                                   "Sep"_L1, "Oct"_L1, "Nov"_L1, "Dec"_L1};
    if (!date.isValid())
        return {};
    ShortText text;
    text.append(date.day(), 2);
    text.append('-');
    text.append(months[date.month() - 1]);
    text.append('-');
    text.append(date.year(), 4);
    return text.toString();
}

QString doubleToText(double value)
{
    constexpr int mostDigits = 15;
    if (!std::isfinite(value))
        return std::isnan(value) ? u"NaN"_s : value < 0 ? u"-Inf"_s : u"Inf"_s;
    if (value == 0)
        return u"0"_s;
    // The scientific form gives the digits and the exponent: d.dddddddddddddde±xx.
    char buffer[32];
    const char *end = std::to_chars(std::begin(buffer), std::end(buffer), std::fabs(value),
                                    std::chars_format::scientific, mostDigits - 1)
                          .ptr;
    const char *mark = std::find(static_cast<const char *>(buffer), end, 'e');
    int exponent = 0;
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, exponent);
    QByteArray digits(buffer, mark - buffer);
    digits.remove(1, 1);
    while (digits.size() > 1 && digits.endsWith('0'))
        digits.chop(1);

    const QString sign = value < 0 ? u"-"_s : QString();
    const int decimals = qMax(0, static_cast<int>(digits.size()) - 1 - exponent);
    if (exponent >= mostDigits || decimals > mostDigits) {
        if (digits.size() > 1)
            digits.insert(1, '.');
        return sign + QLatin1StringView(digits) + (exponent < 0 ? "E-"_L1 : "E+"_L1) +
               QString::number(qAbs(exponent)).rightJustified(2, u'0');
    }
    if (exponent < 0)
        return sign + "0."_L1 + QString(-1 - exponent, u'0') + QLatin1StringView(digits);
    if (decimals > 0)
        digits.insert(exponent + 1, '.');
    else
        digits.append(QByteArray(exponent + 1 - digits.size(), '0'));
    return sign + QLatin1StringView(digits);
}

QString exactNumberToText(QStringView digits)
{
    const qsizetype signLength = digits.startsWith(u'-') ? 1 : 0;
    const QStringView number = digits.sliced(signLength);
    const qsizetype point = number.indexOf(u'.');
    const QStringView whole = point < 0 ? number : number.first(point);
    QStringView fraction = point < 0 ? QStringView() : number.sliced(point + 1);
    const bool plain = whole.size() + fraction.size() > 0 &&
                       std::all_of(whole.begin(), whole.end(), isDigit) &&
                       std::all_of(fraction.begin(), fraction.end(), isDigit);
    if (!plain)
        return digits.toString();
    while (fraction.endsWith(u'0'))
        fraction.chop(1);
    QString text = digits.first(signLength).toString();
    if (whole.isEmpty())
        text += u'0';
    text += whole;
    if (!fraction.isEmpty())
        text.append(u'.').append(fraction);
    return text;
}

qint32 textToInteger(QStringView text)
{
    QStringView number = withoutWhiteSpace(text);
    if (number.startsWith(u'&'))
        return prefixedNumber(number);
    const bool negative = takeSigns(number);
    const qint64 magnitude = roundHalfToEven(DecimalReader(number).read());
    return checkedCast<qint32>(negative ? -magnitude : magnitude);
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
