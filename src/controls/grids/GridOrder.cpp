#include "controls/grids/GridOrder.h"

#include "controls/forms/WaitingLoop.h"
#include "controls/grids/DataGrid.h"
#include "controls/grids/RecordsetModel.h"
#include "platform/errorTraps.h"

#include <QGuiApplication>
#include <QHeaderView>

GridOrder::GridOrder(DataGrid &grid)
    : QObject(&grid)
    , m_grid(grid)
{
    QHeaderView *header = grid.horizontalHeader();
    header->setSortIndicatorShown(true);
    showInHeader();
    const auto clicked = [this](int column) {
        if (QGuiApplication::keyboardModifiers() & (Qt::ShiftModifier | Qt::ControlModifier))
            showInHeader();
        else
            advance(column);
    };
    connect(header, &QHeaderView::sectionClicked, this, clicked);
    // The second of two fast clicks.
    connect(header, &QHeaderView::sectionDoubleClicked, this, clicked);
    connect(grid.model(), &QAbstractItemModel::modelReset, this, [this] {
        m_column = -1;
        showInHeader();
    });
}

void GridOrder::advance(int column)
{
    if (column == m_column && m_descending)
        order(-1, false);
    else
        order(column, column == m_column);
}

void GridOrder::order(int column, bool descending)
{
    reportErrors([&] {
        const HourglassPointer hourglass;
        const std::shared_ptr<Recordset> rows = m_grid.dataSource();
        if (!rows || rows->State() != adStateOpen || column >= rows->fieldCount())
            return;
        m_grid.recordsetModel().setRowOrder(column < 0 ? std::vector<int>()
                                                       : rows->rowsOrderedBy(column, descending));
        m_column = column;
        m_descending = descending;
        m_grid.scrollToTop();
    });
    showInHeader();
}

/// The header has set its mark itself, by rules of its own, before it tells of a click.
void GridOrder::showInHeader() const
{
    m_grid.horizontalHeader()->setSortIndicator(m_column, m_descending ? Qt::DescendingOrder
                                                                       : Qt::AscendingOrder);
}
