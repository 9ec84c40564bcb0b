#pragma once

#include <QHeaderView>

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
