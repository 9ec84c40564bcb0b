#pragma once

#include <QMainWindow>
#include <QPointer>

#include <memory>

class EditorControl;
class FrameCommands;
class FrameView;
class QLabel;
class QMdiArea;
class RecoveryBar;
class frmQuerna;
class frmQuernaLogin;

/// The frame around the editor window, and the program's start: it chooses between a connection
/// given on the command line and the login dialog.
class MDIFormQuerna : public QMainWindow
{
    Q_OBJECT
public:
    explicit MDIFormQuerna(QWidget *parent = nullptr);
    ~MDIFormQuerna() override;

    /// What happens at the program's start. A failure up to the session's first transaction ends
    /// the program without a message.
    /// @param commandLine  everything behind the program's name
    void Form_Load(const QString &commandLine);

    /// The active child when it is an editor window; otherwise null.
    frmQuerna *activeEditor() const;

    /// Shows the login dialog, the one instance that there is at a time.
    void showLogin();

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void offerPractice();
    frmQuerna *editorWindow();
    void addChildWindow(frmQuerna &editor);
    void showEditorWindow();
    void keepText(EditorControl &editor);
    void openCommandLine(const QString &connectionString);

    QMdiArea *m_area;
    RecoveryBar *m_recovery;
    QLabel *m_practice = nullptr;
    std::unique_ptr<FrameCommands> m_commands;
    std::unique_ptr<FrameView> m_view;
    QPointer<frmQuerna> m_editor;
    QPointer<frmQuernaLogin> m_login;
};
