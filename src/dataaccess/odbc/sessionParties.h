#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

/// Who has a part in a session: drivers and data sources, the provider that it is opened with, and
/// whatever reads from it.

/// Names of the drivers that the driver manager knows, in its order.
/// @throws RuntimeError with the driver manager's text
QStringList installedDrivers();

/// The first of them whose name contains @p part, in any letter case; empty when none does.
/// @throws RuntimeError with the driver manager's text
QString installedDriver(QStringView part);

/// Names of the data sources that the driver manager lists, the user's and the system's, in its
/// order.
/// @throws RuntimeError with the driver manager's text
QStringList dataSources();

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

/// Something that keeps a statement of a session open.
class SessionClient
{
public:
    /// The session ends: give the statement back; nothing more can be read from it.
    virtual void sessionClosing() = 0;
    /// Whether rows are still to be read from the driver.
    virtual bool hasOpenResult() const = 0;
    /// Reads what is left into memory and gives the statement back.
    virtual void releaseResult() = 0;

protected:
    ~SessionClient() = default;
};
