// The history dialog over a large history file, against reading that file line by line.

#include "controls/grids/FlexGrid.h"
#include "dataaccess/Recordset.h"
#include "history/frmSQLHistory.h"
#include "history/historyFile.h"
#include "platform/process.h"
#include "platform/textForms.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "support/memory.h"
#include "uisupport/PaintWatch.h"

#include <QApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>

#include <algorithm>
#include <fstream>
#include <string>

using namespace Qt::StringLiterals;

namespace {

constexpr int records = 30'000;

/// A history of statements of some 300 bytes, in the order in which they were run.
void writeHistory(const QString &path, int count)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        giveUp(file.errorString());
    const QDateTime first(QDate(2020, 1, 1), QTime(8, 0), Qt::UTC);
    for (int record = 0; record < count; ++record) {
        const QString statement =
            u"select customer, quantity, price, sold, product, city, remark\r\n"
            "  from sales -- what was sold there\r\n"
            " where customer = %1\r\n"
            "   and city in ('Rotterdam', 'Hamburg', 'Antwerpen', 'Le Havre')\r\n"
            "   and remark <> 'left the warehouse in 30 days' and quantity > 10\r\n"
            " order by customer, sold\r\n"_s.arg(record);
        const QString time = dateTimeToText(first.addSecs(qint64{record} * 977));
        file.write((statement + u"SQLTIME\r\n"_s + time + u"\r\nSQLEND\r\n"_s).toUtf8());
    }
}

qsizetype bytesInLines(const QString &path)
{
    std::ifstream file(path.toStdString());
    qsizetype bytes = 0;
    for (std::string line; std::getline(file, line);)
        bytes += static_cast<qsizetype>(line.size());
    return bytes;
}

void showHistory(int expectedRecords)
{
    frmSQLHistory dialog;
    auto *grid = dialog.findChild<FlexGrid *>();
    PaintWatch watch(grid->viewport());
    dialog.show();
    watch.wait();
    if (grid->Rows() != expectedRecords + 1)
        giveUp(u"The dialog shows %1 records."_s.arg(grid->Rows() - 1));
}

/// What its records hold has to find room, and a little more; not every line of the file. To be
/// measured before anything else has taken memory.
void measureMemory(const QString &path)
{
    const auto growth = [](qint64 &stored) {
        const qint64 before = peakResidentBytes();
        Recordset history;
        loadHistory(historyFileName(), {}, history);
        stored = history.storedBytes();
        return static_cast<double>(peakResidentBytes() - before);
    };
    qint64 stored = 0;
    writeHistory(path, 10 * records);
    const double forRecords = growth(stored) / static_cast<double>(stored);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        giveUp(file.errorString());
    for (const QByteArray part(1 << 20, 'x'); file.size() < 4 * stored;)
        file.write(part);
    file.write("\r\nSQLTIME\r\n1/1/2024\r\nSQLEND\r\n");
    const auto size = static_cast<double>(file.size());
    file.close();
    const double forLine = growth(stored) / size;
    printRatio(u"memory for a history / what its records hold"_s, forRecords, 1.5);
    printRatio(u"memory for a history of one huge line / its size"_s, forLine, 3);
}

/// The longest time in which one more letter of a filter is followed by a painted list.
double millisecondsToFilter()
{
    frmSQLHistory dialog;
    auto *grid = dialog.findChild<FlexGrid *>();
    dialog.show();
    PaintWatch(grid->viewport()).wait();
    auto *filter = dialog.findChild<QLineEdit *>(u"txtFilter"_s);
    double longest = 0;
    for (const QChar letter : u"Customer = 29999"_s) {
        QElapsedTimer clock;
        clock.start();
        filter->insert(letter);
        PaintWatch(grid->viewport()).wait();
        longest = std::max(longest, static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    if (grid->Rows() != 2)
        giveUp(u"The filter leaves %1 records."_s.arg(grid->Rows() - 1));
    return longest;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QTemporaryDir folder;
    setApplicationFolder(folder.path());
    const QString path = folder.filePath(historyFileName());
    measureMemory(path);

    writeHistory(path, records / 2);
    const TwoSides half = measureInTurn(
        fewRounds, [&] { bytesInLines(path); }, [] { showHistory(records / 2); });
    writeHistory(path, records);
    const TwoSides whole = measureInTurn(
        fewRounds, [&] { bytesInLines(path); }, [] { showHistory(records); });

    printFigure(u"history dialog, 30,000 records"_s, secondsText(whole.ours.clock));
    printFigure(u"its file"_s, megabytesText(QFile(path).size()));
    printRatio(u"history dialog / reading its file line by line"_s, whole.ratio(), 10);
    printRatio(u"the same in processor time"_s, whole.processorRatio());
    printRatio(u"history dialog, 30,000 records / 15,000 records"_s,
               whole.ours.clock / half.ours.clock, 2.2);
    printMilliseconds(u"filtering 30,000 records, one more letter"_s, millisecondsToFilter(), 100);
    return 0;
}
