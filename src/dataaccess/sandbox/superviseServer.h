#pragma once

#include <QStringList>

class FileLock;
class SandboxFolder;

/// Starts the sandbox's server in @p folder, and a process that is the server's parent and stops it
/// when the last client has gone. Returns as soon as both are on their way.
/// @param lock  the one on server.lock, which the server holds from then on
/// @param command  the server's program and its arguments; paths are relative to the folder
/// @throws RuntimeError 3000 when the system has no room for another process
void superviseServer(const SandboxFolder &folder, const FileLock &lock, const QStringList &command);
