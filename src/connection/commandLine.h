#pragma once

#include <QString>

/// The program's command line is a complete connection string, as loginConnectionString() builds
/// it, quoted or not.

/// The command line without any double quote and without blanks at its ends; what opens the
/// connection. An empty text asks for the login dialog.
QString cleanedCommandLine(const QString &commandLine);

/// Reads the names out of a cleaned command line: the text behind the first `USER ID=` and the
/// first `DATA SOURCE=`, in any letter case, up to the next `;`. One character between the key and
/// the name is taken for the equals sign, whatever it is. A name whose key or `;` is missing keeps
/// what it was.
void readLoginNames(const QString &commandLine, QString &userName, QString &tnsName);
