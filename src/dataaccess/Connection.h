#pragma once

#include "dataaccess/rows/dataAccessTypes.h"

#include <QString>

#include <atomic>
#include <functional>
#include <memory>

class OdbcSession;
class Recordset;

/// One session with a data source, over ODBC.
///
/// Every failure of the driver is a RuntimeError whose description is the driver's own text (all
/// diagnostic records, joined by line ends).
class Connection : public std::enable_shared_from_this<Connection>
{
public:
    Connection() = default;
    /// Rolls back what was not committed and closes.
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// Where the rows of Execute() go: adUseServer (at first) for a forward-only reader,
    /// adUseClient for a copy in memory.
    void setCursorLocation(CursorLocationEnum location) { m_cursorLocation = location; }

    /// Opens the session that @p connectionString describes; docs/connections.md lists the items.
    /// @throws RuntimeError 3705 when open, 3706 for an unknown provider, otherwise the driver's
    void Open(const QString &connectionString);

    /// Rolls back an open transaction, closes the connection and its recordsets.
    /// @throws RuntimeError 3704 when closed
    void Close();
    /// Closed, too, when the user has given up a call that did not return.
    ObjectStateEnum State() const;
    /// What the provider says to somebody who has just logged on; an empty text when it says
    /// nothing or the connection is closed.
    QString hint() const;

    /// Sends a command text. A text that is nothing but a procedure reference, with or without an
    /// argument list, is sent as `{call …}`.
    /// @returns the first result's rows; a closed recordset when the command returns none
    /// @throws RuntimeError 3704 when closed, otherwise the driver's
    std::shared_ptr<Recordset> Execute(const QString &commandText);

    /// Runs @p work, which sends many short statements on this connection, in one go: where calls
    /// have a thread of their own it is run there, and handed over once. It owns what it touches,
    /// for the user may give it up while it runs. @throws RuntimeError 3704 when closed, 08S01 when
    /// given up, otherwise whatever it throws
    void inOneGo(const std::function<void()> &work);
    /// Whether the user has asked for the end of the work that inOneGo() runs.
    static bool isCancelWanted();

    // The three of them raise RuntimeError 3704 while the connection is closed, and the driver's.
    /// @throws RuntimeError -2147168237 when a transaction is open already
    void BeginTrans();
    /// @throws RuntimeError -2147168242 when none is open
    void CommitTrans();
    /// @throws RuntimeError -2147168242 when none is open
    void RollbackTrans();

    /// Rows that the last text without columns has changed, by the driver's own count; -1 when it
    /// does not tell, or cannot be relied on.
    qint64 rowsAffected() const;

    /// Whether the server commits when something is defined, a table for example.
    bool definitionsCommit() const;

    /// Whether the transaction holds work that is not committed, as whoever sends the texts has
    /// noted; what ends the transaction ends that.
    bool hasOpenWork() const { return m_hasOpenWork && State() == adStateOpen; }
    void noteOpenWork(bool has) { m_hasOpenWork = has; }

private:
    friend class Recordset;
    friend class Command;
    /// @throws RuntimeError 3704 while closed
    const std::shared_ptr<OdbcSession> &openSession() const;
    /// For what is opened on a connection. @throws RuntimeError 3709 unless there is an open one
    static std::shared_ptr<OdbcSession> sessionOf(const std::shared_ptr<Connection> &connection);

    CursorLocationEnum m_cursorLocation = adUseServer;
    std::atomic<bool> m_hasOpenWork = false;
    std::shared_ptr<OdbcSession> m_session; ///< null before the first opening
};
