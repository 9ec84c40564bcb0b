#pragma once

#include <QStyledItemDelegate>

/// Shows texts on one line each: a return sign stands where a line ends, a blank for a tab.
///
/// It paints cells itself, because a grid that is scrolled page by page paints hundreds at a time
/// and the style's general way costs several times as much.
class OneLineDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Room between a cell's edge and its text, in pixels; what most styles leave, too.
    static constexpr int sideMargin = 3;

    QString displayText(const QVariant &value, const QLocale &locale) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};
