#pragma once

#include "dataaccess/StatementAdapter.h"

#include <QString>

#include <memory>

/// What a provider gives a Connection to open and keep a session with.
struct ProviderSession
{
    /// For the driver manager, in ODBC's own form.
    QString odbcConnectionString;
    /// Released after the session has been closed: a server's lock, for example. May be null.
    std::shared_ptr<void> lifetime;
    /// Null for servers that take every text as it stands.
    std::unique_ptr<StatementAdapter> adapter;
};
