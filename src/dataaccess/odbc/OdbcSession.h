#pragma once

#include "dataaccess/odbc/OdbcAbilities.h"
#include "dataaccess/odbc/OdbcHandle.h"
#include "dataaccess/odbc/ProviderSession.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

class OdbcCursor;
class SessionClient;

/// One open session with a data source: the ODBC connection and what belongs to it as a whole,
/// such as its transaction and the statements that are still being read.
class OdbcSession
{
public:
    /// Connects. @throws RuntimeError with the driver's text
    explicit OdbcSession(ProviderSession provider);
    ~OdbcSession();
    OdbcSession(const OdbcSession &) = delete;
    OdbcSession &operator=(const OdbcSession &) = delete;

    /// Ends what the clients read, rolls back and disconnects; failures are ignored.
    void close();

    /// @throws RuntimeError -2147168237 within a transaction, otherwise the driver's
    void beginTransaction();
    /// @param completion  SQL_COMMIT or SQL_ROLLBACK
    /// @throws RuntimeError -2147168242 outside a transaction, otherwise the driver's
    void endTransaction(SQLSMALLINT completion);

    /// Sends a command text, having taken it for a procedure call or adapted it where that is due.
    /// @param rowsPerBlock  to be fetched in one call of the driver
    /// @returns a reader of the first result with columns; null when there is none, every result
    ///          then being taken in
    /// @throws RuntimeError with the driver's text, or the adapter's
    std::unique_ptr<OdbcCursor> open(const QString &commandText, int rowsPerBlock);

    /// The text as open() would send it.
    QString adapted(const QString &text);
    /// A statement that is ready to send @p text.
    OdbcHandle statementFor(const QString &text);
    /// Runs @p action; when the driver refuses it because results are open on this session, reads
    /// these into memory and runs it once more.
    void withResultsReleased(const std::function<void()> &action);

    /// Rows that the last text without columns has changed; -1 when the driver does not tell. What
    /// most drivers tell of a block is no count of rows.
    qint64 rowsAffected() const { return m_rowsAffected; }

    const OdbcAbilities &abilities() const { return m_abilities; }
    /// What somebody may want to know who has just logged on. May be empty.
    const QString &hint() const { return m_provider.hint; }

    void addClient(SessionClient *client);
    void removeClient(SessionClient *client);

private:
    /// A ScalarQuery.
    QString scalar(const QString &text);
    void connect(const QString &odbcConnectionString);
    void readAbilities();
    void setAutocommit(bool on);
    void prepareToSend();
    /// Runs @p action; after a failure for want of memory, nothing more is sent.
    void watchMemory(const std::function<void()> &action);
    /// Sends a text as it stands. @returns the statement, on its first result with columns, or none
    OdbcHandle send(const QString &text);
    bool hasOpenResults() const;
    void releaseResults();

    ProviderSession m_provider;
    OdbcHandle m_environment;
    OdbcHandle m_connection;
    /// Left by a text without rows, for the next one: scripts send thousands, and to make a
    /// statement takes drivers longer than to send a short text.
    OdbcHandle m_spareStatement;
    std::vector<SessionClient *> m_clients;
    OdbcAbilities m_abilities;
    SQLLEN m_rowsAffected = -1;
    bool m_connected = false;
    bool m_isLost = false; ///< nothing but the end may be asked of the driver any more
    bool m_oneResultOnly = false;
    bool m_commitKeepsResults = false;
    bool m_rollbackKeepsResults = false;
    bool m_autocommit = true;     ///< as the driver has it
    bool m_inTransaction = false; ///< as our user has it; the driver is told when it matters
};
