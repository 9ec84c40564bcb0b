#pragma once

#include "controls/forms/icons.h"

#include <QString>

class ColumnTree;
class Connection;
class ResultPaging;
class frmQuerna;
struct WindowControls;

/// The commands of an editor window's main toolbar, by button.
class ToolbarCommands
{
public:
    ToolbarCommands(frmQuerna &window, WindowControls &controls, ResultPaging &paging)
        : m_window(window)
        , m_controls(controls)
        , m_paging(paging)
    {
    }

    /// The toolbar's buttons, separators included.
    static QList<ToolBarButton> buttons();

    /// @param index  the button's place, counted from 1; separators and others do nothing. A
    ///               failure is shown and ends the command
    void execute(int index);

private:
    void dispatch(int index);
    void showFailure();
    void run();
    void runScript();
    void exportData();
    void chooseBackground();
    void endTransaction(void (Connection::*end)(), const QString &information);
    template <typename Picker>
    void pickObject();
    void recallHistory();

    frmQuerna &m_window;
    WindowControls &m_controls;
    ResultPaging &m_paging;
};

/// Runs the selected text, or the whole text when nothing is selected, having written it to the
/// history. The visible tab decides how: its rows are shown, its plan, or what it writes to the
/// server's output.
/// @throws RuntimeError the history file's, the server's, 6 for a time that is too long
void runStatement(WindowControls &controls, ResultPaging &paging);

/// Makes the columns of a tree of execution plans; once.
void setupPlanColumns(ColumnTree &tree);

/// Asks the server for the plan of @p statement and fills the window's tree with it.
/// @throws RuntimeError the server's; 9 when a plan step's id is past 500, the steps before it
///         then stand in the tree
void explainPlan(WindowControls &controls, const QString &statement);

/// Replaces the tree's nodes by the rows of a plan query. @throws RuntimeError as explainPlan()
/// @returns the number of rows
int fillPlanTree(ColumnTree &tree, const QString &query);
