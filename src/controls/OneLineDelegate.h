#pragma once

#include <QStyledItemDelegate>

/// Shows texts on one line each: a return sign stands where a line ends, a blank for a tab.
class OneLineDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant &value, const QLocale &locale) const override;
};
