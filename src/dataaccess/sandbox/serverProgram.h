#pragma once

#include "dataaccess/sandbox/FileLock.h"
#include "dataaccess/sandbox/SandboxFolder.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>

/// The sandbox's server as a program: what it is started with, how its database is made out of its
/// empty one, who watches over it.

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

/// Starts the sandbox's server in @p folder, and a process that is the server's parent and stops it
/// when the last client has gone. Returns as soon as both are on their way.
/// @param lock  the one on server.lock, which the server holds from then on
/// @param command  the server's program and its arguments; paths are relative to the folder
/// @throws RuntimeError 3000 when the system has no room for another process
void superviseServer(const SandboxFolder &folder, const FileLock &lock, const QStringList &command);

/// A connection to the server's socket @p path, which is at most a hundred characters long; -1 when
/// nobody listens there.
int connectToServer(const char *path);

enum class ServerAnswer {
    Refusal, ///< nobody listens, or nobody who stays
    Silence, ///< somebody does, but says nothing
    Greeting ///< the server is ready
};

/// What the server says to somebody who comes. It speaks first, which shows that it is at work and
/// not merely there. Uses no memory of the heap.
/// @param longest  to wait for a word
ServerAnswer serverAnswer(const char *path, std::chrono::milliseconds longest);
