#include "controls/FlexGrid.h"

#include "controls/ColumnHeader.h"
#include "controls/FlexGridModel.h"
#include "controls/enterKey.h"
#include "controls/gridLook.h"
#include "controls/selectionText.h"
#include "controls/twips.h"
#include "platform/RuntimeError.h"

#include <QHeaderView>

#include <algorithm>

namespace {

/// Resizing a section of a header that shows itself at once costs time in proportion to all of its
/// sections.
void resizeQuietly(QHeaderView *header, int section, int pixels)
{
    header->setUpdatesEnabled(false);
    header->resizeSection(section, pixels);
    header->setUpdatesEnabled(true);
}

} // namespace

FlexGrid::FlexGrid(QWidget *parent)
    : QTableView(parent)
    , m_model(new FlexGridModel(this))
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

void FlexGrid::Clear()
{
    m_model->resize(1, 1);
    m_model->setText(0, 0, {});
}

int FlexGrid::Rows() const
{
    return m_model->rows();
}

void FlexGrid::setRows(int rows)
{
    if (rows < 1)
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    m_model->resize(rows, m_model->columns());
}

int FlexGrid::Cols() const
{
    return m_model->columns();
}

void FlexGrid::setCols(int columns)
{
    if (columns < 1)
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    m_model->resize(m_model->rows(), columns);
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
        resizeQuietly(horizontalHeader(), column - 1, pixels);
}

void FlexGrid::setRowHeight(int row, int twips)
{
    checkCell(row, 0);
    const int pixels = pixelsFromTwips(twips);
    if (row == 0)
        horizontalHeader()->setFixedHeight(pixels);
    else
        resizeQuietly(verticalHeader(), row - 1, pixels);
}

void FlexGrid::setTextMatrix(int row, int column, const QString &text)
{
    checkCell(row, column);
    m_model->setText(row, column, text);
}

QString FlexGrid::TextMatrix(int row, int column) const
{
    checkCell(row, column);
    return m_model->text(row, column);
}

void FlexGrid::setRedraw(bool on)
{
    setUpdatesEnabled(on);
    m_model->setTellsChanges(on);
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
