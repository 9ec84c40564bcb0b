#include "dataaccess/rows/NumberKey.h"

#include "dataaccess/rows/packedCells.h"
#include "platform/textForms.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace {

constexpr int largestExponent = 0x3FFE;

} // namespace

void NumberKey::append(const char *cell, ByteBuffer &bytes)
{
    m_text.clear();
    if (static_cast<quint8>(*cell) == CellDouble) {
        char form[32]; // the text form of a double is rounded
        const double number = std::get<double>(packedCellValue(cell).variant());
        m_text.append({form, std::to_chars(form, std::end(form), number).ptr - form});
    } else {
        appendPackedCellUtf8(cell, m_text);
    }
    if (read(m_text.view())) {
        appendDecimal(bytes);
    } else if (m_text.view() == "-inf") {
        bytes.append(QByteArrayView("\0\0", 2));
    } else {
        bytes.append("\xFF\xFF");
        bytes.append(m_text.view());
    }
}

/// @returns whether @p text is a plain number
bool NumberKey::read(QByteArrayView text)
{
    m_digits.clear();
    m_exponent = 0;
    const char *at = text.begin();
    const char *const end = text.end();
    m_negative = at != end && *at == '-';
    if (m_negative || (at != end && *at == '+'))
        ++at;
    const char *const mantissa = at;
    at = readDigits(at, end, 1);
    if (at != end && *at == '.')
        at = readDigits(at + 1, end, 0);
    while (m_digits.size() > 0 && m_digits.view().back() == '0')
        m_digits.chop(1);
    return at != mantissa && (at == end || readExponent(at, end));
}

/// @param places  by how much each digit raises the exponent: 1 before the point, 0 behind it
const char *NumberKey::readDigits(const char *at, const char *end, int places)
{
    for (; at != end && isDigit(*at); ++at) {
        const bool begins = *at == '0' && m_digits.size() == 0;
        m_exponent += begins ? places - 1 : places;
        if (!begins)
            m_digits.append(*at);
    }
    return at;
}

bool NumberKey::readExponent(const char *at, const char *end)
{
    if (*at != 'E' && *at != 'e')
        return false;
    ++at;
    if (at != end && *at == '+')
        ++at;
    int exponent = 0;
    const auto [rest, error] = std::from_chars(at, end, exponent);
    m_exponent += std::clamp(exponent, -largestExponent, largestExponent);
    return error == std::errc() && rest == end;
}

void NumberKey::appendDecimal(ByteBuffer &bytes) const
{
    const QByteArrayView digits = m_digits.view();
    const bool negative = m_negative && !digits.isEmpty();
    const int size = std::clamp(m_exponent, -largestExponent, largestExponent) + 0x4000;
    const int scale = digits.isEmpty() ? 0 : size;
    const int beginning = 0x8000 + (negative ? -scale : scale);
    bytes.append(static_cast<char>(beginning >> 8));
    bytes.append(static_cast<char>(beginning));
    for (qsizetype i = 0; i < digits.size(); i += 2) {
        const int second = i + 1 < digits.size() ? digits[i + 1] - '0' : 0;
        const int pair = (digits[i] - '0') * 10 + second;
        bytes.append(static_cast<char>(negative ? 100 - pair : pair + 1));
    }
    // Of two negative numbers that begin alike the shorter one is the greater.
    if (negative)
        bytes.append('\xFF');
}
