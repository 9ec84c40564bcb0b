#pragma once

#include <QString>

#include <memory>

class Recordset;

/// The history of statements: a text file in the application folder that only grows, in the
/// system's 8-bit encoding, with CR LF line ends. A record is the statement, the line SQLTIME, date
/// and time, and the line SQLEND. Its owner alone can read it, unless it was there before. A device
/// or a pipe in its place is refused.

/// Its name in the application folder.
QString historyFileName();

/// Adds a record of @p statement, blanks at its ends taken off, and the present time.
/// @throws RuntimeError of files.h
void appendToHistory(const QString &statement);

/// Fills the closed @p recordset with the fields "SQL Statement" and "SQL_Time" and a row for each
/// record of the file, in descending order of the times as texts. A missing file is created. A
/// statement of more than 1000 characters is passed over, with its time.
///
/// @param fileName  name of a file in the application folder
/// @param path      not used
/// @throws RuntimeError 13 for a time that is none, 3021 for a time before the first statement, 6
///         for more than 32767 lines without a marker, those of files.h. The rows that were
///         there before stay, in the order of the file.
void loadHistory(const QString &fileName, const QString &path, Recordset &recordset);

/// The records of a loaded history whose statement holds @p text in any letter case, in their
/// order; all of them, that is @p history itself, for an empty text.
std::shared_ptr<Recordset> historyWith(const std::shared_ptr<Recordset> &history,
                                       const QString &text);
