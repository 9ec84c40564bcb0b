#include "controls/ColumnHeader.h"

#include <QStyleOptionHeader>

ColumnHeader::ColumnHeader(QWidget *parent)
    : QHeaderView(Qt::Horizontal, parent)
{
    setAccessibleName(tr("Column names"));
    setSectionsClickable(true);
    setHighlightSections(false);
    setTextElideMode(Qt::ElideRight);
    QFont weighty = font();
    weighty.setWeight(QFont::DemiBold);
    setFont(weighty);
}

void ColumnHeader::initStyleOptionForIndex(QStyleOptionHeader *option, int column) const
{
    const QVariant alignment = model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole);
    option->section = column;
    option->text = model()->headerData(column, Qt::Horizontal).toString();
    option->textAlignment =
        Qt::Alignment(alignment.isValid() ? alignment.toInt() : int(defaultAlignment()));
    option->selectedPosition = QStyleOptionHeader::NotAdjacent;
    const int place = visualIndex(column);
    if (count() == 1)
        option->position = QStyleOptionHeader::OnlyOneSection;
    else if (place == 0)
        option->position = QStyleOptionHeader::Beginning;
    else
        option->position =
            place == count() - 1 ? QStyleOptionHeader::End : QStyleOptionHeader::Middle;
    if (auto *cut = qstyleoption_cast<QStyleOptionHeaderV2 *>(option))
        cut->textElideMode = textElideMode();
}
