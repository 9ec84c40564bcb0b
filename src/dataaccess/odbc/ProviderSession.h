#pragma once

#include <QString>

#include <functional>
#include <memory>

/// The text form of the first column of the first row that a text returns, sent as it stands on the
/// connection that is adapted for; an empty text for null, for no row and for a statement without
/// rows. Throws RuntimeError with the driver's text.
using ScalarQuery = std::function<QString(const QString &text)>;

/// Rewrites command texts for a server that cannot take them as they are written: every text that
/// is sent on the connection passes it once, procedure calls in their `{call …}` form included.
/// Most come back unchanged. What it throws is the failure of the command.
using StatementAdapter =
    std::function<QString(const QString &commandText, const ScalarQuery &scalar)>;

/// Called with a sentence for the user before something that takes a moment.
using ProviderProgress = std::function<void(const QString &)>;

/// What a provider gives a Connection to open and keep a session with.
struct ProviderSession
{
    /// For the driver manager, in ODBC's own form.
    QString odbcConnectionString;
    /// Released after the session has been closed: a server's lock, for example. May be null.
    std::shared_ptr<void> lifetime = nullptr;
    /// Empty for servers that take every text as it stands.
    StatementAdapter adapter = nullptr;
    /// What somebody may want to know who has just logged on. May be empty.
    QString hint = {};
};
