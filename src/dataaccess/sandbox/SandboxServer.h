#pragma once

#include "dataaccess/sandbox/FileLock.h"
#include "dataaccess/sandbox/SandboxFolder.h"

#include <QString>

#include <functional>

/// Called with a sentence for the user before something that takes a moment.
using SandboxProgress = std::function<void(const QString &)>;

/// One client's hold on the sandbox's server. The server of a folder runs from its first client to
/// its last: each has a shared lock on one file, and a process that waits for the exclusive one
/// (supervise.sh) stops the server when it gets it. So it does not matter how a client ends.
class SandboxServer
{
public:
    /// Attaches to the server of @p folder; makes its database and starts it if need be. Programs
    /// that do this at the same time end up with one server.
    /// @throws RuntimeError 3706 when the server is not installed; 3000 when it cannot be started
    ///         or does not answer, with the last lines of its log; 75 when the folder cannot be
    ///         used
    SandboxServer(const SandboxFolder &folder, const SandboxProgress &progress);

    /// The path of the server's Unix socket.
    QString socketPath() const { return m_socket; }

    /// The process id of the server of @p folder; 0 when none is running.
    static qint64 processId(const SandboxFolder &folder);

private:
    void start(const SandboxFolder &folder, const SandboxProgress &progress);
    void awaitAnswer(const SandboxFolder &folder);
    static void ensureWaiter(const SandboxFolder &folder);

    FileLock m_life;
    QString m_socket;
};
