// Scrolling the result grid through a million rows, against the same over a model of constants,
// and copying many cells, against building the same text in a plain loop.

#include "controls/grids/DataGrid.h"
#include "dataaccess/Recordset.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "support/retrieval.h"
#include "support/sampleTable.h"
#include "uisupport/PaintWatch.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int pagesPerRound = 500;
constexpr int copiedRows = 100'000;

/// As many rows as the sample has, each with the texts of one of them.
class Constants : public QAbstractTableModel
{
public:
    explicit Constants(const QAbstractItemModel &sample)
        : m_rows(sample.rowCount())
    {
        for (int column = 0; column < sample.columnCount(); ++column) {
            const QModelIndex cell = sample.index(0, column);
            m_texts.push_back(cell.data());
            m_alignments.push_back(cell.data(Qt::TextAlignmentRole));
        }
    }

    int rowCount(const QModelIndex & = {}) const override { return m_rows; }
    int columnCount(const QModelIndex & = {}) const override
    {
        return static_cast<int>(m_texts.size());
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::DisplayRole)
            return m_texts[static_cast<size_t>(index.column())];
        if (role == Qt::TextAlignmentRole)
            return m_alignments[static_cast<size_t>(index.column())];
        return {};
    }

private:
    int m_rows;
    std::vector<QVariant> m_texts;
    std::vector<QVariant> m_alignments;
};

/// Turns the pages of a shown grid.
class Pages
{
public:
    explicit Pages(QTableView &view)
        : m_view(view)
        , m_watch(view.viewport())
    {
        m_view.resize(1100, 600);
        m_view.show();
        m_watch.wait();
    }

    /// Turns pages from the next place on, which are spread over all rows.
    void turn()
    {
        QScrollBar *bar = m_view.verticalScrollBar();
        bar->setValue(bar->maximum() / fewRounds * m_place++);
        for (int page = 0; page < pagesPerRound; ++page) {
            bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
            m_watch.wait();
        }
    }

private:
    QTableView &m_view;
    PaintWatch m_watch;
    int m_place = 0;
};

void printScrolling(DataGrid &grid)
{
    Constants constants(*grid.model());
    DataGrid other;
    other.setModel(&constants);
    for (int column = 0; column < constants.columnCount(); ++column)
        other.setColumnWidth(column, grid.columnWidth(column));

    Pages ours(grid);
    Pages theirs(other);
    const TwoSides seconds = measureInTurn(
        fewRounds, [&] { theirs.turn(); }, [&] { ours.turn(); });
    printFigure(u"a page of the grid over 1,000,000 rows"_s,
                QString::number(seconds.ours.clock / pagesPerRound * 1000, 'f', 3) + u" ms"_s);
    printRatio(u"turning its pages / those of a model of constants"_s, seconds.ratio(), 1.5);
    printRatio(u"the same in processor time"_s, seconds.processorRatio());
}

void printCopying(DataGrid &grid)
{
    const Recordset &rows = *grid.dataSource();
    const int columns = rows.fieldCount();
    std::vector<QString> texts;
    for (int row = 0; row < copiedRows; ++row) {
        for (int column = 0; column < columns; ++column)
            texts.push_back(rows.textAt(row, column));
    }
    const QAbstractItemModel &model = *grid.model();
    grid.selectionModel()->select(
        QItemSelection(model.index(0, 0), model.index(copiedRows - 1, columns - 1)),
        QItemSelectionModel::ClearAndSelect);

    QString plain;
    QString copied;
    const auto build = [&] {
        plain = QString();
        for (int row = 0; row < copiedRows; ++row) {
            for (int column = 0; column < columns; ++column) {
                plain += texts[static_cast<size_t>(row) * columns + column];
                if (column < columns - 1)
                    plain += u'\t';
            }
            if (row < copiedRows - 1)
                plain += "\r\n"_L1;
        }
    };
    const TwoSides seconds = measureInTurn(manyRounds, build, [&] { copied = grid.SelText(); });
    if (copied != plain)
        giveUp(u"What was copied is not what was selected."_s);
    printRatio(u"copying 100,000 x 8 cells / a plain loop over ready texts"_s, seconds.ratio(), 3);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    DataGrid grid;
    grid.setDataSource(retrieveAll(sampleTable(), u"select * from SAMPLE"_s));
    printScrolling(grid);
    printCopying(grid);
    return 0;
}
