#pragma once

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
