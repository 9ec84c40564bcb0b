#include "controls/grids/RowNumberHeader.h"

#include "controls/forms/ColourTheme.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int sideMargin = 5;
constexpr int fewestDigits = 3;

} // namespace

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
    return QSize(fontMetrics().horizontalAdvance(u'8') * digits + 2 * sideMargin, 0);
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
    painter->drawText(rect.right() - sideMargin - metrics.horizontalAdvance(number), baseline,
                      number);
}
