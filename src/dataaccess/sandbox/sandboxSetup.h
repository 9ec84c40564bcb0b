#pragma once

#include "dataaccess/sandbox/SandboxFolder.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Making the sandbox's database out of the server's empty one.

/// A file of the sandbox's own: its SQL, or the scripts that look after the server.
/// @throws RuntimeError 53 when there is none of that name
QByteArray sandboxResource(const QString &name);

/// What a server's output says about a failure: its first error lines, or else its last lines.
QString sandboxErrorLines(const QByteArray &log);

/// The server's program file.
/// @throws RuntimeError 3706 with a text that names the package, when it is not installed
QString sandboxServerProgram();

/// What every run of the server is told, whether it serves or only reads statements.
QStringList sandboxServerOptions(const QString &dataPath);

/// What the server is told besides when it is to serve.
QStringList sandboxServingOptions(const SandboxFolder &folder, const QString &socketPath);

/// The statements of a file of the sandbox's SQL, each brought to one line: the server reads its
/// start-up statements line by line.
QByteArray sandboxStatements(const QByteArray &sql);

/// Removes what attempts that were broken off have left.
void removeUnfinishedSandboxData(const SandboxFolder &folder);

/// Makes the data directory: accounts, dictionary, packages, sample schema. It takes its place
/// only when it is complete, so one whose making was broken off is never used.
/// @throws RuntimeError 3000 with the server's own words when a step fails
void createSandboxData(const SandboxFolder &folder);

/// Brings the dictionary and the packages of an older program's data directory up to date; what
/// users made of theirs stays.
/// @throws RuntimeError 3000 with the server's own words when that fails
void updateSandboxData(const SandboxFolder &folder);
