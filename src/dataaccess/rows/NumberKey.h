#pragma once

#include "platform/ByteBuffer.h"

/// Makes bytes of numbers that stand, compared as bytes, in the order of the numbers. Meant to be
/// reused for number after number: its memory stays.
class NumberKey
{
public:
    /// Appends those of the number that a cell holds, exact whatever form it has. What is no plain
    /// number stands after all that are, but negative infinity before them.
    void append(const char *cell, ByteBuffer &bytes);

private:
    bool read(QByteArrayView text);
    const char *readDigits(const char *at, const char *end, int places);
    bool readExponent(const char *at, const char *end);
    void appendDecimal(ByteBuffer &bytes) const;

    ByteBuffer m_text;
    // The number is 0.DDD times ten to the exponent, the digits without zeros at either end.
    ByteBuffer m_digits;
    int m_exponent = 0;
    bool m_negative = false;
};
