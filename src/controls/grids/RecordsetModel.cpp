#include "controls/grids/RecordsetModel.h"

#include "platform/errorTraps.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

/// Nulls read as empty texts, so the first rows together tell whether a column holds numbers.
constexpr int rowsThatTellTheKind = 25;

struct Extent
{
    int rows = 0;
    int columns = 0;
};

/// What of a recordset can be shown now.
Extent extentOf(const Recordset *recordset)
{
    Extent extent;
    ignoreErrors([&] {
        if (!recordset || recordset->State() != adStateOpen)
            return;
        const qint64 rows =
            std::min<qint64>(recordset->RecordCount(), std::numeric_limits<int>::max());
        extent.rows = static_cast<int>(std::max<qint64>(rows, 0));
        extent.columns = recordset->fieldCount();
    });
    return extent;
}

} // namespace

void RecordsetModel::setRecordset(std::shared_ptr<Recordset> recordset)
{
    const Extent extent = extentOf(recordset.get());
    beginResetModel();
    m_recordset = std::move(recordset);
    m_order.clear();
    m_rows = extent.rows;
    m_columns = extent.columns;
    endResetModel();
}

/// Everything has changed and nothing has moved, as far as views are concerned: a selection names
/// places, and to have millions of cells looked for elsewhere would take seconds.
void RecordsetModel::setRowOrder(std::vector<int> order)
{
    m_order = std::move(order);
    if (m_rows > 0 && m_columns > 0)
        emit dataChanged(index(0, 0), index(m_rows - 1, m_columns - 1));
}

bool RecordsetModel::update()
{
    const Extent now = extentOf(m_recordset.get());
    if (now.columns != m_columns || now.rows < m_rows) {
        setRecordset(m_recordset);
        return true;
    }
    if (now.rows > m_rows) {
        beginInsertRows({}, m_rows, now.rows - 1);
        m_rows = now.rows;
        endInsertRows();
    }
    return false;
}

bool RecordsetModel::holdsColumn(int column) const
{
    return m_recordset && m_recordset->State() == adStateOpen && column < m_columns &&
           m_columns == m_recordset->fieldCount();
}

QString RecordsetModel::cellText(int row, int column) const
{
    QString text = m_recordset->textStartAt(row, column, longestShownText + 1);
    if (text.size() > longestShownText) {
        text.truncate(longestShownText);
        text += QChar(0x2026);
    }
    return text;
}

QVariant RecordsetModel::data(const QModelIndex &index, int role) const
{
    QVariant result;
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::TextAlignmentRole))
        return result;
    ignoreErrors([&] {
        if (!holdsColumn(index.column()))
            return;
        const int row = recordsetRow(index.row());
        if (role == Qt::DisplayRole)
            result = cellText(row, index.column());
        else if (m_recordset->isNumberAt(row, index.column()))
            result = QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    });
    return result;
}

bool RecordsetModel::holdsNumbers(int column) const
{
    const int rows = std::min(m_rows, rowsThatTellTheKind);
    for (int row = 0; row < rows; ++row) {
        if (m_recordset->isNumberAt(row, column))
            return true;
    }
    return false;
}

QVariant RecordsetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    QVariant result;
    ignoreErrors([&] {
        if (!holdsColumn(section))
            return;
        if (role == Qt::DisplayRole)
            result = m_recordset->fieldName(section);
        else if (role == Qt::TextAlignmentRole && holdsNumbers(section))
            result = QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    });
    return result;
}
