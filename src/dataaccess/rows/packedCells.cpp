#include "dataaccess/rows/packedCells.h"

#include "platform/numberForms.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

quint8 tagOf(const char *cell)
{
    return static_cast<quint8>(*cell);
}

bool isLatin1(quint8 tag)
{
    return tag >= CellShortLatin1 || tag == CellLatin1;
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

/// The characters of a cell of digits.
class DigitCharacters
{
public:
    explicit DigitCharacters(const char *cell)
    {
        const quint8 tag = static_cast<quint8>(*cell);
        const char *at = cell + 1;
        m_length = tag == CellDigits ? readLength(at) : tag - CellShortDigits;
        if (m_length > static_cast<qsizetype>(std::size(m_short)))
            m_long.resize(m_length + 1);
        // Two digits a byte, the last one's partner included.
        char *out = m_long.isEmpty() ? m_short : m_long.data();
        for (const char *const end = at + (m_length + 1) / 2; at != end; ++at) {
            const auto pair = static_cast<quint8>(*at);
            *out++ = digitCharacters[pair >> 4];
            *out++ = digitCharacters[pair & 0x0F];
        }
    }

    QByteArrayView view() const
    {
        return {m_long.isEmpty() ? m_short : m_long.constData(), m_length};
    }

private:
    char m_short[48];
    QByteArray m_long; ///< used by those that are longer
    qsizetype m_length = 0;
};

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

void appendUtf8(QLatin1StringView characters, ByteBuffer &text)
{
    const char *from = characters.data();
    const char *const end = from + characters.size();
    char *const begin = text.room(2 * characters.size());
    char *to = begin;
    // Eight at a time as long as they are the same in UTF-8.
    constexpr quint64 highBits = 0x8080'8080'8080'8080U;
    for (quint64 eight = 0; end - from >= 8; from += 8, to += 8) {
        std::memcpy(&eight, from, sizeof eight);
        if (eight & highBits)
            break;
        std::memcpy(to, &eight, sizeof eight);
    }
    for (; from != end; ++from) {
        const auto code = static_cast<quint8>(*from);
        if (code < 0x80) {
            *to++ = *from;
        } else {
            *to++ = static_cast<char>(0xC0 | (code >> 6));
            *to++ = static_cast<char>(0x80 | (code & 0x3F));
        }
    }
    text.added(to - begin);
}

/// Appends the text form of whatever is no text and no bytes.
void appendForm(const char *cell, ByteBuffer &text)
{
    const quint8 tag = tagOf(cell);
    if (tag >= CellShortDigits || tag == CellDigits) {
        appendExactNumber(DigitCharacters(cell).view(), text);
    } else if (tag >= CellInteger && tag <= CellInteger + 8) {
        appendInteger(readInteger(cell), text);
    } else if (tag >= CellDate && tag <= CellTimestamp) {
        appendTimestamp(readTimestamp(cell), text);
    } else if (tag == CellDouble) {
        const char *at = cell + 1;
        appendDouble(readNumber<double>(at), text);
    } else if (tag == CellTrue || tag == CellFalse) {
        text.append(tag == CellTrue ? QByteArrayView("True") : QByteArrayView("False"));
    }
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
    if (isLatin1(tag))
        return QString(readLatin1(cell));
    if (tag >= CellShortDigits || tag == CellDigits)
        return ExactNumber{QString::fromLatin1(DigitCharacters(cell).view())};
    switch (tag) {
    case CellNumberText:
        return ExactNumber{readUtf16(cell + 1)};
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

void appendPackedCellText(const char *cell, QString &text, qsizetype longest)
{
    const quint8 tag = tagOf(cell);
    const char *at = cell + 1;
    if (isLatin1(tag)) {
        text += readLatin1(cell).left(longest);
    } else if (tag == CellUtf16 || tag == CellNumberText) {
        const qsizetype units = std::min(longest, readLength(at));
        const qsizetype before = text.size();
        text.resize(before + units);
        std::memcpy(text.data() + before, at, static_cast<size_t>(units) * sizeof(QChar));
    } else if (tag == CellBinary) {
        const QByteArrayView bytes = readBytes(at);
        const qsizetype shown = std::min(longest / 2 + 1, bytes.size());
        const QByteArray digits = bytes.first(shown).toByteArray().toHex().toUpper();
        text += QLatin1StringView(digits).left(longest);
    } else {
        static thread_local ByteBuffer form;
        form.clear();
        appendForm(cell, form);
        text += QLatin1StringView(form.view()).left(longest);
    }
}

const char *appendPackedCellUtf8(const char *cell, ByteBuffer &text)
{
    const quint8 tag = tagOf(cell);
    if (isLatin1(tag)) {
        const QLatin1StringView characters = readLatin1(cell);
        appendUtf8(characters, text);
        return characters.end();
    }
    if (tag == CellUtf16 || tag == CellNumberText || tag == CellBinary) {
        QString wide;
        appendPackedCellText(cell, wide);
        text.append(wide.toUtf8());
    } else {
        appendForm(cell, text);
    }
    return packedCellEnd(cell);
}

std::optional<Timestamp> packedCellTimestamp(const char *cell)
{
    const quint8 tag = tagOf(cell);
    if (tag < CellDate || tag > CellTimestamp)
        return std::nullopt;
    return readTimestamp(cell);
}

StoredUnits storedUnits(const char *cell)
{
    const quint8 tag = tagOf(cell);
    const char *at = cell + 1;
    if (tag >= CellShortLatin1)
        return {at, tag - CellShortLatin1, 1};
    const qsizetype count = readLength(at);
    return {at, count, tag == CellUtf16 ? 2 : 1};
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
