#pragma once

#include "editor/WindowControls.h"

#include <QWidget>

#include <memory>

class Connection;
class EditorEvents;
class FramePacer;
class Recordset;
class ResultPaging;
class ToolbarCommands;

/// The editor window: a statement editor above the tabs that show its result, with the command
/// toolbar on top and the status panels below.
///
/// The window works on gConnection, which is handed in, never opened here; closing the window
/// closes that connection, the work not committed being rolled back.
class frmQuerna : public QWidget
{
    Q_OBJECT
public:
    explicit frmQuerna(QWidget *parent = nullptr);
    ~frmQuerna() override;

    // The session's values. The names are historical: setExt… hands values out, and getConnStr
    // stores its argument.
    void setUserPwd(const QString &usr, const QString &passwd, const QString &tnsname);
    void setExtUnameTns(QString &extUname, QString &extTns) const;
    void setDbc(const std::shared_ptr<Connection> &dbd);
    void setExtDbC(std::shared_ptr<Connection> &dbd) const;
    void setMaxRec(qint16 mr);
    void getConnStr(const QString &str);

    /// Runs the whole text as a script; a failing statement adds a blank, its description and a
    /// line end to @p errstr, and the next one runs.
    void execScript(QString &errstr);

    EditorControl *txtSQL() const { return m_controls.txtSQL; }
    /// The result that the grid shows and the export writes; null before the first Run.
    std::shared_ptr<Recordset> rsResult() const;

    /// The file that was opened or saved last, which the next file dialog offers; empty at first.
    QString fileName() const { return m_fileName; }
    void setFileName(const QString &path) { m_fileName = path; }

    /// Refreshes the caption: user, database and the text's beginning.
    void refreshCaption();

    /// The window has become the active one: refreshes the caption and loads the syntax definition
    /// that lies beside the program.
    void Form_Activate();

    /// Shows the record limit in the status bar's fourth panel.
    void showRecordLimit();

    /// Shows @p text in the status bar's second panel; an empty text clears it.
    void showInformation(const QString &text);

    /// @param index  the button's place on tbrQuerna, counted from 1; others do nothing
    void tbrQuerna_ButtonClick(int index);
    /// @param index  the button's place on Toolbar1, counted from 1
    void Toolbar1_ButtonClick(int index);

protected:
    void closeEvent(QCloseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void Form_Load();
    void Form_Terminate() noexcept;
    void connectEvents();
    void layoutPanes();
    void showAddedRows();

    WindowControls m_controls;
    std::shared_ptr<ResultPaging> m_paging;
    FramePacer *m_rowsPacer; ///< for what shows m_paging's rows
    std::unique_ptr<EditorEvents> m_events;
    std::unique_ptr<ToolbarCommands> m_commands;

    float m_splitRatio = 0.5F;
    bool m_splitDragging = false;
    bool m_terminated = false;
    QString m_connStr;
    QString m_fileName;
};
