#pragma once

#include "dataaccess/sandbox/FileLock.h"
#include "dataaccess/sandbox/SandboxFolder.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Making the sandbox's database out of the server's empty one.

/// A file of the sandbox's own SQL.
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
QStringList sandboxServingOptions();

/// Makes the data directory: accounts, dictionary, packages, sample schema. It takes its place
/// only when it is complete, so one whose making was broken off is never used.
/// @param lock  the one on server.lock, which whoever works on the data has: what is started here
///        holds it as well, to its own end
/// @throws RuntimeError 3000 with the server's own words when a step fails
void createSandboxData(const SandboxFolder &folder, const FileLock &lock);
