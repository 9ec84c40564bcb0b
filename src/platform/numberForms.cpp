#include "platform/numberForms.h"

#include "platform/textForms.h"

#include <QLocale>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

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

void appendDigits(const ScientificDigits &number, ByteBuffer &text)
{
    constexpr QByteArrayView zeros = "00000000000000"; // as many as can be needed
    const QByteArrayView digits = number.digits();
    const int exponent = number.exponent();
    const qsizetype decimals = digits.size() - 1 - exponent;
    const bool scientific = exponent >= mostSignificantDigits || decimals > mostSignificantDigits;
    // Digits before the point; none or fewer when zeros stand between the point and the first one.
    const qsizetype whole = scientific ? 1 : exponent + 1;
    if (whole <= 0) {
        text.append("0.");
        text.append(zeros.first(-whole));
        text.append(digits);
    } else if (whole >= digits.size()) {
        text.append(digits);
        text.append(zeros.first(whole - digits.size()));
    } else {
        text.append(digits.first(whole));
        text.append('.');
        text.append(digits.sliced(whole));
    }
    if (!scientific)
        return;
    text.append(exponent < 0 ? "E-" : "E+");
    if (qAbs(exponent) < 100)
        appendTwoDigits(qAbs(exponent), text);
    else
        appendInteger(qAbs(exponent), text);
}

/// A plain decimal number in its parts, without the zeros that end its fraction.
struct PlainNumber
{
    QByteArrayView sign;
    QByteArrayView whole;
    QByteArrayView fraction;
};

std::optional<PlainNumber> plainNumber(QByteArrayView digits)
{
    const auto areDigits = [](QByteArrayView part) {
        return std::all_of(part.begin(), part.end(), isDigit);
    };
    const qsizetype signLength = !digits.isEmpty() && digits.front() == '-' ? 1 : 0;
    const QByteArrayView number = digits.sliced(signLength);
    const auto pointAt = std::find(number.begin(), number.end(), '.');
    const QByteArrayView whole = number.first(pointAt - number.begin());
    QByteArrayView fraction = number.sliced(whole.size());
    if (!fraction.isEmpty())
        fraction = fraction.sliced(1);
    if (whole.size() + fraction.size() == 0 || !areDigits(whole) || !areDigits(fraction))
        return std::nullopt;
    while (!fraction.isEmpty() && fraction.back() == '0')
        fraction.chop(1);
    return PlainNumber{digits.first(signLength), whole, fraction};
}

} // namespace

QString doubleToText(double value)
{
    ByteBuffer text;
    appendDouble(value, text);
    return QString::fromLatin1(text.view());
}

void appendDouble(double value, ByteBuffer &text)
{
    if (value < 0)
        text.append('-');
    if (value == 0)
        text.append('0');
    else if (std::isfinite(value))
        appendDigits(ScientificDigits(std::fabs(value)), text);
    else
        text.append(std::isnan(value) ? "NaN" : "Inf");
}

void appendInteger(std::int64_t number, ByteBuffer &text)
{
    constexpr qsizetype mostDigits = 24;
    char *const begin = text.room(mostDigits);
    text.added(std::to_chars(begin, begin + mostDigits, number).ptr - begin);
}

void appendTwoDigits(int number, ByteBuffer &text)
{
    text.append(static_cast<char>('0' + number / 10));
    text.append(static_cast<char>('0' + number % 10));
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

qint32 roundedInteger(double number)
{
    const double rounded = std::nearbyint(number); // halves go to the even neighbour
    // The negation lets "not a number" overflow too.
    if (!(rounded >= std::numeric_limits<qint32>::min() &&
          rounded <= std::numeric_limits<qint32>::max()))
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<qint32>(rounded);
}

qint32 textToInteger(QStringView text)
{
    QString number = text.trimmed().toString();
    if (number.endsWith(u'-') || number.endsWith(u'+'))
        number = number.back() + number.chopped(1);
    bool isNumber = false;
    const double value = QLocale::c().toDouble(number, &isNumber);
    // Out of range is no number to the toolkit and infinite; "inf" and "nan" are the other way.
    if (isNumber != std::isfinite(value))
        throw RuntimeError(ErrorNumber::TypeMismatch);
    return roundedInteger(value);
}
