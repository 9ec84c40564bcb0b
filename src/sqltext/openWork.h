#pragma once

#include <QString>

#include <functional>
#include <memory>

class Connection;

/// What a statement does to the transaction that it is sent in, as far as its words tell.
enum class StatementKind {
    Query,      ///< changes nothing
    RowChange,  ///< changes rows, and tells how many
    Definition, ///< ends the transaction as well on many servers
    Commit,
    Rollback,
    Other ///< a block or a call, which may do anything
};

StatementKind statementKind(QStringView statement);

/// A statement of the user's and what came of it.
struct SentStatement
{
    StatementKind kind = StatementKind::Query;
    bool succeeded = true;
    qint64 rowsChanged = -1;        ///< -1 when nobody told
    bool definitionsCommit = false; ///< on this server
};

/// Whether a transaction holds work that is not committed behind a statement.
/// @param before  whether it did before it
bool hasOpenWorkAfter(bool before, const SentStatement &statement);

/// Sends @p statement of the user's by @p send, whose failure it passes on, and notes at
/// @p connection, which may be null, whether work is open behind it.
/// @returns the rows that were changed; -1 when nobody told
qint64 sendNoting(const std::shared_ptr<Connection> &connection, QStringView statement,
                  const std::function<void()> &send);
