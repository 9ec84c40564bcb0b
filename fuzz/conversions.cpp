// Conversions between texts, numbers and dates: what is written is read back, and what is refused
// is refused by a second writing of the rules.

#include "dataaccess/Value.h"
#include "platform/ByteBuffer.h"
#include "platform/RuntimeError.h"
#include "platform/numberForms.h"
#include "platform/textForms.h"
#include "support/LiteralNumber.h"
#include "support/fuzzInput.h"
#include "support/raisedError.h"
#include "support/require.h"

#include <QRegularExpression>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

void checkInteger(const QString &text)
{
    qint32 found = 0;
    qint32 expected = 0;
    const int error = raisedError([&] { found = textToInteger(text); });
    require(error == raisedError([&] { expected = literalInteger(text); }),
            "both writings refuse the same numbers");
    require(found == expected, "both writings read the same number");
    if (error == 0)
        require(textToInteger(QString::number(found)) == found, "a number is read back");
}

void checkExactNumber(const QString &text)
{
    const QString form = exactNumberToText(text);
    requireEqual(exactNumberToText(form), form, "an exact number's form stays");
    ByteBuffer utf8;
    appendExactNumber(text.toUtf8(), utf8);
    requireEqual(QString::fromUtf8(utf8.view()), form, "its form in UTF-8 is the same");
    const auto valueOf = [](const QString &digits) {
        qint32 value = 0;
        const int error = raisedError([&] { value = Value(ExactNumber{digits}).toInteger(); });
        return std::pair(error, value);
    };
    require(valueOf(form) == valueOf(text), "its form means the same");
}

void checkDate(const QString &text)
{
    static const QRegularExpression pattern(
        uR"(\A *(\d\d?)/(\d\d?)/(\d{4})(?: (\d\d?):(\d\d)(?::(\d\d))?)? *\z)"_s);
    const auto match = pattern.match(text);
    const auto part = [&](int number) { return match.captured(number).toInt(); };
    const bool isDate = match.hasMatch() && QDate::isValid(part(3), part(1), part(2)) &&
                        QTime::isValid(part(4), part(5), part(6));

    ClockTime read;
    const int error = raisedError([&] { read = textToClockTime(text); });
    require(error == (isDate ? 0 : ErrorNumber::TypeMismatch), "dates and nothing else are read");
    if (!isDate)
        return;
    require(read.year == part(3) && read.month == part(1) && read.day == part(2) &&
                read.hour == part(4) && read.minute == part(5) && read.second == part(6),
            "a date is read as it is written");
    const QString form = dateTimeForm(read).toString();
    requireEqual(dateTimeForm(textToClockTime(form)).toString(), form, "a date is read back");
    require(dayMonthYearForm(read).view().size() == 11, "a day has two digits");
}

void checkDouble(const std::uint8_t *data, std::size_t size)
{
    double value = 0;
    std::memcpy(&value, data, std::min(size, sizeof value));
    const QByteArray text = doubleToText(value).toLatin1();
    if (!std::isfinite(value))
        return;
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.14e", value);
    require(std::strtod(text.constData(), nullptr) == std::strtod(digits, nullptr),
            "a number is written with 15 digits");
    require(text.size() <= 24, "a number's form is short");
    if (std::fabs(value) < 1e15 && !text.contains('E')) {
        qint32 whole = 0;
        const int error = raisedError([&] { whole = textToInteger(QString::fromLatin1(text)); });
        require(error == ErrorNumber::Overflow || std::fabs(whole - value) <= 0.5 + 1e-5,
                "its text is a number again");
    }
}

void checkLetters(const QString &text)
{
    require(properCase(text).size() == text.size(), "letter case keeps the length");
    requireEqual(trimBlanks(trimBlanks(text)), trimBlanks(text), "a trimmed text stays");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text = textOf(data, size);
    checkInteger(text);
    checkExactNumber(text);
    checkDate(text);
    checkDouble(data, size);
    checkLetters(text);
    return 0;
}
