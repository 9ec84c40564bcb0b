#pragma once

#include <QStyledItemDelegate>

/// Paints cells whose longest word does not fit the column in smaller letters, so that it is not
/// cut.
class FittingDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
