#pragma once

#include <QAbstractTableModel>
#include <QList>
#include <QString>

/// The texts of a flex grid: a matrix whose first row and first column are the headers of a view.
class FlexGridModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Rows and columns of the matrix, headers included; never less than 1.
    int rows() const { return m_rows; }
    int columns() const { return m_columns; }
    /// Texts that stay inside keep their places.
    void resize(int rows, int columns);
    /// A text of the matrix; the place has to be inside.
    QString text(int row, int column) const { return m_texts[place(row, column)]; }
    void setText(int row, int column, const QString &text);

    /// Whether views are told of every text that changes; otherwise they are told of all of them
    /// when it is turned on again.
    void setTellsChanges(bool on);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    qsizetype place(int row, int column) const { return qsizetype{row} * m_columns + column; }

    bool m_tellsChanges = true;
    int m_rows = 1;
    int m_columns = 1;
    QList<QString> m_texts = QList<QString>(1);
};
