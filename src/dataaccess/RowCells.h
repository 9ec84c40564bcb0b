#pragma once

#include "dataaccess/rows/packedCells.h"
#include "platform/ByteBuffer.h"

#include <optional>

class Recordset;

/// Goes through the cells of one row after the other, from the first field to the last, without
/// making values of them: for those who write many rows.
class RowCells
{
public:
    /// Goes to the first cell of the current row of @p recordset, which must not be moved or
    /// changed before the last cell is read.
    /// @throws RuntimeError 3704, 3021
    void takeRow(const Recordset &recordset);

    bool isNull() const { return isPackedNull(m_cell); }
    /// The point in time that the cell holds, if it holds one.
    std::optional<Timestamp> timestamp() const { return packedCellTimestamp(m_cell); }
    /// Appends the ordinary text form, as Value::toText() gives it, in UTF-8, and goes to the next
    /// cell. The caller knows how many there are.
    void takeText(ByteBuffer &text) { m_cell = appendPackedCellUtf8(m_cell, text); }
    /// Goes to the next cell.
    void skip() { m_cell = packedCellEnd(m_cell); }

private:
    const char *m_cell = nullptr;
};
