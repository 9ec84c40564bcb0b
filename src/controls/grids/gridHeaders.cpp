#include "controls/grids/gridLook.h"

#include "controls/forms/ColourTheme.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyleOptionHeader>

#include <algorithm>

namespace {

constexpr int numberMargin = 5;
constexpr int fewestDigits = 3;

} // namespace

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

int ColumnHeader::orderMarkWidth() const
{
    return fontMetrics().ascent() * 2 / 3;
}

int ColumnHeader::widthFor(const QString &name) const
{
    const int mark = isSortIndicatorShown() ? orderMarkWidth() + OneLineDelegate::sideMargin : 0;
    return fontMetrics().horizontalAdvance(name) + mark;
}

/// A triangle at the right end of @p room, upwards where values grow downwards in the grid.
/// @returns where the room in front of it ends
int ColumnHeader::paintOrderMark(QPainter *painter, const QRect &room) const
{
    const int width = orderMarkWidth();
    const QRect mark(room.right() - width + 1, room.center().y() - width / 4, width, width / 2);
    const bool up = sortIndicatorOrder() == Qt::AscendingOrder;
    const QPointF tip(mark.x() + width / 2.0, up ? mark.top() : mark.top() + width / 2.0);
    const double base = up ? mark.top() + width / 2.0 : mark.top();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(palette().color(QPalette::ButtonText));
    painter->drawPolygon(QPolygonF{tip, QPointF(mark.x() + width, base), QPointF(mark.x(), base)});
    painter->restore();
    return mark.left() - OneLineDelegate::sideMargin;
}

/// The style draws all but the name, which stands straight above the cells' texts.
void ColumnHeader::paintSection(QPainter *painter, const QRect &rect, int column) const
{
    // The style leaves nothing but an empty region to paint in.
    painter->save();
    QHeaderView::paintSection(painter, rect, column);
    painter->restore();
    const QVariant alignment = model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole);
    QRect room = rect.adjusted(OneLineDelegate::sideMargin, 0, -OneLineDelegate::sideMargin, 0);
    if (isSortIndicatorShown() && sortIndicatorSection() == column)
        room.setRight(paintOrderMark(painter, room));
    const QString name = model()->headerData(column, Qt::Horizontal).toString();
    painter->setFont(font());
    painter->setPen(palette().color(QPalette::ButtonText));
    painter->drawText(
        room, alignment.isValid() ? alignment.toInt() : int(defaultAlignment()),
        fontMetrics().elidedText(name, Qt::ElideRight, room.width(), Qt::TextSingleLine));
}

RowNumberHeader::RowNumberHeader(QWidget *parent)
    : QHeaderView(Qt::Vertical, parent)
{
    setSectionResizeMode(QHeaderView::Fixed);
    setSectionsClickable(true);
    setHighlightSections(false);
    setAccessibleName(tr("Row numbers"));
}

QSize RowNumberHeader::sizeHint() const
{
    const int digits = std::max(fewestDigits, static_cast<int>(QString::number(count()).size()));
    return QSize(fontMetrics().horizontalAdvance(u'8') * digits + 2 * numberMargin, 0);
}

void RowNumberHeader::paintSection(QPainter *painter, const QRect &rect, int row) const
{
    const ColourTheme theme(palette());
    painter->fillRect(rect, theme.margin());
    painter->setPen(theme.gridLine());
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    painter->drawLine(rect.topRight(), rect.bottomRight());
    painter->setPen(theme.lineNumber());
    // On the line that the cells' texts stand on; below them is the grid's own line.
    const QString number = QString::number(row + 1);
    const QFontMetrics metrics = fontMetrics();
    const int baseline = rect.top() + (rect.height() - 1 - metrics.height()) / 2 + metrics.ascent();
    painter->drawText(rect.right() - numberMargin - metrics.horizontalAdvance(number), baseline,
                      number);
}
