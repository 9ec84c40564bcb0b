#pragma once

#include <QString>

/// A SQLite file with the table SAMPLE of @p rows rows, made on the first use and kept: integers,
/// numbers, a double, a date and texts with nulls, about 95 bytes of text a row.
/// @returns the ODBC connection string that opens it
QString sampleTable(qint64 rows);

/// The statement that makes SAMPLE's columns, and the one that fills it, for SQLite.
QString sampleTableDefinition();
QString sampleTableFilling(qint64 rows);
