#pragma once

#include <QHeaderView>

/// The column names above a grid. Unlike the general header it does not mark the columns that are
/// selected: finding out whether one is would mean asking every row.
class ColumnHeader : public QHeaderView
{
    Q_OBJECT
public:
    explicit ColumnHeader(QWidget *parent = nullptr);

    /// The width that a name needs, with room for the mark of an order behind it.
    int widthFor(const QString &name) const;

protected:
    void paintSection(QPainter *painter, const QRect &rect, int column) const override;
    void initStyleOptionForIndex(QStyleOptionHeader *option, int column) const override;

private:
    int orderMarkWidth() const;
    int paintOrderMark(QPainter *painter, const QRect &room) const;
};
