#pragma once

#include <QObject>

class DataGrid;

/// Orders the rows that a grid shows when a column's header is clicked: by its values, the other
/// way round with the second click, as they arrived with the third. It is the view that is ordered,
/// never the recordset; rows that arrive later stand behind the ordered ones.
///
/// A click with Shift or Ctrl selects columns and orders nothing.
class GridOrder : public QObject
{
    Q_OBJECT
public:
    explicit GridOrder(DataGrid &grid);

    /// What a click on the header of @p column does.
    void advance(int column);

private:
    void order(int column, bool descending);
    void showInHeader() const;

    DataGrid &m_grid;
    int m_column = -1; ///< -1 as the rows arrived
    bool m_descending = false;
};
