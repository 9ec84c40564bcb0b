#include "dataaccess/DrainedSource.h"

#include <utility>

DrainedSource::DrainedSource(RowSource &source)
    : m_fields(source.fields())
    , m_rows(static_cast<int>(m_fields.size()))
    , m_startsAtFirst(source.atFirst())
{
    RowWriter row;
    try {
        for (; !source.atEnd(); source.next()) {
            row.clear();
            source.pack(row, NullForm::Null);
            m_rows.addRow(row);
        }
    } catch (...) { // memory may run out as well
        m_failure = std::current_exception();
    }
}

bool DrainedSource::atFirst() const
{
    return m_startsAtFirst && m_position == 0;
}

bool DrainedSource::atEnd() const
{
    return isPastRows() && !m_failure;
}

void DrainedSource::next()
{
    if (!isPastRows())
        ++m_position;
    if (isPastRows() && m_failure)
        std::rethrow_exception(std::exchange(m_failure, nullptr));
}

Value DrainedSource::value(int field) const
{
    if (isPastRows())
        std::rethrow_exception(m_failure);
    return m_rows.value(m_position, field);
}

void DrainedSource::pack(RowWriter &row, NullForm nulls) const
{
    if (isPastRows())
        std::rethrow_exception(m_failure);
    m_rows.pack(m_position, row, nulls);
}
