#pragma once

#include "dataaccess/odbc/ProviderSession.h"

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
