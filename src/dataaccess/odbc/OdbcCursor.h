#pragma once

#include "dataaccess/odbc/ColumnBuffer.h"
#include "dataaccess/odbc/OdbcHandle.h"

#include <memory>
#include <optional>
#include <vector>

struct OdbcAbilities;

/// Reads an executed statement's result forward, a block of rows in one call of the driver. Stands
/// on the first row when it is made.
///
/// No value is ever cut. Blocks are as long as was asked for while every column has a size that can
/// be relied on; as soon as one has not, a block is one row, because a value that did not fit its
/// buffer is read again whole most reliably there.
class OdbcCursor
{
public:
    /// Reads the first row of @p statement's present result.
    /// @throws RuntimeError with the driver's text
    OdbcCursor(const OdbcAbilities &abilities, OdbcHandle statement, int rowsPerBlock);
    OdbcCursor(const OdbcCursor &) = delete; // the driver writes to its members
    OdbcCursor &operator=(const OdbcCursor &) = delete;

    /// Whether what was sent goes on after this result and may yet fail: reading to the end tells.
    bool mayFailLater() const { return m_mayFailLater; }
    const std::vector<FieldInfo> &fields() const { return m_fields; }
    bool atEnd() const { return m_row >= m_fetched; }
    /// Whether next() calls the driver for rows.
    bool isLastOfBlock() const { return m_row + 1 >= m_fetched; }
    /// Goes to the next row; not at the end. @throws RuntimeError with the driver's text
    void next();
    /// The current row's value. @throws RuntimeError with the driver's text
    Value value(int field) const;
    /// Adds all cells of the current row to @p row. @throws RuntimeError with the driver's text
    void pack(RowWriter &row, NullForm nulls) const;

private:
    /// A value of the current row that did not fit its buffer.
    struct WholeValue
    {
        size_t column;
        std::optional<QByteArray> bytes; ///< none: null
    };

    void planReading(const OdbcAbilities &abilities, int rowsPerBlock);
    void bind();
    void fetchBlock();
    void end();
    void arriveAtRow();
    [[noreturn]] void raiseCutValue(size_t column) const;
    CellView cell(size_t column) const;
    const WholeValue &wholeValue(size_t column) const;

    OdbcHandle m_statement;
    std::vector<FieldInfo> m_fields;
    std::vector<ColumnBuffer> m_columns;
    std::unique_ptr<char[]> m_memory;
    std::vector<SQLUSMALLINT> m_rowStates;
    SQLULEN m_rowsPerBlock = 1;
    SQLULEN m_fetched = 0;
    SQLULEN m_row = 0; ///< in the block
    bool m_mayFailLater = false;
    bool m_isRowInBuffers = false; ///< known of the current row: every value is bound and not cut
    bool m_rereadsInBlock = false; ///< the driver gives values again anywhere in a block
    bool m_rereadsBound = false;   ///< it gives values of bound columns again, at least
    mutable std::vector<WholeValue> m_wholeValues;
};
