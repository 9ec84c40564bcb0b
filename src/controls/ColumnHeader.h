#pragma once

#include <QHeaderView>

/// The column names above a grid. Unlike the general header it does not mark the columns that are
/// selected: finding out whether one is would mean asking every row.
class ColumnHeader : public QHeaderView
{
    Q_OBJECT
public:
    explicit ColumnHeader(QWidget *parent = nullptr);

protected:
    void paintSection(QPainter *painter, const QRect &rect, int column) const override;
    void initStyleOptionForIndex(QStyleOptionHeader *option, int column) const override;
};
