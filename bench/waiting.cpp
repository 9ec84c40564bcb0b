// What a user waits for when a statement is cancelled or a log-on given up, how alive the windows
// are meanwhile, and what it costs a short statement that the driver has a thread of its own.
//
//     bench_waiting                                            SQLite, the sandbox and log-on
//     bench_waiting <name> <connection string> <statement>     cancelling on another server
//
// It needs a display, or QT_QPA_PLATFORM=offscreen.

#include "app/MDIFormQuerna.h"
#include "controls/forms/WaitingLoop.h"
#include "dataaccess/Connection.h"
#include "dataaccess/Recordset.h"
#include "platform/errorTraps.h"
#include "support/EventTurns.h"
#include "support/figures.h"
#include "support/inTurn.h"
#include "support/sampleTable.h"
#include "uisupport/RunningProgram.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include <netinet/in.h>
#include <sys/socket.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto watchInterval = 5ms;

void pressEscape(ProgramFixture &program)
{
    QTest::keyClick(program.frame().windowHandle(), Qt::Key_Escape);
}

void printCancel(const QString &name, const QString &connectionString, const QString &slow)
{
    RunningProgram program(connectionString);
    QElapsedTimer clock;
    EventTurns turns;
    double toMessage = -1;
    setMessagePresenter(
        [&](const QString &) { toMessage = static_cast<double>(clock.nsecsElapsed()) / 1e6; });
    QTimer::singleShot(200ms, [&] { turns.start(watchInterval); });
    QTimer::singleShot(1500ms, [&] {
        turns.stop();
        clock.start();
        pressEscape(program.fixture());
    });
    program.setText(slow);
    program.run();
    if (toMessage < 0)
        giveUp(u"The statement was not cancelled."_s);
    printMilliseconds(name + u": from Esc to the message that it was cancelled"_s, toMessage, 1000);
    printMilliseconds(name + u": longest time between event-loop turns meanwhile"_s,
                      turns.milliseconds(1), 50);
}

/// A port that takes connections and says nothing.
int silentPort()
{
    const int listener = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto *const generic = reinterpret_cast<sockaddr *>(&address);
    if (::bind(listener, generic, size) != 0 || ::listen(listener, 8) != 0 ||
        ::getsockname(listener, generic, &size) != 0)
        giveUp(u"There is no port to listen on."_s);
    return ntohs(address.sin_port);
}

void printLogOn()
{
    ProgramFixture program;
    QElapsedTimer clock;
    QTimer::singleShot(500ms, [&] { pressEscape(program); });
    QTimer::singleShot(3000ms, [&] {
        clock.start();
        pressEscape(program);
    });
    program.start(
        u"DRIVER=MariaDB Unicode;SERVER=127.0.0.1;PORT=%1;UID=x;PWD=y;"_s.arg(silentPort()));
    if (!clock.isValid())
        giveUp(u"The log-on ended by itself."_s);
    printMilliseconds(u"a log-on to a silent host, from the second Esc to its end"_s,
                      static_cast<double>(clock.nsecsElapsed()) / 1e6, 500);
}

void printShortStatements()
{
    constexpr int count = 5000;
    const auto opened = [] {
        const auto connection = std::make_shared<Connection>();
        connection->Open(sqliteConnection(u":memory:"_s));
        return connection;
    };
    const auto threaded = opened();
    setWaitPresenter({});
    const auto plain = opened();
    WaitingLoop::install();
    const auto run = [](const std::shared_ptr<Connection> &connection) {
        for (int i = 0; i < count; ++i)
            connection->Execute(u"select 1"_s);
    };
    const TwoSides seconds = measureInTurn(
        manyRounds, [&] { run(plain); }, [&] { run(threaded); });
    const auto microseconds = [](double difference) { return difference / count * 1e6; };
    const double more = microseconds(seconds.ours.processor - seconds.baseline.processor);
    const QString goal = more <= 30 ? u"<= 30 µs  met"_s : u"<= 30 µs  MISSED"_s;
    printFigure(u"a short query: processor time for the way to the driver's thread"_s,
                QString::number(more, 'f', 1) + u" µs"_s, goal);
    printFigure(u"the same by the clock"_s,
                QString::number(microseconds(seconds.ours.clock - seconds.baseline.clock), 'f', 1) +
                    u" µs"_s);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() == 4) {
        printCancel(arguments[1], arguments[2], arguments[3]);
        return 0;
    }
    printCancel(u"sandbox"_s, sandboxConnectionString(), u"select sleep(30) from dual"_s);
    printCancel(u"SQLite"_s, sqliteConnection(u":memory:"_s),
                u"with recursive c(n) as (select 1 union all select n + 1 from c) "
                "select max(n) from c"_s);
    printShortStatements();
    printLogOn();
    return 0;
}
