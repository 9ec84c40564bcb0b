// "Retrieve all records" in the real window, against a bare ODBC loop that throws the values away.
//
//     bench_window [server]                     the sample on the sandbox's server
//     bench_window sqlite                       the sample in a SQLite file
//     bench_window sales                        the sandbox's SALES
//     bench_window <connection string> <query>  anything else
//
// One of them in a process: the memory that one has left behind would serve the next.
//
// It needs a display, or QT_QPA_PLATFORM=offscreen.

#include "dataaccess/Recordset.h"
#include "dataaccess/providers/providers.h"
#include "support/BareOdbc.h"
#include "support/EventTurns.h"
#include "support/ServerSample.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "support/memory.h"
#include "support/retrieval.h"
#include "support/sampleTable.h"
#include "uisupport/RunningProgram.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QStringList>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr double largestGapMilliseconds = 25;
constexpr auto timeToStop = std::chrono::milliseconds(20);

struct Subject
{
    QString name;
    QString connectionString;
    QString query;
    double timeGoal = 0;   ///< 0 for none
    double memoryGoal = 0; ///< 0 for none
};

/// One retrieval of each side that is not timed: it warms both up, and what is measured here would
/// disturb the clock.
void printMemoryAndTurns(const Subject &subject, BareOdbc &bare, RunningProgram &program)
{
    const qint64 before = peakResidentBytes();
    const qint64 bareRows = bare.retrieve(subject.query, rowsPerBlock);
    const qint64 afterBare = peakResidentBytes();
    EventTurns turns;
    QElapsedTimer clock;
    clock.start();
    program.run();
    const double firstRows = static_cast<double>(clock.nsecsElapsed()) / 1e9;
    turns.start();
    program.retrieveAll();
    turns.stop();
    const qint64 added = peakResidentBytes() - afterBare;

    if (program.rows()->RecordCount() != bareRows)
        giveUp(
            u"The window shows %1 rows of %2."_s.arg(program.rows()->RecordCount()).arg(bareRows));
    const qint64 text = textBytes(*program.rows());
    printFigure(subject.name + u": rows"_s, QString::number(bareRows));
    printFigure(subject.name + u": text of the cells"_s, megabytesText(text));
    printFigure(subject.name + u": peak resident growth, bare loop"_s,
                megabytesText(afterBare - before));
    printFigure(subject.name + u": peak resident growth, window, on top of that"_s,
                megabytesText(added));
    printRatio(subject.name + u": that growth / text of the cells"_s,
               static_cast<double>(added) / static_cast<double>(text), subject.memoryGoal);
    printFigure(subject.name + u": Run alone, to the first 25 rows"_s, secondsText(firstRows));
    printMilliseconds(subject.name + u": time between event-loop turns, 99th percentile"_s,
                      turns.milliseconds(0.99), largestGapMilliseconds);
    printFigure(subject.name + u": the longest of %1 such times"_s.arg(turns.count()),
                QString::number(turns.milliseconds(1), 'f', 2) + u" ms"_s);
}

void printStop(const Subject &subject, RunningProgram &program)
{
    qint64 rowsAtStop = 0;
    program.run();
    QTimer::singleShot(timeToStop, [&] {
        rowsAtStop = program.rows()->RecordCount();
        program.stop();
    });
    program.retrieveAll();
    if (rowsAtStop == 0)
        giveUp(u"All rows were there before Stop."_s);
    printOutcome(subject.name + u": rows that still arrive after Stop"_s,
                 QString::number(program.rows()->RecordCount() - rowsAtStop), u"0"_s);
}

void printTimes(const Subject &subject, BareOdbc &bare, RunningProgram &program)
{
    const TwoSides seconds = measureInTurn(
        fewRounds, [&] { bare.retrieve(subject.query, rowsPerBlock); },
        [&] {
            program.run();
            program.retrieveAll();
        });
    printFigure(subject.name + u": bare loop"_s, secondsText(seconds.baseline.clock));
    printFigure(subject.name + u": window, Run to the last row"_s, secondsText(seconds.ours.clock));
    printRatio(subject.name + u": window / bare loop"_s, seconds.ratio(), subject.timeGoal);
    printRatio(subject.name + u": the same in processor time of this process"_s,
               seconds.processorRatio());
}

void measure(const Subject &subject)
{
    const ProviderSession provider = openProvider(subject.connectionString);
    BareOdbc bare(provider.odbcConnectionString);
    RunningProgram program(subject.connectionString);
    program.setText(subject.query);
    printMemoryAndTurns(subject, bare, program);
    printStop(subject, program);
    printTimes(subject, bare, program);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const QString subject = arguments.size() > 1 ? arguments[1] : u"server"_s;
    if (arguments.size() == 3) {
        measure({u"the query"_s, arguments[1], arguments[2]});
    } else if (subject == "server"_L1) {
        const ServerSample sample(sandboxConnectionString());
        measure({u"SAMPLE"_s, sandboxConnectionString(), sample.query(), 1.15, 1.3});
    } else if (subject == "sqlite"_L1) {
        measure({u"SQLite"_s, sampleTable(), u"select * from SAMPLE"_s, 1.15, 1.3});
    } else if (subject == "sales"_L1) {
        measure({u"SALES"_s, sandboxConnectionString(), u"select * from sales order by sale_id"_s,
                 1.5, 0});
    } else {
        giveUp(u"bench_window [server | sqlite | sales | <connection string> <query>]"_s);
    }
    return 0;
}
