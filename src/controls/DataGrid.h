#pragma once

#include "dataaccess/Recordset.h"

#include <QTableView>

#include <memory>

/// The grid that shows a recordset's rows, bound to it as to a data source.
///
/// Rows that arrive later are announced with rowsAdded(), as often as the caller likes: the view
/// learns of them at most once a frame.
class DataGrid : public QTableView
{
    Q_OBJECT
public:
    explicit DataGrid(QWidget *parent = nullptr);
    ~DataGrid() override;

    /// Binds the grid; a closed or missing recordset shows an empty grid.
    void setDataSource(const std::shared_ptr<Recordset> &source);
    std::shared_ptr<Recordset> dataSource() const;

    /// Says that the bound recordset has grown.
    void rowsAdded();
    /// Shows now what rowsAdded() has announced.
    void showAddedRows();

    /// The selected cells as text: cells separated by tabs, rows by line ends.
    QString SelText() const;
};
