#pragma once

#include "dataaccess/FieldInfo.h"
#include "dataaccess/RowWriter.h"
#include "dataaccess/Value.h"

#include <vector>

/// Rows that are read once, from the first to the last. Stands on the first row when it is made.
class RowSource
{
public:
    virtual ~RowSource() = default;

    virtual const std::vector<FieldInfo> &fields() const = 0;
    virtual bool atFirst() const = 0;
    virtual bool atEnd() const = 0;
    /// Goes to the next row; not at the end. @throws RuntimeError with the driver's text
    virtual void next() = 0;
    /// The current row's value. @throws RuntimeError with the driver's text
    virtual Value value(int field) const = 0;
    /// Adds all cells of the current row to @p row.
    virtual void pack(RowWriter &row, NullForm nulls) const = 0;
};
