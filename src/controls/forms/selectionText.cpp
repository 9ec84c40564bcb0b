#include "controls/forms/selText.h"

#include "platform/errorTraps.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

/// Columns next to each other that are selected alike.
struct ColumnRun
{
    int first;
    int last;
    bool selected;
};

using RangeEnd = int (QItemSelectionRange::*)() const;

/// Where ranges begin or end, sorted: between two such rows, or columns, everything is selected
/// alike.
std::vector<int> edgesOf(const QItemSelection &selection, RangeEnd first, RangeEnd last)
{
    std::vector<int> edges;
    for (const QItemSelectionRange &range : selection) {
        edges.push_back((range.*first)());
        edges.push_back((range.*last)() + 1);
    }
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    return edges;
}

/// The rows, or columns, that any range covers, in ascending order.
std::vector<int> coveredBy(const QItemSelection &selection, RangeEnd first, RangeEnd last)
{
    std::vector<std::pair<int, int>> ranges;
    for (const QItemSelectionRange &range : selection)
        ranges.emplace_back((range.*first)(), (range.*last)());
    std::sort(ranges.begin(), ranges.end());
    std::vector<int> covered;
    for (const auto &[begin, end] : ranges) {
        for (int i = covered.empty() ? begin : std::max(begin, covered.back() + 1); i <= end; ++i)
            covered.push_back(i);
    }
    return covered;
}

bool covers(const QItemSelectionRange &range, int column)
{
    return range.left() <= column && column <= range.right();
}

/// The columns that hold any selected cell, in runs that every range takes wholly or not at all.
std::vector<ColumnRun> usedColumns(const QItemSelection &selection)
{
    const std::vector<int> edges =
        edgesOf(selection, &QItemSelectionRange::left, &QItemSelectionRange::right);
    std::vector<ColumnRun> runs;
    for (std::size_t i = 0; i + 1 < edges.size(); ++i) {
        const bool used =
            std::any_of(selection.begin(), selection.end(),
                        [&](const QItemSelectionRange &range) { return covers(range, edges[i]); });
        if (used)
            runs.push_back({edges[i], edges[i + 1] - 1, false});
    }
    return runs;
}

/// Marks the runs that are selected in the rows from @p row to the next edge.
/// @returns whether there are any
bool markSelected(const QItemSelection &selection, int row, std::vector<ColumnRun> &runs)
{
    bool any = false;
    for (ColumnRun &run : runs)
        run.selected = false;
    for (const QItemSelectionRange &range : selection) {
        if (row < range.top() || row > range.bottom())
            continue;
        for (ColumnRun &run : runs)
            run.selected = run.selected || covers(range, run.first);
        any = true;
    }
    return any;
}

void appendRow(int row, const std::vector<ColumnRun> &runs, const AppendCells &appendCells,
               QString &text)
{
    bool first = true;
    for (const ColumnRun &run : runs) {
        if (!first)
            text += u'\t';
        first = false;
        if (run.selected)
            appendCells(row, run.first, run.last, text);
        else
            text.resize(text.size() + run.last - run.first, u'\t');
    }
}

} // namespace

std::vector<int> selectedRows(const QItemSelection &selection)
{
    return coveredBy(selection, &QItemSelectionRange::top, &QItemSelectionRange::bottom);
}

std::vector<int> selectedColumns(const QItemSelection &selection)
{
    return coveredBy(selection, &QItemSelectionRange::left, &QItemSelectionRange::right);
}

QString selectionText(const QItemSelection &selection, const AppendCells &appendCells)
{
    QString text;
    const std::vector<int> edges =
        edgesOf(selection, &QItemSelectionRange::top, &QItemSelectionRange::bottom);
    std::vector<ColumnRun> runs = usedColumns(selection);
    bool firstRow = true;
    for (std::size_t i = 0; i + 1 < edges.size(); ++i) {
        if (!markSelected(selection, edges[i], runs))
            continue;
        for (int row = edges[i]; row < edges[i + 1]; ++row) {
            if (!firstRow)
                text += QLatin1StringView("\r\n");
            firstRow = false;
            appendRow(row, runs, appendCells, text);
        }
    }
    return text;
}

void copyToClipboard(const QString &text)
{
    if (!text.isEmpty())
        QGuiApplication::clipboard()->setText(text);
}

bool copyOnKey(const QKeyEvent &event, const std::function<QString()> &selText)
{
    if (!event.matches(QKeySequence::Copy))
        return false;
    reportErrors([&] { copyToClipboard(selText()); });
    return true;
}
