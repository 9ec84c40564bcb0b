#include "dataaccess/rows/RowWriter.h"

#include "dataaccess/rows/packedCells.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr size_t longestHeader = 11; // tag and varint length

char *writeLength(char *at, size_t length)
{
    for (; length >= 0x80; length >>= 7)
        *at++ = static_cast<char>((length & 0x7F) | 0x80);
    *at++ = static_cast<char>(length);
    return at;
}

template <typename Number>
char *writeNumber(char *at, Number number)
{
    std::memcpy(at, &number, sizeof number);
    return at + sizeof number;
}

constexpr quint8 noDigit = 0xFF;

constexpr std::array<quint8, 128> digitCodes()
{
    std::array<quint8, 128> codes{};
    codes.fill(noDigit);
    for (quint8 code = 0; digitCharacters[code] != '\0'; ++code)
        codes[static_cast<quint8>(digitCharacters[code])] = code;
    return codes;
}

quint8 digitCode(char character)
{
    static constexpr auto codes = digitCodes();
    const auto index = static_cast<quint8>(character);
    return index < codes.size() ? codes[index] : noDigit;
}

/// Narrows @p text to one byte a character. @returns whether every character fitted
bool narrow(const char16_t *text, size_t units, char *out)
{
    char16_t seen = 0;
    for (size_t i = 0; i < units; ++i) {
        seen |= text[i];
        out[i] = static_cast<char>(text[i]);
    }
    return seen <= 0xFF;
}

bool isAscii(QByteArrayView text)
{
    char seen = 0;
    for (const char byte : text)
        seen = static_cast<char>(seen | byte);
    return (seen & 0x80) == 0;
}

} // namespace

void RowWriter::addEmpty()
{
    addTag(CellEmpty);
}

void RowWriter::addNull(NullForm form)
{
    addTag(form == NullForm::Null ? CellNull : CellShortLatin1);
}

void RowWriter::addBoolean(bool value)
{
    addTag(value ? CellTrue : CellFalse);
}

void RowWriter::addInteger(std::int64_t value)
{
    char *const cell = claim(1 + sizeof value);
    int bytes = 0;
    // As many bytes as it takes for the last one's sign to be the number's.
    std::int64_t rest = value;
    for (bool isWhole = value == 0; !isWhole;) {
        cell[1 + bytes++] = static_cast<char>(rest);
        const bool isNegative = (rest & 0x80) != 0;
        rest >>= 8;
        isWhole = rest == (isNegative ? -1 : 0);
    }
    *cell = static_cast<char>(CellInteger + bytes);
    endCell(cell + 1 + bytes);
}

void RowWriter::addDouble(double value)
{
    char *const cell = claim(1 + sizeof value);
    *cell = CellDouble;
    endCell(writeNumber(cell + 1, value));
}

void RowWriter::addDigits(const char *digits, size_t length)
{
    char *const cell = claim(longestHeader + length / 2 + 1);
    char *at = cell + 1;
    if (length <= maxShortDigits) {
        *cell = static_cast<char>(CellShortDigits + length);
    } else {
        *cell = CellDigits;
        at = writeLength(at, length);
    }
    for (size_t i = 0; i < length; i += 2) {
        const quint8 high = digitCode(digits[i]);
        const quint8 low = i + 1 < length ? digitCode(digits[i + 1]) : quint8{0};
        if (high == noDigit || low == noDigit) {
            const QString text = QString::fromLatin1(digits, static_cast<qsizetype>(length));
            addUtf16(CellNumberText, reinterpret_cast<const char16_t *>(text.utf16()), length);
            return;
        }
        *at++ = static_cast<char>(high << 4 | low);
    }
    endCell(at);
}

void RowWriter::addTimestamp(const Timestamp &value)
{
    const bool hasTime = value.hour != 0 || value.minute != 0 || value.second != 0;
    char *const cell = claim(16);
    *cell = value.nanosecond != 0 ? CellTimestamp : hasTime ? CellSecond : CellDate;
    char *at = writeNumber(cell + 1, value.year);
    at = writeNumber(at, value.month);
    at = writeNumber(at, value.day);
    if (*cell != CellDate) {
        at = writeNumber(at, value.hour);
        at = writeNumber(at, value.minute);
        at = writeNumber(at, value.second);
    }
    if (*cell == CellTimestamp)
        at = writeNumber(at, value.nanosecond);
    endCell(at);
}

char *RowWriter::beginLatin1(size_t characters)
{
    char *const cell = claim(longestHeader + characters);
    if (characters <= maxShortLatin1) {
        *cell = static_cast<char>(CellShortLatin1 + characters);
        return cell + 1;
    }
    *cell = CellLatin1;
    return writeLength(cell + 1, characters);
}

void RowWriter::addText(const char16_t *text, size_t units)
{
    char *const at = beginLatin1(units);
    if (narrow(text, units, at))
        endCell(at + units);
    else
        addUtf16(CellUtf16, text, units);
}

void RowWriter::addUtf8(QByteArrayView text)
{
    if (!isAscii(text)) {
        const QString wide = textFromUtf8(text);
        addText(reinterpret_cast<const char16_t *>(wide.utf16()), static_cast<size_t>(wide.size()));
        return;
    }
    char *const at = beginLatin1(static_cast<size_t>(text.size()));
    endCell(std::copy(text.begin(), text.end(), at));
}

void RowWriter::addUtf16(quint8 tag, const char16_t *text, size_t units)
{
    char *const cell = claim(longestHeader + units * sizeof *text);
    *cell = static_cast<char>(tag);
    char *const at = writeLength(cell + 1, units);
    std::memcpy(at, text, units * sizeof *text);
    endCell(at + units * sizeof *text);
}

void RowWriter::addBinary(const char *bytes, size_t length)
{
    char *const cell = claim(longestHeader + length);
    *cell = CellBinary;
    char *const at = writeLength(cell + 1, length);
    endCell(std::copy_n(bytes, length, at));
}

void RowWriter::addValue(const Value &value)
{
    struct Adder
    {
        RowWriter &row;
        void operator()(EmptyValue) { row.addEmpty(); }
        void operator()(NullValue) { row.addNull(); }
        void operator()(bool v) { row.addBoolean(v); }
        void operator()(std::int64_t v) { row.addInteger(v); }
        void operator()(double v) { row.addDouble(v); }
        void operator()(const ExactNumber &v)
        {
            const QByteArray digits = v.digits.toLatin1();
            row.addDigits(digits.constData(), static_cast<size_t>(digits.size()));
        }
        void operator()(const Timestamp &v) { row.addTimestamp(v); }
        void operator()(const QString &v)
        {
            row.addText(reinterpret_cast<const char16_t *>(v.utf16()),
                        static_cast<size_t>(v.size()));
        }
        void operator()(const QByteArray &v)
        {
            row.addBinary(v.constData(), static_cast<size_t>(v.size()));
        }
    };
    std::visit(Adder{*this}, value.variant());
}

void RowWriter::addPacked(const char *cells, const char *end)
{
    m_bytes.append(QByteArrayView(cells, end));
}
