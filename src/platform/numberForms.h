#pragma once

#include "platform/ByteBuffer.h"
#include "platform/ShortText.h"

#include <QByteArrayView>
#include <QString>
#include <QStringView>

/// The one place that says how numbers look as text, and what texts are numbers.

/// At most 15 significant digits, no trailing zeros; scientific form (`1E+15`,
/// `1.23456789012345E-04`) where the plain one would be longer than 15 digits.
QString doubleToText(double value);
ShortText doubleForm(double value);

/// Appends digits as the server sent them, without the zeros that end its fraction ("1.50" is 1.5,
/// ".5" is 0.5). Text that is not a plain decimal number stays as it is.
void appendExactNumber(QByteArrayView digits, ByteBuffer &text);

/// The nearest whole number, halves to the even neighbour.
/// @throws RuntimeError 6 when it does not fit 32 bits
qint32 roundedInteger(double number);

/// Text to a whole number, rounded like that. Understands what people write for numbers: blanks,
/// tabs and line ends around them, a sign on either side, thousands commas, exponents.
/// @throws RuntimeError 13 when @p text is no number, 6 when it does not fit 32 bits.
qint32 textToInteger(QStringView text);
