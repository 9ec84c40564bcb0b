#include "controls/grids/ColumnTree.h"

#include "controls/forms/measures.h"
#include "controls/forms/selText.h"
#include "controls/grids/gridLook.h"
#include "platform/RuntimeError.h"

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTreeWidgetItemIterator>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowMargins = 4;

/// Aligns all cells of a column alike.
class AlignedColumn : public QStyledItemDelegate
{
public:
    AlignedColumn(Qt::Alignment alignment, QObject *parent)
        : QStyledItemDelegate(parent)
        , m_alignment(alignment)
    {
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, rowMargins);
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->displayAlignment = m_alignment;
    }

private:
    Qt::Alignment m_alignment;
};

QString lineText(const QTreeWidgetItem &line)
{
    QString text = line.text(0);
    for (int column = 1; column < line.treeWidget()->columnCount(); ++column)
        text += u'\t' + line.text(column);
    return text;
}

} // namespace

ColumnTree::ColumnTree(QWidget *parent)
    : QTreeWidget(parent)
{
    setAccessibleName(tr("Execution plan"));
    setHeader(new ColumnHeader(this));
    setHeaderLabels({QString()});
    setAllColumnsShowFocus(true);
    setUniformRowHeights(true);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(false);
    applyGridLook(this);
}

void ColumnTree::addColumn(const QString &key, const QString &caption, int width,
                           Qt::Alignment alignment)
{
    const int column = columnCount();
    setColumnCount(column + 1);
    m_keys.append(key);
    headerItem()->setText(column, caption);
    headerItem()->setTextAlignment(column, alignment | Qt::AlignVCenter);
    setItemDelegateForColumn(column, new AlignedColumn(alignment | Qt::AlignVCenter, this));
    setColumnWidth(column, width);
    // The width is given; a caption is to be read as a whole, however large the letters are.
    header()->setFont(
        fittingFont(header()->font(), caption, width - 2 * OneLineDelegate::sideMargin));
}

int ColumnTree::columnIndex(const QString &key) const
{
    const qsizetype index = m_keys.indexOf(key);
    if (index < 0)
        throw RuntimeError(ErrorNumber::ItemNotFound);
    return static_cast<int>(index) + 1;
}

QString ColumnTree::SelText() const
{
    QString text;
    auto *tree = const_cast<ColumnTree *>(this);
    for (QTreeWidgetItemIterator it(tree, QTreeWidgetItemIterator::Selected); *it; ++it) {
        if (!text.isEmpty())
            text += "\r\n"_L1;
        text += lineText(**it);
    }
    return text;
}

void ColumnTree::keyPressEvent(QKeyEvent *event)
{
    if (!copyOnKey(*event, [this] { return SelText(); }))
        QTreeWidget::keyPressEvent(event);
}
