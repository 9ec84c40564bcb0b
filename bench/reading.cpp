// What is done with rows that are there: ordering a million of them, against std::stable_sort of
// ready keys, looking through them, and reading one very long value.

#include "controls/grids/CellViewer.h"
#include "controls/grids/DataGrid.h"
#include "controls/grids/GridSearch.h"
#include "dataaccess/Recordset.h"
#include "support/EventTurns.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "support/retrieval.h"
#include "support/sampleTable.h"
#include "uisupport/PaintWatch.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>

#include <algorithm>
#include <numeric>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr double mostMillisecondsToOrder = 1000;
constexpr double largestGapMilliseconds = 25;
constexpr qsizetype longValueSize = 100'000'000;

template <typename Key, typename KeyOf>
void printOrdering(const Recordset &rows, const QString &name, const KeyOf &keyOf)
{
    const int field = rows.fieldIndex(name);
    std::vector<Key> keys;
    for (qint64 row = 0; row < rows.RecordCount(); ++row)
        keys.push_back(keyOf(row, field));
    std::vector<int> plain;
    std::vector<int> ordered;
    const auto sortKeys = [&] {
        plain.resize(keys.size());
        std::iota(plain.begin(), plain.end(), 0);
        std::stable_sort(plain.begin(), plain.end(), [&keys](int a, int b) {
            return keys[static_cast<size_t>(a)] < keys[static_cast<size_t>(b)];
        });
    };
    const TwoSides seconds =
        measureInTurn(fewRounds, sortKeys, [&] { ordered = rows.rowsOrderedBy(field, false); });
    if (ordered != plain)
        giveUp(u"The rows are not in the order of their keys."_s);
    printMilliseconds(u"ordering 1,000,000 rows by "_s + name, seconds.ours.clock * 1000,
                      mostMillisecondsToOrder);
    printRatio(u"that / std::stable_sort of ready keys"_s, seconds.ratio(), 5);
    printRatio(u"the same in processor time"_s, seconds.processorRatio());
}

void printOrderings(const Recordset &rows)
{
    printOrdering<double>(rows, u"CUSTOMER"_s, [&](qint64 row, int field) {
        return rows.textAt(row, field).toDouble();
    });
    printOrdering<double>(rows, u"PRICE"_s, [&](qint64 row, int field) {
        return rows.textAt(row, field).toDouble();
    });
    printOrdering<QString>(rows, u"PRODUCT"_s,
                           [&](qint64 row, int field) { return rows.textAt(row, field); });
}

void printSearch(DataGrid &grid)
{
    grid.resize(1100, 600);
    grid.show();
    PaintWatch(grid.viewport()).wait();
    grid.search().findChild<QLineEdit *>(u"txtGridFind"_s)->setText(u"nowhere"_s);
    EventTurns turns;
    QElapsedTimer clock;
    clock.start();
    turns.start();
    grid.search().find(GridSearch::Direction::Forward);
    while (grid.search().isSearching())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    turns.stop();
    printFigure(u"looking through 1,000,000 x 8 cells for what is not there"_s,
                secondsText(static_cast<double>(clock.nsecsElapsed()) / 1e9));
    printMilliseconds(u"the longest time between two turns of the events"_s, turns.milliseconds(1),
                      largestGapMilliseconds);
}

/// @param show  shows something of the value in the viewer
template <typename Show>
double millisecondsToShow(const CellViewer &viewer, const Show &show)
{
    QElapsedTimer clock;
    clock.start();
    show();
    PaintWatch(viewer.findChild<QPlainTextEdit *>(u"txtValue"_s)->viewport()).wait();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

void printViewer()
{
    constexpr double mostMilliseconds = 500;
    const QString lines = u"The quick brown fox jumps over the lazy dog, number 4711.\r\n"_s;
    for (const auto &[name, text] :
         {std::pair(u"in lines"_s, lines.repeated(longValueSize / lines.size())),
          {u"without a blank"_s, QString(longValueSize, u'x')}}) {
        CellViewer viewer(nullptr);
        const double shown =
            millisecondsToShow(viewer, [&, text = text] { viewer.showValue({}, Value(text)); });
        printMilliseconds(u"viewer, a value of 100 MB "_s + name, shown, mostMilliseconds);
        auto *part = viewer.findChild<QSpinBox *>(u"spnPart"_s);
        const double last =
            millisecondsToShow(viewer, [&] { part->setValue(part->maximum() - 1); });
        printMilliseconds(u"going to its end"_s, last, mostMilliseconds);
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    DataGrid grid;
    grid.setDataSource(retrieveAll(sampleTable(), u"select * from SAMPLE"_s));
    printOrderings(*grid.dataSource());
    printSearch(grid);
    printViewer();
    return 0;
}
