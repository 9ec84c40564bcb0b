#pragma once

#include "dataaccess/ProviderSession.h"
#include "dataaccess/sandbox/SandboxServer.h"

#include <QStringList>

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
ProviderSession openSandbox(const ConnectionString &connectionString);

/// Says whom to tell what is being waited for; an empty function for nobody.
void setSandboxProgress(SandboxProgress progress);

/// The sample tables, as the account of @p connectionString has to name them; none for another
/// provider.
QStringList sandboxTables(const ConnectionString &connectionString);
