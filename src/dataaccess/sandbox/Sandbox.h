#pragma once

#include "dataaccess/ProviderSession.h"
#include "dataaccess/sandbox/SandboxServer.h"

class ConnectionString;

/// The provider "OrbekSandbox": a private database server for somebody who has no other at hand,
/// and for the tests. It takes User ID and Password (also as UID and PWD); every Data Source is
/// the same one.
///
/// Accounts: scott with the password tiger and the sample schema, system with the password lantern
/// and every right.

/// Sees to it that the server runs while the result's lifetime lasts, and says how to log on.
/// @throws RuntimeError as SandboxServer's constructor does, and 3706 when the server's ODBC driver
///         is not installed
std::unique_ptr<ProviderSession> openSandbox(const ConnectionString &connectionString);

/// Says whom to tell what is being waited for; an empty function for nobody.
void setSandboxProgress(SandboxProgress progress);
