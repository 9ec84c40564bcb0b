#include "editor/ToolbarCommands.h"

#include "connection/session.h"
#include "controls/editor/EditorControl.h"
#include "controls/forms/CommonDialog.h"
#include "controls/forms/selText.h"
#include "dialogs/frmObject.h"
#include "editor/frmQuerna.h"
#include "export/frmExport.h"
#include "history/frmSQLHistory.h"
#include "platform/errorTraps.h"
#include "platform/textForms.h"
#include "sqltext/ResultPaging.h"
#include "sqltext/outcomeTexts.h"
#include "sqltext/sqlTexts.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

/// Shows a dialog until it is closed. The dialog goes with its parent when that is deleted
/// meanwhile.
template <typename Dialog>
void showModal(Dialog *dialog)
{
    const QPointer<Dialog> guard(dialog);
    dialog->exec();
    if (guard)
        delete dialog;
}

/// Changes the selected text and leaves the new one selected, for the next change. Rows of a
/// rectangle are not selected again.
template <typename Change>
void changeSelection(EditorControl &editor, Change change)
{
    const QString selected = editor.SelText();
    if (selected.isEmpty())
        return;
    const QString text = change(selected);
    const int start = editor.SelStart();
    editor.setSelText(text);
    if (editor.SelStart() != start + text.size())
        return;
    editor.setSelStart(start);
    editor.setSelLength(static_cast<int>(text.size()));
}

} // namespace

/// "Uppe case" is what this button has always been called.
QList<ToolBarButton> ToolbarCommands::buttons()
{
    return {
        {"Run sql statement"_L1,
         "run"_L1,
         {Qt::Key_F5, Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter}},
        {"Run as a script"_L1, "run-script"_L1, {Qt::SHIFT | Qt::Key_F5}},
        {"Export data"_L1, "export"_L1, {Qt::CTRL | Qt::Key_E}},
        {},
        {"Background color"_L1, "background-color"_L1, {Qt::CTRL | Qt::SHIFT | Qt::Key_B}},
        {"Commit"_L1, "commit"_L1, {Qt::Key_F9}},
        {"Rollback"_L1, "rollback"_L1, {Qt::SHIFT | Qt::Key_F9}},
        // Ctrl+Shift+U goes to the input method on many desktops.
        {"Uppe case"_L1,
         "upper-case"_L1,
         {Qt::CTRL | Qt::SHIFT | Qt::Key_X, Qt::CTRL | Qt::SHIFT | Qt::Key_U}},
        {"Lower case"_L1, "lower-case"_L1, {Qt::CTRL | Qt::Key_U}},
        {"Initcap"_L1, "initcap"_L1, {Qt::CTRL | Qt::Key_I}},
        {"Comment text"_L1, "comment"_L1, {Qt::CTRL | Qt::Key_K}},
        {"Uncomment text"_L1, "uncomment"_L1, {Qt::CTRL | Qt::SHIFT | Qt::Key_K}},
        {"Undo"_L1, "undo"_L1, {}, Qt::CTRL | Qt::Key_Z},
        {"Redo"_L1, "redo"_L1, {}, Qt::CTRL | Qt::Key_Y},
        {},
        {"Display Schema and Tables"_L1, "tables"_L1, {Qt::Key_F6}},
        {"Display Schema, Tables and Columns"_L1, "columns"_L1, {Qt::SHIFT | Qt::Key_F6}},
        {"Recall history of SQL statements"_L1, "history"_L1, {Qt::Key_F8}},
        {},
        {"Exit Sql Editor"_L1, "exit"_L1, {}, Qt::CTRL | Qt::Key_W},
    };
}

void ToolbarCommands::execute(int index)
{
    m_controls.showInformation({});
    reportErrors([&] {
        try {
            dispatch(index);
        } catch (...) {
            showFailure();
            throw;
        }
    });
}

/// Says what the exception that is being handled means for the command.
void ToolbarCommands::showFailure()
{
    const bool isConnected = gConnection && gConnection->State() == adStateOpen;
    m_controls.showInformation(isConnected ? failureText(currentRuntimeError())
                                           : u"Not connected"_s);
}

void ToolbarCommands::dispatch(int index)
{
    EditorControl &editor = *m_window.txtSQL();
    switch (index) {
    case 1:
        return run();
    case 2:
        return runScript();
    case 3:
        return exportData();
    case 5:
        return chooseBackground();
    case 6:
        return endTransaction(&Connection::CommitTrans, u"Committed"_s);
    case 7:
        return endTransaction(&Connection::RollbackTrans, u"Rolled back"_s);
    case 8:
        return changeSelection(editor, upperCase);
    case 9:
        return changeSelection(editor, lowerCase);
    case 10:
        return changeSelection(editor, properCase);
    case 11:
        return changeSelection(editor, commentLines);
    case 12:
        return changeSelection(editor, uncommentText);
    case 13:
        return editor.ExecuteCommand(EditorControl::CommandUndo);
    case 14:
        return editor.ExecuteCommand(EditorControl::CommandRedo);
    case 16:
        return pickObject<frmObject>();
    case 17:
        return pickObject<frmObjectColumn>();
    case 18:
        return recallHistory();
    case 20:
        return endProgram();
    default:
        return;
    }
}

void ToolbarCommands::run()
{
    m_window.refreshCaption();
    runStatement(m_controls, m_paging);
}

void ToolbarCommands::runScript()
{
    QString errors;
    m_window.execScript(errors);
    if (!trimBlanks(errors).isEmpty())
        showMessage(errors);
}

void ToolbarCommands::exportData()
{
    auto *dialog = new frmExport(&m_window);
    dialog->setRs(m_window.rsResult());
    dialog->setHasMore(m_paging.hasMore());
    showModal(dialog);
}

void ToolbarCommands::chooseBackground()
{
    // A cancelled dialog changes nothing.
    ignoreErrors([this] {
        CommonDialog dialog(&m_window);
        dialog.CancelError = true;
        dialog.Color = m_window.txtSQL()->BackColor();
        dialog.ShowColor();
        m_window.txtSQL()->setBackColor(dialog.Color);
    });
}

void ToolbarCommands::endTransaction(void (Connection::*end)(), const QString &information)
{
    const std::shared_ptr<Connection> connection = requireConnection();
    (*connection.*end)();
    connection->BeginTrans();
    m_controls.showInformation(information);
}

template <typename Picker>
void ToolbarCommands::pickObject()
{
    EditorControl *editor = focusedEditor();
    if (editor == nullptr)
        return;
    auto *picker = new Picker(&m_window);
    // The user name stands for the password as well: a picker never logs on.
    picker->setUserPwd(gUserName, gUserName, gTnsName);
    picker->setDbc(gConnection);
    picker->setWindowIcon(m_window.windowIcon());
    picker->setTxt(editor, &m_window);
    showModal(picker);
}

void ToolbarCommands::recallHistory()
{
    EditorControl *editor = focusedEditor();
    if (editor == nullptr)
        return;
    auto *dialog = new frmSQLHistory(&m_window);
    dialog->setTxt(editor, &m_window);
    showModal(dialog);
}
