#include "app/MDIFormQuerna.h"
#include "connection/session.h"
#include "controls/EditorControl.h"
#include "controls/mousePointer.h"
#include "dataaccess/Recordset.h"
#include "dataaccess/sandbox/SandboxServer.h"
#include "editor/frmQuerna.h"
#include "support/DataRows.h"
#include "support/SandboxFixture.h"
#include "support/testFiles.h"
#include "uisupport/ModalAnswers.h"
#include "uisupport/ProgramFixture.h"
#include "uisupport/userActions.h"

#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <thread>

#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Command = std::function<void(ProgramFixture &)>;

constexpr int patience = 30'000; // milliseconds
constexpr auto momentUnderWay = 60ms;
const QString sandbox = SandboxFixture::connectionString();
/// What the login dialog's database box takes, to reach the sandbox.
const QString sandboxInTheBox = u"x;Provider=OrbekSandbox"_s;

pid_t serverId()
{
    return static_cast<pid_t>(SandboxServer::processId(SandboxFolder::ofUser()));
}

void killServer()
{
    ::kill(serverId(), SIGKILL);
    QTRY_COMPARE_WITH_TIMEOUT(serverId(), 0, patience);
}

/// Whether every thread of a process has been stopped; a stop signal takes its time to reach them.
bool isStopped(pid_t process)
{
    const QDir threads(u"/proc/%1/task"_s.arg(process));
    const QStringList ids = threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return std::all_of(ids.begin(), ids.end(), [&](const QString &id) {
        const QByteArray stat = contentOf(threads.filePath(id + u"/stat"_s));
        // The state stands behind the name, which is in parentheses.
        return stat.contains(") T ") || stat == "(not there)";
    });
}

/// Stops the server at once and kills it a moment later, when somebody is waiting for it.
class ServerDyingUnderWay
{
public:
    ServerDyingUnderWay()
    {
        const pid_t server = serverId();
        ::kill(server, SIGSTOP);
        while (!isStopped(server))
            std::this_thread::yield();
        m_killer = std::thread([server] {
            std::this_thread::sleep_for(momentUnderWay);
            ::kill(server, SIGKILL);
        });
    }
    ~ServerDyingUnderWay() { m_killer.join(); }
    ServerDyingUnderWay(const ServerDyingUnderWay &) = delete;
    ServerDyingUnderWay &operator=(const ServerDyingUnderWay &) = delete;

private:
    std::thread m_killer;
};

/// A socket that takes connections and never says a word.
class SilentServer
{
public:
    explicit SilentServer(const QString &path)
        : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        const QByteArray name = QFile::encodeName(path);
        std::copy(name.begin(), name.end(), address.sun_path);
        m_listens =
            ::bind(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0 &&
            ::listen(m_socket, 5) == 0;
    }
    ~SilentServer() { ::close(m_socket); }
    SilentServer(const SilentServer &) = delete;
    SilentServer &operator=(const SilentServer &) = delete;

    bool listens() const { return m_listens; }

private:
    int m_socket;
    bool m_listens = false;
};

/// What a command that fails has to leave as it was: text, panel of the rows, rows, plan.
QString stateOf(const ProgramFixture &program)
{
    const auto *plan = program.control<QTreeWidget>(u"tvwColumns"_s);
    return u"%1|%2|%3 rows to %4|plan of %5"_s.arg(
        program.text()->Text(), program.panel(4), QString::number(program.rows()),
        program.cell(program.rows() - 1, 0), QString::number(plan->topLevelItemCount()));
}

} // namespace

Q_DECLARE_METATYPE(Command)

/// The editor window while its server dies, says nothing, or never was one: a message, and the
/// user goes on with what is there.
class TestServerFaults : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void commandWithoutAServer_data();
    void commandWithoutAServer();
    void serverDyingWhileRetrieving();
    void driverFailingWhileRetrieving();
    void outputUntilTheServerDies();
    void logOnsThatFail();

private:
    static void prepare(ProgramFixture &program);
    static void goOnWith(ProgramFixture &program);

    QTemporaryDir m_folder;
    std::unique_ptr<SilentServer> m_silent;
};

void TestServerFaults::initTestCase()
{
    qputenv(SandboxFixture::folderVariable, m_folder.filePath(u"s"_s).toLocal8Bit());
    qputenv("ODBCINI", m_folder.filePath(u"odbc.ini"_s).toLocal8Bit());
    const QByteArray socket = SandboxFolder::ofUser().file(u"socket"_s).toLocal8Bit();

    const QString noLibrary = m_folder.filePath(u"broken.so"_s);
    makeFile(noLibrary, "no library");
    const QString silent = m_folder.filePath(u"silent"_s);
    m_silent = std::make_unique<SilentServer>(silent);
    QVERIFY(m_silent->listens());
    const QString alien = QLibraryInfo::path(QLibraryInfo::LibrariesPath) + u"/libQt6Core.so.6"_s;
    const QByteArray driver = "Driver=MariaDB Unicode\nDatabase=scott\nSocket=";
    makeFile(
        m_folder.filePath(u"odbc.ini"_s),
        "[refusing]\n" + driver + socket + "\n[silent]\n" + driver + silent.toLocal8Bit() +
            "\nConn_Timeout=1\n[dead]\n" + driver + m_folder.filePath(u"nobody"_s).toLocal8Bit() +
            "\n[missing]\nDriver=/no/such/driver.so\n[broken]\nDriver=" + noLibrary.toLocal8Bit() +
            "\n[alien]\nDriver=" + alien.toLocal8Bit() + '\n');
}

void TestServerFaults::cleanupTestCase()
{
    qunsetenv("ODBCINI");
    QTRY_VERIFY_WITH_TIMEOUT(SandboxFixture::hasEnded(), patience);
}

/// A session with fifty rows in the grid, a plan, and work that nobody has committed.
void TestServerFaults::prepare(ProgramFixture &program)
{
    program.start(sandbox);
    QVERIFY(program.editor() != nullptr);
    program.run(u"select * from emp"_s, 1);
    program.run(u"delete from emp"_s);
    program.run(u"select sale_id from sales order by sale_id"_s);
    program.press(u"Toolbar1"_s, 1);
    program.text()->setText(u"typed, and not lost"_s);
    QTRY_COMPARE(stateOf(program),
                 u"typed, and not lost|Records Retrieved: 50|50 rows to 50|plan of 1"_s);
}

/// Changes the connection in the same window, whose text stays, and works on it.
void TestServerFaults::goOnWith(ProgramFixture &program)
{
    const frmQuerna *window = program.editor();
    const QString text = program.text()->Text();
    MessageAnswers messages;
    program.logOn(u"scott"_s, u"tiger"_s, sandboxInTheBox);
    QVERIFY2(messages.texts.isEmpty(), qPrintable(messages.texts.join(u'|')));
    QCOMPARE(program.editor(), window);
    QCOMPARE(program.text()->Text(), text);
    program.run(u"select count(*) from emp"_s);
    QCOMPARE(program.cell(0, 0), u"14"_s);
}

void TestServerFaults::commandWithoutAServer_data()
{
    // The message is a pattern, by the driver's texts where it speaks; a Run begins with a new
    // result.
    const DataRows<Command, QString, bool> row("command", "message", "keepsResult");
    const QString lost =
        u"(erver has gone away|Lost connection to server|Connection not open)[^\r]*"_s;
    const auto runs = [](const QString &statement, int tab = 0) {
        return [=](ProgramFixture &program) { program.run(statement, tab); };
    };
    const auto presses = [](int button) {
        return [=](ProgramFixture &program) { program.press(u"tbrQuerna"_s, button); };
    };
    row("query", runs(u"select * from dept"_s), lost, false);
    row("plan", runs(u"select * from dept"_s, 1), lost, true);
    row("output", runs(u"begin dbms_output.put_line('x'); end;"_s, 2), lost, true);
    row(
        "script",
        [](ProgramFixture &program) {
            program.text()->setText(u"delete from dept; delete from emp;"_s);
            program.press(u"tbrQuerna"_s, 2);
        },
        u" .*"_s + lost + u"\r\n .*"_s + lost + u"\r\n"_s, true);
    row("commit", presses(6), lost, true);
    row("picker", presses(17), lost, true);
}

void TestServerFaults::commandWithoutAServer()
{
    QFETCH(Command, command);
    QFETCH(QString, message);
    QFETCH(bool, keepsResult);
    const QRegularExpression pattern(QRegularExpression::anchoredPattern(u".*"_s + message),
                                     QRegularExpression::DotMatchesEverythingOption);
    ProgramFixture program;
    prepare(program);
    const QString restOfState = stateOf(program).mid(program.text()->Text().size());
    // The second time the server is gone already when the command comes.
    for (int round = 0; round < 2; ++round) {
        MessageAnswers messages;
        {
            std::unique_ptr<ServerDyingUnderWay> dying;
            if (round == 0)
                dying = std::make_unique<ServerDyingUnderWay>();
            QApplication::setActiveWindow(&program.frame());
            program.text()->setFocus();
            command(program);
        }
        QCOMPARE(messages.texts.size(), 1);
        QVERIFY2(pattern.match(messages.texts.first()).hasMatch(),
                 qPrintable(messages.texts.first()));
        QCOMPARE(QApplication::activeModalWidget(), nullptr);
        QCOMPARE(mousePointer(), MousePointer::Default);
        QCOMPARE(stateOf(program), program.text()->Text() + restOfState);
    }
    MessageAnswers messages;
    const QString path = program.folder() + u"/rows.txt"_s;
    exportRows(program, 2, keepsResult ? path : QString());
    QCOMPARE(messages.texts.size(), 1);
    QVERIFY2(messages.texts.first().contains(keepsResult ? u"\r\n50 records"_s : u"3704 "_s),
             qPrintable(messages.texts.first()));
    QVERIFY(program.ends.empty());
    goOnWith(program);
}

// Its driver has taken in all rows before it gives the first one.
void TestServerFaults::serverDyingWhileRetrieving()
{
    ProgramFixture program(sandbox);
    MessageAnswers messages;
    program.run(u"select * from sales"_s);
    QTimer::singleShot(2, &program.frame(), killServer);
    program.press(u"Toolbar1"_s, 2);
    QCOMPARE(serverId(), 0);
    QVERIFY(messages.texts.isEmpty());
    QCOMPARE(program.panel(4), u"Records Retrieved: 100000"_s);
    goOnWith(program);
}

// Where rows come as they are fetched, those before the fault stay.
void TestServerFaults::driverFailingWhileRetrieving()
{
    ProgramFixture program(u"DRIVER=" QUERNA_FAKE_DRIVER ";USER ID=scott;DATA SOURCE=fake;"_s);
    program.run(u"rows 1000 integer lost 250"_s);
    for (int round = 0; round < 2; ++round) {
        MessageAnswers messages;
        program.press(u"Toolbar1"_s, 2);
        QCOMPARE(messages.texts.size(), round == 0 ? 1 : 0);
        QVERIFY(round > 0 || messages.texts.first().contains(u"the connection is lost"_s));
        QCOMPARE(program.panel(4), u"Records Retrieved: 200"_s);
        QTRY_COMPARE(program.rows(), 200);
        QCOMPARE(program.cell(199, 0), u"199"_s);
        QCOMPARE(mousePointer(), MousePointer::Default);
    }
    MessageAnswers messages;
    exportRows(program, 2, program.folder() + u"/rows.txt"_s);
    QVERIFY(messages.texts.join(u'|').contains(u"\r\n200 records"_s));
}

// The lines that came before the end stay in the pane.
void TestServerFaults::outputUntilTheServerDies()
{
    ProgramFixture program(sandbox);
    program.control<QLineEdit>(u"txtBufferSize"_s)->setText(u"1000000"_s);
    MessageAnswers messages;
    const pid_t server = serverId();
    std::thread killer([server] {
        std::this_thread::sleep_for(6 * momentUnderWay);
        ::kill(server, SIGKILL);
    });
    program.run(u"begin for i in 1..50000 loop dbms_output.put_line(i); end loop; end;"_s, 2);
    killer.join();
    QCOMPARE(messages.texts.size(), 1);
    const auto *pane = program.control<QPlainTextEdit>(u"rtbdbms"_s);
    const QStringList lines = pane->toPlainText().split(u'\n', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i < lines.size(); ++i)
        QCOMPARE(lines[i], u"  "_s + QString::number(i + 1));
    goOnWith(program);
}

// One after the other in the same window; the last one works.
void TestServerFaults::logOnsThatFail()
{
    const QList<std::pair<QString, QString>> faults = {
        {u"nowhere"_s, u"Data source name not found"_s},
        {u"refusing"_s, u"Access denied"_s},
        {sandboxInTheBox, u"Access denied"_s},
        {u"silent"_s, u"handshake"_s},
        {u"dead"_s, u"Can't connect"_s},
        {u"missing"_s, u"/no/such/driver.so"_s},
        {u"broken"_s, u"broken.so"_s},
        {u"alien"_s, u"SQLAllocHandle"_s},
    };
    const auto keepsTheServer = SandboxFixture::logOn();
    const QString password = u"open sesame"_s;
    ProgramFixture program;
    prepare(program);
    const QString before = stateOf(program);
    for (const auto &[database, words] : faults) {
        MessageAnswers messages;
        program.logOn(u"scott"_s, password, database);
        QCOMPARE(messages.texts.size(), 1);
        QVERIFY2(messages.texts.first().contains(words), qPrintable(messages.texts.first()));
        QVERIFY(!messages.texts.first().contains(password));
        QVERIFY(!program.editor()->windowTitle().contains(password));
        QCOMPARE(stateOf(program), before);
        QCOMPARE(mousePointer(), MousePointer::Default);
        program.press(u"tbrQuerna"_s, 6);
        QCOMPARE(messages.texts.size(), 2);
    }
    MessageAnswers messages;
    exportRows(program, 2, program.folder() + u"/rows.txt"_s);
    QVERIFY(messages.texts.join(u'|').contains(u"\r\n50 records"_s));
    goOnWith(program);
}

QTEST_MAIN(TestServerFaults)
#include "tst_serverfaults.moc"
