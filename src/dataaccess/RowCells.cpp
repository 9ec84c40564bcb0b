#include "dataaccess/RowCells.h"

#include "dataaccess/Recordset.h"
#include "dataaccess/RecordsetPrivate.h"

void RowCells::takeRow(const Recordset &recordset)
{
    m_cell = recordset.d->packedRow(m_packed);
}
