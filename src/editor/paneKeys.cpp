#include "editor/paneKeys.h"

#include "controls/ColumnTree.h"
#include "controls/DataGrid.h"
#include "controls/EditorControl.h"
#include "editor/WindowControls.h"

#include <QPlainTextEdit>
#include <QShortcut>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

QWidget *visiblePane(const WindowControls &controls)
{
    switch (controls.visibleTab()) {
    case ResultTab::ExplainPlan:
        return controls.tvwColumns;
    case ResultTab::DbmsOutput:
        return controls.rtbdbms;
    case ResultTab::Data:
        break;
    }
    return controls.SqlDataGrid;
}

} // namespace

void addPaneKeys(QWidget &window, const WindowControls &controls)
{
    QTabWidget *tabs = controls.tbSql;
    for (int index = 0; index < tabs->count(); ++index) {
        const QKeySequence key(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + index));
        tabs->setTabToolTip(
            index, u"%1 (%2)"_s.arg(tabs->tabText(index), key.toString(QKeySequence::NativeText)));
        QObject::connect(new QShortcut(key, &window), &QShortcut::activated, tabs,
                         [tabs, index] { tabs->setCurrentIndex(index); });
    }
    QObject::connect(
        new QShortcut(Qt::Key_F4, &window), &QShortcut::activated, &window, [controls] {
            QWidget *target = controls.txtSQL->hasFocus() ? visiblePane(controls)
                                                          : static_cast<QWidget *>(controls.txtSQL);
            target->setFocus(Qt::ShortcutFocusReason);
        });
}
