// From starting the program's process to its editor on the screen, connected to the sandbox's
// running server, and what it then occupies; against a process with a bare main window.

#include "dataaccess/providers/providers.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "uisupport/RunningProgram.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 15;
constexpr auto idleTime = 500; // milliseconds

struct Started
{
    double seconds = 0;
    double residentBytes = 0;
};

double residentBytes(qint64 process)
{
    QFile status(u"/proc/%1/status"_s.arg(process));
    if (!status.open(QIODevice::ReadOnly))
        giveUp(status.errorString());
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).chopped(3).trimmed().toDouble() * 1024;
    }
    return 0;
}

Started start(const QString &program, const QStringList &arguments)
{
    QProcess process;
    QElapsedTimer clock;
    clock.start();
    process.start(program, arguments);
    if (!process.waitForReadyRead(30'000))
        giveUp(program + u" does not come up."_s);
    Started result;
    result.seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
    QThread::msleep(idleTime);
    result.residentBytes = residentBytes(process.processId());
    process.kill();
    process.waitForFinished();
    return result;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QString folder = QCoreApplication::applicationDirPath();
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(settings.path()));
    const ProviderSession runningServer = openProvider(sandboxConnectionString());

    Started window;
    Started program;
    const TwoSides seconds = compareInTurn(
        rounds,
        [&] {
            window = start(folder + u"/startup_window"_s, {});
            return window.seconds;
        },
        [&] {
            program = start(QStringLiteral(PROGRAM_FOLDER "/startup_program"),
                            {sandboxConnectionString()});
            return program.seconds;
        });
    printFigure(u"start to a bare main window on the screen"_s,
                secondsText(seconds.baseline.clock));
    printFigure(u"start to the program's editor on the screen"_s, secondsText(seconds.ours.clock));
    printRatio(u"start of the program / of the bare window"_s, seconds.ratio(), 2.5);
    printFigure(u"resident size of the idle program"_s,
                megabytesText(static_cast<qint64>(program.residentBytes)));
    printRatio(u"that / the bare window's"_s, program.residentBytes / window.residentBytes, 2);
    return 0;
}
