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

    qint64 rowCount() const;
    /// Adds a row of empty values and opens it for editing. @returns its position
    qint64 addEmptyRow();
    /// Adds a row that is packed already. @returns its position
    qint64 addRow(const RowWriter &row);
    /// Sets a value of the row that is open for editing.
    void setValue(int field, const Value &value);
    /// Whether the row at @p position is open for editing.
    bool isEdited(qint64 position) const;
    /// Packs the row that is open for editing, if there is one.
    void finishEditing();
    /// Brings the rows that are there into the order of a field's values, as orderedRows() has it.
    void sort(int field, bool descending);

    Value value(qint64 position, int field) const;
    QString text(qint64 position, int field) const;
    QString textStart(qint64 position, int field, qsizetype longest) const;
    bool isNumber(qint64 position, int field) const;
    bool isNull(qint64 position, int field) const;
    void appendText(qint64 position, int firstField, int lastField, QChar separator,
                    QString &text) const;
    /// The first of the packed cells of a row; null while that row is being edited.
    const char *storedCells(qint64 position) const;
    void pack(qint64 position, RowWriter &row, NullForm nulls) const;
    qint64 bytes() const;

private:
    struct LastCell
    {
        const char *row = nullptr;
        int field = 0;
        const char *cell = nullptr;
    };

    qint64 storedRow(qint64 position) const;
    const char *cell(qint64 position, int field) const;

    int m_fieldCount;
    RowStore m_rows;
    RowWriter m_writer;
    std::optional<std::vector<Value>> m_edited; ///< the row behind the stored ones
    std::vector<int> m_order;    ///< the stored rows at the first positions, those that were sorted
    mutable LastCell m_lastCell; ///< makes reading a row field by field linear
};
