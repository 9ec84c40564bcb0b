#pragma once

#include "dataaccess/odbc/sessionParties.h"

#include <QList>
#include <QString>

#include <optional>

/// One step of an execution plan, as a row of the plan table holds it.
struct PlanStep
{
    int id = 0;
    int parentId = -1; ///< -1 for the statement itself
    QString operation;
    QString options;
    QString objectName;
    std::optional<qint64> cost;
    std::optional<qint64> cardinality; ///< rows that the server expects
};

/// Reads the server's plan of a statement (its `EXPLAIN FORMAT=JSON`) as steps, numbered depth
/// first from 0, the statement itself. Names are in upper case; tables go by their own names where
/// @p statement tells what an alias stands for. Parts of a plan that are not known are passed
/// through to the steps inside them.
/// @throws RuntimeError 3000 when @p json is no plan
QList<PlanStep> planSteps(const QString &statement, const QString &json);

/// What the sandbox's server, or the driver before it, does not take as it is written, and what
/// stands for it.

/// `EXPLAIN PLAN [SET STATEMENT_ID = '…'] FOR …`
struct ExplainRequest
{
    std::optional<QString> statementId;
    QString statement; ///< what is to be explained, as written
};

/// What @p text asks to explain; nothing when it is another statement.
std::optional<ExplainRequest> explainRequest(const QString &text);

/// The statement that puts @p steps into the plan table.
QString planInsertion(const std::optional<QString> &statementId, const QList<PlanStep> &steps);

/// The statement id that the hierarchical query of a plan asks for; nothing when @p text is
/// another statement. White space and letter case do not count.
std::optional<QString> planQueryId(const QString &text);

/// What stands for that query: the same columns in the same order, each step followed by the steps
/// below it.
QString serverPlanQuery(const QString &statementId);

/// A block in the form that the driver expects rows from; nothing when @p text is no block. As it
/// is written, the driver would leave rows that a statement within the block returns on the
/// connection, which is of no use from then on.
std::optional<QString> blockStatement(const QString &text);

/// The sandbox's StatementAdapter: any text but those above passes as it is.
QString adaptToServer(const QString &commandText, const ScalarQuery &scalar);
