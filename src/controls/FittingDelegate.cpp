#include "controls/FittingDelegate.h"

#include "controls/fittingFont.h"

#include <QApplication>
#include <QStyle>

void FittingDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const QStyle *style = option->widget ? option->widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, option, option->widget) + 1;
    option->font = fittingFont(option->font, option->text, option->rect.width() - 2 * margin);
    option->fontMetrics = QFontMetrics(option->font);
}
