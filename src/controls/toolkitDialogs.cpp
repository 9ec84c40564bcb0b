#include "controls/toolkitDialogs.h"

#include "controls/accessKey.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QTabWidget>

namespace {

QString accessibleName(QWidget &widget)
{
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

/// A label at the top of a column, such as "Size", is for all that stands below it.
void nameColumns(QGridLayout &grid)
{
    for (int column = 0; column < grid.columnCount(); ++column) {
        const QLayoutItem *const head = grid.itemAtPosition(0, column);
        const auto *label = head != nullptr ? qobject_cast<QLabel *>(head->widget()) : nullptr;
        for (int row = 1; label != nullptr && row < grid.rowCount(); ++row) {
            const QLayoutItem *const item = grid.itemAtPosition(row, column);
            QWidget *const part = item != nullptr ? item->widget() : nullptr;
            if (part != nullptr && accessibleName(*part).isEmpty())
                part->setAccessibleName(withoutMnemonic(label->text()));
        }
    }
}

} // namespace

void nameParts(QDialog &dialog)
{
    for (QComboBox *combo : dialog.findChildren<QComboBox *>())
        combo->view()->setAccessibleName(accessibleName(*combo));
    for (QTabWidget *pages : dialog.findChildren<QTabWidget *>())
        pages->setAccessibleName(dialog.windowTitle());
    for (QGridLayout *grid : dialog.findChildren<QGridLayout *>())
        nameColumns(*grid);
}
