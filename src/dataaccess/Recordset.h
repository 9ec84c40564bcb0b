#pragma once

#include "dataaccess/rows/MemoryTable.h"
#include "dataaccess/rows/Value.h"
#include "dataaccess/rows/dataAccessTypes.h"
#include "dataaccess/rows/packedCells.h"

#include <QHash>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class Connection;
class OdbcSession;
class ResultReader;

/// A table of rows with one current row: a forward-only reader over an ODBC result, a client-side
/// copy of one, or a table built in memory out of appended fields.
///
/// What ADO's recordset does carries ADO's name here, with a capital; the rest is ours. Rows are
/// counted from 0. Field names match in any letter case. Everything that reads or moves
/// raises RuntimeError 3704 while the recordset is closed.
class Recordset final
{
public:
    Recordset();
    Recordset(const Recordset &) = delete;
    Recordset &operator=(const Recordset &) = delete;

    // Set before opening. Changing one on an open recordset raises 3705.
    /// Where the rows of a source are read: adUseServer (at first) forward, as they come;
    /// adUseClient all at once, into memory.
    void setCursorLocation(CursorLocationEnum location);
    /// Rows fetched in one call of the driver by a forward-only reader; 1 at first.
    /// @throws RuntimeError 3001 below 1
    void setCacheSize(int rows);

    /// Adds a column to a closed recordset that is to be opened without a source.
    /// @param definedSize  longest text in UTF-16 units that a character column takes; 0 for no
    ///                     limit
    /// @throws RuntimeError 3705 when open, 3367 when the name is there already, spelt the same
    void appendField(const QString &name, DataTypeEnum type, int definedSize = 0);

    /// Opens an empty table over the appended fields.
    /// @throws RuntimeError 3705 when open, 3709 when there are no fields either
    void Open();

    /// Sends @p source on @p connection and opens on its rows. A command that returns no rows
    /// leaves the recordset closed.
    /// @throws RuntimeError 3705 when open, 3709 on a closed connection, otherwise the server's;
    /// the
    ///         recordset is then as it was
    void Open(const QString &source, const std::shared_ptr<Connection> &connection);

    /// Drops the rows; appended fields stay for the next Open().
    void Close();
    ObjectStateEnum State() const;

    bool Eof() const;
    /// Rows of a client-side table; -1 for a forward-only reader.
    qint64 RecordCount() const;
    /// @throws RuntimeError 3021 when there are no rows, 3219 on a forward-only reader after its
    ///         first row
    void MoveFirst();
    /// @throws RuntimeError 3021 when the end is passed already, otherwise the driver's
    void MoveNext();

    int fieldCount() const { return static_cast<int>(m_fields.size()); }
    // They raise RuntimeError 3265 for a field that is not there.
    QString fieldName(int index) const { return field(index).name; }
    DataTypeEnum fieldType(int index) const { return field(index).type; }
    /// @throws RuntimeError 3265 for an unknown name
    int fieldIndex(const QString &name) const;

    /// A value of the current row.
    /// @throws RuntimeError 3021 without one, 3265 for no such field, otherwise the driver's
    Value value(int field) const;
    Value value(const QString &name) const;
    /// Sets a value of the row that AddNew() has just added; a row that was left stays as it is.
    /// @throws RuntimeError 3251 for any other row, 3021, 3265, -2147217887 when a text is longer
    ///         than the field's defined size; the field then keeps its value
    void setValue(int field, const Value &value);

    /// Adds a row of empty values and makes it current. The next move or addition keeps it.
    /// @throws RuntimeError 3251 unless the table was built in memory
    void AddNew();

    /// Adds a row that holds the current row of @p source, nulls becoming empty texts, and makes
    /// it current: AddNew() and setValue() of every field, without the detour over single values.
    /// The columns of both must correspond.
    /// @throws RuntimeError 3001 when their numbers differ, otherwise as those
    void addNewFrom(const Recordset &source);

    /// Brings the rows of a client-side table into the order of a field's values, as orderedRows()
    /// has it, and goes to the first one. Rows that are added later stand after them.
    /// @throws RuntimeError 3251 on a forward-only reader, 3265 for no such field
    void sort(int field, bool descending);

    // Reading any row of a client-side table without moving the current one, for views.
    // They raise RuntimeError 3251 on a forward-only reader, 3021 and 3265 for a cell that is not
    // there.

    /// The text form of a value.
    QString textAt(qint64 row, int field) const;
    /// The first @p longest UTF-16 units of textAt(); does not read the rest of a long value.
    QString textStartAt(qint64 row, int field, qsizetype longest) const;
    bool isNumberAt(qint64 row, int field) const { return isPackedNumber(cellAt(row, field)); }
    bool isNullAt(qint64 row, int field) const { return isPackedNull(cellAt(row, field)); }
    Value valueAt(qint64 row, int field) const { return packedCellValue(cellAt(row, field)); }
    /// Appends the text forms of row @p row's fields @p firstField to @p lastField, with
    /// @p separator between them.
    void appendRowText(qint64 row, int firstField, int lastField, QChar separator,
                       QString &text) const;
    /// The rows in the order of a field's values, as orderedRows() has it; they stay where they
    /// are. @throws RuntimeError 3265
    std::vector<int> rowsOrderedBy(int field, bool descending) const
    {
        requireField(field);
        return orderedRows(table(), field, descending);
    }
    /// Bytes that the rows occupy.
    qint64 storedBytes() const { return table().bytes(); }

private:
    friend class RowCells;

    bool isOpen() const;
    bool isForwardOnly() const { return m_cursorLocation == adUseServer && !m_isFabricated; }
    /// The rows at hand: all, or a forward-only reader's present portion.
    const MemoryTable &rows() const;
    bool isPastRows() const { return m_position >= rows().rowCount(); }
    bool hasFailure() const;
    void requireOpen() const;
    void requireClosed();
    void requireCurrent() const;
    void requireField(int field) const;
    const FieldInfo &field(int index) const;
    /// A packed cell of table().
    const char *cellAt(qint64 row, int field) const;
    /// Rows that are no forward-only reader's, and those of appended fields.
    const MemoryTable &table() const;
    MemoryTable &ownTable();

    void drop();
    int indexOf(const QString &name) const;

    CursorLocationEnum m_cursorLocation = adUseServer;
    int m_cacheSize = 1;
    std::vector<FieldInfo> m_fields;
    QHash<QString, int> m_fieldIndexes; ///< by lower-case name; the first of equal names counts
    bool m_isFabricated = false;        ///< the fields were appended and outlive a closing
    bool m_takesPackedRows = false;     ///< every field takes whatever a row holds

    std::shared_ptr<OdbcSession> m_session; ///< that the rows come from
    std::shared_ptr<ResultReader> m_reader; ///< of a forward-only one; null when it is closed
    std::optional<MemoryTable> m_table;     ///< of any other; none when it is closed
    qint64 m_position = 0;                  ///< in the rows at hand
    bool m_hasMoved = false;                ///< since it was opened
    RowWriter m_writer;
};
