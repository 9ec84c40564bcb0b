#include "dataaccess/odbc/ColumnBuffer.h"

#include "platform/textForms.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace {

template <typename T>
T readAs(const CellView &cell)
{
    T value;
    std::memcpy(&value, cell.bytes, sizeof value);
    return value;
}

/// The double that looks like the single: 0.1 in single precision is to read 0.1.
double fromSingle(double value)
{
    char digits[32];
    const char *const end = std::to_chars(digits, std::end(digits), static_cast<float>(value)).ptr;
    std::from_chars(digits, end, value);
    return value;
}

Timestamp toTimestamp(const CellView &cell)
{
    const auto source = readAs<SQL_TIMESTAMP_STRUCT>(cell);
    Timestamp timestamp;
    timestamp.year = source.year;
    timestamp.month = static_cast<quint8>(source.month);
    timestamp.day = static_cast<quint8>(source.day);
    timestamp.hour = static_cast<quint8>(source.hour);
    timestamp.minute = static_cast<quint8>(source.minute);
    timestamp.second = static_cast<quint8>(source.second);
    timestamp.nanosecond = source.fraction;
    return timestamp;
}

bool readTwoDigits(const char *&at, const char *end, quint8 below, quint8 &number)
{
    const auto [stop, error] = std::from_chars(at, std::min(at + 2, end), number);
    const bool isRead = error == std::errc() && stop == at + 2 && number < below;
    at = stop;
    return isRead;
}

/// Reads `hh:mm:ss` with a fraction. @returns whether the text is a time of day
bool readTimeOfDay(const CellView &cell, Timestamp &time)
{
    const char *at = cell.bytes;
    const char *const end = at + cell.length;
    const auto readColon = [&] { return at < end && *at++ == ':'; };
    if (!readTwoDigits(at, end, 24, time.hour) || !readColon() ||
        !readTwoDigits(at, end, 60, time.minute) || !readColon() ||
        !readTwoDigits(at, end, 60, time.second))
        return false;
    if (at == end)
        return true;
    if (*at++ != '.' || end - at > 9)
        return false;
    char fraction[] = "000000000";
    std::copy(at, end, fraction);
    const char *const fractionEnd = fraction + 9;
    return std::from_chars(fraction, fractionEnd, time.nanosecond).ptr == fractionEnd;
}

void packTimeOfDay(const CellView &cell, RowWriter &row)
{
    Timestamp time;
    if (readTimeOfDay(cell, time))
        row.addTimestamp(time);
    else
        row.addValue(toValue(ColumnForm::TimeOfDay, cell));
}

QString latin1(const CellView &cell)
{
    return QString::fromLatin1(cell.bytes, static_cast<qsizetype>(cell.length));
}

template <typename Number>
bool readNumber(const CellView &cell, Number &number)
{
    const char *const end = cell.bytes + cell.length;
    const auto [stop, error] = std::from_chars(cell.bytes, end, number);
    // "nan" and "infinity" would be read too, but are somebody's texts.
    return error == std::errc() && stop == end && (isDigit(end[-1]) || end[-1] == '.');
}

Value anything(const CellView &cell)
{
    std::int64_t integer = 0;
    double number = 0;
    if (readNumber(cell, integer))
        return integer;
    if (readNumber(cell, number))
        return number;
    return textFromUtf8({cell.bytes, static_cast<qsizetype>(cell.length)});
}

void packAnything(const CellView &cell, RowWriter &row)
{
    std::int64_t integer = 0;
    double number = 0;
    if (readNumber(cell, integer))
        row.addInteger(integer);
    else if (readNumber(cell, number))
        row.addDouble(number);
    else
        row.addUtf8({cell.bytes, static_cast<qsizetype>(cell.length)});
}

} // namespace

Value toValue(ColumnForm form, const CellView &cell)
{
    if (cell.isNull)
        return NullValue{};
    switch (form) {
    case ColumnForm::Boolean:
        return *cell.bytes != 0;
    case ColumnForm::Integer:
        return static_cast<std::int64_t>(readAs<SQLBIGINT>(cell));
    case ColumnForm::Single:
        return fromSingle(readAs<SQLDOUBLE>(cell));
    case ColumnForm::Double:
        return readAs<SQLDOUBLE>(cell);
    case ColumnForm::Digits:
        return ExactNumber{latin1(cell)};
    case ColumnForm::Anything:
        return anything(cell);
    case ColumnForm::Timestamp:
        return toTimestamp(cell);
    case ColumnForm::TimeOfDay: {
        Timestamp time;
        return readTimeOfDay(cell, time) ? Value(time) : Value(latin1(cell));
    }
    case ColumnForm::Binary:
        return QByteArray(cell.bytes, static_cast<qsizetype>(cell.length));
    case ColumnForm::Utf8Text:
        return textFromUtf8({cell.bytes, static_cast<qsizetype>(cell.length)});
    case ColumnForm::Text:
        break;
    }
    QString text(static_cast<qsizetype>(cell.length / sizeof(QChar)), Qt::Uninitialized);
    std::memcpy(text.data(), cell.bytes, static_cast<size_t>(text.size()) * sizeof(QChar));
    return text;
}

void packCell(ColumnForm form, const CellView &cell, NullForm nulls, RowWriter &row)
{
    if (cell.isNull) {
        row.addNull(nulls);
        return;
    }
    switch (form) {
    case ColumnForm::Boolean:
        return row.addBoolean(*cell.bytes != 0);
    case ColumnForm::Integer:
        return row.addInteger(readAs<SQLBIGINT>(cell));
    case ColumnForm::Single:
        return row.addDouble(fromSingle(readAs<SQLDOUBLE>(cell)));
    case ColumnForm::Double:
        return row.addDouble(readAs<SQLDOUBLE>(cell));
    case ColumnForm::Digits:
        return row.addDigits(cell.bytes, cell.length);
    case ColumnForm::Anything:
        return packAnything(cell, row);
    case ColumnForm::Timestamp:
        return row.addTimestamp(toTimestamp(cell));
    case ColumnForm::TimeOfDay:
        return packTimeOfDay(cell, row);
    case ColumnForm::Binary:
        return row.addBinary(cell.bytes, cell.length);
    case ColumnForm::Utf8Text:
        return row.addUtf8({cell.bytes, static_cast<qsizetype>(cell.length)});
    case ColumnForm::Text:
        return row.addText(reinterpret_cast<const char16_t *>(cell.bytes),
                           cell.length / sizeof(char16_t));
    }
}

namespace {

/// Room for @p bytes, so that what follows is aligned.
size_t aligned(size_t bytes)
{
    constexpr size_t alignment = alignof(std::max_align_t);
    return (bytes + alignment - 1) / alignment * alignment;
}

} // namespace

size_t ColumnBuffer::blockBytes(size_t rows) const
{
    return aligned(rows * sizeof(SQLLEN)) + aligned(rows * m_width);
}

void ColumnBuffer::bind(const OdbcHandle &statement, SQLUSMALLINT number, char *memory, size_t rows)
{
    m_indicators = reinterpret_cast<SQLLEN *>(memory);
    m_values = memory + aligned(rows * sizeof(SQLLEN));
    // Some drivers tell the length of what they stored, not of what there was: a buffer that is
    // full to the last character may hold a cut value.
    m_terminator = m_column.terminatorBytes();
    m_longest = m_width - m_terminator;
    if (m_column.hasVariableSize())
        m_longest -= std::max<size_t>(m_terminator, 1);
    checkOdbc(SQLBindCol(statement.get(), number, m_column.cType(), m_values,
                         static_cast<SQLLEN>(m_width), m_indicators),
              statement);
}
