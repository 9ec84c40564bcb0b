#include "controls/ColumnHeader.h"

#include "controls/OneLineDelegate.h"

#include <QPainter>
#include <QStyleOptionHeader>

ColumnHeader::ColumnHeader(QWidget *parent)
    : QHeaderView(Qt::Horizontal, parent)
{
    setAccessibleName(tr("Column names"));
    setSectionsClickable(true);
    setHighlightSections(false);
    QFont weighty = font();
    weighty.setWeight(QFont::DemiBold);
    setFont(weighty);
}

void ColumnHeader::initStyleOptionForIndex(QStyleOptionHeader *option, int column) const
{
    option->section = column;
    option->selectedPosition = QStyleOptionHeader::NotAdjacent;
    const int place = visualIndex(column);
    if (count() == 1)
        option->position = QStyleOptionHeader::OnlyOneSection;
    else if (place == 0)
        option->position = QStyleOptionHeader::Beginning;
    else
        option->position =
            place == count() - 1 ? QStyleOptionHeader::End : QStyleOptionHeader::Middle;
}

/// The style draws all but the name, which stands straight above the cells' texts.
void ColumnHeader::paintSection(QPainter *painter, const QRect &rect, int column) const
{
    // The style leaves nothing but an empty region to paint in.
    painter->save();
    QHeaderView::paintSection(painter, rect, column);
    painter->restore();
    const QVariant alignment = model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole);
    const QRect room =
        rect.adjusted(OneLineDelegate::sideMargin, 0, -OneLineDelegate::sideMargin, 0);
    const QString name = model()->headerData(column, Qt::Horizontal).toString();
    painter->setFont(font());
    painter->setPen(palette().color(QPalette::ButtonText));
    painter->drawText(
        room, alignment.isValid() ? alignment.toInt() : int(defaultAlignment()),
        fontMetrics().elidedText(name, Qt::ElideRight, room.width(), Qt::TextSingleLine));
}
