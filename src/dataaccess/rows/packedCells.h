#pragma once

#include "dataaccess/rows/Value.h"
#include "platform/ByteBuffer.h"

#include <cstring>
#include <limits>
#include <optional>

/// The form in which the cells of an in-memory row lie one behind the other. A cell is a tag byte,
/// which carries short lengths itself, and a payload without alignment. RowWriter writes it; the
/// functions here read it.
enum CellTag : quint8 {
    CellEmpty = 0x00,
    CellNull = 0x01,
    CellFalse = 0x02,
    CellTrue = 0x03,
    CellInteger = 0x04, ///< plus the number of bytes, 0 to 8: little-endian, two's complement
    CellDouble = 0x10,
    CellDate = 0x11,        ///< year (2 bytes), month, day
    CellSecond = 0x12,      ///< the same, then hour, minute, second
    CellTimestamp = 0x13,   ///< the same, then nanoseconds (4 bytes)
    CellBinary = 0x14,      ///< varint length, bytes
    CellLatin1 = 0x15,      ///< varint length, one byte a character
    CellUtf16 = 0x16,       ///< varint number of units, two bytes each
    CellDigits = 0x17,      ///< varint number of digits, two digits a byte
    CellNumberText = 0x18,  ///< an exact number with unexpected characters, as CellUtf16
    CellShortDigits = 0x20, ///< plus the number of digits, 0 to 31; two digits a byte
    CellShortLatin1 = 0x40, ///< plus the length, 0 to 191
};

inline constexpr int maxShortDigits = 31;
inline constexpr int maxShortLatin1 = 191;
/// The characters of exact numbers; a digit's code is its place here.
inline constexpr char digitCharacters[] = "0123456789+-.E";

/// Where the cell after @p cell begins.
const char *packedCellEnd(const char *cell);
Value packedCellValue(const char *cell);
/// Appends the cell's text as Value::toText() gives it, or the first @p longest UTF-16 units of
/// it, which cost no more where it is longer.
void appendPackedCellText(const char *cell, QString &text,
                          qsizetype longest = std::numeric_limits<qsizetype>::max());
/// Appends that text in UTF-8. @returns where the next cell begins
const char *appendPackedCellUtf8(const char *cell, ByteBuffer &text);
/// The point in time that a cell holds, if it holds one.
std::optional<Timestamp> packedCellTimestamp(const char *cell);
/// What the cell of a text or of bytes holds, where it is stored.
struct StoredUnits
{
    const char *data = nullptr;
    qsizetype count = 0;
    int width = 1; ///< bytes of a unit: 1 for Latin-1 and bytes, 2 for UTF-16, not aligned

    quint16 at(qsizetype i) const
    {
        quint16 unit = static_cast<quint8>(data[i * width]);
        if (width == 2)
            std::memcpy(&unit, data + i * 2, sizeof unit);
        return unit;
    }
};
StoredUnits storedUnits(const char *cell);
bool isPackedNull(const char *cell);
bool isPackedNumber(const char *cell);
