#pragma once

#include <QString>

/// The folder of the program file, with the system's separators and none at the end. The history,
/// the syntax definition and the scratch file lie in it.
QString applicationFolder();

/// The path of a file beside the program.
QString applicationFile(const QString &fileName);

/// Moves the application folder elsewhere, so that a run leaves the program's own files alone; an
/// empty path restores the folder of the program file.
void setApplicationFolder(const QString &folder);
