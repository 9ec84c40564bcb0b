#include "controls/FlexGridModel.h"

#include <algorithm>

void FlexGridModel::resize(int rows, int columns)
{
    beginResetModel();
    if (columns == m_columns) {
        m_texts.resize(qsizetype{rows} * columns);
    } else {
        QList<QString> texts(qsizetype{rows} * columns);
        for (int row = 0; row < std::min(rows, m_rows); ++row) {
            for (int column = 0; column < std::min(columns, m_columns); ++column)
                texts[qsizetype{row} * columns + column] = text(row, column);
        }
        m_texts = texts;
    }
    m_rows = rows;
    m_columns = columns;
    endResetModel();
}

void FlexGridModel::setText(int row, int column, const QString &text)
{
    m_texts[place(row, column)] = text;
    if (!m_tellsChanges)
        return;
    if (row == 0 && column > 0)
        emit headerDataChanged(Qt::Horizontal, column - 1, column - 1);
    else if (column == 0 && row > 0)
        emit headerDataChanged(Qt::Vertical, row - 1, row - 1);
    else if (row > 0)
        emit dataChanged(index(row - 1, column - 1), index(row - 1, column - 1));
}

void FlexGridModel::setTellsChanges(bool on)
{
    if (on == m_tellsChanges)
        return;
    m_tellsChanges = on;
    if (on && m_columns > 1)
        emit headerDataChanged(Qt::Horizontal, 0, m_columns - 2);
    if (on && m_rows > 1)
        emit headerDataChanged(Qt::Vertical, 0, m_rows - 2);
    if (on && m_columns > 1 && m_rows > 1)
        emit dataChanged(index(0, 0), index(m_rows - 2, m_columns - 2));
}

int FlexGridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows - 1;
}

int FlexGridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_columns - 1;
}

QVariant FlexGridModel::data(const QModelIndex &index, int role) const
{
    if (index.isValid() && role == Qt::DisplayRole)
        return text(index.row() + 1, index.column() + 1);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::AlignLeft | Qt::AlignTop);
    return {};
}

QVariant FlexGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    return orientation == Qt::Horizontal ? text(0, section + 1) : text(section + 1, 0);
}
