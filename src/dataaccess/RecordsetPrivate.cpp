#include "dataaccess/RecordsetPrivate.h"

#include "dataaccess/DrainedSource.h"
#include "dataaccess/odbc/OdbcCursor.h"
#include "dataaccess/odbc/OdbcSession.h"
#include "platform/RuntimeError.h"

#include <algorithm>
#include <utility>

namespace {

/// Appended character fields hold texts, whatever is assigned to them.
Value asFieldValue(DataTypeEnum type, const Value &value)
{
    if (!isCharacterType(type) || value.isNull() || value.isEmpty())
        return value;
    return value.toText();
}

} // namespace

RecordsetPrivate::~RecordsetPrivate()
{
    leaveSession();
}

void RecordsetPrivate::requireOpen() const
{
    if (!isOpen())
        throw RuntimeError(ErrorNumber::ObjectClosed);
}

void RecordsetPrivate::requireClosed() const
{
    if (isOpen())
        throw RuntimeError(ErrorNumber::ObjectOpen);
}

void RecordsetPrivate::requireCurrent() const
{
    if (atEnd())
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
}

void RecordsetPrivate::requireField(int field) const
{
    if (field < 0 || field >= static_cast<int>(m_fields.size()))
        throw RuntimeError(ErrorNumber::ItemNotFound);
}

void RecordsetPrivate::requireCell(qint64 row, int field) const
{
    if (row < 0 || row >= table().rowCount())
        throw RuntimeError(ErrorNumber::NoCurrentRecord);
    requireField(field);
}

const FieldInfo &RecordsetPrivate::field(int field) const
{
    requireField(field);
    return m_fields[static_cast<size_t>(field)];
}

void RecordsetPrivate::takeFields(std::vector<FieldInfo> fields)
{
    m_fields = std::move(fields);
    m_isFabricated = false;
    m_fieldIndexes.clear();
    for (size_t i = m_fields.size(); i-- > 0;)
        m_fieldIndexes.insert(m_fields[i].name.toLower(), static_cast<int>(i));
}

int RecordsetPrivate::fieldIndex(const QString &name) const
{
    const int index = indexOf(name);
    if (index < 0)
        throw RuntimeError(ErrorNumber::ItemNotFound);
    return index;
}

/// The field of exactly this name, or else the first whose letters differ only in case; −1 when
/// there is neither.
int RecordsetPrivate::indexOf(const QString &name) const
{
    const auto found = m_fieldIndexes.constFind(name.toLower());
    if (found == m_fieldIndexes.constEnd())
        return -1;
    const auto exact = std::find_if(m_fields.begin() + *found, m_fields.end(),
                                    [&](const FieldInfo &field) { return field.name == name; });
    return exact == m_fields.end() ? *found : static_cast<int>(exact - m_fields.begin());
}

void RecordsetPrivate::appendField(const FieldInfo &field)
{
    requireClosed();
    if (!m_isFabricated) {
        m_isFabricated = true;
        m_takesPackedRows = true;
    }
    // Servers tell "id" from "ID", and a query may well return both.
    const int namesake = indexOf(field.name);
    if (namesake >= 0 && m_fields[static_cast<size_t>(namesake)].name == field.name)
        throw RuntimeError(ErrorNumber::ObjectInCollection);
    if (namesake < 0)
        m_fieldIndexes.insert(field.name.toLower(), static_cast<int>(m_fields.size()));
    m_fields.push_back(field);
    m_takesPackedRows = m_takesPackedRows && field.type == adVariant;
}

void RecordsetPrivate::openInMemory()
{
    requireClosed();
    if (!m_isFabricated)
        throw RuntimeError(ErrorNumber::InvalidConnection);
    const SortOrder order(sort, m_fields);
    cursorLocation = adUseClient;
    m_table.emplace(static_cast<int>(m_fields.size()));
    m_table->sort(order);
    m_position = 0;
}

void RecordsetPrivate::openOn(const std::shared_ptr<OdbcSession> &session, const QString &source)
{
    if (cursorLocation == adUseServer && !sort.isEmpty())
        throw RuntimeError(ErrorNumber::FeatureNotAvailable);
    std::unique_ptr<OdbcCursor> cursor = OdbcCursor::open(*session, source, cacheSize);
    if (cursor == nullptr)
        return;
    if (cursorLocation == adUseClient)
        m_table = rowsOf(*cursor);
    takeFields(cursor->fields());
    m_position = 0;
    if (!m_table) {
        m_reader = std::move(cursor);
        m_readsFromDriver = true;
    }
    m_session = session;
    m_session->addClient(this);
}

MemoryTable RecordsetPrivate::rowsOf(RowSource &source)
{
    const SortOrder order(sort, source.fields());
    MemoryTable rows(static_cast<int>(source.fields().size()));
    for (; !source.atEnd(); source.next()) {
        m_writer.clear();
        source.pack(m_writer, NullForm::Null);
        rows.addRow(m_writer);
    }
    rows.sort(order);
    return rows;
}

void RecordsetPrivate::releaseResult()
{
    m_reader = std::make_unique<DrainedSource>(*m_reader);
    m_readsFromDriver = false;
}

void RecordsetPrivate::leaveSession()
{
    if (m_session)
        m_session->removeClient(this);
    m_session.reset();
}

void RecordsetPrivate::close()
{
    m_reader.reset();
    m_readsFromDriver = false;
    m_table.reset();
    if (!m_isFabricated) {
        m_fields.clear();
        m_fieldIndexes.clear();
    }
    leaveSession();
}

bool RecordsetPrivate::atEnd() const
{
    requireOpen();
    return m_reader ? m_reader->atEnd() : m_position >= m_table->rowCount();
}

bool RecordsetPrivate::isEmpty() const
{
    return atEnd() && (m_reader ? m_reader->atFirst() : m_position == 0);
}

qint64 RecordsetPrivate::recordCount() const
{
    requireOpen();
    return m_reader ? -1 : m_table->rowCount();
}

void RecordsetPrivate::moveFirst()
{
    requireOpen();
    if (m_reader) {
        if (!m_reader->atFirst())
            throw RuntimeError(ErrorNumber::IllegalOperation);
    } else {
        m_table->finishEditing(m_position);
        m_position = 0;
    }
    requireCurrent();
}

void RecordsetPrivate::moveNext()
{
    requireCurrent();
    if (m_reader)
        m_reader->next();
    else
        m_position = m_table->finishEditing(m_position) + 1;
}

Value RecordsetPrivate::value(int field) const
{
    requireOpen();
    requireField(field);
    requireCurrent();
    return m_reader ? m_reader->value(field) : m_table->value(m_position, field);
}

const MemoryTable &RecordsetPrivate::table() const
{
    requireOpen();
    if (!m_table)
        throw RuntimeError(ErrorNumber::FeatureNotAvailable);
    return *m_table;
}

MemoryTable &RecordsetPrivate::ownTable()
{
    requireOpen();
    if (!m_table || !m_isFabricated)
        throw RuntimeError(ErrorNumber::FeatureNotAvailable);
    return *m_table;
}

void RecordsetPrivate::checkSize(int field, const Value &value) const
{
    const int limit = m_fields[static_cast<size_t>(field)].definedSize;
    const auto *text = std::get_if<QString>(&value.variant());
    if (limit > 0 && text != nullptr && text->size() > limit)
        throw RuntimeError(ErrorNumber::MultipleStepErrors);
}

void RecordsetPrivate::setValue(int field, const Value &value)
{
    MemoryTable &rows = ownTable();
    requireField(field);
    requireCurrent();
    if (!rows.isEdited(m_position))
        throw RuntimeError(ErrorNumber::FeatureNotAvailable);
    const Value stored = asFieldValue(m_fields[static_cast<size_t>(field)].type, value);
    checkSize(field, stored);
    rows.setValue(field, stored);
}

void RecordsetPrivate::addNew()
{
    m_position = ownTable().addEmptyRow();
}

void RecordsetPrivate::packCurrent(RowWriter &row, NullForm nulls) const
{
    requireCurrent();
    if (m_reader)
        m_reader->pack(row, nulls);
    else
        m_table->pack(m_position, row, nulls);
}

const char *RecordsetPrivate::packedRow(RowWriter &copy) const
{
    requireCurrent();
    const char *const stored = m_reader ? nullptr : m_table->storedCells(m_position);
    if (stored != nullptr)
        return stored;
    copy.clear();
    packCurrent(copy, NullForm::Null);
    return copy.data();
}

void RecordsetPrivate::addNewFrom(const RecordsetPrivate &source)
{
    MemoryTable &rows = ownTable();
    if (source.fields().size() != m_fields.size())
        throw RuntimeError(ErrorNumber::InvalidArgument);
    if (!m_takesPackedRows) {
        addNew();
        for (int field = 0; field < static_cast<int>(m_fields.size()); ++field) {
            const Value value = source.value(field);
            setValue(field, value.isNull() ? Value(QString()) : value);
        }
        return;
    }
    m_writer.clear();
    source.packCurrent(m_writer, NullForm::EmptyText);
    m_position = rows.addRow(m_writer);
}

void RecordsetPrivate::setSort(const QString &order)
{
    if (isOpen()) {
        if (m_reader)
            throw RuntimeError(ErrorNumber::FeatureNotAvailable);
        m_table->sort(SortOrder(order, m_fields));
        m_position = 0;
    }
    sort = order;
}
