#pragma once

#include <QString>

#include <functional>

class ColumnTree;
class Recordset;

/// Shows a statement's execution plan as a tree.
class ExplainPlan
{
public:
    /// @param showExecutionTime  called when the plan's rows are about to be read
    ExplainPlan(ColumnTree *tree, std::function<void()> showExecutionTime);

    /// Makes the tree's columns; once.
    void setupPlanColumns();

    /// Asks the server for the plan of @p statement and fills the tree with it.
    /// @throws RuntimeError the server's; 9 when a plan step's id is past 500, the steps before it
    ///         then stand in the tree
    void explain(const QString &statement);

    /// Replaces the tree's nodes by the rows of a plan query. @throws RuntimeError as explain()
    void fillPlanTree(const QString &query);

private:
    void addSteps(Recordset &plan);

    ColumnTree *m_tree;
    std::function<void()> m_showExecutionTime;
};
