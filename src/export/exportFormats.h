#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class Recordset;

/// The text exports of a recordset: a line for each of its records, from the first on whatever the
/// current one is, in UTF-8 with CR LF line ends. An existing file is replaced.
///
/// A client-side recordset stands on its first record again afterwards, so that it can be exported
/// once more; a forward-only one must not have been moved before. A file whose writing fails keeps
/// what was written.
///
/// All raise RuntimeErrors: 3704 for a closed recordset, 3021 for an empty one, those of
/// files.h, and 6 for the 32768th record where records are counted in 16 bits.

/// Values without their outer blanks, separated by commas; nothing is quoted. A null is a comma
/// alone, so one in the last field leaves an additional comma at the end of the line. Records are
/// not counted.
void writeCommaDelimited(Recordset &recordset, const QString &path);

/// The same with @p separator between the values; a null is a tab, whatever the separator.
/// @returns the number of records written
qint16 writeDelimited(Recordset &recordset, const QString &path, const QString &separator);

/// How an insert statement begins, up to its first value.
QString insertBeginning(const QString &tableName, const QStringList &fieldNames);

/// Insert statements into @p tableName, which is written as it stands, empty too. Every value is
/// quoted and no quote in it doubled; nulls are empty texts; fields of type adDBTimeStamp lose
/// their time of day (`05-Mar-2024`).
/// @returns the number of records written
qint16 writeInsertStatements(Recordset &recordset, const QString &path, const QString &tableName);

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
