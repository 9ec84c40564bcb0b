#pragma once

#include <QTableView>

class FlexGridModel;

/// A grid of texts with one fixed row and one fixed column, which hold the headers.
/// Rows and columns are counted with the fixed ones: cell (0, 1) is the first column's header.
class FlexGrid : public QTableView
{
    Q_OBJECT
    Q_PROPERTY(QString SelText READ SelText)
public:
    explicit FlexGrid(QWidget *parent = nullptr);

    /// Takes everything out, down to one fixed row and one fixed column.
    void Clear();
    int Rows() const;
    /// @throws RuntimeError 5 below 1
    void setRows(int rows);
    int Cols() const;
    /// @throws RuntimeError 5 below 1
    void setCols(int columns);
    /// @param twips  width or height in twips
    /// @throws RuntimeError 9 for a row or column that is not there
    void setColWidth(int column, int twips);
    void setRowHeight(int row, int twips);
    void setTextMatrix(int row, int column, const QString &text);
    QString TextMatrix(int row, int column) const;
    /// Whether changes show as they are made; they do at first. While they do not, many of them
    /// cost little.
    void setRedraw(bool on);
    /// The last row of the selection; 0 when nothing is selected.
    int RowSel() const;
    /// The selected cells as text: cells separated by tabs, rows by line ends.
    QString SelText() const;

signals:
    /// A double click or Enter has picked the selection's last row.
    void rowPicked(int row);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void checkCell(int row, int column) const;
    void pickRow();

    FlexGridModel *m_model;
};
