#include "sqltext/openWork.h"

#include "dataaccess/Connection.h"
#include "dataaccess/text/SqlTokens.h"
#include "platform/RuntimeError.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

bool isRowChange(const SqlToken &token)
{
    return token.isOneOf("insert update delete merge replace"_L1);
}

template <typename Test>
bool hasToken(SqlTokens tokens, Test test)
{
    for (SqlToken token = tokens.next(); token.kind != SqlToken::End; token = tokens.next()) {
        if (test(token))
            return true;
    }
    return false;
}

} // namespace

StatementKind statementKind(QStringView statement)
{
    SqlTokens tokens(statement);
    const SqlToken first = tokens.next();
    if (isRowChange(first))
        return StatementKind::RowChange;
    if (first.isWord(u"with"))
        return hasToken(tokens, isRowChange) ? StatementKind::Other : StatementKind::Query;
    if (first.isOneOf("create alter drop truncate rename comment grant revoke"_L1)) {
        // Some servers leave the transaction alone for a temporary table.
        const auto isTemporary = [](const SqlToken &token) { return token.isWord(u"temporary"); };
        return hasToken(tokens, isTemporary) ? StatementKind::Other : StatementKind::Definition;
    }
    if (first.isWord(u"commit"))
        return StatementKind::Commit;
    if (first.isWord(u"rollback")) {
        const auto isTo = [](const SqlToken &token) { return token.isWord(u"to"); };
        return hasToken(tokens, isTo) ? StatementKind::Query : StatementKind::Rollback;
    }
    const bool changesNothing =
        first.kind == SqlToken::End || first.isSign(u'(') ||
        first.isOneOf("select values show describe desc explain set use lock savepoint"_L1);
    return changesNothing ? StatementKind::Query : StatementKind::Other;
}

bool hasOpenWorkAfter(bool before, const SentStatement &statement)
{
    switch (statement.kind) {
    case StatementKind::Query:
        return before;
    case StatementKind::RowChange:
        return before || (statement.succeeded && statement.rowsChanged != 0);
    case StatementKind::Definition:
        return statement.succeeded ? !statement.definitionsCommit : before;
    case StatementKind::Commit:
    case StatementKind::Rollback:
        return before && !statement.succeeded;
    case StatementKind::Other:
        break;
    }
    return true;
}

qint64 sendNoting(const std::shared_ptr<Connection> &connection, QStringView statement,
                  const std::function<void()> &send)
{
    SentStatement sent{.kind = statementKind(statement), .succeeded = false};
    const auto note = qScopeGuard([&] {
        if (!connection)
            return;
        sent.definitionsCommit = connection->definitionsCommit();
        connection->noteOpenWork(hasOpenWorkAfter(connection->hasOpenWork(), sent));
    });
    try {
        send();
        sent.succeeded = true;
    } catch (const RuntimeError &error) {
        // What was cancelled may have changed rows all the same, or have ended the transaction.
        if (error.sqlState == "40000"_L1)
            sent = {.kind = StatementKind::Rollback};
        else if (sent.kind == StatementKind::RowChange)
            sent.succeeded = error.sqlState == "HY008"_L1;
        throw;
    }
    if (connection)
        sent.rowsChanged = connection->rowsAffected();
    return sent.rowsChanged;
}
