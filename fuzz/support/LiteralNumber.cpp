#include "support/LiteralNumber.h"

#include "platform/RuntimeError.h"
#include "platform/checkedArithmetic.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString number = uR"((\d[\d,]*(?:\.\d*)?|\.\d+)(?:[eE]([-+]?\d+))?)"_s;

/// @p pattern with N for a number, caught as digits and exponent, and blanks for white space.
QRegularExpression patternOf(QString pattern)
{
    pattern.replace(u'N', number).replace(u' ', uR"([\t-\r\x20]*)"_s);
    return QRegularExpression(uR"(\A)"_s + pattern + uR"(\z)"_s);
}

qint32 literalBits(const QString &digits, int base)
{
    bool fits = false;
    const quint32 bits = digits.toUInt(&fits, base);
    if (!fits)
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<qint32>(bits);
}

/// The digits with the point moved by the exponent: whole part and fraction.
std::pair<QString, QString> movedPoint(const QString &digits, const QString &exponent)
{
    const qsizetype limit = 2 * digits.size() + 20;
    bool isShort = false;
    qint64 shift = exponent.toInt(&isShort);
    if (!exponent.isEmpty() && !isShort)
        shift = exponent.startsWith(u'-') ? -limit : limit;
    shift = std::clamp<qint64>(shift, -limit, limit);
    const QString zeros(limit, u'0');
    const QString whole = zeros + QString(digits).remove(u',').section(u'.', 0, 0);
    const QString fraction = digits.section(u'.', 1) + zeros;
    const QString all = whole + fraction;
    return {all.left(whole.size() + shift), all.mid(whole.size() + shift)};
}

qint32 literalDecimal(const QString &digits, const QString &exponent, bool negative)
{
    const auto [whole, fraction] = movedPoint(digits, exponent);
    static const QRegularExpression upToTenDigits(uR"(\A0*(\d{0,10})\z)"_s);
    const auto match = upToTenDigits.match(whole);
    if (!match.hasMatch())
        throw RuntimeError(ErrorNumber::Overflow);
    qint64 value = match.captured(1).toLongLong();
    const int order = fraction.compare(u'5' + QString(fraction.size() - 1, u'0'));
    if (order > 0 || (order == 0 && value % 2 != 0))
        ++value;
    return checkedCast<qint32>(negative ? -value : value);
}

} // namespace

qint32 literalInteger(const QString &text)
{
    static const QRegularExpression bits(
        uR"(\A[\t-\r ]*&(?:[hH]([\da-fA-F]+)|[oO]([0-7]+))[\t-\r ]*\z)"_s);
    if (const auto match = bits.match(text); match.hasMatch()) {
        return match.capturedLength(1) > 0 ? literalBits(match.captured(1), 16)
                                           : literalBits(match.captured(2), 8);
    }
    static const QRegularExpression enclosed = patternOf(uR"( \( \$? N \) )"_s);
    if (const auto match = enclosed.match(text); match.hasMatch())
        return literalDecimal(match.captured(1), match.captured(2), true);
    static const QRegularExpression before = patternOf(uR"( (\$ [-+]|[-+] \$?) N )"_s);
    if (const auto match = before.match(text); match.hasMatch())
        return literalDecimal(match.captured(2), match.captured(3),
                              match.capturedView(1).contains(u'-'));
    static const QRegularExpression behind = patternOf(uR"( \$? N ([-+]?) )"_s);
    if (const auto match = behind.match(text); match.hasMatch())
        return literalDecimal(match.captured(1), match.captured(2), match.captured(3) == u'-');
    throw RuntimeError(ErrorNumber::TypeMismatch);
}
