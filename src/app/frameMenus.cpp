#include "app/frameMenus.h"

#include "app/FrameCommands.h"
#include "controls/icons.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

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

void createFrameMenus(QMenuBar &menuBar, FrameCommands &commands)
{
    for (const Menu &entry : frameMenus()) {
        QMenu *menu = menuBar.addMenu(entry.caption);
        menu->setObjectName(entry.name);
        menu->menuAction()->setObjectName(entry.name + u"Action"_s);
        for (const MenuItem &item : entry.items)
            addItem(*menu, item, commands);
    }
}
