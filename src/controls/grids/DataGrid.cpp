#include "controls/grids/DataGrid.h"

#include "controls/forms/selText.h"
#include "controls/grids/CellViewer.h"
#include "controls/grids/GridMenu.h"
#include "controls/grids/GridOrder.h"
#include "controls/grids/GridSearch.h"
#include "controls/grids/RecordsetModel.h"
#include "controls/grids/gridLook.h"
#include "platform/errorTraps.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int rowsMeasuredForWidth = 50;
constexpr int narrowestColumn = 40;
constexpr int widestColumn = 360;
constexpr int rowMargins = 4;

} // namespace

DataGrid::DataGrid(QWidget *parent)
    : QTableView(parent)
    , m_model(new RecordsetModel(this))
{
    setAccessibleName(tr("Result rows"));
    setHorizontalHeader(new ColumnHeader(this));
    setVerticalHeader(new RowNumberHeader(this));
    setItemDelegate(new OneLineDelegate(this));
    setModel(m_model);
    // The view would lay itself out anew and paint everything for every batch of rows.
    disconnect(verticalHeader(), &QHeaderView::sectionCountChanged, this, nullptr);

    setWordWrap(false);

    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    applyGridLook(this);
    fitRowHeight();
    m_order = new GridOrder(*this);
    m_search = new GridSearch(*this);
    m_menu = new GridMenu(*this);
    connect(this, &QTableView::doubleClicked, this, &DataGrid::viewCell);
}

DataGrid::~DataGrid()
{
    delete m_search; // it is the parent's child, above the grid
}

void DataGrid::setDataSource(const std::shared_ptr<Recordset> &source)
{
    keepColumnWidths();
    m_widthsFitted = false;
    m_model->setRecordset(source);
    fitColumnWidths();
}

std::shared_ptr<Recordset> DataGrid::dataSource() const
{
    return m_model->recordset();
}

void DataGrid::showAddedRows()
{
    const int rowsBefore = m_model->rowCount();
    // QWidget::setUpdatesEnabled() would have it painted afterwards.
    QWidget *const numbers = verticalHeader()->viewport();
    const bool isPainted = !numbers->testAttribute(Qt::WA_UpdatesDisabled);
    numbers->setAttribute(Qt::WA_UpdatesDisabled);
    const bool isOtherTable = m_model->update();
    numbers->setAttribute(Qt::WA_UpdatesDisabled, !isPainted);
    if (isOtherTable)
        m_widthsFitted = false;
    fitColumnWidths();
    updateGeometries();
    const int rowsInView = viewport()->height() / verticalHeader()->defaultSectionSize() + 1;
    if (rowsBefore >= verticalScrollBar()->value() + rowsInView)
        return;
    viewport()->update();
    numbers->update();
}

QString DataGrid::SelText() const
{
    const std::shared_ptr<Recordset> source = m_model->recordset();
    if (!source || source->State() != adStateOpen)
        return {};
    return selectionText(selectionModel()->selection(), [this, &source](int row, int first,
                                                                        int last, QString &text) {
        source->appendRowText(m_model->recordsetRow(row), first, last, u'\t', text);
    });
}

std::vector<int> DataGrid::selectedRecords() const
{
    std::vector<int> rows = selectedRows(selectionModel()->selection());
    for (int &row : rows)
        row = m_model->recordsetRow(row);
    return rows;
}

void DataGrid::viewCell(const QModelIndex &cell)
{
    reportErrors([&] {
        const std::shared_ptr<Recordset> source = dataSource();
        if (!cell.isValid() || !source || source->State() != adStateOpen)
            return;
        const Value value = source->valueAt(m_model->recordsetRow(cell.row()), cell.column());
        if (!m_viewer)
            m_viewer = new CellViewer(this);
        m_viewer->showValue(
            tr("%1, row %2").arg(source->fieldName(cell.column())).arg(cell.row() + 1), value);
    });
}

bool DataGrid::event(QEvent *event)
{
    // The frame's menu has this key for the editor.
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent *>(event)->matches(QKeySequence::Find))
        event->accept();
    return QTableView::event(event);
}

void DataGrid::keyPressEvent(QKeyEvent *event)
{
    if (!copyOnKey(*event, [this] { return SelText(); }) && !m_menu->takeKey(*event) &&
        !m_search->takeKey(*event))
        QTableView::keyPressEvent(event);
}

void DataGrid::contextMenuEvent(QContextMenuEvent *event)
{
    m_menu->popup(event->globalPos());
}

void DataGrid::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitRowHeight();
}

void DataGrid::fitRowHeight()
{
    const int height = fontMetrics().height() + rowMargins;
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
}

QStringList DataGrid::columnNames() const
{
    QStringList names;
    for (int column = 0; column < m_model->columnCount(); ++column)
        names.append(m_model->headerData(column, Qt::Horizontal).toString());
    return names;
}

void DataGrid::keepColumnWidths()
{
    if (!m_widthsFitted)
        return;
    m_knownWidths.clear();
    for (int column = 0; column < m_model->columnCount(); ++column)
        m_knownWidths.append(columnWidth(column));
}

/// Fits the columns once to their names and first rows; what the user changes stays, also for the
/// next result of the same columns.
void DataGrid::fitColumnWidths()
{
    if (m_widthsFitted || m_model->columnCount() == 0)
        return;
    const QStringList names = columnNames();
    if (names == m_knownNames && names.size() == m_knownWidths.size()) {
        for (int column = 0; column < names.size(); ++column)
            setColumnWidth(column, m_knownWidths[column]);
        m_widthsFitted = true;
        return;
    }
    const int rows = std::min(m_model->rowCount(), rowsMeasuredForWidth);
    for (int column = 0; column < m_model->columnCount(); ++column)
        setColumnWidth(column, fittingWidth(column, rows));
    m_widthsFitted = rows > 0;
    m_knownNames = names;
    m_knownWidths.clear();
}

int DataGrid::fittingWidth(int column, int rows) const
{
    const auto *delegate = static_cast<const OneLineDelegate *>(itemDelegate());
    const QString name = m_model->headerData(column, Qt::Horizontal).toString();
    int width = static_cast<const ColumnHeader *>(horizontalHeader())->widthFor(name);
    for (int row = 0; row < rows && width < widestColumn; ++row) {
        const QString text = delegate->displayText(m_model->index(row, column).data(), locale());
        width = std::max(width, fontMetrics().horizontalAdvance(text));
    }
    return std::clamp(width + 2 * OneLineDelegate::sideMargin + 2, narrowestColumn, widestColumn);
}
