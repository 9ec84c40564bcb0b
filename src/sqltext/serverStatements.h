#pragma once

#include <QDateTime>
#include <QString>

/// The texts that this program makes of a statement and sends in its stead.

// Anonymous blocks that run a statement as dynamic SQL. The statement is a literal there: its
// quotes are doubled and its line ends reduced to line feeds.

/// The block that Run sends for a data-changing or definition statement.
QString dmlBlock(const QString &statement);

/// The block that a script sends for each of its statements.
QString scriptBlock(const QString &statement);

// Texts that ask a server for an execution plan and read it back from PLAN_TABLE.

/// Names one plan: the first 9 characters of the user name, then the date and time.
QString explainStatementId(const QString &userName, const QDateTime &time);

/// Takes out the rows that an earlier plan of the same id has left.
QString deletePlanStatement(const QString &statementId);

/// Asks for the plan of @p statement. Every colon of the statement becomes an ampersand, so that
/// a driver does not take it for a parameter's mark.
QString explainPlanStatement(const QString &statementId, QString statement);

/// Reads the plan as a hierarchy, root first: query_plan, level, id, parent_id, object_name,
/// cardinality, bytes, cost.
QString planQuery(const QString &statementId);
