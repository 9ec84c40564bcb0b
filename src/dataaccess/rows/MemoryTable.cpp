#include "dataaccess/rows/MemoryTable.h"

#include "dataaccess/rows/packedCells.h"

#include <algorithm>
#include <numeric>

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
    const qint64 row = m_rows.rowCount();
    m_edited.emplace(static_cast<size_t>(m_fieldCount));
    if (!m_sort.isEmpty())
        m_order.push_back(row);
    return row;
}

qint64 MemoryTable::addRow(const RowWriter &row)
{
    finishEditing();
    m_rows.append(row);
    const qint64 stored = m_rows.rowCount() - 1;
    if (m_sort.isEmpty())
        return stored;
    m_order.push_back(stored);
    placeInOrder(stored);
    return positionOf(stored);
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
    if (!m_sort.isEmpty())
        placeInOrder(m_rows.rowCount() - 1);
}

qint64 MemoryTable::finishEditing(qint64 position)
{
    if (!m_edited || m_sort.isEmpty()) {
        finishEditing();
        return position;
    }
    if (position >= rowCount()) {
        finishEditing();
        return rowCount();
    }
    const qint64 row = storedRow(position);
    finishEditing();
    return positionOf(row);
}

qint64 MemoryTable::positionOf(qint64 storedRow) const
{
    return std::find(m_order.begin(), m_order.end(), storedRow) - m_order.begin();
}

void MemoryTable::sort(const SortOrder &order)
{
    finishEditing();
    m_sort = order;
    m_order.clear();
    if (m_sort.isEmpty())
        return;
    std::vector<const char *> cells;
    cells.reserve(m_sort.keys().size() * static_cast<size_t>(m_rows.rowCount()));
    for (qint64 row = 0; row < m_rows.rowCount(); ++row)
        addSortCells(row, cells);
    m_order.resize(static_cast<size_t>(m_rows.rowCount()));
    std::iota(m_order.begin(), m_order.end(), qint64{0});
    const auto cellsOf = [&](qint64 row) {
        return &cells[static_cast<size_t>(row) * m_sort.keys().size()];
    };
    std::stable_sort(m_order.begin(), m_order.end(),
                     [&](qint64 a, qint64 b) { return m_sort.before(cellsOf(a), cellsOf(b)); });
}

void MemoryTable::addSortCells(qint64 storedRow, std::vector<const char *> &cells) const
{
    for (const SortOrder::Key &key : m_sort.keys()) {
        const char *cell = m_rows.row(storedRow);
        for (int field = 0; field < key.field; ++field)
            cell = packedCellEnd(cell);
        cells.push_back(cell);
    }
}

void MemoryTable::placeInOrder(qint64 row)
{
    m_order.erase(std::find(m_order.rbegin(), m_order.rend(), row).base() - 1);
    const auto cellsOf = [this](qint64 storedRow) {
        std::vector<const char *> cells;
        addSortCells(storedRow, cells);
        return cells;
    };
    const std::vector<const char *> added = cellsOf(row);
    const auto place =
        std::upper_bound(m_order.begin(), m_order.end(), row, [&](qint64, qint64 other) {
            return m_sort.before(added.data(), cellsOf(other).data());
        });
    m_order.insert(place, row);
}

qint64 MemoryTable::storedRow(qint64 position) const
{
    return m_order.empty() ? position : m_order[static_cast<size_t>(position)];
}

bool MemoryTable::isEdited(qint64 position) const
{
    return m_edited && storedRow(position) == m_rows.rowCount();
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
    return m_rows.bytes() + static_cast<qint64>(m_order.capacity() * sizeof(qint64));
}
