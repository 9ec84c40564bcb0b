#include "dataaccess/Recordset.h"

#include "dataaccess/Connection.h"
#include "dataaccess/RowCells.h"
#include "dataaccess/odbc/OdbcSession.h"
#include "dataaccess/odbc/ResultReader.h"
#include "platform/RuntimeError.h"

#include <algorithm>
#include <utility>

namespace {

/// What an appended field makes of @p value: character fields hold texts, and none that is too
/// long.
Value asFieldValue(const FieldInfo &field, const Value &value)
{
    const bool isText = isCharacterType(field.type) && !value.isNull() && !value.isEmpty();
    Value stored = isText ? Value(value.toText()) : value;
    const auto *text = std::get_if<QString>(&stored.variant());
    if (field.definedSize > 0 && text != nullptr && text->size() > field.definedSize)
        throw RuntimeError(ErrorNumber::MultipleStepErrors);
    return stored;
}

} // namespace

Recordset::Recordset() = default;

bool Recordset::isOpen() const
{
    return (m_reader || m_table) && (!m_session || m_session->isOpen());
}

const MemoryTable &Recordset::rows() const
{
    return m_reader ? m_reader->rows : *m_table;
}

bool Recordset::hasFailure() const
{
    return m_reader && m_reader->failure;
}

void Recordset::requireOpen() const
{
    if (!isOpen())
        throw RuntimeError(ErrorNumber::ObjectClosed);
}

void Recordset::requireClosed()
{
    if (isOpen())
        throw RuntimeError(ErrorNumber::ObjectOpen);
    drop(); // what is left when its session was closed
}

void Recordset::requireCurrent() const
{
    if (Eof())
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
    if (hasFailure() && isPastRows())
        std::rethrow_exception(m_reader->failure);
}

void Recordset::requireField(int field) const
{
    if (field < 0 || field >= fieldCount())
        throw RuntimeError(ErrorNumber::ItemNotFound);
}

const char *Recordset::cellAt(qint64 row, int field) const
{
    if (row < 0 || row >= table().rowCount())
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
    requireField(field);
    return m_table->cell(row, field);
}

const MemoryTable &Recordset::table() const
{
    requireOpen();
    if (isForwardOnly())
        throw RuntimeError(ErrorNumber::FeatureNotAvailable);
    return *m_table;
}

MemoryTable &Recordset::ownTable()
{
    requireOpen();
    if (!m_isFabricated)
        throw RuntimeError(ErrorNumber::FeatureNotAvailable);
    return *m_table;
}

void Recordset::setCursorLocation(CursorLocationEnum location)
{
    requireClosed();
    m_cursorLocation = location;
}

void Recordset::setCacheSize(int rows)
{
    requireClosed();
    if (rows < 1)
        throw RuntimeError(ErrorNumber::InvalidArgument);
    m_cacheSize = rows;
}

void Recordset::appendField(const QString &name, DataTypeEnum type, int definedSize)
{
    requireClosed();
    if (!m_isFabricated) {
        m_isFabricated = true;
        m_takesPackedRows = true;
    }
    // Servers tell "id" from "ID", and a query may well return both.
    const int namesake = indexOf(name);
    if (namesake >= 0 && m_fields[static_cast<size_t>(namesake)].name == name)
        throw RuntimeError(ErrorNumber::ObjectInCollection);
    if (namesake < 0)
        m_fieldIndexes.insert(name.toLower(), fieldCount());
    m_fields.push_back({name, type, definedSize});
    m_takesPackedRows = m_takesPackedRows && type == adVariant;
}

void Recordset::Open()
{
    requireClosed();
    if (!m_isFabricated)
        throw RuntimeError(ErrorNumber::InvalidConnection);
    m_table.emplace(fieldCount());
    m_position = 0;
    m_hasMoved = false;
}

void Recordset::Open(const QString &source, const std::shared_ptr<Connection> &connection)
{
    requireClosed();
    const std::shared_ptr<OdbcSession> session = Connection::sessionOf(connection);
    const bool isWhole = m_cursorLocation == adUseClient;
    std::shared_ptr<ResultReader> reader =
        session->call([session, source, cacheSize = m_cacheSize, isWhole] {
            return ResultReader::open(session, source, cacheSize, isWhole);
        });
    if (!reader)
        return;
    m_fields = reader->fields;
    m_isFabricated = false;
    m_fieldIndexes.clear();
    for (int i = fieldCount(); i-- > 0;)
        m_fieldIndexes.insert(m_fields[static_cast<size_t>(i)].name.toLower(), i);
    if (isWhole)
        m_table = std::move(reader->rows);
    else
        m_reader = std::move(reader);
    m_position = 0;
    m_hasMoved = false;
    m_session = session;
}

void Recordset::Close()
{
    requireOpen();
    drop();
}

void Recordset::drop()
{
    m_reader.reset();
    m_table.reset();
    m_session.reset();
    if (!m_isFabricated) {
        m_fields.clear();
        m_fieldIndexes.clear();
    }
}

ObjectStateEnum Recordset::State() const
{
    return isOpen() ? adStateOpen : adStateClosed;
}

bool Recordset::Eof() const
{
    requireOpen();
    return isPastRows() && !hasFailure();
}

qint64 Recordset::RecordCount() const
{
    requireOpen();
    return isForwardOnly() ? -1 : m_table->rowCount();
}

void Recordset::MoveFirst()
{
    requireOpen();
    if (!isForwardOnly()) {
        m_table->finishEditing();
        m_position = 0;
    } else if (m_hasMoved) {
        throw RuntimeError(ErrorNumber::IllegalOperation);
    }
    requireCurrent();
}

void Recordset::MoveNext()
{
    if (Eof())
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
    m_hasMoved = true;
    if (!m_reader) {
        m_table->finishEditing();
        ++m_position;
        return;
    }
    ++m_position;
    if (!isPastRows())
        return;
    if (!m_reader->failure && !m_reader->hasAllRows()) {
        m_session->call([reader = m_reader] { reader->takePortion(); });
        if (!m_reader->hasAllRows())
            m_session->postAhead([reader = m_reader] { reader->readAhead(); });
        m_position = 0;
    }
    if (m_reader->failure && isPastRows())
        std::rethrow_exception(std::exchange(m_reader->failure, nullptr));
}

const FieldInfo &Recordset::field(int index) const
{
    requireField(index);
    return m_fields[static_cast<size_t>(index)];
}

int Recordset::fieldIndex(const QString &name) const
{
    const int index = indexOf(name);
    if (index < 0)
        throw RuntimeError(ErrorNumber::ItemNotFound);
    return index;
}

/// The field of exactly this name, or else the first whose letters differ only in case; −1 when
/// there is neither.
int Recordset::indexOf(const QString &name) const
{
    const auto found = m_fieldIndexes.constFind(name.toLower());
    if (found == m_fieldIndexes.constEnd())
        return -1;
    const auto exact = std::find_if(m_fields.begin() + *found, m_fields.end(),
                                    [&](const FieldInfo &field) { return field.name == name; });
    return exact == m_fields.end() ? *found : static_cast<int>(exact - m_fields.begin());
}

Value Recordset::value(int field) const
{
    requireOpen();
    requireField(field);
    requireCurrent();
    return packedCellValue(rows().cell(m_position, field));
}

Value Recordset::value(const QString &name) const
{
    requireOpen();
    return value(fieldIndex(name));
}

void Recordset::setValue(int field, const Value &value)
{
    MemoryTable &rows = ownTable();
    const FieldInfo &info = this->field(field);
    requireCurrent();
    if (!rows.isEdited(m_position))
        throw RuntimeError(ErrorNumber::FeatureNotAvailable);
    rows.setValue(field, asFieldValue(info, value));
}

void Recordset::AddNew()
{
    m_position = ownTable().addEmptyRow();
}

void Recordset::addNewFrom(const Recordset &source)
{
    MemoryTable &rows = ownTable();
    if (source.fieldCount() != fieldCount())
        throw RuntimeError(ErrorNumber::InvalidArgument);
    if (!m_takesPackedRows) {
        AddNew();
        for (int field = 0; field < fieldCount(); ++field) {
            const Value value = source.value(field);
            setValue(field, value.isNull() ? Value(QString()) : value);
        }
        return;
    }
    m_writer.clear();
    source.requireCurrent();
    source.rows().pack(source.m_position, m_writer, NullForm::EmptyText);
    m_position = rows.addRow(m_writer);
}

void RowCells::takeRow(const Recordset &recordset)
{
    recordset.requireCurrent();
    m_cell = recordset.rows().row(recordset.m_position);
}

void Recordset::sort(int field, bool descending)
{
    table();
    requireField(field);
    m_table->sort(field, descending);
    m_position = 0;
}

QString Recordset::textAt(qint64 row, int field) const
{
    QString text;
    appendPackedCellText(cellAt(row, field), text);
    return text;
}

QString Recordset::textStartAt(qint64 row, int field, qsizetype longest) const
{
    QString text;
    appendPackedCellText(cellAt(row, field), text, longest);
    return text;
}

void Recordset::appendRowText(qint64 row, int firstField, int lastField, QChar separator,
                              QString &text) const
{
    requireField(lastField);
    const char *cell = cellAt(row, firstField);
    for (int field = firstField; field <= lastField; ++field) {
        if (field > firstField)
            text += separator;
        appendPackedCellText(cell, text);
        cell = packedCellEnd(cell);
    }
}
