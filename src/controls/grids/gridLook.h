#pragma once

#include <QHeaderView>
#include <QStyledItemDelegate>

class QAbstractItemView;

/// Gives a grid or tree the looks and habits that all of them share: nothing is edited in place,
/// columns scroll by the pixel, rows alternate so that they can just be told apart, and a calm
/// selection leaves the text its own colour. The colours follow the program's palette, light or
/// dark, also when it changes.
void applyGridLook(QAbstractItemView *view);

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

/// The narrow column of row numbers beside a grid. All rows are of one height, and neither its
/// width nor its painting costs more with more rows.
class RowNumberHeader : public QHeaderView
{
    Q_OBJECT
public:
    explicit RowNumberHeader(QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintSection(QPainter *painter, const QRect &rect, int row) const override;
};
