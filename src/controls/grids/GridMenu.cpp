#include "controls/grids/GridMenu.h"

#include "controls/forms/WaitingLoop.h"
#include "controls/forms/selText.h"
#include "controls/grids/DataGrid.h"
#include "controls/grids/GridOrder.h"
#include "controls/grids/GridSearch.h"
#include "controls/grids/RecordsetModel.h"
#include "export/exportFormats.h"
#include "platform/errorTraps.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {

/// The result does not know the tables that it came from. The statement is not to run as it is.
const QString placeOfTableName = u"TABLE_NAME"_s;

} // namespace

GridMenu::GridMenu(DataGrid &grid)
    : QMenu(&grid)
    , m_grid(grid)
{
    setObjectName(u"mnuGrid"_s);
    setAccessibleName(tr("Result rows"));
    add(u"mnuGridCopy"_s, u"&Copy"_s, QKeySequence::Copy, Selection,
        [this] { copyToClipboard(m_grid.SelText()); });
    add(u"mnuGridCopyWithNames"_s, u"Copy with Column &Names"_s, Qt::CTRL | Qt::SHIFT | Qt::Key_C,
        Selection, [this] { copyWithNames(); });
    add(u"mnuGridCopyInsert"_s, u"Copy as &INSERT"_s, {}, Selection, [this] { copyAsInsert(); });
    add(u"mnuGridCopyList"_s, u"Copy as &List for IN (…)"_s, {}, Selection,
        [this] { copyAsList(); });
    addSeparator();
    add(u"mnuGridView"_s, u"&View"_s, Qt::Key_Return, CurrentCell,
        [this] { m_grid.viewCell(m_grid.currentIndex()); });
    add(u"mnuGridFind"_s, u"&Find…"_s, QKeySequence::Find, Rows,
        [this] { m_grid.search().showBar(); });
    add(u"mnuGridOrder"_s, u"&Order by This Column"_s, {}, CurrentCell,
        [this] { m_grid.rowOrder().advance(m_grid.currentIndex().column()); });
    connect(this, &QMenu::aboutToShow, this, &GridMenu::enableItems);
}

/// The keys are shown behind the texts and not the actions' own: as such they would stand against
/// those of the frame's menu, which mean the editor.
void GridMenu::add(const QString &name, const QString &text, const QKeySequence &key, Needs needs,
                   const std::function<void()> &command)
{
    QAction *action =
        addAction(key.isEmpty() ? text : text + u'\t' + key.toString(QKeySequence::NativeText));
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, [command] {
        reportErrors([&] {
            const HourglassPointer hourglass;
            command();
        });
    });
    m_items.append({action, key, needs});
}

void GridMenu::enableItems()
{
    for (const Item &item : std::as_const(m_items)) {
        item.action->setEnabled(item.needs == Selection ? m_grid.selectionModel()->hasSelection()
                                : item.needs == CurrentCell ? m_grid.currentIndex().isValid()
                                                            : m_grid.model()->rowCount() > 0);
    }
}

bool GridMenu::takeKey(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const int key = event.key() == Qt::Key_Enter ? int{Qt::Key_Return} : event.key();
    const QKeySequence pressed(static_cast<int>(modifiers) | key);
    for (const Item &item : std::as_const(m_items)) {
        if (item.key.isEmpty() || item.key != pressed)
            continue;
        enableItems();
        item.action->trigger();
        return true;
    }
    return false;
}

void GridMenu::copyWithNames()
{
    QStringList names;
    for (const int column : selectedColumns(m_grid.selectionModel()->selection()))
        names.append(m_grid.dataSource()->fieldName(column));
    copyToClipboard(names.join(u'\t') + "\r\n"_L1 + m_grid.SelText());
}

void GridMenu::copyAsInsert()
{
    copyToClipboard(insertStatements(*m_grid.dataSource(), m_grid.selectedRecords(),
                                     selectedColumns(m_grid.selectionModel()->selection()),
                                     placeOfTableName));
}

void GridMenu::copyAsList()
{
    copyToClipboard(valueList(*m_grid.dataSource(), m_grid.selectedRecords(),
                              selectedColumns(m_grid.selectionModel()->selection())));
}
