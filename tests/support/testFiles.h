#pragma once

#include <QByteArray>
#include <QString>

/// The bytes of a file; "(not there)" when it cannot be read.
QByteArray contentOf(const QString &path);

/// Its permissions and the bits beside them; -1 when it is not there.
int modeOf(const QString &path);

/// Makes a pipe that has nobody at its other end.
void makePipe(const QString &path);

/// Makes a file of these bytes, in the place of one that is there. The program ends when it cannot.
void makeFile(const QString &path, const QByteArray &content);

/// Has @p variable name a file to the ODBC drivers. @returns the file: @p usual, or where drivers
/// know no variables but those that the process began with, the one that it has named since then.
QString fileInVariable(const char *variable, const QString &usual);

/// Has this process keep its settings in @p folder, its recovered texts too, and leave the user's
/// alone. On Windows, its registry is one of its own until the process ends.
void keepSettingsIn(const QString &folder);
