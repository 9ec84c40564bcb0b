#pragma once

#include "dataaccess/odbc/sessionParties.h"

#include <QString>

/// Finds the provider that @p connectionString names and lets it say how to connect:
///
/// - none, or `MSDASQL`: the driver manager, with the other items as they stand;
/// - `msdaora`, `OraOLEDB.Oracle`: the installed Oracle driver. Another than the first one found is
///   named by the setting "OracleDriver" of application "Orbek Oracle", section "Settings";
/// - `OrbekSandbox`: a private server of this program's own.
///
/// @throws RuntimeError 3706 for an unknown provider and when no Oracle driver is installed, 75
///         when the settings cannot be read, openSandbox()'s
ProviderSession openProvider(const QString &connectionString);

/// Says whom to tell what opening a provider waits for; an empty function for nobody.
void setProviderProgress(ProviderProgress progress);
