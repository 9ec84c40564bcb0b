#include "controls/forms/WaitingLoop.h"
#include "dataaccess/odbc/DriverThread.h"
#include "uisupport/ProgramFixture.h"

namespace {

using Command = std::function<void(ProgramFixture &)>;

const QString fake = u"DRIVER=" QUERNA_FAKE_DRIVER ";USER ID=scott;DATA SOURCE=fake;"_s;
const QString fakeInTheBox = u"fake"_s;
const QString threePieces = u"x; is slow now; y;"_s;
const QString givenUp = u"The server did not answer"_s;
/// A server that hangs does so for as long; whoever waits for it notices.
constexpr int hanging = 8000;

void hangIn(const QString &call, const char *answer = "", int milliseconds = hanging)
{
    static QLibrary driver(QStringLiteral(QUERNA_FAKE_DRIVER));
    using Function = void (*)(const char *, long, const char *);
    static const auto order = reinterpret_cast<Function>(driver.resolve("hangIn"));
    order(qPrintable(call), milliseconds, answer);
}

void press(ProgramFixture &program, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    QTest::keyClick(program.frame().windowHandle(), key, modifiers);
}

/// Does something once during the next wait, a moment after it was shown.
class InTheWait
{
public:
    explicit InTheWait(std::function<void()> act, int milliseconds = 50)
    {
        m_timer.callOnTimeout([this, act = std::move(act), milliseconds] {
            if (!isWaiting() || m_shown++ < milliseconds / 10)
                return;
            m_timer.stop();
            act();
        });
        m_timer.start(10);
    }
    bool hasBeen() const { return !m_timer.isActive(); }

private:
    QTimer m_timer;
    int m_shown = 0;
};

void runScript(ProgramFixture &program, const QString &script)
{
    program.text()->setText(script);
    program.press(u"tbrQuerna"_s, 2);
}

/// The program goes on with the statements, rows and text that it has.
void goesOn(ProgramFixture &program)
{
    QCOMPARE(mousePointer(), MousePointer::Default);
    MessageAnswers messages;
    program.run(u"rows 30 integer"_s);
    QCOMPARE(messages.texts, QStringList());
    QCOMPARE(program.rows(), 25);
    QCOMPARE(program.cell(24, 0), u"24"_s);
    QVERIFY(program.ends.empty());
}

} // namespace

/// The windows live while a server takes its time, and whoever waits for it can end that.
class TestWaiting : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void commandsAreEnded_data();
    void commandsAreEnded();
    void logOnIsEnded_data();
    void logOnIsEnded();
    void serverEndsWhatRuns();
    void cancelledChangeEndsTransaction();
    void workAheadTakesNoCancel();
    void typingWaits();

private:
    QTemporaryDir m_folder;
};

/// Makes the fake driver a data source.
void TestWaiting::initTestCase()
{
    SandboxFixture::useSharedFolder();
    const QString path = m_folder.filePath(u"odbc.ini"_s);
    makeFile(path, "[fake]\nDriver=" QUERNA_FAKE_DRIVER "\n");
    qputenv("ODBCINI", QFile::encodeName(path));
}

void TestWaiting::commandsAreEnded_data()
{
    // Which call hangs in the command, and by which ways out it is left.
    DataRows<Command, QString, QString>("command", "call", "end");
    const auto run = [](const char *text, int tab) {
        return [=](ProgramFixture &program) { program.run(QString::fromLatin1(text), tab); };
    };
    const auto button = [](const char *bar, int index) {
        return [=](ProgramFixture &program) { program.press(QString::fromLatin1(bar), index); };
    };
    const std::tuple<const char *, Command, const char *, bool> commands[] = {
        {"query", run("rows 9 integer slow", 0), "slow", true},
        {"first rows", run("rows 9 integer", 0), "(fetch)", true},
        {"change", run("update slow", 0), "slow", true},
        {"next rows",
         [](ProgramFixture &program) {
             for (int i = 0; i < 3; ++i)
                 program.press(u"Toolbar1"_s, 1);
         },
         "(fetch)", true},
        {"all rows", button("Toolbar1", 2), "(fetch)", true},
        {"plan", run("rows 1 integer", 1), "set statement_id", true},
        {"output", run("slow", 2), "slow", true},
        {"lines", run("rows 1", 2), "get_line", true},
        {"script", [](ProgramFixture &p) { runScript(p, threePieces); }, "slow", true},
        {"picker", button("tbrQuerna", 16), "ALL_USERS", true},
        {"commit", button("tbrQuerna", 6), "(commit)", false},
        {"rollback", button("tbrQuerna", 7), "(rollback)", false},
    };
    for (const auto &[name, command, call, isCancellable] : commands) {
        for (const char *end :
             {"cancel", "stop", "late", "close window", "close frame", "quit", "give up"}) {
            if (isCancellable || qstrcmp(end, "give up") == 0)
                QTest::addRow("%s, %s", name, end)
                    << command << QString::fromLatin1(call) << QString::fromLatin1(end);
        }
    }
}

void TestWaiting::commandsAreEnded()
{
    QFETCH(Command, command);
    QFETCH(QString, call);
    QFETCH(QString, end);
    ProgramFixture program(fake);
    program.run(u"rows 1000 integer"_s);
    QCOMPARE(program.rows(), 25);
    const bool isGivenUp = end == "give up"_L1;
    const bool isClosed = end.startsWith("close"_L1);
    hangIn(call, isGivenUp ? "deaf" : end == "late"_L1 ? "unhurt" : "");
    const InTheWait wait([&] {
        program.menuItem(u"mnuChangeConnection"_s)->trigger(); // nothing begins
        press(program, Qt::Key_F5);
        QVERIFY(program.panel(2).contains(u"Running"_s));
        if (end == "close window"_L1)
            program.editor()->parentWidget()->close();
        else if (end == "close frame"_L1)
            program.frame().close();
        else if (end == "stop"_L1)
            press(program, Qt::Key_F7, Qt::ControlModifier);
        else if (end == "quit"_L1) {
            QEvent quit(QEvent::Quit);
            QCoreApplication::sendEvent(qApp, &quit);
        }
        press(program, Qt::Key_Escape); // once more, but for the first
        if (isGivenUp)
            QTimer::singleShot(2050, Qt::PreciseTimer, [&] { press(program, Qt::Key_Escape); });
    });
    QElapsedTimer clock;
    clock.start();
    MessageAnswers messages;
    program.text()->setFocus();
    command(program);
    QVERIFY(wait.hasBeen());
    QVERIFY(clock.elapsed() < hanging);
    if (isClosed) {
        QCOMPARE(messages.texts, QStringList());
        QTRY_COMPARE(program.editor(), nullptr);
        return;
    }
    QCOMPARE(messages.texts.size(), 1);
    const QString expected = isGivenUp          ? givenUp
                             : end == "late"_L1 ? u"anceled"_s
                                                : u"canceled on request"_s;
    QVERIFY2(messages.texts.first().contains(expected), qPrintable(messages.texts.first()));
    if (isGivenUp && program.text()->Text() == threePieces)
        QVERIFY(messages.texts.first().endsWith(u"statement 2."_s));
    QVERIFY(isGivenUp == (gConnection->State() == adStateClosed));
    messages.texts.clear();
    if (isGivenUp) {
        program.press(u"tbrQuerna"_s, 6);
        QCOMPARE(messages.take().size(), 1);
        program.logOn(u"scott"_s, u"tiger"_s, fakeInTheBox);
        QCOMPARE(messages.texts, QStringList());
    }
    goesOn(program);
}

void TestWaiting::logOnIsEnded_data()
{
    const DataRows<bool> row("isAtStart");
    row("at the start", true);
    row("from the dialog", false);
}

// The start ends in silence, as it does when the log-on fails.
void TestWaiting::logOnIsEnded()
{
    QFETCH(bool, isAtStart);
    ProgramFixture program;
    if (!isAtStart)
        program.start(fake);
    hangIn(u"(connect)"_s);
    const InTheWait wait([&] {
        press(program, Qt::Key_Escape);
        QTimer::singleShot(2050, Qt::PreciseTimer, [&] { press(program, Qt::Key_Escape); });
    });
    MessageAnswers messages;
    if (isAtStart)
        program.start(fake);
    else
        program.logOn(u"scott"_s, u"tiger"_s, fakeInTheBox);
    QVERIFY(wait.hasBeen());
    QCOMPARE(messages.texts.size(), isAtStart ? 0 : 1);
    QCOMPARE(program.ends.size(), size_t{isAtStart ? 1U : 0U});
    program.ends.clear();
    program.logOn(u"scott"_s, u"tiger"_s, fakeInTheBox);
    goesOn(program);
}

// Open work is as before, and a server may end a statement without a failure.
void TestWaiting::serverEndsWhatRuns()
{
    ProgramFixture program(SandboxFixture::connectionString());
    gConnection->Execute(u"create or replace table waited as select 2 as n"_s);
    const auto drop = qScopeGuard([] { gConnection->Execute(u"drop table waited"_s); });
    MessageAnswers messages;
    const InTheWait wait([&] { press(program, Qt::Key_Escape); });
    program.run(u"select sleep(8) from dual"_s);
    QVERIFY2(messages.take().value(0).contains(u"nterrupted"_s), qPrintable(program.panel(2)));
    const InTheWait second([&] { press(program, Qt::Key_Escape); });
    runScript(program, u"update waited set n = 3; do sleep(8); update waited set n = 4;"_s);
    QCOMPARE(messages.take(), QStringList({u" The script was canceled.\r\n"_s}));
    QCOMPARE(SandboxFixture::scalar(gConnection, u"select n from waited"_s), u"3"_s);
    const InTheWait third([&] { press(program, Qt::Key_Escape); });
    program.run(u"do sleep(8)"_s);
    QCOMPARE(messages.texts, QStringList());
    QVERIFY2(program.panel(2).contains(u"Cancelled, may be"_s), qPrintable(program.panel(2)));
}

// SQLite's does, and its driver goes on as if it did not.
void TestWaiting::cancelledChangeEndsTransaction()
{
    ProgramFixture program(sqlite);
    gConnection->Execute(u"create table waited (n integer)"_s);
    gConnection->CommitTrans();
    gConnection->BeginTrans();
    gConnection->Execute(u"insert into waited values (1)"_s);
    MessageAnswers messages;
    const InTheWait wait([&] { press(program, Qt::Key_Escape); });
    program.run(u"with recursive c(n) as (select 1 union all select n + 1 from c) "
                "insert into waited select n from c where n < 0"_s);
    QVERIFY2(messages.take().value(0).contains(u"rolled back"_s), qPrintable(program.panel(2)));
    QVERIFY(!gConnection->hasOpenWork());
}

// Rows may still be read ahead for a result before.
void TestWaiting::workAheadTakesNoCancel()
{
    setWaitPresenter([](LongWait &wait) {
        wait.cancel();
        while (!wait.isOver())
            QThread::msleep(1);
    });
    const auto reset = qScopeGuard(WaitingLoop::install);
    const auto thread = DriverThread::start();
    const auto callDriver = [](unsigned long milliseconds) {
        DriverThread::beginCall(nullptr);
        QThread::msleep(milliseconds);
        DriverThread::endCall();
    };
    bool isSent = false;
    thread->post([&] {
        callDriver(150);
        callDriver(1);
    });
    QVERIFY_THROWS_EXCEPTION(RuntimeError, thread->call([&] {
        callDriver(1);
        isSent = true;
    }));
    QVERIFY(!isSent);
    thread->call([&] { callDriver(150); });
    thread->call([&] { callDriver(1); }); // the cancel before came too late
}

void TestWaiting::typingWaits()
{
    ProgramFixture program(fake);
    hangIn(u"slow"_s, "", 1000);
    const InTheWait wait([&] {
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_Left, Qt::Key_B, Qt::Key_C, Qt::Key_Backspace})
            press(program, key);
        QTest::mouseClick(program.text(), Qt::RightButton);
        QCOMPARE(program.text()->Text(), u"slow"_s);
    });
    program.run(u"slow"_s);
    QVERIFY(wait.hasBeen());
    QTRY_COMPARE(program.text()->Text(), u"baslow"_s);
}

QTEST_MAIN(TestWaiting)
#include "tst_waiting.moc"
