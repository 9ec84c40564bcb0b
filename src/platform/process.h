#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// How the first window of a program that is started is to be shown.
enum class StartWindow { ByItself, Maximized };

/// Starts a program that goes on by itself.
/// @param program  path of the program file
/// @param window   the program started learns it from startsMaximized()
/// @throws RuntimeError 53 when there is no such file, 5 when it cannot be started
void startProgram(const QString &program, const QStringList &arguments,
                  StartWindow window = StartWindow::ByItself);

/// Whether whoever started this process wants its first window maximized.
bool startsMaximized();

/// Lets the standard streams reach the console that the program was started from, where a program
/// with windows has none by itself.
void reachConsole();

/// Opens a page the desktop's own way.
/// @throws RuntimeError 53 when the desktop offers none, 5 when it cannot be started
void openPage(const QString &address);

/// Sees to it that programs started from now on get none of the files that this process has open
/// but the standard streams, whoever opened them, or left them open to it.
void keepFilesFromPrograms();

/// Ends the process at once: no window is asked, nothing is saved, an open transaction is left to
/// the server to roll back.
void endProgram(int exitCode = 0);

/// Done by endProgram() first when the exit code is 0: the user has asked for the end.
void setLastWork(std::function<void()> work);

/// Called by endProgram() in place of ending, so that a test can see that it was reached; the
/// caller of endProgram() then goes on and must have nothing left to do. An empty function
/// restores the real end.
void setProgramEnd(std::function<void(int exitCode)> end);

/// The folder of the program file, with the system's separators and none at the end. The history,
/// the syntax definition and the scratch file lie in it.
QString applicationFolder();

/// The path of a file beside the program.
QString applicationFile(const QString &fileName);

/// Moves the application folder elsewhere, so that a run leaves the program's own files alone; an
/// empty path restores the folder of the program file.
void setApplicationFolder(const QString &folder);
