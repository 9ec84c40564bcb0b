#include "controls/RecordsetModel.h"

#include "platform/errorTraps.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

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

QString shownText(QString text)
{
    if (text.size() > RecordsetModel::longestShownText) {
        text = text.left(RecordsetModel::longestShownText);
        text += QChar(0x2026);
    }
    return text;
}

} // namespace

void RecordsetModel::setRecordset(std::shared_ptr<Recordset> recordset)
{
    beginResetModel();
    m_recordset = std::move(recordset);
    measure();
    endResetModel();
}

bool RecordsetModel::update()
{
    const Extent now = extentOf(m_recordset.get());
    if (now.columns != m_columns || now.rows < m_rows) {
        const bool otherColumns = now.columns != m_columns;
        beginResetModel();
        m_rows = now.rows;
        m_columns = now.columns;
        endResetModel();
        return otherColumns;
    }
    if (now.rows > m_rows) {
        beginInsertRows({}, m_rows, now.rows - 1);
        m_rows = now.rows;
        endInsertRows();
    }
    return false;
}

void RecordsetModel::measure()
{
    const Extent extent = extentOf(m_recordset.get());
    m_rows = extent.rows;
    m_columns = extent.columns;
}

int RecordsetModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int RecordsetModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_columns;
}

bool RecordsetModel::holdsCell(int row, int column) const
{
    return m_recordset && m_recordset->State() == adStateOpen && row < m_recordset->RecordCount() &&
           column < m_recordset->fieldCount();
}

QVariant RecordsetModel::data(const QModelIndex &index, int role) const
{
    QVariant result;
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::TextAlignmentRole))
        return result;
    ignoreErrors([&] {
        if (!holdsCell(index.row(), index.column()))
            return;
        if (role == Qt::DisplayRole)
            result = shownText(m_recordset->textAt(index.row(), index.column()));
        else if (m_recordset->isNumberAt(index.row(), index.column()))
            result = QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    });
    return result;
}

QVariant RecordsetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    if (role == Qt::TextAlignmentRole)
        return data(index(0, section), role);
    QVariant name;
    ignoreErrors([&] {
        if (role == Qt::DisplayRole && m_recordset && section < m_columns)
            name = m_recordset->fieldName(section);
    });
    return name;
}
