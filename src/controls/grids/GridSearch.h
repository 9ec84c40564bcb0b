#pragma once

#include "dataaccess/RowSearch.h"

#include <QBasicTimer>
#include <QFrame>

#include <memory>

class DataGrid;
class QCheckBox;
class QLabel;
class QLineEdit;
class Recordset;

/// Finds texts in the rows that a grid has, with a bar above the grid's right end. Many rows are
/// looked through in short turns, so that the program goes on meanwhile.
class GridSearch : public QFrame
{
    Q_OBJECT
public:
    explicit GridSearch(DataGrid &grid);

    enum class Direction { Forward, Backward };

    /// Shows the bar, ready for typing.
    void showBar();
    /// Goes from the current cell to the next one that holds the text, at the other end of the rows
    /// when there is none before it; shows the bar where there is nothing to look for yet.
    void find(Direction direction);
    /// Does what F3 or Shift+F3 stand for. @returns whether @p event was one of them
    bool takeKey(const QKeyEvent &event);
    bool isSearching() const { return m_turns.isActive(); }

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void createControls();
    void place();
    void closeBar();
    void stop(const QString &note);
    bool isStillThere() const;
    void searchOneTurn();
    int findInRow();
    void goToNextRow();

    DataGrid &m_grid;
    QLineEdit *txtGridFind;
    QCheckBox *chkGridMatchCase;
    QLabel *lblGridNote;

    QBasicTimer m_turns; ///< active while it searches
    RowSearch m_search;
    std::shared_ptr<Recordset> m_recordset;
    Direction m_direction = Direction::Forward;
    int m_rows = 0;  ///< rows on the screen when the search began
    int m_row = 0;   ///< the one to look at, as the screen has it
    int m_first = 0; ///< its columns to look at
    int m_last = 0;
    int m_started = 0; ///< the column that the search began at
    int m_left = 0;    ///< rows that have not been looked at, but for the rest of the first one
    bool m_wrapped = false;
};
