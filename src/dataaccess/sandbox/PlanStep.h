#pragma once

#include <QString>

#include <optional>

/// One step of an execution plan, as a row of the plan table holds it.
struct PlanStep
{
    int id = 0;
    std::optional<int> parentId; ///< none for the statement itself
    int depth = 0;
    int position = 0; ///< among the steps with the same parent, from 1
    QString operation;
    QString options;
    QString objectName;
    QString objectAlias;
    QString objectType;
    std::optional<qint64> cost;
    std::optional<qint64> cardinality; ///< rows that the server expects
    QString accessPredicates;
    QString filterPredicates;
};
