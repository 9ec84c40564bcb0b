#pragma once

#include "dataaccess/odbc/DriverThread.h"
#include "dataaccess/odbc/OdbcHandle.h"
#include "dataaccess/odbc/sessionParties.h"

#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

class OdbcCursor;
class SessionClient;

/// One open session with a data source: the ODBC connection and what belongs to it as a whole,
/// such as its transaction and the statements that are still being read.
///
/// Where there is a user interface it has a thread of its own, on which alone it is used.
class OdbcSession : public std::enable_shared_from_this<OdbcSession>
{
public:
    // For any thread.

    /// Connects. @throws RuntimeError with the driver's text
    static std::shared_ptr<OdbcSession> open(ProviderSession provider);
    OdbcSession(const OdbcSession &) = delete;
    OdbcSession &operator=(const OdbcSession &) = delete;

    /// Ends what the clients read, rolls back and disconnects; failures are ignored. It may go on
    /// doing so when this returns.
    void close();
    /// Not when it was given up either.
    bool isOpen() const { return m_isOpen && !(m_thread && m_thread->isGivenUp()); }

    /// Runs @p work on the session's thread, as DriverThread::call().
    template <typename Work>
    std::invoke_result_t<Work &> call(Work work)
    {
        return m_thread ? m_thread->call(std::move(work)) : work();
    }
    /// The same without waiting, as DriverThread::post().
    void post(std::function<void()> work)
    {
        if (m_thread)
            m_thread->post(std::move(work));
        else
            work();
    }

    /// Runs @p work on the session's own thread, if it has one, in between.
    void postAhead(std::function<void()> work)
    {
        if (m_thread)
            m_thread->post(std::move(work));
    }

    // For the session's thread.

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
    const QString &hint() const { return m_hint; }

    void addClient(SessionClient *client);
    void removeClient(SessionClient *client);

private:
    explicit OdbcSession(ProviderSession provider);
    /// A ScalarQuery.
    QString scalar(const QString &text);
    void logOn();
    void connect(const QString &odbcConnectionString);
    void end();
    void readAbilities();
    void setAutocommit(bool on);
    void prepareToSend();
    /// Runs @p action. After a failure for want of memory, nothing more is sent; one that has taken
    /// the transaction along gets state 40000, and another transaction has begun.
    void watchFailures(const std::function<void()> &action);
    bool hasLostTransaction();
    /// Sends a text as it stands. @returns the statement, on its first result with columns, or none
    OdbcHandle send(const QString &text);
    bool hasOpenResults() const;
    void releaseResults();

    std::unique_ptr<DriverThread> m_thread; ///< null for the caller's own
    std::atomic<bool> m_isOpen = true;
    const QString m_hint;
    ProviderSession m_provider;
    OdbcHandle m_environment;
    OdbcHandle m_connection;
    /// Left by a text without rows, for the next one: scripts send thousands, and to make a
    /// statement takes drivers longer than to send a short text.
    OdbcHandle m_spareStatement;
    OdbcHandle m_idleStatement; ///< for DriverThread::setIdleStatement()
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
