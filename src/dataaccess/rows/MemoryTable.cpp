#include "dataaccess/rows/MemoryTable.h"

#include "dataaccess/rows/packedCells.h"

MemoryTable::MemoryTable(int fieldCount)
    : m_fieldCount(fieldCount)
{
}

qint64 MemoryTable::addEmptyRow()
{
    finishEditing();
    m_edited.emplace(static_cast<size_t>(m_fieldCount));
    m_isPacked = false;
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
    m_isPacked = false;
}

void MemoryTable::finishEditing()
{
    if (!m_edited)
        return;
    row(m_rows.rowCount());
    m_rows.append(m_packed);
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

const char *MemoryTable::row(qint64 position) const
{
    if (!isEdited(position))
        return m_rows.row(storedRow(position));
    if (!m_isPacked) {
        m_packed.clear();
        for (const Value &value : *m_edited)
            m_packed.addValue(value);
        m_isPacked = true;
        m_lastCell = {};
    }
    return m_packed.data();
}

const char *MemoryTable::cell(qint64 position, int field) const
{
    const char *const first = row(position);
    const char *at = first;
    int reached = 0;
    if (m_lastCell.row == first && m_lastCell.field <= field) {
        reached = m_lastCell.field;
        at = m_lastCell.cell;
    }
    for (; reached < field; ++reached)
        at = packedCellEnd(at);
    m_lastCell = {first, field, at};
    return at;
}

void MemoryTable::pack(qint64 position, RowWriter &copy, NullForm nulls) const
{
    const char *at = row(position);
    const char *uncopied = at;
    for (int field = 0; field < m_fieldCount; ++field) {
        const char *const end = packedCellEnd(at);
        if (isPackedNull(at)) {
            copy.addPacked(uncopied, at);
            copy.addNull(nulls);
            uncopied = end;
        }
        at = end;
    }
    copy.addPacked(uncopied, at);
}

qint64 MemoryTable::bytes() const
{
    return m_rows.bytes() + static_cast<qint64>(m_order.capacity() * sizeof(int));
}
