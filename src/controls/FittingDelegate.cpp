#include "controls/FittingDelegate.h"

#include <QApplication>
#include <QFontInfo>
#include <QStyle>

#include <algorithm>

namespace {

/// What is smaller than this share of the usual size cannot be read.
constexpr double smallestShare = 0.6;

int longestWord(const QFontMetrics &metrics, const QString &text)
{
    int longest = 0;
    for (const QString &word : text.split(u' '))
        longest = std::max(longest, metrics.horizontalAdvance(word));
    return longest;
}

} // namespace

void FittingDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const QStyle *style = option->widget ? option->widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, option, option->widget) + 1;
    const int room = option->rect.width() - 2 * margin;
    const int needed = longestWord(option->fontMetrics, option->text);
    if (needed <= room)
        return;
    const double share = std::max(double(room) / needed, smallestShare);
    option->font.setPixelSize(static_cast<int>(QFontInfo(option->font).pixelSize() * share));
    option->fontMetrics = QFontMetrics(option->font);
}
