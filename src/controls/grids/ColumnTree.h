#pragma once

#include <QList>
#include <QString>
#include <QTreeWidget>

/// A tree whose nodes have further columns, named by keys. Column 0 is the tree itself.
class ColumnTree : public QTreeWidget
{
    Q_OBJECT
    Q_PROPERTY(QString SelText READ SelText)
public:
    explicit ColumnTree(QWidget *parent = nullptr);

    /// Adds a column behind the others. @param width  in pixels
    void addColumn(const QString &key, const QString &caption, int width, Qt::Alignment alignment);
    /// The column number of a key. @throws RuntimeError 3265 for an unknown one
    int columnIndex(const QString &key) const;
    /// The selected lines as text: columns separated by tabs, lines by line ends.
    QString SelText() const;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    /// Keys of the columns from the second on.
    QList<QString> m_keys;
};
