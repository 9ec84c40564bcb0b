#pragma once

#include "dataaccess/Recordset.h"

#include <QTableView>

#include <memory>

class RecordsetModel;

/// A grid of whole texts, several lines to a row, with one fixed row, which holds the fields'
/// names, and one fixed column, which is empty. Rows and columns are counted with the fixed ones:
/// cell (0, 1) is the first field's name.
class FlexGrid : public QTableView
{
    Q_OBJECT
    Q_PROPERTY(QString SelText READ SelText)
public:
    explicit FlexGrid(QWidget *parent = nullptr);

    /// Shows the records of a client-side recordset, nulls as "NULL"; none, or a closed one, leaves
    /// the fixed cells alone.
    void setRecordset(const std::shared_ptr<Recordset> &recordset);
    int Rows() const;
    int Cols() const;
    /// @param twips  width or height in twips
    /// @throws RuntimeError 9 for a column that is not there
    void setColWidth(int column, int twips);
    /// The height of all rows but the fixed one.
    void setRowHeight(int twips);
    /// @throws RuntimeError 9 for a row or column that is not there
    QString TextMatrix(int row, int column) const;
    /// The last row of the selection; 0 when nothing is selected.
    int RowSel() const;
    /// The selected cells as text: cells separated by tabs, rows by line ends.
    QString SelText() const;

signals:
    /// A double click or Enter has picked the selection's last row.
    void rowPicked(int row);
    /// Characters were typed, which the grid itself has no use for.
    void typed(const QString &text);

protected:
    void keyboardSearch(const QString &text) override { emit typed(text); }
    void keyPressEvent(QKeyEvent *event) override;

private:
    void checkCell(int row, int column) const;
    void pickRow();

    RecordsetModel *m_model;
};
