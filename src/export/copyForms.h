#pragma once

#include <QString>

#include <vector>

class Recordset;

/// Cells as SQL, for pasting into a statement: those of @p fields in each of @p rows, in the orders
/// given. A value is written so that it is read back as the same one: numbers bare and with all
/// their digits, texts with their quotes doubled, dates as `DATE` and `TIMESTAMP` literals, bytes
/// as `HEXTORAW`, and what looks like nothing as NULL.
///
/// They raise RuntimeErrors: 3704 for a closed recordset, 3021 and 3265 for a cell that is not
/// there.

/// An insert statement for each row, lines ended by carriage return + line feed; column names that
/// are no plain identifiers stand in double quotes.
QString insertStatements(const Recordset &recordset, const std::vector<int> &rows,
                         const std::vector<int> &fields, const QString &tableName);

/// The distinct values in parentheses, as they stand after IN; rows of several fields are
/// parenthesised themselves. A single NULL equals nothing and is left out. Breaks lines that grow
/// long.
QString valueList(const Recordset &recordset, const std::vector<int> &rows,
                  const std::vector<int> &fields);
