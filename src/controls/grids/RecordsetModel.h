#pragma once

#include "dataaccess/Recordset.h"

#include <QAbstractTableModel>

#include <memory>
#include <vector>

/// Shows a client-side recordset to item views. It keeps no values of its own, and it knows only
/// the rows that were there when it was last told to look.
///
/// It never raises: what cannot be read, because the recordset was closed in the meantime, is shown
/// as nothing.
class RecordsetModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Shows another recordset; a closed one, a forward-only one or none shows no rows.
    void setRecordset(std::shared_ptr<Recordset> recordset);
    const std::shared_ptr<Recordset> &recordset() const { return m_recordset; }

    /// Looks for rows that were added. @returns whether it is another table altogether: the columns
    /// have changed or rows have gone
    bool update();

    /// Shows the rows in another order; the numbers are those of the recordset's rows. Rows that it
    /// does not hold follow as the recordset has them, so that those that arrive come last. An
    /// empty order is the recordset's own, which another recordset begins with.
    void setRowOrder(std::vector<int> order);
    /// The recordset's row that is shown as row @p row.
    int recordsetRow(int row) const
    {
        const auto place = static_cast<size_t>(row);
        return place < m_order.size() ? m_order[place] : row;
    }

    /// Longest text in UTF-16 units that is shown; a longer one is cut there and ends in an
    /// ellipsis.
    static constexpr int longestShownText = 500;

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : m_rows;
    }
    int columnCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : m_columns;
    }
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

protected:
    /// What is shown of a value of the recordset's row @p row. @throws RuntimeError when it cannot
    /// be read
    virtual QString cellText(int row, int column) const;

private:
    bool holdsColumn(int column) const;
    bool holdsNumbers(int column) const;

    std::shared_ptr<Recordset> m_recordset;
    std::vector<int> m_order; ///< of the first rows
    int m_rows = 0;
    int m_columns = 0;
};
