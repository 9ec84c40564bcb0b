#include "history/frmSQLHistory.h"

#include "controls/forms/formControls.h"
#include "controls/forms/measures.h"
#include "controls/grids/FlexGrid.h"
#include "controls/grids/gridLook.h"
#include "history/historyFile.h"
#include "platform/errorTraps.h"
#include "platform/numberForms.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// Sizes in twips: the fixed column, the statement and the time; any grid's columns and rows.
constexpr std::array columnWidths{300, 7000, 1000};
constexpr int plainColumnWidth = 1500;
constexpr int rowHeight = 1000;

constexpr int timeColumn = 2;

constexpr int initialHeight = 480; // in pixels

/// Paints cells whose longest word does not fit the column in smaller letters, so that it is not
/// cut.
class FittingDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const int margin = option->widget->style()->pixelMetric(QStyle::PM_FocusFrameHMargin,
                                                                option, option->widget) +
                           1;
        option->font = fittingFont(option->font, option->text, option->rect.width() - 2 * margin);
        option->fontMetrics = QFontMetrics(option->font);
    }
};

/// The header of the narrow time column is to be read as a whole, however large the letters are.
void fitHeader(FlexGrid &grid)
{
    QHeaderView *header = grid.horizontalHeader();
    const int margins = 2 * OneLineDelegate::sideMargin;
    header->setFont(fittingFont(header->font(), grid.TextMatrix(0, timeColumn),
                                header->sectionSize(timeColumn - 1) - margins));
}

/// The width at which all columns can be seen beside a scroll bar.
int widthOfAllColumns(const FlexGrid &grid)
{
    int width = 2 * grid.frameWidth() + grid.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    for (const int twips : columnWidths)
        width += pixelsFromTwips(twips);
    return width;
}

} // namespace

frmSQLHistory::frmSQLHistory(QWidget *parent)
    : FormDialog(u"frmSQLHistory"_s, u"SQL History"_s, parent)
    , txtFilter(named(new QLineEdit(this), u"txtFilter"_s))
    , msfgSQL(named(new FlexGrid(this), u"msfgSQL"_s))
    , txtStatement(named(new QPlainTextEdit(this), u"txtStatement"_s))
{
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
    msfgSQL->setItemDelegateForColumn(timeColumn - 1, new FittingDelegate(msfgSQL));
    txtFilter->setPlaceholderText(tr("Filter"));
    txtFilter->setAccessibleName(tr("Filter"));
    txtFilter->setClearButtonEnabled(true);
    txtStatement->setAccessibleName(tr("Whole statement"));
    txtStatement->setReadOnly(true);
    txtStatement->setTabChangesFocus(true);
    txtStatement->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtStatement->setFont(fixedWidthFont());
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(txtFilter);
    layout->addWidget(msfgSQL, 3);
    layout->addWidget(txtStatement, 1);
    const QMargins margins = layout->contentsMargins();
    resize(widthOfAllColumns(*msfgSQL) + margins.left() + margins.right(), initialHeight);
    connect(msfgSQL, &FlexGrid::rowPicked, this, &frmSQLHistory::msfgSQL_DblClick);
    connect(msfgSQL, &FlexGrid::typed, this, [this](const QString &text) {
        txtFilter->setFocus();
        txtFilter->insert(text);
    });
    connect(msfgSQL->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &frmSQLHistory::showStatement);
    connect(txtFilter, &QLineEdit::textChanged, this, &frmSQLHistory::showRecords);
    connect(txtFilter, &QLineEdit::returnPressed, msfgSQL, qOverload<>(&QWidget::setFocus));
}

void frmSQLHistory::setTxt(EditorControl *ctl, QWidget *frm)
{
    m_target = EditorTarget(ctl, frm);
}

/// The dialog opens whatever became of the loading, with what the grid got.
bool frmSQLHistory::Form_Load()
{
    msfgSQL->setRecordset(nullptr);
    m_history = std::make_shared<Recordset>();
    const QSignalBlocker silent(txtFilter);
    txtFilter->clear();
    msfgSQL->setFocus();
    reportErrors([this] {
        loadHistory(historyFileName(), u"App.path"_s, *m_history);
        showRecords();
    });
    showStatement();
    return true;
}

void frmSQLHistory::showRecords()
{
    reportErrors([this] {
        fillGrid(*msfgSQL, historyWith(m_history, txtFilter->text()));
        const int columns = std::min(msfgSQL->Cols(), static_cast<int>(columnWidths.size()));
        for (int column = 0; column < columns; ++column)
            msfgSQL->setColWidth(column, columnWidths[column]);
        if (columns > timeColumn)
            fitHeader(*msfgSQL);
        msfgSQL->selectRow(0); // Enter takes the newest one at once
    });
    showStatement();
}

void frmSQLHistory::showStatement()
{
    const int row = msfgSQL->RowSel();
    txtStatement->setPlainText(row > 0 ? msfgSQL->TextMatrix(row, 1) : QString());
}

void frmSQLHistory::fillGrid(FlexGrid &grid, const std::shared_ptr<Recordset> &recordset)
{
    reportErrors([&] {
        grid.setRecordset(nullptr);
        if (recordset->Eof())
            return;
        checkedCast<qint16>(recordset->RecordCount());
        recordset->MoveFirst();
        grid.setRecordset(recordset);
        grid.setRowHeight(rowHeight);
        for (int column = 1; column < grid.Cols(); ++column)
            grid.setColWidth(column, plainColumnWidth);
    });
}

/// Every step is tried, whatever became of the one before.
void frmSQLHistory::msfgSQL_DblClick()
{
    ignoreErrors(
        [this] { m_target.control().InsertText(msfgSQL->TextMatrix(msfgSQL->RowSel(), 1)); });
    ignoreErrors([this] { m_target.focusWindow(); });
    ignoreErrors([this] { m_target.control().setSelColor(Qt::black); });
}
