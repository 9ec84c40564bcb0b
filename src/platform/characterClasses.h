#pragma once

#include <QChar>

/// For QChar and for bytes of UTF-8.
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
