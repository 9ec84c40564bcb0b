#include "app/FrameCommands.h"

#include "app/MDIFormQuerna.h"
#include "connection/session.h"
#include "controls/editor/EditorControl.h"
#include "controls/forms/CommonDialog.h"
#include "controls/forms/icons.h"
#include "controls/forms/messageBox.h"
#include "controls/forms/selText.h"
#include "controls/grids/selectionText.h"
#include "editor/frmQuerna.h"
#include "platform/applicationFolder.h"
#include "platform/errorTraps.h"
#include "platform/process.h"
#include "platform/replaceFile.h"
#include "platform/textForms.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

const QString openFilter = u"All Files (*.*)|*.*"_s;
const QString saveFilter = u"All Files (*.*)|*.*|Package Body (*.bod)|*.bod|"
                           "Package Spec (*.spc)|*.spc|SQL File (*.sql)|*.sql"_s;

/// Pages of the user group.
const QString userGroupJoinPage = u"https://orbek-users.example/join"_s;
const QString userGroupMessagesPage = u"https://orbek-users.example/messages"_s;

using Handler = void (FrameCommands::*)();

struct MenuItem
{
    QLatin1StringView name;
    QLatin1StringView caption; ///< empty for a separator
    QLatin1StringView shortcut;
    QLatin1StringView icon;
    Handler handler = nullptr;
};

struct Menu
{
    QLatin1StringView name;
    QLatin1StringView caption;
    QList<MenuItem> items;
};

QList<Menu> frameMenus()
{
    using F = FrameCommands;
    return {
        {"mnuFile"_L1,
         "&File"_L1,
         {
             {"mnuOrbekSqlEditor"_L1, "New Window"_L1, "Ctrl+N"_L1, "new-window"_L1,
              &F::mnuOrbekSqlEditor_Click},
             {"mnuOpen"_L1, "&Open"_L1, "Ctrl+O"_L1, "open"_L1, &F::mnuOpen_Click},
             {"mnuSave"_L1, "&Save"_L1, "Ctrl+S"_L1, "save"_L1, &F::mnuSave_Click},
             {"mnuPrint"_L1, "&Print"_L1, "Ctrl+P"_L1, "print"_L1, &F::mnuPrint_Click},
             {"mnuSep1"_L1, {}, {}, {}},
             {"mnuExit"_L1, "&Exit"_L1, "Ctrl+W"_L1, "exit"_L1, &F::mnuExit_Click},
         }},
        {"mnuEdit"_L1,
         "&Edit"_L1,
         {
             {"mnuUndo"_L1, "Undo"_L1, "Ctrl+Z"_L1, "undo"_L1, &F::mnuUndo_Click},
             {"mnuRedo"_L1, "Redo"_L1, "Ctrl+Y"_L1, "redo"_L1, &F::mnuRedo_Click},
             {"mnuCut"_L1, "Cut"_L1, {}, "cut"_L1, &F::mnuCut_Click},
             {"mnuCopy"_L1, "Copy"_L1, "Ctrl+C"_L1, "copy"_L1, &F::mnuCopy_Click},
             {"mnuPaste"_L1, "Paste"_L1, {}, "paste"_L1, &F::mnuPaste_Click},
             {"mnuSep2"_L1, {}, {}, {}},
             {"mnuSelectAll"_L1, "Select All"_L1, "Ctrl+A"_L1, {}, &F::mnuSelectAll_Click},
             {"mnuDelete"_L1, "Delete"_L1, {}, "delete"_L1, &F::mnuDelete_Click},
             {"mnuFind"_L1, "Find"_L1, "Ctrl+F"_L1, "find"_L1, &F::mnuFind_Click},
             {"mnuReplace"_L1, "Replace"_L1, "Ctrl+H"_L1, "replace"_L1, &F::mnuReplace_Click},
         }},
        {"mnuConnection"_L1,
         "&Connection"_L1,
         {{"mnuChangeConnection"_L1,
           "Change Connection"_L1,
           {},
           "connection"_L1,
           &F::mnuChangeConnection_Click}}},
        {"mnuorbekusergroup"_L1,
         "Orbek User Group"_L1,
         {
             {"mnuJoinOrbekUserGroup"_L1,
              "Join"_L1,
              {},
              "join"_L1,
              &F::mnuJoinOrbekUserGroup_Click},
             {"mnuMessageOrbekUserGroup"_L1,
              "Messages"_L1,
              {},
              "messages"_L1,
              &F::mnuMessageOrbekUserGroup_Click},
         }},
    };
}

void addItem(QMenu &menu, const MenuItem &item, FrameCommands &commands)
{
    QAction *action = item.caption.isEmpty() ? menu.addSeparator() : menu.addAction(item.caption);
    action->setObjectName(item.name);
    if (!item.shortcut.isEmpty())
        action->setShortcut(QKeySequence(item.shortcut));
    if (!item.icon.isEmpty())
        action->setIcon(themedIcon(item.icon));
    if (item.handler != nullptr)
        QObject::connect(action, &QAction::triggered, &menu,
                         [&commands, handler = item.handler] { (commands.*handler)(); });
}

} // namespace

void FrameCommands::addMenus(QMenuBar &menuBar)
{
    for (const Menu &entry : frameMenus()) {
        QMenu *menu = menuBar.addMenu(entry.caption);
        menu->setObjectName(entry.name);
        menu->menuAction()->setObjectName(entry.name + u"Action"_s);
        for (const MenuItem &item : entry.items)
            addItem(*menu, item, *this);
    }
}

void FrameCommands::mnuOrbekSqlEditor_Click()
{
    reportErrors([] {
        startProgram(applicationFile(QStringLiteral(QUERNA_PROGRAM)), {gConnectString},
                     StartWindow::Maximized);
    });
}

void FrameCommands::mnuOpen_Click()
{
    endOnError([this] {
        if (frmQuerna *window = m_frame.activeEditor())
            openFile(*window->txtSQL(), *window);
    });
}

void FrameCommands::openFile(EditorControl &editor, frmQuerna &window)
{
    CommonDialog dialog(&window);
    dialog.Filter = openFilter;
    dialog.FileName = window.fileName();
    dialog.ShowOpen();
    if (trimBlanks(dialog.FileName).isEmpty())
        return;
    editor.LoadFile(dialog.FileName);
    window.setFileName(dialog.FileName);
}

void FrameCommands::openDropped(frmQuerna &window, const QString &path)
{
    reportErrors([&] {
        window.txtSQL()->LoadFile(path);
        window.setFileName(path);
    });
    window.window()->activateWindow();
    window.txtSQL()->setFocus();
}

void FrameCommands::mnuSave_Click()
{
    reportErrors([this] {
        if (frmQuerna *window = m_frame.activeEditor())
            saveFile(*window->txtSQL(), *window);
    });
}

void FrameCommands::saveFile(const EditorControl &editor, frmQuerna &window)
{
    CommonDialog dialog(&window);
    dialog.DialogTitle = u"Save As"_s;
    dialog.CancelError = true;
    dialog.Filter = saveFilter;
    dialog.FileName = window.fileName();
    dialog.ShowSave();
    if (dialog.FileName.isEmpty())
        return;
    if (QFileInfo::exists(dialog.FileName) &&
        !confirmed(u"File Exists - Do you want to overwrite the file?"_s))
        return;
    const QString text = editor.GetText() + u"\r\n"_s;
    replaceFile(dialog.FileName, text.toUtf8());
    window.setFileName(dialog.FileName);
}

void FrameCommands::mnuPrint_Click()
{
    ignoreErrors([this] {
        if (frmQuerna *window = m_frame.activeEditor())
            window->txtSQL()->PageSetupDialog();
    });
}

void FrameCommands::mnuExit_Click()
{
    endProgram();
}

void FrameCommands::executeOnEditor(int command)
{
    endOnError([&] {
        frmQuerna *window = m_frame.activeEditor();
        if (window == nullptr)
            throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
        window->txtSQL()->ExecuteCommand(command);
    });
}

void FrameCommands::mnuUndo_Click()
{
    executeOnEditor(EditorControl::CommandUndo);
}

void FrameCommands::mnuRedo_Click()
{
    executeOnEditor(EditorControl::CommandRedo);
}

void FrameCommands::mnuCut_Click()
{
    endOnError([] {
        const QString text = selText(QApplication::focusWidget());
        const EditorControl *editor = focusedEditor();
        if (text.isEmpty() || (editor != nullptr && editor->ReadOnly()))
            return;
        copyToClipboard(text);
        setSelText(QApplication::focusWidget(), {});
    });
}

void FrameCommands::mnuCopy_Click()
{
    endOnError([] {
        const QString text = selText(QApplication::focusWidget());
        if (text.isEmpty())
            return;
        QApplication::clipboard()->clear();
        copyToClipboard(text);
    });
}

void FrameCommands::mnuPaste_Click()
{
    endOnError([] { setSelText(QApplication::focusWidget(), QApplication::clipboard()->text()); });
}

void FrameCommands::mnuSelectAll_Click()
{
    // The item stands in the menu for its place and its key; selecting is left to the controls.
}

void FrameCommands::mnuDelete_Click()
{
    endOnError([] {
        EditorControl *editor = focusedEditor();
        if (editor != nullptr && !editor->ReadOnly())
            editor->InsertText({});
    });
}

void FrameCommands::mnuFind_Click()
{
    endOnError([] {
        if (EditorControl *editor = focusedEditor())
            editor->FindDialog();
    });
}

void FrameCommands::mnuReplace_Click()
{
    endOnError([] {
        if (EditorControl *editor = focusedEditor())
            editor->ReplaceDialog();
    });
}

void FrameCommands::mnuChangeConnection_Click()
{
    endOnError([this] { m_frame.showLogin(); });
}

void FrameCommands::mnuJoinOrbekUserGroup_Click()
{
    reportErrors([] { openPage(userGroupJoinPage); });
}

void FrameCommands::mnuMessageOrbekUserGroup_Click()
{
    reportErrors([] { openPage(userGroupMessagesPage); });
}

void FrameCommands::mnuFont_Click()
{
    frmQuerna *window = m_frame.activeEditor();
    if (window == nullptr)
        return;
    EditorControl *editor = window->txtSQL();
    CommonDialog dialog(window);
    dialog.CancelError = true;
    dialog.DialogTitle = u"Choose a font"_s;
    dialog.Font = editor->Font();
    if (!ignoreErrors([&] { dialog.ShowFont(); }))
        return;
    ignoreErrors([&] { editor->setFontName(dialog.Font.family()); });
    ignoreErrors([&] { editor->setSelFontSize(dialog.Font.pointSizeF()); });
    ignoreErrors([&] { editor->setSelBold(dialog.Font.bold()); });
    ignoreErrors([&] { editor->setSelItalic(dialog.Font.italic()); });
    if (dialog.Color.isValid())
        ignoreErrors([&] { editor->setSelColor(dialog.Color); });
    ignoreErrors([&] { editor->setSelUnderline(dialog.Font.underline()); });
    ignoreErrors([&] { editor->setSelStrikeThru(dialog.Font.strikeOut()); });
}
