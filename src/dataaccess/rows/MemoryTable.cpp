#include "dataaccess/rows/MemoryTable.h"

#include "dataaccess/rows/RowOrder.h"
#include "dataaccess/rows/packedCells.h"

MemoryTable::MemoryTable(int fieldCount)
    : m_fieldCount(fieldCount)
{
}

qint64 MemoryTable::rowCount() const
{
    return m_rows.rowCount() + (m_edited ? 1 : 0);
}

qint64 MemoryTable::addEmptyRow()
{
    finishEditing();
    m_edited.emplace(static_cast<size_t>(m_fieldCount));
    return m_rows.rowCount();
}

qint64 MemoryTable::addRow(const RowWriter &row)
{
    finishEditing();
    m_rows.append(row);
    return m_rows.rowCount() - 1;
}

void MemoryTable::setValue(int field, const Value &value)
{
    (*m_edited)[static_cast<size_t>(field)] = value;
}

void MemoryTable::finishEditing()
{
    if (!m_edited)
        return;
    m_writer.clear();
    for (const Value &value : *m_edited)
        m_writer.addValue(value);
    m_rows.append(m_writer);
    m_edited.reset();
}

void MemoryTable::sort(int field, bool descending)
{
    finishEditing();
    m_order.clear();
    m_order = orderedRows(*this, field, descending);
}

qint64 MemoryTable::storedRow(qint64 position) const
{
    const auto place = static_cast<size_t>(position);
    return place < m_order.size() ? m_order[place] : position;
}

bool MemoryTable::isEdited(qint64 position) const
{
    return m_edited && position == m_rows.rowCount();
}

const char *MemoryTable::cell(qint64 position, int field) const
{
    const char *const row = m_rows.row(storedRow(position));
    const char *at = row;
    int reached = 0;
    if (m_lastCell.row == row && m_lastCell.field <= field) {
        reached = m_lastCell.field;
        at = m_lastCell.cell;
    }
    for (; reached < field; ++reached)
        at = packedCellEnd(at);
    m_lastCell = {row, field, at};
    return at;
}

Value MemoryTable::value(qint64 position, int field) const
{
    if (isEdited(position))
        return (*m_edited)[static_cast<size_t>(field)];
    return packedCellValue(cell(position, field));
}

QString MemoryTable::text(qint64 position, int field) const
{
    QString text;
    appendText(position, field, field, QChar(), text);
    return text;
}

QString MemoryTable::textStart(qint64 position, int field, qsizetype longest) const
{
    if (isEdited(position))
        return text(position, field).left(longest);
    return packedCellTextStart(cell(position, field), longest);
}

bool MemoryTable::isNumber(qint64 position, int field) const
{
    if (isEdited(position))
        return (*m_edited)[static_cast<size_t>(field)].isNumber();
    return isPackedNumber(cell(position, field));
}

bool MemoryTable::isNull(qint64 position, int field) const
{
    return isEdited(position) ? (*m_edited)[static_cast<size_t>(field)].isNull()
                              : isPackedNull(cell(position, field));
}

void MemoryTable::appendText(qint64 position, int firstField, int lastField, QChar separator,
                             QString &text) const
{
    const bool edited = isEdited(position);
    const char *at = edited ? nullptr : cell(position, firstField);
    for (int field = firstField; field <= lastField; ++field) {
        if (field > firstField)
            text += separator;
        if (edited) {
            text += (*m_edited)[static_cast<size_t>(field)].toText();
        } else {
            appendPackedCellText(at, text);
            at = packedCellEnd(at);
        }
    }
}

const char *MemoryTable::storedCells(qint64 position) const
{
    return isEdited(position) ? nullptr : m_rows.row(storedRow(position));
}

void MemoryTable::pack(qint64 position, RowWriter &row, NullForm nulls) const
{
    const bool edited = isEdited(position);
    const char *at = edited ? nullptr : cell(position, 0);
    for (int field = 0; field < m_fieldCount; ++field) {
        const char *const end = edited ? nullptr : packedCellEnd(at);
        const bool isNull =
            edited ? (*m_edited)[static_cast<size_t>(field)].isNull() : isPackedNull(at);
        if (isNull)
            row.addNull(nulls);
        else if (edited)
            row.addValue((*m_edited)[static_cast<size_t>(field)]);
        else
            row.addPacked(at, end);
        at = end;
    }
}

qint64 MemoryTable::bytes() const
{
    return m_rows.bytes() + static_cast<qint64>(m_order.capacity() * sizeof(int));
}
