#pragma once

#include "dataaccess/rows/RowStore.h"
#include "dataaccess/rows/RowWriter.h"
#include "dataaccess/rows/Value.h"

#include <optional>
#include <vector>

/// The rows of a client-side recordset: packed, in the order of arrival or in a sorted one. The one
/// added last, which stands last, may still be open for editing. Positions are those of the
/// present order.
class MemoryTable
{
public:
    explicit MemoryTable(int fieldCount);

    qint64 rowCount() const { return m_rows.rowCount() + (m_edited ? 1 : 0); }
    /// Adds a row of empty values and opens it for editing. @returns its position
    qint64 addEmptyRow();
    /// Adds a row that is packed already. @returns its position
    qint64 addRow(const RowWriter &row);
    /// Sets a value of the row that is open for editing.
    void setValue(int field, const Value &value);
    /// Whether the row at @p position is open for editing.
    bool isEdited(qint64 position) const { return m_edited && position == m_rows.rowCount(); }
    /// Packs the row that is open for editing, if there is one.
    void finishEditing();
    /// Brings the rows that are there into the order of a field's values, as orderedRows() has it.
    void sort(int field, bool descending);

    /// The packed cells of a row, from the first and from field @p field on, until the row is
    /// changed.
    const char *row(qint64 position) const;
    const char *cell(qint64 position, int field) const;
    void pack(qint64 position, RowWriter &copy, NullForm nulls) const;
    qint64 bytes() const;

private:
    struct LastCell
    {
        const char *row = nullptr;
        int field = 0;
        const char *cell = nullptr;
    };

    qint64 storedRow(qint64 position) const;

    int m_fieldCount;
    RowStore m_rows;
    std::optional<std::vector<Value>> m_edited; ///< the row after the stored ones
    mutable RowWriter m_packed;                 ///< the same, when it has been asked for
    mutable bool m_isPacked = false;
    std::vector<int> m_order;    ///< the stored rows at the first positions, those that were sorted
    mutable LastCell m_lastCell; ///< makes reading a row field by field linear
};

/// The positions of @p table's rows, ordered by the values of one field. What looks like nothing
/// (a null, a field never set, an empty text) stands last in either direction, and equal values
/// stay in the order that the table has them in.
///
/// Numbers are compared exactly, whatever their form and however many digits they have, times as
/// points in time, texts by the code points of their characters. Values of different kinds stand
/// in the order: truth values, numbers, times, texts, bytes.
std::vector<int> orderedRows(const MemoryTable &table, int field, bool descending);
