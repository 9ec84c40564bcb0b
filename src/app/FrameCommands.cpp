#include "app/FrameCommands.h"

#include "app/MDIFormQuerna.h"
#include "connection/session.h"
#include "controls/editor/EditorControl.h"
#include "controls/forms/CommonDialog.h"
#include "controls/forms/icons.h"
#include "controls/forms/selText.h"
#include "editor/frmQuerna.h"
#include "platform/errorTraps.h"
#include "platform/files.h"
#include "platform/process.h"
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
    const char *name;
    const char *caption = nullptr; ///< none for a separator
    const char *shortcut = nullptr;
    const char *icon = nullptr;
    Handler handler = nullptr;
};

struct Menu
{
    const char *name;
    const char *caption;
    QList<MenuItem> items;
};

QList<Menu> frameMenus()
{
    using F = FrameCommands;
    return {
        {"mnuFile",
         "&File",
         {
             {"mnuOrbekSqlEditor", "New Window", "Ctrl+N", "new-window",
              &F::mnuOrbekSqlEditor_Click},
             {"mnuOpen", "&Open", "Ctrl+O", "open", &F::mnuOpen_Click},
             {"mnuSave", "&Save", "Ctrl+S", "save", &F::mnuSave_Click},
             {"mnuPrint", "&Print", "Ctrl+P", "print", &F::mnuPrint_Click},
             {"mnuSep1"},
             {"mnuExit", "&Exit", "Ctrl+W", "exit", &F::mnuExit_Click},
         }},
        {"mnuEdit",
         "&Edit",
         {
             {"mnuUndo", "Undo", "Ctrl+Z", "undo", &F::mnuUndo_Click},
             {"mnuRedo", "Redo", "Ctrl+Y", "redo", &F::mnuRedo_Click},
             {"mnuCut", "Cut", nullptr, "cut", &F::mnuCut_Click},
             {"mnuCopy", "Copy", "Ctrl+C", "copy", &F::mnuCopy_Click},
             {"mnuPaste", "Paste", nullptr, "paste", &F::mnuPaste_Click},
             {"mnuSep2"},
             {"mnuSelectAll", "Select All", "Ctrl+A", nullptr, &F::mnuSelectAll_Click},
             {"mnuDelete", "Delete", nullptr, "delete", &F::mnuDelete_Click},
             {"mnuFind", "Find", "Ctrl+F", "find", &F::mnuFind_Click},
             {"mnuReplace", "Replace", "Ctrl+H", "replace", &F::mnuReplace_Click},
         }},
        {"mnuConnection",
         "&Connection",
         {{"mnuChangeConnection", "Change Connection", nullptr, "connection",
           &F::mnuChangeConnection_Click}}},
        {"mnuorbekusergroup",
         "Orbek User Group",
         {
             {"mnuJoinOrbekUserGroup", "Join", nullptr, "join", &F::mnuJoinOrbekUserGroup_Click},
             {"mnuMessageOrbekUserGroup", "Messages", nullptr, "messages",
              &F::mnuMessageOrbekUserGroup_Click},
         }},
    };
}

void addItem(QMenu &menu, const MenuItem &item, FrameCommands &commands)
{
    QAction *action = menu.addAction(QString::fromLatin1(item.caption));
    action->setSeparator(item.caption == nullptr);
    action->setObjectName(QString::fromLatin1(item.name));
    action->setShortcut(QKeySequence(QString::fromLatin1(item.shortcut)));
    action->setIcon(themedIcon(QString::fromLatin1(item.icon)));
    if (item.handler != nullptr)
        QObject::connect(action, &QAction::triggered, &menu,
                         [&commands, handler = item.handler] { (commands.*handler)(); });
}

} // namespace

void FrameCommands::addMenus(QMenuBar &menuBar)
{
    for (const Menu &entry : frameMenus()) {
        QMenu *menu = menuBar.addMenu(QString::fromLatin1(entry.caption));
        menu->setObjectName(QString::fromLatin1(entry.name));
        menu->menuAction()->setObjectName(menu->objectName() + u"Action"_s);
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
