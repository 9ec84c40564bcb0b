#include "controls/DataGrid.h"

#include "controls/ColumnHeader.h"
#include "controls/FramePacer.h"
#include "controls/OneLineDelegate.h"
#include "controls/RecordsetModel.h"
#include "controls/RowNumberHeader.h"
#include "controls/gridLook.h"
#include "controls/selectionText.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int rowsMeasuredForWidth = 50;
constexpr int narrowestColumn = 40;
constexpr int widestColumn = 360;
constexpr int rowMargins = 4;

/// Keeps a widget from being painted, and does not have it painted afterwards as
/// QWidget::setUpdatesEnabled() would.
class PaintingSuspended
{
public:
    explicit PaintingSuspended(QWidget *widget)
        : m_widget(widget)
        , m_before(widget->testAttribute(Qt::WA_UpdatesDisabled))
    {
        widget->setAttribute(Qt::WA_UpdatesDisabled);
    }
    ~PaintingSuspended() { m_widget->setAttribute(Qt::WA_UpdatesDisabled, m_before); }
    PaintingSuspended(const PaintingSuspended &) = delete;
    PaintingSuspended &operator=(const PaintingSuspended &) = delete;

private:
    QWidget *m_widget;
    bool m_before;
};

} // namespace

DataGrid::DataGrid(QWidget *parent)
    : QTableView(parent)
    , m_model(new RecordsetModel(this))
    , m_pacer(new FramePacer([this] { takeAddedRows(); }, this))
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
    const int rowsBefore = m_model->rowCount();
    bool otherTable = false;
    {
        const PaintingSuspended quiet(verticalHeader()->viewport());
        otherTable = m_model->update();
    }
    if (otherTable)
        m_widthsFitted = false;
    fitColumnWidths();
    updateGeometries();
    const int rowsInView = viewport()->height() / verticalHeader()->defaultSectionSize() + 1;
    if (rowsBefore >= verticalScrollBar()->value() + rowsInView)
        return;
    viewport()->update();
    verticalHeader()->viewport()->update();
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
    if (!copyOnKey(*event, [this] { return SelText(); }))
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
    const auto *delegate = static_cast<const OneLineDelegate *>(itemDelegate());
    const QString name = m_model->headerData(column, Qt::Horizontal).toString();
    int width = horizontalHeader()->fontMetrics().horizontalAdvance(name);
    for (int row = 0; row < rows && width < widestColumn; ++row) {
        const QString text = delegate->displayText(m_model->index(row, column).data(), locale());
        width = std::max(width, fontMetrics().horizontalAdvance(text));
    }
    return std::clamp(width + 2 * OneLineDelegate::sideMargin + 2, narrowestColumn, widestColumn);
}
