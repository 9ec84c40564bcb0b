#pragma once

#include "dataaccess/odbc/OdbcColumn.h"
#include "dataaccess/rows/RowWriter.h"

#include <QByteArray>
#include <QByteArrayView>

#include <algorithm>
#include <cstring>
#include <optional>

/// One value as the driver gave it.
struct CellView
{
    bool isNull = false;
    const char *bytes = nullptr;
    size_t length = 0; ///< without the zero at its end
};

/// Makes a value of @p cell, which came in the form @p form.
Value toValue(ColumnForm form, const CellView &cell);
/// Adds the same value to a packed row, without building it.
void packCell(ColumnForm form, const CellView &cell, NullForm nulls, RowWriter &row);

/// A column with the part of the block's memory that it is bound to.
class ColumnBuffer
{
public:
    explicit ColumnBuffer(OdbcColumn column)
        : m_column(std::move(column))
    {
    }

    const OdbcColumn &column() const { return m_column; }
    bool isBound() const { return m_isBound; }
    void setBound(bool bound) { m_isBound = bound; }
    /// Bytes of one row's value, the zero at its end included.
    size_t width() const { return m_width; }
    void setWidth(size_t width) { m_width = width; }

    /// What the column takes of the block's memory.
    size_t blockBytes(size_t rows) const;
    /// Binds to @p memory. @throws RuntimeError with the driver's text
    void bind(const OdbcHandle &statement, SQLUSMALLINT number, char *memory, size_t rows);

    /// To be called before every fetch of @p rows: some drivers tell of a truth value only that it
    /// is null, and leave what they told of the one before it.
    void prepareFetch(size_t rows)
    {
        if (m_isBound && m_column.form == ColumnForm::Boolean)
            std::fill_n(m_indicators, rows, SQLLEN{sizeof(SQLCHAR)});
    }
    /// Whether row @p row's value is, or may be, longer than its buffer. Some drivers misreckon the
    /// length of what they cut; then no zero stands where the value would end.
    bool isCut(size_t row) const
    {
        const SQLLEN length = m_indicators[row];
        return m_column.hasVariableSize() && length != SQL_NULL_DATA &&
               (length < 0 || static_cast<size_t>(length) > m_longest ||
                !endsAt(m_values + row * m_width + length));
    }
    /// Whether @p whole begins with what was stored of row @p row's value and goes on after it.
    bool isContinuedBy(size_t row, QByteArrayView whole) const
    {
        const QByteArrayView stored(m_values + row * m_width, static_cast<qsizetype>(m_longest));
        return whole.size() > stored.size() && whole.startsWith(stored);
    }
    SQLLEN indicator(size_t row) const { return m_indicators[row]; }
    CellView cell(size_t row) const
    {
        return {m_indicators[row] == SQL_NULL_DATA, m_values + row * m_width,
                static_cast<size_t>(m_indicators[row])};
    }

private:
    bool endsAt(const char *end) const
    {
        return std::all_of(end, end + m_terminator, [](char byte) { return byte == '\0'; });
    }

    OdbcColumn m_column;
    bool m_isBound = false;
    size_t m_width = 0;
    size_t m_longest = 0;    ///< a value up to this many bytes has certainly not been cut
    size_t m_terminator = 0; ///< bytes of the zero behind a value
    char *m_values = nullptr;
    SQLLEN *m_indicators = nullptr;
};

/// Reads a value of the current row whole, piece by piece where it has to be.
/// @param expectedBytes  the length if it is known, otherwise a negative number
/// @returns the value's bytes, without a zero at its end; nothing for null
/// @throws RuntimeError with the driver's text, or when the driver stops giving more
std::optional<QByteArray> readWholeValue(const OdbcHandle &statement, SQLUSMALLINT number,
                                         const OdbcColumn &column, SQLLEN expectedBytes);
