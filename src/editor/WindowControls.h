#pragma once

#include <QString>

class ColumnTree;
class DataGrid;
class EditorControl;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTabWidget;
class QToolBar;
class QWidget;
class StatusPanels;
struct PaneLayout;
struct WaitProgress;

/// The tabs of `tbSql`, which decide what Run does.
enum class ResultTab { Data = 0, ExplainPlan = 1, DbmsOutput = 2 };

/// What the panels of `sbSql` show.
enum StatusPanelNumber {
    CaretPanel = 1,
    InformationPanel = 2,
    ElapsedPanel = 3,
    RowsPanel = 4,
    ExecutionPanel = 5
};

/// The controls of an editor window, made and named here so that the window's duties can be handed
/// the ones they work on. The window's widget owns them.
struct WindowControls
{
    QToolBar *tbrQuerna = nullptr;
    EditorControl *txtSQL = nullptr;
    QTabWidget *tbSql = nullptr;
    QToolBar *Toolbar1 = nullptr;
    DataGrid *SqlDataGrid = nullptr;
    ColumnTree *tvwColumns = nullptr;
    QLabel *lblBufferSize = nullptr;
    QLineEdit *txtBufferSize = nullptr;
    QPlainTextEdit *rtbdbms = nullptr;
    StatusPanels *sbSql = nullptr;
    QString information; ///< the text that showInformation() has had last
    /// Whether the user has asked for the end of what a command waits for, since it cleared this.
    bool isCancelWanted = false;

    /// Makes the controls as children of @p window.
    void create(QWidget *window);

    ResultTab visibleTab() const;

    /// Shows in the information panel what happens or has happened, at once, for the server may be
    /// asked next. Work that is not committed shows beside it; an empty text leaves that alone.
    void showInformation(const QString &text);
    /// The same during a wait; null when it is over, and the text before it shows again.
    void showProgress(const WaitProgress *wait);

    /// Shows the present time as that of a statement's execution.
    void showExecutionTime() const;

    /// Puts the controls where @p panes says, inside a window of the given size in pixels.
    void place(const PaneLayout &panes, int width, int height);

    /// Keys that lead around @p window: Alt+1 to Alt+3 show the tabs and leave the focus where it
    /// is; F4 goes from the editor into the tab that is showing, and from anywhere else to the
    /// editor, which keeps the Tab key to itself.
    void addPaneKeys(QWidget *window) const;

private:
    void showText(const QString &text) const;
    void createDataTab();
    void createPlanTab();
    void createOutputTab();
};
