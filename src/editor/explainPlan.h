#pragma once

#include <QString>

class ColumnTree;
struct WindowControls;

/// Makes the columns of a tree of execution plans; once.
void setupPlanColumns(ColumnTree &tree);

/// Asks the server for the plan of @p statement and fills the window's tree with it.
/// @throws RuntimeError the server's; 9 when a plan step's id is past 500, the steps before it
///         then stand in the tree
void explainPlan(WindowControls &controls, const QString &statement);

/// Replaces the tree's nodes by the rows of a plan query. @throws RuntimeError as explainPlan()
/// @returns the number of rows
int fillPlanTree(ColumnTree &tree, const QString &query);
