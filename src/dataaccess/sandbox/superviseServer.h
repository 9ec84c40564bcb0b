#pragma once

#include <QStringList>

#include <chrono>

class FileLock;
class SandboxFolder;

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
