#pragma once

#include "dataaccess/odbc/sessionParties.h"

#include <QString>

#include <memory>

class ConnectionString;

/// The provider "OrbekSandbox": a private database server for somebody who has no other at hand,
/// and for the tests. It takes User ID and Password (also as UID and PWD); every Data Source is
/// the same one.
///
/// Accounts: scott with the password tiger and the sample schema, system with the password lantern
/// and every right.

/// Whether @p connectionString names this provider.
bool isSandbox(const ConnectionString &connectionString);

/// Sees to it that the server runs while the result's lifetime lasts, and says how to log on.
/// @throws RuntimeError as sandboxService() does
ProviderSession openSandbox(const ConnectionString &connectionString,
                            const ProviderProgress &progress);

/// How the sandbox's server is reached.
struct SandboxService
{
    QString driver;                 ///< of ODBC: as a connection string names it
    QString socketPath;             ///< of the server
    std::shared_ptr<void> lifetime; ///< to be kept for as long as the server is needed
};

/// The server that the environment variable QUERNA_SANDBOX_SOCKET names by its socket and somebody
/// else runs, or else the user's own, which is started if need be.
/// @throws RuntimeError 3706 when the driver is not installed or this system cannot run the server,
///         and as SandboxServer's constructor does
SandboxService sandboxService(const ProviderProgress &progress);

/// The socket that QUERNA_SANDBOX_SOCKET names; empty when it names none.
inline QString namedSandboxSocket()
{
    return qEnvironmentVariable("QUERNA_SANDBOX_SOCKET");
}

/// Whether there is a sandbox for this system: Windows has the one alone that is named.
inline bool hasSandbox()
{
#ifdef Q_OS_WIN
    return !namedSandboxSocket().isEmpty();
#else
    return true;
#endif
}
