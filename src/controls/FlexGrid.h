#pragma once

#include <QTableWidget>

/// A grid of texts with one fixed row and one fixed column, which hold the headers.
/// Rows and columns are counted with the fixed ones: cell (0, 1) is the first column's header.
class FlexGrid : public QTableWidget
{
    Q_OBJECT
public:
    explicit FlexGrid(QWidget *parent = nullptr);

    /// Takes everything out, down to one fixed row and one fixed column.
    void Clear();
    int Rows() const;
    void setRows(int rows);
    int Cols() const;
    void setCols(int columns);
    /// @param twips  width or height in twips
    void setColWidth(int column, int twips);
    void setRowHeight(int row, int twips);
    void setTextMatrix(int row, int column, const QString &text);
    QString TextMatrix(int row, int column) const;
    /// The last row of the selection; 0 when nothing is selected.
    int RowSel() const;
    QString SelText() const;
};
