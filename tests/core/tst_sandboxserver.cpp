#include "dataaccess/providers/providers.h"
#include "dataaccess/sandbox/SandboxServer.h"
#include "support/LooseEnd.h"
#include "support/coreTest.h"

#include <cstdio>

#include <signal.h>

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
    ~Client() { end(); }

    bool isReady()
    {
        do {
            m_output += m_process.readAll();
        } while (!m_output.endsWith("ready\n") && m_process.waitForReadyRead(patience));
        return m_output.endsWith("ready\n");
    }
    bool works()
    {
        m_output.clear();
        m_process.write("\n");
        return isReady();
    }
    void end(bool isKilled = true)
    {
        isKilled ? m_process.kill() : m_process.closeWriteChannel();
        m_process.waitForFinished(patience);
    }

private:
    QProcess m_process;
    QByteArray m_output;
};

int runClient()
{
    const auto connection = logOn(); // a failure ends the process with its words
    do {
        connection->Execute(u"select count(*) from emp"_s);
        std::puts("ready");
        std::fflush(stdout);
    } while (std::getchar() != EOF);
    return 0;
}

qint64 serverId()
{
    return SandboxServer::processId(SandboxFolder::ofUser());
}

// The server's process and its parent, and what makes the database: all work in the folder.
QList<pid_t> processes()
{
    const QString folder = SandboxFolder::ofUser().path();
    QList<pid_t> found;
    for (const QString &entry : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        if (QFile::symLinkTarget(u"/proc/%1/cwd"_s.arg(entry)).startsWith(folder))
            found.append(entry.toInt());
    }
    return found;
}

} // namespace

/// The life of the sandbox's server, from its first client to its last, in a folder of its own.
class tst_sandboxserver : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void folderIsPrivate();
    void clientsComeAndGo_data();
    void clientsComeAndGo();
    void clientsStartingTogether();
    void waitingIsTold();
    void manyWindows();
    void serverOfSomebodyElse();
    void serverKilled();
    void supervisorKilled();
    void serverStopped();
    void serverThatCannotStart();
    void brokenFirstStart();
    void folderThatCannotBe();

private:
    void useFolder(const QString &name)
    {
        qputenv(SandboxFixture::folderVariable, m_folder.filePath(name).toLocal8Bit());
    }

    QTemporaryDir m_folder;
    QStringList m_progress;
    FileLock m_held; // until something is told
};

void tst_sandboxserver::init()
{
    // Characters that mean something to shells, to connection strings or to the server.
    useFolder(u"Orbek: ${x}; '1'/sandbox"_s);
    m_progress.clear();
    setProviderProgress([this](const QString &text) {
        m_progress.append(text);
        m_held.unlock();
    });
}

// Whatever a test did: with its clients gone all that they started goes.
void tst_sandboxserver::cleanup()
{
    QTRY_COMPARE_WITH_TIMEOUT(processes().size(), 0, patience);
}

void tst_sandboxserver::folderIsPrivate()
{
    const auto connection = logOn();
    QCOMPARE(scalar(connection, u"select count(*) from sales"_s), u"100000"_s);
    QCOMPARE(m_progress.size(), 2);
    QVERIFY(m_progress[0].contains(u"database"_s) && m_progress[1].contains(u"server"_s));
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
    const DataRows<bool> row("areKilled");
    row("guest leaves", false);
    row("starter killed", true);
}

// Whoever goes, and however, leaves the other one its server; the last one takes it along.
void tst_sandboxserver::clientsComeAndGo()
{
    QFETCH(bool, areKilled);
    LooseEnd looseEnd;
    Client starter;
    QVERIFY(starter.isReady());
    const QList<pid_t> started = processes();
    QCOMPARE(started.size(), 2);

    // By another name of the folder.
    const QString link = m_folder.filePath(u"link"_s);
    QFile::link(QFileInfo(SandboxFolder::ofUser().path()).path(), link);
    useFolder(u"link/sandbox"_s);
    Client guest;
    QVERIFY(guest.isReady());
    QCOMPARE(processes(), started);

    (areKilled ? starter : guest).end(areKilled);
    QTest::qWait(100);
    Client &last = areKilled ? guest : starter;
    QVERIFY(last.works());
    QCOMPARE(processes(), started);
    last.end(areKilled);
    QVERIFY(looseEnd.isOursAlone());
}

void tst_sandboxserver::clientsStartingTogether()
{
    for (const int time : {0, 30, 100, 200}) {
        std::vector<std::unique_ptr<Client>> clients;
        for (int number = 0; number < 4; ++number)
            clients.push_back(std::make_unique<Client>());
        QTest::qWait(time);
        clients[0]->end(); // in the midst of starting
        clients[1]->end();
        for (size_t number = 2; number < clients.size(); ++number)
            QVERIFY(clients[number]->isReady());
        QCOMPARE(processes().size(), 2);
        for (auto &client : clients)
            client->end(); // the next ones come while the server is being stopped
    }
}

// A user who has to wait for the last server's end, or for another one's start, is told before.
void tst_sandboxserver::waitingIsTold()
{
    for (const QString &file : {u"life.lock"_s, u"server.lock"_s}) {
        const QString path = SandboxFolder::ofUser().file(file);
        QTRY_VERIFY(m_held.lock(path, FileLock::Mode::Exclusive, {}));
        m_progress.clear();
        logOn();
        QVERIFY(m_progress.value(0).startsWith(u"Waiting"_s));
    }
}

void tst_sandboxserver::manyWindows()
{
    std::vector<std::shared_ptr<Connection>> windows(100);
    for (auto &window : windows)
        window = logOn();
    QCOMPARE(scalar(windows.front(), u"select 1 from dual"_s), u"1"_s);
}

void tst_sandboxserver::serverOfSomebodyElse()
{
    const SandboxServer theirs(SandboxFolder::ofUser(), {});
    useFolder(u"nobody's"_s);
    qputenv("QUERNA_SANDBOX_SOCKET", theirs.socketPath().toLocal8Bit());
    const auto back = qScopeGuard([this] {
        qunsetenv("QUERNA_SANDBOX_SOCKET");
        init();
    });
    QCOMPARE(scalar(logOn(), u"select count(*) from sales"_s), u"100000"_s);
    QVERIFY(!QFileInfo::exists(SandboxFolder::ofUser().path()));
}

void tst_sandboxserver::serverKilled()
{
    auto connection = logOn();
    connection->Execute(u"create table kept (a number)"_s);
    connection->Execute(u"insert into kept values (1)"_s);
    connection->BeginTrans();
    connection->Execute(u"insert into kept values (2)"_s);
    ::kill(static_cast<pid_t>(serverId()), SIGKILL);
    QVERIFY(raisedError([&] { connection->Execute(u"select * from kept"_s); }) != 0);

    // With the old connection still holding on.
    const auto again = logOn();
    QCOMPARE(SandboxFixture::table(again, u"select * from kept"_s), u"1"_s);
    connection->Close();
    again->Execute(u"drop table kept"_s);
    QVERIFY(serverId() != 0);
}

// What the end of a desktop's session asks of it, the server's parent leaves to the clients; with
// a parent that ends nevertheless the server ends too.
void tst_sandboxserver::supervisorKilled()
{
    auto connection = logOn();
    QList<pid_t> supervisor = processes();
    supervisor.removeOne(serverId());
    QCOMPARE(supervisor.size(), 1);
    for (const int signal : {SIGTERM, SIGHUP, SIGINT})
        ::kill(supervisor.first(), signal);
    QTest::qWait(100);
    QCOMPARE(processes().size(), 2);
    ::kill(supervisor.first(), SIGKILL);
    QTRY_COMPARE_WITH_TIMEOUT(processes().size(), 0, patience);
    QCOMPARE(scalar(logOn(), u"select 1 from dual"_s), u"1"_s);
}

// A server that does nothing is told of in time, and goes nevertheless with its last client.
void tst_sandboxserver::serverStopped()
{
    auto connection = logOn();
    const auto server = static_cast<pid_t>(serverId());
    QVERIFY(::kill(server, SIGSTOP) == 0);
    m_progress.clear();
    QElapsedTimer timer;
    timer.start();
    const RuntimeError error = raised([] { logOn(); });
    QVERIFY2(error.description.contains(u"does not answer"_s), error.what());
    QVERIFY(timer.elapsed() < patience && m_progress.value(0).startsWith(u"Waiting"_s));
    ::kill(server, SIGCONT);
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

// A first start that was broken off leaves nothing that the next one would take for a database.
void tst_sandboxserver::brokenFirstStart()
{
    useFolder(u"first"_s);
    const QDir folder(SandboxFolder::ofUser().path());
    LooseEnd looseEnd;
    for (const int time : {0, 300}) {
        Client client;
        QTRY_VERIFY_WITH_TIMEOUT(folder.exists(u"data.new"_s), patience);
        QTest::qWait(time);
        client.end();
    }
    QVERIFY(!processes().isEmpty());
    QVERIFY(looseEnd.isOursAlone());
    QVERIFY(folder.mkpath(u"data.new"_s));
    makeFile(folder.filePath(u"data.new/left over"_s), {});
    QCOMPARE(scalar(logOn(), u"select count(*) from sales"_s), u"100000"_s);
    QVERIFY(!folder.exists(u"data/left over"_s));
    QCOMPARE(folder.entryList({u"data*"_s}, QDir::Dirs), QStringList{u"data"_s});
}

void tst_sandboxserver::folderThatCannotBe()
{
    QFile file(m_folder.filePath(u"file"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QString longPath = QString(u"long name/"_s).repeated(100);
    for (const QString &name : {u"file"_s, u"file/below/sandbox"_s, longPath}) {
        useFolder(name);
        const RuntimeError error = raised([] { logOn(); });
        QCOMPARE(error.number, ErrorNumber::PathFileAccessError);
        QVERIFY2(error.description.contains(u"sandbox's folder"_s) &&
                     error.description.contains(SandboxFolder::ofUser().path()),
                 error.what());
    }
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
