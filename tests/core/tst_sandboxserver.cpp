#include "dataaccess/Connection.h"
#include "dataaccess/sandbox/Sandbox.h"
#include "support/DataRows.h"
#include "support/SandboxFixture.h"
#include "support/raisedError.h"
#include "support/testFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include <signal.h>

using namespace Qt::StringLiterals;
using SandboxFixture::logOn;
using SandboxFixture::scalar;

namespace {

constexpr int patience = 30'000; // milliseconds

// A client in a process of its own: this program, see main(). It says "ready" when it is logged on,
// and again for every line that its connection still works, and goes when its input ends.
class Client
{
public:
    Client()
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QCoreApplication::applicationFilePath(), {u"--client"_s});
    }
    ~Client() { kill(); }

    bool isReady()
    {
        while (!m_output.endsWith("ready\n")) {
            if (!m_process.waitForReadyRead(patience))
                return false;
            m_output += m_process.readAll();
        }
        return true;
    }
    bool works()
    {
        m_output.clear();
        m_process.write("\n");
        return isReady();
    }
    void leave()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished(patience);
    }
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished(patience);
    }

private:
    QProcess m_process;
    QByteArray m_output;
};

int runClient()
{
    try {
        const auto connection = logOn();
        do {
            connection->Execute(u"select count(*) from emp"_s);
            std::puts("ready");
            std::fflush(stdout);
        } while (std::getchar() != EOF);
        return 0;
    } catch (const RuntimeError &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}

qint64 serverId()
{
    return SandboxServer::processId(SandboxFolder::ofUser());
}

// Processes whose command line has @p argument.
QList<qint64> processesWith(const QString &argument)
{
    QList<qint64> found;
    for (const QString &entry : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        QFile file(u"/proc/%1/cmdline"_s.arg(entry));
        if (entry.toLongLong() > 0 && file.open(QIODevice::ReadOnly) &&
            file.readAll().split('\0').contains(argument.toLocal8Bit()))
            found.append(entry.toLongLong());
    }
    return found;
}

// Whether any process has its working folder in @p folder or below.
bool isAtWorkIn(const QString &folder)
{
    const QStringList processes = QDir(u"/proc"_s).entryList(QDir::Dirs);
    return std::any_of(processes.begin(), processes.end(), [&](const QString &entry) {
        return QFile::symLinkTarget(u"/proc/%1/cwd"_s.arg(entry)).startsWith(folder);
    });
}

QList<qint64> waiters()
{
    return processesWith(SandboxFolder::ofUser().file(u"life.lock"_s));
}

void killProcess(qint64 id)
{
    ::kill(static_cast<pid_t>(id), SIGKILL);
}

} // namespace

/// The life of the sandbox's server, from its first client to its last, in a folder of its own.
class tst_sandboxserver : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void folderIsPrivate();
    void clientsComeAndGo_data();
    void clientsComeAndGo();
    void clientsStartingTogether();
    void serverKilled();
    void serverStopped();
    void serverThatCannotStart();
    void waiterKilledThenComing();
    void olderObjectsAreRenewed();
    void brokenFirstStart();
    void folderThatCannotBe();

private:
    QTemporaryDir m_folder;
    QStringList m_progress;
};

void tst_sandboxserver::initTestCase()
{
    // A blank in the path: the usual place has one as well.
    const QString folder = m_folder.filePath(u"Orbek Oracle/sandbox"_s);
    qputenv(SandboxFixture::folderVariable, folder.toLocal8Bit());
    setSandboxProgress([this](const QString &text) { m_progress.append(text); });

    const auto connection = logOn();
    QCOMPARE(scalar(connection, u"select count(*) from emp"_s), u"14"_s);
    QCOMPARE(m_progress.size(), 2);
    QVERIFY(m_progress[0].contains(u"database"_s));
    QVERIFY(m_progress[1].contains(u"server"_s));
}

// Whatever a test did: with its clients gone the server goes, and what waits for that.
void tst_sandboxserver::cleanup()
{
    QTRY_COMPARE_WITH_TIMEOUT(serverId(), 0, patience);
    QTRY_COMPARE_WITH_TIMEOUT(waiters().size(), 0, patience);
}

void tst_sandboxserver::folderIsPrivate()
{
    const auto connection = logOn();
    const QFileInfo folder(SandboxFolder::ofUser().path());
    QCOMPARE(folder.permissions() & 0x0fff, QFile::Permissions(0x0700) & 0x0fff);
    QVERIFY(QFileInfo(SandboxFolder::ofUser().file(u"socket"_s)).exists());

    const RuntimeError error = raised([] { logOn(u"scott"_s, u"some lion"_s); });
    QVERIFY(error.number != 0 && !error.description.contains(u"some lion"_s));
    QDirIterator files(folder.filePath(), QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QFileInfo file(files.next());
        QVERIFY2((file.permissions() & 0x0077) == 0, qPrintable(file.filePath()));
        if (file.isDir())
            continue;
        const QByteArray content = contentOf(file.filePath());
        for (const char *password : {"tiger", "lantern", "some lion"})
            QVERIFY2(!content.contains(password), qPrintable(file.filePath()));
    }

    QFile::setPermissions(folder.filePath(), QFile::Permissions(0x7755));
    const auto other = logOn();
    QCOMPARE(QFileInfo(folder.filePath()).permissions() & 0x0077, QFile::Permissions());
}

void tst_sandboxserver::clientsComeAndGo_data()
{
    const DataRows<bool, bool, bool> row("starterGoesFirst", "firstIsKilled", "lastIsKilled");
    row("in order", true, false, false);
    row("starter killed", true, true, false);
    row("guest killed, then the starter", false, true, true);
    row("guest leaves, starter killed", false, false, true);
}

// Whoever goes, and however, leaves the other one its server; the last one takes it along.
void tst_sandboxserver::clientsComeAndGo()
{
    QFETCH(bool, starterGoesFirst);
    QFETCH(bool, firstIsKilled);
    QFETCH(bool, lastIsKilled);
    Client starter;
    QVERIFY(starter.isReady());
    const qint64 server = serverId();
    QVERIFY(server != 0);

    // By another name of the folder.
    const QByteArray usual = qgetenv(SandboxFixture::folderVariable);
    const QString link = m_folder.filePath(u"link"_s);
    QVERIFY(QFile::exists(link) || QFile::link(m_folder.filePath(u"Orbek Oracle"_s), link));
    qputenv(SandboxFixture::folderVariable, link.toLocal8Bit() + "/sandbox");
    Client guest;
    qputenv(SandboxFixture::folderVariable, usual);
    QVERIFY(guest.isReady());
    QCOMPARE(serverId(), server);
    QCOMPARE(waiters().size(), 1);

    Client &first = starterGoesFirst ? starter : guest;
    Client &last = starterGoesFirst ? guest : starter;
    firstIsKilled ? first.kill() : first.leave();
    QTest::qWait(100);
    QVERIFY(last.works());
    QCOMPARE(serverId(), server);
    lastIsKilled ? last.kill() : last.leave();
    QTRY_COMPARE_WITH_TIMEOUT(serverId(), 0, patience);
    QTRY_VERIFY_WITH_TIMEOUT(!QFileInfo::exists(SandboxFolder::ofUser().file(u"socket"_s)),
                             patience);
}

void tst_sandboxserver::clientsStartingTogether()
{
    std::vector<std::unique_ptr<Client>> clients;
    for (int number = 0; number < 5; ++number)
        clients.push_back(std::make_unique<Client>());
    clients[1]->kill(); // in the midst of starting
    for (size_t number = 2; number < clients.size(); ++number)
        QVERIFY(clients[number]->isReady());
    const QString data = u"--datadir="_s + SandboxFolder::ofUser().dataPath();
    QCOMPARE(processesWith(data), QList<qint64>{serverId()});
}

void tst_sandboxserver::serverKilled()
{
    auto connection = logOn();
    connection->Execute(u"create table kept (a number)"_s);
    connection->BeginTrans();
    connection->Execute(u"insert into kept values (1)"_s);
    connection->CommitTrans();
    connection->BeginTrans();
    connection->Execute(u"insert into kept values (2)"_s);
    killProcess(serverId());
    QVERIFY(raisedError([&] { connection->Execute(u"select * from kept"_s); }) != 0);

    // With the old connection still holding on.
    const auto again = logOn();
    QCOMPARE(SandboxFixture::table(again, u"select * from kept"_s), u"1"_s);
    connection->Close();
    again->Execute(u"drop table kept"_s);
    QVERIFY(serverId() != 0);
}

// A server that does nothing is told of in time, and goes nevertheless with its last client.
void tst_sandboxserver::serverStopped()
{
    auto connection = logOn();
    const auto server = static_cast<pid_t>(serverId());
    QVERIFY(::kill(server, SIGSTOP) == 0);
    const auto goOn = qScopeGuard([server] { ::kill(server, SIGCONT); });
    QElapsedTimer timer;
    timer.start();
    const RuntimeError error = raised([] { logOn(); });
    QVERIFY2(error.description.contains(u"does not answer"_s), error.what());
    QVERIFY(timer.elapsed() < patience);
}

// The server's own words come at once, not when waiting for it is given up.
void tst_sandboxserver::serverThatCannotStart()
{
    QDir data(SandboxFolder::ofUser().dataPath());
    QVERIFY(data.rename(u"mysql"_s, u"elsewhere"_s));
    const auto putBack = qScopeGuard([&] { data.rename(u"elsewhere"_s, u"mysql"_s); });
    QElapsedTimer timer;
    timer.start();
    const RuntimeError error = raised([] { logOn(); });
    QVERIFY2(error.description.contains(u"could not be started"_s), error.what());
    QVERIFY2(error.description.contains(u"[ERROR]"_s), error.what());
    QVERIFY(timer.elapsed() < patience / 2);
}

void tst_sandboxserver::waiterKilledThenComing()
{
    auto connection = logOn();
    const qint64 server = serverId();
    QTRY_COMPARE_WITH_TIMEOUT(waiters().size(), 1, patience);
    killProcess(waiters().first());
    QTRY_COMPARE_WITH_TIMEOUT(waiters().size(), 0, patience);
    connection->Close();
    QTest::qWait(300);
    QCOMPARE(serverId(), server); // nobody is left to stop it, until the next one comes

    // Clients that come while the server is being stopped find it stopped and start it again.
    for (int round = 0; round < 5; ++round) {
        QCOMPARE(scalar(logOn(), u"select 1 from dual"_s), u"1"_s);
        QTest::qWait(40 * round);
    }
}

void tst_sandboxserver::olderObjectsAreRenewed()
{
    auto connection = logOn(u"system"_s, u"lantern"_s);
    connection->Execute(u"drop view sys.all_users"_s);
    connection->Execute(u"create table scott.mine (a number)"_s);
    connection->Close();
    QTRY_COMPARE_WITH_TIMEOUT(serverId(), 0, patience);
    QVERIFY(QFile::resize(SandboxFolder::ofUser().dataPath() + u"/querna-objects"_s, 0));

    connection = logOn();
    QCOMPARE(scalar(connection, u"select count(*) from sys.all_users"_s), u"2"_s);
    QCOMPARE(scalar(connection, u"select count(*) from mine"_s), u"0"_s);
    connection->Execute(u"drop table mine"_s);
}

// A first start that was broken off leaves nothing that the next one would take for a database.
// The folder's path is too long for a socket.
void tst_sandboxserver::brokenFirstStart()
{
    const QByteArray usual = qgetenv(SandboxFixture::folderVariable);
    const QString folder = m_folder.filePath(QString(100, u'x') + u"/sandbox"_s);
    qputenv(SandboxFixture::folderVariable, folder.toLocal8Bit());

    for (const int time : {0, 300}) {
        Client client;
        QTRY_VERIFY_WITH_TIMEOUT(!QDir(folder).entryList({u"data.new-*"_s}, QDir::Dirs).isEmpty(),
                                 patience);
        QTest::qWait(time);
        client.kill();
    }
    auto connection = logOn();
    QCOMPARE(scalar(connection, u"select count(*) from sales"_s), u"100000"_s);
    const QFileInfo socket(SandboxServer(SandboxFolder::ofUser(), {}).socketPath());
    QCOMPARE(QFileInfo(socket.path()).permissions() & 0x0077, QFile::Permissions());
    connection->Close();
    QTRY_COMPARE_WITH_TIMEOUT(serverId(), 0, patience);
    QTRY_VERIFY_WITH_TIMEOUT(!QFileInfo::exists(socket.path()), patience);

    // What the broken-off attempts still wrote goes with the next start.
    QTRY_VERIFY_WITH_TIMEOUT(!isAtWorkIn(folder), patience);
    logOn()->Close();
    QCOMPARE(QDir(folder).entryList({u"data*"_s}, QDir::Dirs), QStringList{u"data"_s});
    QTRY_COMPARE_WITH_TIMEOUT(serverId(), 0, patience);
    qputenv(SandboxFixture::folderVariable, usual);
}

void tst_sandboxserver::folderThatCannotBe()
{
    const QByteArray usual = qgetenv(SandboxFixture::folderVariable);
    QFile file(m_folder.filePath(u"file"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    for (const QString &path : {file.fileName(), file.fileName() + u"/below/sandbox"_s}) {
        qputenv(SandboxFixture::folderVariable, path.toLocal8Bit());
        const RuntimeError error = raised([] { logOn(); });
        QCOMPARE(error.number, ErrorNumber::PathFileAccessError);
        QVERIFY(error.description.contains(path));
    }
    qputenv(SandboxFixture::folderVariable, usual);
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    if (application.arguments().contains(u"--client"_s))
        return runClient();
    tst_sandboxserver test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_sandboxserver.moc"
