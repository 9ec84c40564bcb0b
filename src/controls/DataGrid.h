#pragma once

#include "dataaccess/Recordset.h"

#include <QTableView>

#include <memory>

class FramePacer;
class RecordsetModel;

/// The grid that shows a recordset's rows, bound to it as to a data source.
///
/// Rows that arrive later are announced with rowsAdded(), as often as the caller likes: the view
/// learns of them at most once a frame. Long texts are cut for showing and line ends shown as
/// signs; what is copied is whole.
class DataGrid : public QTableView
{
    Q_OBJECT
    Q_PROPERTY(QString SelText READ SelText)
public:
    explicit DataGrid(QWidget *parent = nullptr);
    ~DataGrid() override;

    /// Binds the grid; a closed or missing recordset shows an empty grid.
    void setDataSource(const std::shared_ptr<Recordset> &source);
    std::shared_ptr<Recordset> dataSource() const;

    /// Says that the bound recordset has grown. Costs next to nothing.
    void rowsAdded();
    /// Shows now what rowsAdded() has announced.
    void showAddedRows();

    /// The selected cells as text: cells separated by tabs, rows by line ends.
    QString SelText() const;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void takeAddedRows();
    void fitRowHeight();
    void fitColumnWidths();
    int fittingWidth(int column, int rows) const;

    RecordsetModel *m_model;
    FramePacer *m_pacer;
    bool m_widthsFitted = false;
};
