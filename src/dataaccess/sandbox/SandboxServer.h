#pragma once

#include "dataaccess/odbc/sessionParties.h"
#include "dataaccess/sandbox/FileLock.h"
#include "dataaccess/sandbox/SandboxFolder.h"

#include <QString>

/// One client's hold on the sandbox's server. Two locks say all there is to know, whatever process
/// ended when:
///
/// - server.lock belongs to whoever works on the database: to the client that makes it and starts
///   the server, and from then on to the server itself, which inherits it. Whoever gets it knows
///   that there is no server, not even one that is beginning or ending.
/// - life.lock is shared by the clients. The server's parent, a process that the starting client
///   leaves behind, waits to have it alone; then no client is left, and it stops the server. Should
///   that parent be killed, the server ends with it.
class SandboxServer
{
public:
    /// Attaches to the server of @p folder; makes its database and starts it if need be. Programs
    /// that do this at the same time end up with one server.
    /// @throws RuntimeError 3706 when the server is not installed; 3000 when it cannot be started
    ///         or does not answer, with the last lines of its log; 75 when the folder cannot be
    ///         used
    SandboxServer(const SandboxFolder &folder, const ProviderProgress &progress);
    ~SandboxServer();
    SandboxServer(const SandboxServer &) = delete;
    SandboxServer &operator=(const SandboxServer &) = delete;

    /// The path of the server's socket, for this process and while this object lives. It is short
    /// and of plain characters, whatever the folder's path is.
    QString socketPath() const;

    /// The process id of the server of @p folder; 0 when none listens.
    static qint64 processId(const SandboxFolder &folder);

private:
    void attach(const SandboxFolder &folder, const ProviderProgress &tell);

    FileLock m_life;
    int m_folder = -1; ///< open for as long as its socket is to be reached
};
