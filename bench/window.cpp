// "Retrieve all records" in the real window, against a bare ODBC loop that throws the values away.
//
//     bench_window                              the sandbox's SALES
//     bench_window --sample                     a generated SQLite table of 1,000,000 rows
//     bench_window <connection string> <query>  anything else
//
// It needs a display, or QT_QPA_PLATFORM=offscreen.

#include "app/MDIFormQuerna.h"
#include "controls/EditorControl.h"
#include "dataaccess/Recordset.h"
#include "dataaccess/providers.h"
#include "editor/frmQuerna.h"
#include "platform/messageBox.h"
#include "support/BareOdbc.h"
#include "support/EventTurns.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "support/memory.h"
#include "support/sampleTable.h"
#include "uisupport/ProgramFixture.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QStringList>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 5;
constexpr int rowsPerBlock = 100;
constexpr qint64 sampleRows = 1'000'000;
constexpr double largestGapMilliseconds = 25;

struct Subject
{
    QString name;
    QString connectionString;
    QString query;
    double timeGoal;   ///< 0 for none
    double memoryGoal; ///< 0 for none
};

[[noreturn]] void giveUp(const QString &why)
{
    std::fprintf(stderr, "%s\n", qPrintable(why));
    std::_Exit(1);
}

Subject subjectOf(const QStringList &arguments)
{
    if (arguments.size() == 3)
        return {u"the query"_s, arguments[1], arguments[2], 0, 0};
    if (arguments.size() == 2 && arguments[1] == "--sample"_L1)
        return {u"SAMPLE"_s, sampleTable(sampleRows), u"select * from SAMPLE"_s, 1.3, 1.3};
    if (arguments.size() != 1)
        giveUp(u"bench_window [--sample | <connection string> <query>]"_s);
    return {u"SALES"_s,
            u"Provider=OrbekSandbox;Data Source=SANDBOX;User ID=scott;Password=tiger;"_s,
            u"select * from sales order by sale_id"_s, 1.5, 0};
}

/// The program, doing what a user does who wants to see all rows of a query.
class Window
{
public:
    Window(const Subject &subject)
    {
        // Nobody is there to close a message box.
        setMessagePresenter(
            {[](const Message &message) -> MessageAnswer { giveUp(message.text); }, [] {}});
        m_program.start(subject.connectionString);
        if (!m_program.ends.empty() || m_program.editor() == nullptr)
            giveUp(u"The program cannot be started on "_s + subject.connectionString);
        m_program.text()->setText(subject.query);
    }

    void run() { m_program.editor()->tbrQuerna_ButtonClick(1); }
    void retrieveAll() { m_program.editor()->Toolbar1_ButtonClick(2); }
    std::shared_ptr<Recordset> rows() const { return m_program.editor()->rsResult(); }

private:
    ProgramFixture m_program;
};

/// One retrieval of each side that is not timed: it warms both up, and what is measured here would
/// disturb the clock.
void printMemoryAndTurns(const Subject &subject, BareOdbc &bare, Window &window)
{
    const qint64 before = peakResidentBytes();
    const qint64 bareRows = bare.retrieve(subject.query, rowsPerBlock);
    const qint64 afterBare = peakResidentBytes();
    EventTurns turns;
    QElapsedTimer clock;
    clock.start();
    window.run();
    const double firstRows = static_cast<double>(clock.nsecsElapsed()) / 1e9;
    turns.start();
    window.retrieveAll();
    turns.stop();
    const qint64 added = peakResidentBytes() - afterBare;

    if (window.rows()->RecordCount() != bareRows)
        giveUp(
            u"The window shows %1 rows of %2."_s.arg(window.rows()->RecordCount()).arg(bareRows));
    const qint64 text = textBytes(*window.rows());
    printFigure(subject.name + u": rows"_s, QString::number(bareRows));
    printFigure(subject.name + u": text of the cells"_s, megabytesText(text));
    printFigure(subject.name + u": peak resident growth, bare loop"_s,
                megabytesText(afterBare - before));
    printFigure(subject.name + u": peak resident growth, window, on top of that"_s,
                megabytesText(added));
    printRatio(subject.name + u": that growth / text of the cells"_s,
               static_cast<double>(added) / static_cast<double>(text), subject.memoryGoal);
    printFigure(subject.name + u": Run alone, to the first 25 rows"_s, secondsText(firstRows));

    const double gap = turns.milliseconds(0.99);
    printFigure(subject.name + u": time between event-loop turns, 99th percentile"_s,
                QString::number(gap, 'f', 2) + u" ms"_s,
                u"<= %1 ms  %2"_s.arg(QString::number(largestGapMilliseconds),
                                      gap <= largestGapMilliseconds ? u"met"_s : u"MISSED"_s));
    printFigure(subject.name + u": the longest of %1 such times"_s.arg(turns.count()),
                QString::number(turns.milliseconds(1), 'f', 2) + u" ms"_s);
}

void printTimes(const Subject &subject, BareOdbc &bare, Window &window)
{
    const TwoSides seconds = measureInTurn(
        rounds, [&] { bare.retrieve(subject.query, rowsPerBlock); },
        [&] {
            window.run();
            window.retrieveAll();
        });
    printFigure(subject.name + u": bare loop"_s, secondsText(seconds.baseline.clock));
    printFigure(subject.name + u": window, Run to the last row"_s, secondsText(seconds.ours.clock));
    printRatio(subject.name + u": window / bare loop"_s, seconds.ratio(), subject.timeGoal);
    printRatio(subject.name + u": the same in processor time of this process"_s,
               seconds.processorRatio());
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const Subject subject = subjectOf(QApplication::arguments());

    const ProviderSession provider = openProvider(subject.connectionString);
    BareOdbc bare(provider.odbcConnectionString);
    Window window(subject);
    printMemoryAndTurns(subject, bare, window);
    printTimes(subject, bare, window);
    return 0;
}
