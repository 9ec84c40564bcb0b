#pragma once

#include "dataaccess/FieldInfo.h"
#include "dataaccess/MemoryTable.h"
#include "dataaccess/RowSource.h"
#include "dataaccess/SessionClient.h"

#include <QHash>

#include <memory>
#include <optional>
#include <vector>

class OdbcSession;

/// The state of a Recordset: closed, reading forward from a source, or over rows in memory.
class RecordsetPrivate final : public SessionClient
{
public:
    RecordsetPrivate() = default;
    ~RecordsetPrivate();
    RecordsetPrivate(const RecordsetPrivate &) = delete;
    RecordsetPrivate &operator=(const RecordsetPrivate &) = delete;

    bool isOpen() const { return m_reader != nullptr || m_table.has_value(); }
    /// @throws RuntimeError 3704
    void requireOpen() const;
    /// @throws RuntimeError 3705
    void requireClosed() const;

    void appendField(const FieldInfo &field);
    void openInMemory();
    /// Sends @p source and takes its rows, if it has any.
    void openOn(const std::shared_ptr<OdbcSession> &session, const QString &source);
    void close();

    bool isEmpty() const;
    bool atEnd() const;
    qint64 recordCount() const;
    void moveFirst();
    void moveNext();
    Value value(int field) const;
    void setValue(int field, const Value &value);
    void addNew();
    void addNewFrom(const RecordsetPrivate &source);
    void packCurrent(RowWriter &row, NullForm nulls) const;
    /// The current row in packed form: where it is stored, or in @p copy when it is not stored so.
    const char *packedRow(RowWriter &copy) const;
    void setSort(const QString &order);

    /// The rows in memory. @throws RuntimeError 3704, or 3251 for a forward-only reader
    const MemoryTable &table() const;
    /// Checks a row of table() and a field. @throws RuntimeError 3021, 3265
    void requireCell(qint64 row, int field) const;
    const std::vector<FieldInfo> &fields() const { return m_fields; }
    /// @throws RuntimeError 3265
    const FieldInfo &field(int field) const;
    int fieldIndex(const QString &name) const;

    void sessionClosing() override { close(); }
    bool hasOpenResult() const override { return m_readsFromDriver; }
    void releaseResult() override;

    CursorLocationEnum cursorLocation = adUseServer;
    CursorTypeEnum cursorType = adOpenForwardOnly;
    LockTypeEnum lockType = adLockReadOnly;
    int cacheSize = 1;
    QHash<QString, Value> properties; ///< by lower-case name
    QString sort;

private:
    void requireCurrent() const;
    void requireField(int field) const;
    void checkSize(int field, const Value &value) const;
    /// All rows of @p source, in the order that is set.
    MemoryTable rowsOf(RowSource &source);
    void takeFields(std::vector<FieldInfo> fields);
    /// The rows in memory, of appended fields. @throws RuntimeError 3704, 3251 for any other
    MemoryTable &ownTable();
    int indexOf(const QString &name) const;
    void leaveSession();

    std::vector<FieldInfo> m_fields;
    QHash<QString, int> m_fieldIndexes; ///< by lower-case name; the first of equal names counts
    bool m_isFabricated = false;        ///< the fields were appended and outlive close()
    bool m_takesPackedRows = false;     ///< every field takes whatever a row holds
    std::shared_ptr<OdbcSession> m_session;
    std::unique_ptr<RowSource> m_reader;
    bool m_readsFromDriver = false;
    std::optional<MemoryTable> m_table;
    qint64 m_position = 0;
    RowWriter m_writer;
};
