#pragma once

#include <QMenu>

#include <functional>

class DataGrid;
class QKeyEvent;

/// The context menu of a result grid, and the keys of its items.
class GridMenu : public QMenu
{
    Q_OBJECT
public:
    explicit GridMenu(DataGrid &grid);

    /// Does what the key @p event stands for, if it is one of the menu's. @returns whether it was
    bool takeKey(const QKeyEvent &event);

private:
    enum Needs { CurrentCell, Selection, Rows };
    void add(const QString &name, const QString &text, const QKeySequence &key, Needs needs,
             const std::function<void()> &command);
    void enableItems();

    void copyWithNames();
    void copyAsInsert();
    void copyAsList();

    struct Item
    {
        QAction *action;
        QKeySequence key;
        Needs needs;
    };
    DataGrid &m_grid;
    QList<Item> m_items;
};
