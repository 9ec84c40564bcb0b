#pragma once

#include <QString>
#include <QStringList>

/// Rows of the sample table that most benchmarks look at.
inline constexpr qint64 sampleRows = 1'000'000;

/// A SQLite file with the table SAMPLE: integers, numbers, a double, a date and texts with nulls,
/// about 95 bytes of text a row.
/// @returns the file's path
QString sampleFile();
/// The ODBC connection string that opens it.
QString sampleTable();

/// A SQLite file among the temporary ones that @p statements have filled. It is made on the first
/// use and kept.
/// @returns its path
QString databaseFile(const QString &name, const QStringList &statements);
QString sqliteConnection(const QString &path);
