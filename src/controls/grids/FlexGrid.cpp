#include "controls/grids/FlexGrid.h"

#include "controls/forms/formControls.h"
#include "controls/forms/measures.h"
#include "controls/forms/selText.h"
#include "controls/grids/RecordsetModel.h"
#include "controls/grids/gridLook.h"
#include "platform/RuntimeError.h"

#include <QHeaderView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Whole texts at the top left of their cells, with nothing beside the rows.
class WholeTexts : public RecordsetModel
{
public:
    using RecordsetModel::RecordsetModel;

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::TextAlignmentRole)
            return QVariant::fromValue(Qt::AlignLeft | Qt::AlignTop);
        return RecordsetModel::data(index, role);
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        const bool isName = orientation == Qt::Horizontal && role == Qt::DisplayRole;
        return isName ? RecordsetModel::headerData(section, orientation, role) : QVariant();
    }

protected:
    QString cellText(int row, int column) const override
    {
        const Recordset &records = *recordset();
        return records.isNullAt(row, column) ? u"NULL"_s : records.textAt(row, column);
    }
};

} // namespace

FlexGrid::FlexGrid(QWidget *parent)
    : QTableView(parent)
    , m_model(new WholeTexts(this))
{
    setHorizontalHeader(new ColumnHeader(this));
    setModel(m_model);
    setAccessibleName(tr("Statements"));
    setSelectionBehavior(SelectRows);
    setVerticalScrollMode(ScrollPerPixel);
    for (QHeaderView *header : {horizontalHeader(), verticalHeader()}) {
        header->setHighlightSections(false);
        header->setMinimumSectionSize(1);
    }
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    applyGridLook(this);
    connect(this, &QTableView::doubleClicked, this, &FlexGrid::pickRow);
}

void FlexGrid::setRecordset(const std::shared_ptr<Recordset> &recordset)
{
    m_model->setRecordset(recordset);
}

int FlexGrid::Rows() const
{
    return m_model->rowCount() + 1;
}

int FlexGrid::Cols() const
{
    return m_model->columnCount() + 1;
}

void FlexGrid::checkCell(int row, int column) const
{
    if (row < 0 || row >= Rows() || column < 0 || column >= Cols())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
}

void FlexGrid::setColWidth(int column, int twips)
{
    checkCell(0, column);
    const int pixels = pixelsFromTwips(twips);
    if (column == 0)
        verticalHeader()->setFixedWidth(pixels);
    else
        setColumnWidth(column - 1, pixels);
}

void FlexGrid::setRowHeight(int twips)
{
    verticalHeader()->setDefaultSectionSize(pixelsFromTwips(twips));
}

QString FlexGrid::TextMatrix(int row, int column) const
{
    checkCell(row, column);
    if (column == 0)
        return {};
    return row == 0 ? m_model->headerData(column - 1, Qt::Horizontal).toString()
                    : m_model->index(row - 1, column - 1).data().toString();
}

int FlexGrid::RowSel() const
{
    int last = -1;
    for (const QItemSelectionRange &range : selectionModel()->selection())
        last = std::max(last, range.bottom());
    return last + 1;
}

QString FlexGrid::SelText() const
{
    return selectionText(selectionModel()->selection(),
                         [this](int row, int first, int last, QString &text) {
                             for (int column = first; column <= last; ++column) {
                                 if (column > first)
                                     text += u'\t';
                                 text += TextMatrix(row + 1, column + 1);
                             }
                         });
}

/// A click with Ctrl held takes a row out of the selection, which may leave none to pick.
void FlexGrid::pickRow()
{
    if (RowSel() > 0)
        emit rowPicked(RowSel());
}

void FlexGrid::keyPressEvent(QKeyEvent *event)
{
    if (copyOnKey(*event, [this] { return SelText(); }))
        return;
    if (isEnterPress(*event))
        pickRow();
    else
        QTableView::keyPressEvent(event);
}
