#pragma once

#include "dataaccess/Recordset.h"

#include <QStringList>
#include <QTableView>

#include <memory>
#include <vector>

class CellViewer;
class GridMenu;
class GridOrder;
class GridSearch;
class RecordsetModel;

/// The grid that shows a recordset's rows, bound to it as to a data source.
///
/// Rows that arrive later are shown when showAddedRows() is called. Long texts are cut for showing
/// and line ends shown as signs; what is copied is whole.
class DataGrid : public QTableView
{
    Q_OBJECT
    Q_PROPERTY(QString SelText READ SelText)
public:
    explicit DataGrid(QWidget *parent = nullptr);
    ~DataGrid() override;

    /// Binds the grid; a closed or missing recordset shows an empty grid. The columns that were
    /// shown last keep their widths.
    void setDataSource(const std::shared_ptr<Recordset> &source);
    std::shared_ptr<Recordset> dataSource() const;

    /// Shows the rows that the bound recordset has grown by.
    void showAddedRows();

    RecordsetModel &recordsetModel() const { return *m_model; }
    /// What orders the rows on the screen.
    GridOrder &rowOrder() const { return *m_order; }

    /// What finds texts in the rows.
    GridSearch &search() const { return *m_search; }
    /// Shows a cell's value whole, in a window of its own.
    void viewCell(const QModelIndex &cell);

    /// The recordset's rows that hold a selected cell, in the order on the screen.
    std::vector<int> selectedRecords() const;
    /// The selected cells as text, in the order on the screen: cells separated by tabs, rows by
    /// line ends.
    QString SelText() const;

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void fitRowHeight();
    QStringList columnNames() const;
    void keepColumnWidths();
    void fitColumnWidths();
    int fittingWidth(int column, int rows) const;

    RecordsetModel *m_model;
    GridOrder *m_order;
    GridSearch *m_search;
    GridMenu *m_menu;
    CellViewer *m_viewer = nullptr; ///< made when it is first needed
    bool m_widthsFitted = false;
    QStringList m_knownNames; ///< the columns shown last, and their widths
    QList<int> m_knownWidths;
};
