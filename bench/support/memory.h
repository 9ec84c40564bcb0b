#pragma once

#include <QtGlobal>

class Recordset;

/// The largest number of bytes that this process has had in memory so far.
qint64 peakResidentBytes();

/// Bytes of the UTF-8 text of all cells.
qint64 textBytes(const Recordset &rows);
