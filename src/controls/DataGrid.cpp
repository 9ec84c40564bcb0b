#include "controls/DataGrid.h"

#include "controls/FramePacer.h"
#include "controls/OneLineDelegate.h"
#include "controls/RecordsetModel.h"
#include "controls/RowNumberHeader.h"
#include "controls/selectionText.h"
#include "controls/theme.h"
#include "platform/errorTraps.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace {

constexpr int rowsMeasuredForWidth = 50;
constexpr int narrowestColumn = 40;
constexpr int widestColumn = 360;
constexpr int cellMargins = 14;
constexpr int rowMargins = 4;

} // namespace

DataGrid::DataGrid(QWidget *parent)
    : QTableView(parent)
    , m_model(new RecordsetModel(this))
    , m_pacer(new FramePacer([this] { takeAddedRows(); }, this))
{
    setAccessibleName(tr("Result rows"));
    setVerticalHeader(new RowNumberHeader(this));
    setItemDelegate(new OneLineDelegate(this));
    setModel(m_model);

    setAlternatingRowColors(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ExtendedSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);

    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    QFont headerFont = font();
    headerFont.setBold(true);
    horizontalHeader()->setFont(headerFont);

    applyGridColours(this);
    fitRowHeight();
}

DataGrid::~DataGrid() = default;

void DataGrid::setDataSource(const std::shared_ptr<Recordset> &source)
{
    m_widthsFitted = false;
    m_model->setRecordset(source);
    fitColumnWidths();
}

std::shared_ptr<Recordset> DataGrid::dataSource() const
{
    return m_model->recordset();
}

void DataGrid::rowsAdded()
{
    m_pacer->request();
}

void DataGrid::showAddedRows()
{
    m_pacer->flush();
}

void DataGrid::takeAddedRows()
{
    if (m_model->update())
        m_widthsFitted = false;
    fitColumnWidths();
}

QString DataGrid::SelText() const
{
    const std::shared_ptr<Recordset> source = m_model->recordset();
    if (!source || source->State() != adStateOpen)
        return {};
    return selectionText(selectionModel()->selection(),
                         [&source](int row, int first, int last, QString &text) {
                             source->appendRowText(row, first, last, u'\t', text);
                         });
}

void DataGrid::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy)) {
        reportErrors([this] { copyToClipboard(SelText()); });
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
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

/// Fits the columns once to their names and first rows; what the user changes stays.
void DataGrid::fitColumnWidths()
{
    if (m_widthsFitted || m_model->columnCount() == 0)
        return;
    const int rows = std::min(m_model->rowCount(), rowsMeasuredForWidth);
    for (int column = 0; column < m_model->columnCount(); ++column)
        setColumnWidth(column, fittingWidth(column, rows));
    m_widthsFitted = rows > 0;
}

int DataGrid::fittingWidth(int column, int rows) const
{
    const QString name = m_model->headerData(column, Qt::Horizontal).toString();
    int width = horizontalHeader()->fontMetrics().horizontalAdvance(name);
    for (int row = 0; row < rows && width < widestColumn; ++row) {
        const QString text = m_model->index(row, column).data().toString();
        width = std::max(width, fontMetrics().horizontalAdvance(text));
    }
    return std::clamp(width + cellMargins, narrowestColumn, widestColumn);
}
