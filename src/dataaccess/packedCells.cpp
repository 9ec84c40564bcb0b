#include "dataaccess/packedCells.h"

#include "platform/textForms.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <iterator>

namespace {

quint8 tagOf(const char *cell)
{
    return static_cast<quint8>(*cell);
}

template <typename Number>
Number readNumber(const char *&at)
{
    Number number;
    std::memcpy(&number, at, sizeof number);
    at += sizeof number;
    return number;
}

qsizetype readLength(const char *&at)
{
    quint64 length = 0;
    for (int shift = 0;; shift += 7) {
        const auto byte = static_cast<quint8>(*at++);
        length |= quint64{byte & 0x7FU} << shift;
        if (byte < 0x80)
            return static_cast<qsizetype>(length);
    }
}

std::int64_t readInteger(const char *cell)
{
    const int bytes = tagOf(cell) - CellInteger;
    if (bytes == 0)
        return 0;
    quint64 number = 0;
    for (int i = 0; i < bytes; ++i)
        number |= quint64{static_cast<quint8>(cell[1 + i])} << (8 * i);
    const int unusedBits = 64 - 8 * bytes;
    return static_cast<std::int64_t>(number << unusedBits) >> unusedBits;
}

Timestamp readTimestamp(const char *cell)
{
    const quint8 tag = tagOf(cell);
    const char *at = cell + 1;
    Timestamp timestamp;
    timestamp.year = readNumber<qint16>(at);
    timestamp.month = readNumber<quint8>(at);
    timestamp.day = readNumber<quint8>(at);
    if (tag == CellDate)
        return timestamp;
    timestamp.hour = readNumber<quint8>(at);
    timestamp.minute = readNumber<quint8>(at);
    timestamp.second = readNumber<quint8>(at);
    if (tag == CellTimestamp)
        timestamp.nanosecond = readNumber<quint32>(at);
    return timestamp;
}

QString readUtf16(const char *at)
{
    const qsizetype units = readLength(at);
    QString text(units, Qt::Uninitialized);
    std::memcpy(text.data(), at, static_cast<size_t>(units) * sizeof(QChar));
    return text;
}

QString readDigits(const char *at, qsizetype length)
{
    QString digits(length, Qt::Uninitialized);
    QChar *out = digits.data();
    for (qsizetype i = 0; i < length; ++i) {
        const auto pair = static_cast<quint8>(at[i / 2]);
        out[i] = QLatin1Char(digitCharacters[i % 2 == 0 ? pair >> 4 : pair & 0x0F]);
    }
    return digits;
}

QString readExactNumber(const char *cell)
{
    const quint8 tag = tagOf(cell);
    const char *at = cell + 1;
    if (tag == CellNumberText)
        return readUtf16(at);
    const qsizetype length = tag == CellDigits ? readLength(at) : tag - CellShortDigits;
    return readDigits(at, length);
}

QByteArrayView readBytes(const char *at)
{
    const qsizetype length = readLength(at);
    return {at, length};
}

QLatin1StringView readLatin1(const char *cell)
{
    if (tagOf(cell) >= CellShortLatin1)
        return QLatin1StringView(cell + 1, tagOf(cell) - CellShortLatin1);
    const QByteArrayView bytes = readBytes(cell + 1);
    return QLatin1StringView(bytes.data(), bytes.size());
}

} // namespace

const char *packedCellEnd(const char *cell)
{
    const quint8 tag = tagOf(cell);
    const char *at = cell + 1;
    if (tag >= CellShortLatin1)
        return at + (tag - CellShortLatin1);
    if (tag >= CellShortDigits)
        return at + (tag - CellShortDigits + 1) / 2;
    if (tag < CellInteger)
        return at;
    if (tag <= CellInteger + 8)
        return at + (tag - CellInteger);
    switch (tag) {
    case CellDate:
        return at + 4;
    case CellSecond:
        return at + 7;
    case CellTimestamp:
        return at + 11;
    case CellDouble:
        return at + sizeof(double);
    default:
        break;
    }
    const qsizetype length = readLength(at);
    if (tag == CellUtf16 || tag == CellNumberText)
        return at + length * 2;
    return at + (tag == CellDigits ? (length + 1) / 2 : length);
}

Value packedCellValue(const char *cell)
{
    const quint8 tag = tagOf(cell);
    if (tag >= CellShortLatin1 || tag == CellLatin1)
        return QString(readLatin1(cell));
    if (tag >= CellShortDigits || tag == CellDigits || tag == CellNumberText)
        return ExactNumber{readExactNumber(cell)};
    switch (tag) {
    case CellEmpty:
        return EmptyValue{};
    case CellNull:
        return NullValue{};
    case CellFalse:
        return false;
    case CellTrue:
        return true;
    case CellDouble: {
        const char *at = cell + 1;
        return readNumber<double>(at);
    }
    case CellDate:
    case CellSecond:
    case CellTimestamp:
        return readTimestamp(cell);
    case CellBinary:
        return readBytes(cell + 1).toByteArray();
    case CellUtf16:
        return readUtf16(cell + 1);
    default:
        return readInteger(cell);
    }
}

void appendPackedCellText(const char *cell, QString &text)
{
    const quint8 tag = tagOf(cell);
    if (tag >= CellShortLatin1 || tag == CellLatin1) {
        text += readLatin1(cell);
    } else if (tag >= CellShortDigits || tag == CellDigits) {
        text += exactNumberToText(readExactNumber(cell));
    } else if (tag >= CellInteger && tag <= CellInteger + 8) {
        char digits[24];
        const char *end = std::to_chars(digits, std::end(digits), readInteger(cell)).ptr;
        text += QLatin1StringView(digits, end);
    } else if (tag == CellUtf16) {
        const char *at = cell + 1;
        const qsizetype units = readLength(at);
        const qsizetype before = text.size();
        text.resize(before + units);
        std::memcpy(text.data() + before, at, static_cast<size_t>(units) * sizeof(QChar));
    } else if (tag != CellEmpty && tag != CellNull) {
        text += packedCellValue(cell).toText();
    }
}

QString packedCellTextStart(const char *cell, qsizetype longest)
{
    const quint8 tag = tagOf(cell);
    const char *at = cell + 1;
    if (tag == CellLatin1) {
        const QLatin1StringView text = readLatin1(cell);
        return QString(text.left(std::min(longest, text.size())));
    }
    if (tag == CellUtf16) {
        QString text(std::min(longest, readLength(at)), Qt::Uninitialized);
        std::memcpy(text.data(), at, static_cast<size_t>(text.size()) * sizeof(QChar));
        return text;
    }
    if (tag == CellBinary) {
        const QByteArrayView bytes = readBytes(at);
        const qsizetype shown = std::min(longest / 2 + 1, bytes.size());
        return Value(bytes.first(shown).toByteArray()).toText().left(longest);
    }
    QString text;
    appendPackedCellText(cell, text);
    text.truncate(longest);
    return text;
}

bool isPackedNull(const char *cell)
{
    return tagOf(cell) == CellNull;
}

bool isPackedNumber(const char *cell)
{
    const quint8 tag = tagOf(cell);
    return (tag >= CellInteger && tag <= CellDouble) || tag == CellDigits ||
           tag == CellNumberText || (tag >= CellShortDigits && tag < CellShortLatin1);
}
