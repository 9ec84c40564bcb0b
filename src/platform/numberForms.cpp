#include "platform/numberForms.h"

#include "platform/RuntimeError.h"
#include "platform/characterClasses.h"
#include "platform/checkedArithmetic.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

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

constexpr int mostSignificantDigits = 15;

/// The significant digits of a positive number, at most 15 and without zeros at their end, and the
/// power of ten of the first one.
class ScientificDigits
{
public:
    explicit ScientificDigits(double value)
    {
        constexpr auto form = std::chars_format::scientific;
        char text[32];
        // The shortest digits that mean the number are far quicker to find. They are the same
        // unless there are more of them; only next to zero a few digits stand for many.
        const bool precise = value >= std::numeric_limits<double>::min();
        if (!precise || !read(text, std::to_chars(text, std::end(text), value, form).ptr))
            read(text,
                 std::to_chars(text, std::end(text), value, form, mostSignificantDigits - 1).ptr);
    }

    QByteArrayView digits() const { return {m_digits, m_count}; }
    int exponent() const { return m_exponent; }

private:
    /// Reads d.ddde±xx, the point and the digits behind it missing where there is one digit.
    /// @returns whether there were not too many digits
    bool read(const char *text, const char *end)
    {
        const char *const mark = std::find(text, end, 'e');
        m_count = mark - text == 1 ? 1 : mark - text - 1;
        if (m_count > mostSignificantDigits)
            return false;
        m_digits[0] = text[0];
        if (m_count > 1)
            std::copy(text + 2, mark, m_digits + 1);
        while (m_count > 1 && m_digits[m_count - 1] == '0')
            --m_count;
        std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, m_exponent);
        return true;
    }

    char m_digits[mostSignificantDigits];
    qsizetype m_count = 0;
    int m_exponent = 0;
};

void appendDigits(const ScientificDigits &number, ShortText &text)
{
    const QByteArrayView digits = number.digits();
    const int exponent = number.exponent();
    const qsizetype decimals = digits.size() - 1 - exponent;
    const bool scientific = exponent >= mostSignificantDigits || decimals > mostSignificantDigits;
    // Digits before the point; none or fewer when zeros stand between the point and the first one.
    const qsizetype whole = scientific ? 1 : exponent + 1;
    if (whole <= 0) {
        text.append("0.");
        text.append(-whole, '0');
        text.append(digits);
    } else if (whole >= digits.size()) {
        text.append(digits);
        text.append(whole - digits.size(), '0');
    } else {
        text.append(digits.first(whole));
        text.append('.');
        text.append(digits.sliced(whole));
    }
    if (!scientific)
        return;
    text.append(exponent < 0 ? "E-" : "E+");
    if (qAbs(exponent) < 100)
        text.appendTwoDigits(qAbs(exponent));
    else
        text.appendNumber(qAbs(exponent));
}

/// A plain decimal number in its parts, without the zeros that end its fraction.
template <typename View>
struct PlainNumber
{
    View sign;
    View whole;
    View fraction;
};

template <typename View>
std::optional<PlainNumber<View>> plainNumber(View digits)
{
    const auto areDigits = [](View part) { return std::all_of(part.begin(), part.end(), isDigit); };
    const qsizetype signLength = !digits.isEmpty() && digits.front() == u'-' ? 1 : 0;
    const View number = digits.sliced(signLength);
    const auto pointAt = std::find(number.begin(), number.end(), u'.');
    const View whole = number.first(pointAt - number.begin());
    View fraction = number.sliced(whole.size());
    if (!fraction.isEmpty())
        fraction = fraction.sliced(1);
    if (whole.size() + fraction.size() == 0 || !areDigits(whole) || !areDigits(fraction))
        return std::nullopt;
    while (!fraction.isEmpty() && fraction.back() == u'0')
        fraction.chop(1);
    return PlainNumber<View>{digits.first(signLength), whole, fraction};
}

} // namespace

QString doubleToText(double value)
{
    return doubleForm(value).toString();
}

ShortText doubleForm(double value)
{
    ShortText text;
    if (value < 0)
        text.append('-');
    if (value == 0)
        text.append('0');
    else if (std::isfinite(value))
        appendDigits(ScientificDigits(std::fabs(value)), text);
    else
        text.append(std::isnan(value) ? "NaN" : "Inf");
    return text;
}

QString exactNumberToText(QStringView digits)
{
    const auto number = plainNumber(digits);
    if (!number)
        return digits.toString();
    QString text = number->sign.toString();
    if (number->whole.isEmpty())
        text += u'0';
    text += number->whole;
    if (!number->fraction.isEmpty())
        text.append(u'.').append(number->fraction);
    return text;
}

void appendExactNumber(QByteArrayView digits, ByteBuffer &text)
{
    const auto number = plainNumber(digits);
    if (!number) {
        text.append(digits);
        return;
    }
    text.append(number->sign);
    text.append(number->whole.isEmpty() ? QByteArrayView("0") : number->whole);
    if (!number->fraction.isEmpty()) {
        text.append('.');
        text.append(number->fraction);
    }
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
