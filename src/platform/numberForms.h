#pragma once

#include "platform/ByteBuffer.h"
#include "platform/RuntimeError.h"

#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <limits>

/// The one place that says how numbers look as text, and what texts are numbers.

/// At most 15 significant digits, no trailing zeros; scientific form (`1E+15`,
/// `1.23456789012345E-04`) where the plain one would be longer than 15 digits.
QString doubleToText(double value);
void appendDouble(double value, ByteBuffer &text);

void appendInteger(std::int64_t number, ByteBuffer &text);
/// Appends a number from 0 to 99, with a zero in front below 10.
void appendTwoDigits(int number, ByteBuffer &text);

/// Appends digits as the server sent them, without the zeros that end its fraction ("1.50" is 1.5,
/// ".5" is 0.5). Text that is not a plain decimal number stays as it is.
void appendExactNumber(QByteArrayView digits, ByteBuffer &text);

/// Converts a whole number to a narrower type.
/// @throws RuntimeError 6 when it does not fit
template <typename Narrow>
constexpr Narrow checkedCast(qint64 value)
{
    if (value < std::numeric_limits<Narrow>::min() || value > std::numeric_limits<Narrow>::max())
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<Narrow>(value);
}

/// The nearest whole number, halves to the even neighbour.
/// @throws RuntimeError 6 when it does not fit 32 bits
qint32 roundedInteger(double number);

/// Text to a whole number, rounded like that. Understands what people write for numbers: blanks,
/// tabs and line ends around them, a sign on either side, thousands commas, exponents.
/// @throws RuntimeError 13 when @p text is no number, 6 when it does not fit 32 bits.
qint32 textToInteger(QStringView text);
