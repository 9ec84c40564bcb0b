#pragma once

#include "dataaccess/MemoryTable.h"
#include "dataaccess/RowSource.h"

#include <exception>

/// The rows that another source still had, read into memory so that its statement can end. A
/// failure on the way is kept and raised where the rows end: on going there, or, when not even the
/// first of them could be read, on reading it.
class DrainedSource final : public RowSource
{
public:
    explicit DrainedSource(RowSource &source);

    const std::vector<FieldInfo> &fields() const override { return m_fields; }
    bool atFirst() const override;
    bool atEnd() const override;
    void next() override;
    Value value(int field) const override;
    void pack(RowWriter &row, NullForm nulls) const override;

private:
    bool isPastRows() const { return m_position == m_rows.rowCount(); }

    std::vector<FieldInfo> m_fields;
    MemoryTable m_rows;
    bool m_startsAtFirst;
    qint64 m_position = 0;
    std::exception_ptr m_failure;
};
