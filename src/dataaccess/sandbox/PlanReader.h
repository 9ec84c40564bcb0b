#pragma once

#include "dataaccess/sandbox/PlanStep.h"

#include <QHash>
#include <QJsonObject>
#include <QList>

class QJsonArray;

/// Turns the server's plan, a tree of JSON objects, into the steps that such plans are told in.
class PlanReader
{
public:
    /// @param statement  what the plan is of
    explicit PlanReader(const QString &statement);

    /// The steps of a plan; see planSteps().
    QList<PlanStep> read(const QJsonObject &plan);

private:
    int addStep(int parent, const QString &operation, const QString &options = {});
    void readChildren(const QJsonObject &node, int parent);
    void readBlock(const QJsonObject &block, int parent);
    void readUnion(const QJsonObject &result, int parent);
    void readJoin(const QJsonArray &parts, qsizetype count, int parent);
    void readTable(const QJsonObject &table, int parent);
    void readAccess(const QJsonObject &table, int parent);
    int addObjectStep(int parent, const QString &operation, const QString &options,
                      const QJsonObject &table);
    void collectAliases();

    QString m_statement;
    QString m_verb;
    QString m_target;
    QHash<QString, QString> m_tables; ///< table names by alias, both in upper case
    QList<PlanStep> m_steps;
    QList<int> m_children; ///< of each step, so far
};

/// Reads the server's plan of a statement (its `EXPLAIN FORMAT=JSON`) as steps, numbered depth
/// first from 0, the statement itself. Names are in upper case; tables go by their own names where
/// @p statement tells what an alias stands for. Parts of a plan that are not known are passed
/// through to the steps inside them.
/// @throws RuntimeError 3000 when @p json is no plan
QList<PlanStep> planSteps(const QString &statement, const QString &json);
