#pragma once

#include <QChar>

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
