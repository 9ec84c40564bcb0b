#pragma once

#include <QString>

/// Gives the application its names and icon, and leads messages, the alert and the mouse pointer
/// to its windows. Once, behind the QApplication's construction.
void prepareApplication();

/// The arguments behind the program's name as one command line.
QString commandLineOf(const QStringList &arguments);

/// The whole program: its frame, from start to end. The arguments behind the program's name are
/// overwritten at once, for they are where other users of the system can read them.
/// @returns the process's exit code
int runQuerna(int argc, char **argv);
