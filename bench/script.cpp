// A script of many statements and many lines of server output on the sandbox, against bare loops
// of the same calls.

#include "dataaccess/providers/providers.h"
#include "dataaccess/sandbox/SandboxServer.h"
#include "dataaccess/sandbox/sandboxDialect.h"
#include "editor/frmQuerna.h"
#include "sqltext/scriptRunner.h"
#include "support/BareOdbc.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "support/oneCore.h"
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
    runScript(text, errors, [&](const QString &command, QStringView) {
        commands += blockStatement(command).value();
    });
    return commands;
}

/// Runs one script in turn by both.
class ScriptInTurn
{
public:
    ScriptInTurn(RunningProgram &program, BareOdbc &bare)
        : m_program(program)
        , m_bare(bare)
        , m_commands(commandsOf(script()))
    {
        if (m_commands.size() != count)
            giveUp(u"The script has %1 statements."_s.arg(m_commands.size()));
    }

    TwoSides measure(int rounds)
    {
        m_program.setText(script());
        // Both sides change the same row, and neither may wait for the other.
        return measureInTurn(
            rounds,
            [this] {
                for (const QString &command : m_commands)
                    m_bare.execute(command);
                m_bare.rollback();
            },
            [this] {
                m_program.runScript();
                m_program.rollback();
            });
    }

private:
    RunningProgram &m_program;
    BareOdbc &m_bare;
    QStringList m_commands;
};

/// Writes, reads and shows lines of output in turn by both.
class OutputInTurn
{
public:
    OutputInTurn(RunningProgram &program, BareOdbc &bare)
        : m_program(program)
        , m_bare(bare)
        , m_pane(program.fixture().editor()->findChild<QPlainTextEdit *>(u"rtbdbms"_s))
        , m_watch(m_pane->viewport())
    {
    }

    TwoSides measure(int rounds)
    {
        const auto &window = *m_program.fixture().editor();
        window.findChild<QTabWidget *>(u"tbSql"_s)->setCurrentIndex(outputTab);
        window.findChild<QLineEdit *>(u"txtBufferSize"_s)->setText(largestBuffer);
        m_pane->viewport()->update();
        m_watch.wait();
        m_program.setText(statement());
        qint64 bareLines = 0;
        const TwoSides seconds = measureInTurn(
            rounds,
            [&] {
                m_bare.execute(u"{call dbms_output.disable}"_s);
                m_bare.execute(u"{call dbms_output.enable(%1)}"_s.arg(largestBuffer));
                m_bare.execute(statement());
                bareLines = m_bare.readLines(u"{call dbms_output.get_line(?, ?)}"_s);
                m_bare.execute(u"{call dbms_output.disable}"_s);
            },
            [&] {
                m_program.run();
                m_watch.wait();
            });
        if (bareLines != count || m_pane->toPlainText().count(u'\n') != count)
            giveUp(u"Lines of output are missing."_s);
        return seconds;
    }

private:
    static QString statement()
    {
        return u"begin for i in 1..%1 loop "
               "dbms_output.put_line('a line of output, number ' || i); end loop; end;"_s.arg(
                   count);
    }

    RunningProgram &m_program;
    BareOdbc &m_bare;
    QPlainTextEdit *m_pane;
    PaintWatch m_watch;
};

void print(const QString &what, const TwoSides &onOneCore, const TwoSides &anywhere)
{
    printFigure(what, secondsText(onOneCore.ours.clock));
    printRatio(what + " / a bare loop"_L1, onOneCore.ratio(), 1.15);
    printRatio(u"the same in processor time of this process"_s, onOneCore.processorRatio());
    printRatio(u"the same by the clock, on whatever cores the system chooses"_s, anywhere.ratio());
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    RunningProgram program(sandboxConnectionString());
    const ProviderSession provider = openProvider(sandboxConnectionString());
    BareOdbc bare(provider.odbcConnectionString);
    bare.beginTransactions();

    constexpr int rounds = 11;
    ScriptInTurn script(program, bare);
    OutputInTurn output(program, bare);
    const TwoSides scriptAnywhere = script.measure(fewRounds);
    const TwoSides outputAnywhere = output.measure(fewRounds);
    shareOneCore(SandboxServer::processId(SandboxFolder::ofUser()));
    print(u"script of 10,000 statements"_s, script.measure(rounds), scriptAnywhere);
    print(u"10,000 lines of server output, written, read and shown"_s, output.measure(rounds),
          outputAnywhere);
    return 0;
}
