#include "dataaccess/sandbox/SandboxServer.h"
#include "uisupport/ProgramFixture.h"

#include <signal.h>

namespace {

using Command = std::function<void(ProgramFixture &)>;

constexpr int patience = 30'000; // milliseconds
const QString sandbox = SandboxFixture::connectionString();
/// What the login dialog's database box takes, to reach the sandbox.
const QString sandboxInTheBox = u"x;Provider=OrbekSandbox"_s;

pid_t serverId()
{
    return static_cast<pid_t>(SandboxServer::processId(SandboxFolder::ofUser()));
}

void killServerAfter(const QString &seconds)
{
    QProcess::startDetached(u"/bin/sh"_s, {u"-c"_s, u"sleep %1; kill -KILL %2"_s.arg(
                                                        seconds, QString::number(serverId()))});
}

/// Stops the server, every thread of it, and has it killed when somebody waits for its answer.
void stopAndKillServer()
{
    const pid_t server = serverId();
    ::kill(server, SIGSTOP);
    const QDir threads(u"/proc/%1/task"_s.arg(server));
    const auto isStopped = [&](const QString &thread) {
        return contentOf(threads.filePath(thread + u"/stat"_s)).contains(") T ");
    };
    const auto areStopped = [&] {
        const QStringList all = threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        return std::all_of(all.begin(), all.end(), isStopped);
    };
    QTRY_VERIFY(areStopped());
    killServerAfter(u"0.3"_s);
}

/// What a command that fails has to leave as it was: text, panel of the rows, rows, plan.
QString stateOf(const ProgramFixture &program)
{
    const auto *plan = program.control<QTreeWidget>(u"tvwColumns"_s);
    return u"%1|%2|%3 rows to %4|plan of %5"_s.arg(
        program.text()->Text(), program.panel(4), QString::number(program.rows()),
        program.cell(program.rows() - 1, 0), QString::number(plan->topLevelItemCount()));
}

/// What the user is told about an export of the rows.
QString exported(ProgramFixture &program, bool hasResult = true)
{
    MessageAnswers messages;
    exportRows(program, 2, hasResult ? program.folder() + u"/rows.txt"_s : QString());
    return messages.texts.join(u'|');
}

} // namespace

/// The editor window while its server dies or never was one: a message, and the user goes on with
/// what is there.
class TestServerFaults : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void commandWithoutAServer_data();
    void commandWithoutAServer();
    void driverFailingWhileRetrieving();
    void outputUntilTheServerDies();
    void logOnsThatFail();

private:
    static void prepare(ProgramFixture &program);
    static void goOnWith(ProgramFixture &program);

    QTemporaryDir m_folder;
};

void TestServerFaults::initTestCase()
{
    qputenv(SandboxFixture::folderVariable, m_folder.filePath(u"s"_s).toLocal8Bit());
}

void TestServerFaults::cleanupTestCase()
{
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
        u"(erver has gone away|Lost connection to server|Connection not open|Broken pipe)[^\r]*"_s;
    const auto runs = [](int tab) {
        return [=](ProgramFixture &program) { program.run(u"select * from dept"_s, tab); };
    };
    row("query", runs(0), lost, false);
    row("plan", runs(1), lost, true);
    row(
        "script",
        [](ProgramFixture &program) {
            program.text()->setText(u"delete from dept; delete from emp;"_s);
            program.press(u"tbrQuerna"_s, 2);
        },
        u" .*"_s + lost + u"\r\n .*"_s + lost + u"\r\n"_s, true);
    row(
        "picker", [](ProgramFixture &program) { program.press(u"tbrQuerna"_s, 17); }, lost, true);
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
    stopAndKillServer();
    // The second time the server is gone already.
    for (int round = 0; round < 2; ++round) {
        MessageAnswers messages;
        QApplication::setActiveWindow(&program.frame());
        program.text()->setFocus();
        command(program);
        QCOMPARE(messages.texts.size(), 1);
        QVERIFY2(pattern.match(messages.texts.first()).hasMatch(),
                 qPrintable(messages.texts.first()));
        QCOMPARE(QApplication::activeModalWidget(), nullptr);
        QCOMPARE(mousePointer(), MousePointer::Default);
        QCOMPARE(stateOf(program), program.text()->Text() + restOfState);
    }
    QVERIFY(
        exported(program, keepsResult).contains(keepsResult ? u"\r\n50 records"_s : u"3704 "_s));
    QVERIFY(program.ends.empty());
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
    }
    QVERIFY(exported(program).contains(u"\r\n200 records"_s));
}

// The lines that came before the end stay in the pane.
void TestServerFaults::outputUntilTheServerDies()
{
    ProgramFixture program(sandbox);
    program.control<QLineEdit>(u"txtBufferSize"_s)->setText(u"1000000"_s);
    MessageAnswers messages;
    killServerAfter(u"1.8"_s);
    program.run(u"begin for i in 1..50000 loop dbms_output.put_line(i); end loop; end;"_s, 2);
    QCOMPARE(messages.texts.size(), 1);
    const auto *pane = program.control<QPlainTextEdit>(u"rtbdbms"_s);
    const QStringList lines = pane->toPlainText().split(u'\n', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i < lines.size(); ++i)
        QCOMPARE(lines[i], u"  %1"_s.arg(i + 1));
    goOnWith(program);
}

// One after the other in the same window; the last one works.
void TestServerFaults::logOnsThatFail()
{
    const auto keepsTheServer = SandboxFixture::logOn();
    const QString password = u"open sesame"_s;
    ProgramFixture program;
    prepare(program);
    const QString before = stateOf(program);
    for (const auto &[database, words] : {std::pair(u"nowhere"_s, u"Data source name not found"_s),
                                          {sandboxInTheBox, u"Access denied"_s}}) {
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
    QVERIFY(exported(program).contains(u"\r\n50 records"_s));
    goOnWith(program);
}

QTEST_MAIN(TestServerFaults)
#include "tst_serverfaults.moc"
