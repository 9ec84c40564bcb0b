// A script of many statements and many lines of server output on the sandbox, against bare loops
// of the same calls.

#include "dataaccess/providers.h"
#include "dataaccess/sandbox/sandboxDialect.h"
#include "editor/frmQuerna.h"
#include "sqltext/scriptRunner.h"
#include "support/BareOdbc.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "uisupport/PaintWatch.h"
#include "uisupport/RunningProgram.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int count = 10'000;
constexpr int outputTab = 2;
const QString largestBuffer = u"1000000"_s;

QString script()
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += u"update emp set sal = %1 where empno = 7369;\r\n"_s.arg(1000 + i);
    return text;
}

/// What the program gives the driver: the blocks that it makes of a script's statements, in the
/// form that has the driver answer them in full.
QStringList commandsOf(const QString &text)
{
    QStringList commands;
    QString errors;
    runScript(text, errors,
              [&](const QString &command) { commands += blockStatement(command).value(); });
    return commands;
}

void printScript(RunningProgram &program, BareOdbc &bare)
{
    const QString text = script();
    const QStringList commands = commandsOf(text);
    if (commands.size() != count)
        giveUp(u"The script has %1 statements."_s.arg(commands.size()));
    program.setText(text);
    // Both sides change the same row, and neither may wait for the other.
    const TwoSides seconds = measureInTurn(
        fewRounds,
        [&] {
            for (const QString &command : commands)
                bare.execute(command);
            bare.rollback();
        },
        [&] {
            program.runScript();
            program.rollback();
        });
    printFigure(u"script of 10,000 statements"_s, secondsText(seconds.ours.clock));
    printRatio(u"script of 10,000 statements / a bare loop"_s, seconds.ratio(), 1.15);
    printRatio(u"the same in processor time of this process"_s, seconds.processorRatio());
}

void printOutput(RunningProgram &program, BareOdbc &bare)
{
    const QString statement =
        u"begin for i in 1..%1 loop dbms_output.put_line('a line of output, number ' || i); "
        "end loop; end;"_s.arg(count);
    const auto &window = *program.fixture().editor();
    window.findChild<QTabWidget *>(u"tbSql"_s)->setCurrentIndex(outputTab);
    window.findChild<QLineEdit *>(u"txtBufferSize"_s)->setText(largestBuffer);
    auto *pane = window.findChild<QPlainTextEdit *>(u"rtbdbms"_s);
    PaintWatch watch(pane->viewport());
    watch.wait();
    program.setText(statement);

    qint64 bareLines = 0;
    const TwoSides seconds = measureInTurn(
        fewRounds,
        [&] {
            bare.execute(u"{call dbms_output.disable}"_s);
            bare.execute(u"{call dbms_output.enable(%1)}"_s.arg(largestBuffer));
            bare.execute(statement);
            bareLines = bare.readLines(u"{call dbms_output.get_line(?, ?)}"_s);
            bare.execute(u"{call dbms_output.disable}"_s);
        },
        [&] {
            program.run();
            watch.wait();
        });
    if (bareLines != count || pane->toPlainText().count(u'\n') != count)
        giveUp(u"Lines of output are missing."_s);
    printFigure(u"10,000 lines of server output, written, read and shown"_s,
                secondsText(seconds.ours.clock));
    printRatio(u"10,000 lines of server output / a bare loop"_s, seconds.ratio(), 1.15);
    printRatio(u"the same in processor time of this process"_s, seconds.processorRatio());
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    RunningProgram program(sandboxConnectionString());
    const ProviderSession provider = openProvider(sandboxConnectionString());
    BareOdbc bare(provider.odbcConnectionString);
    bare.beginTransactions();
    printScript(program, bare);
    printOutput(program, bare);
    return 0;
}
