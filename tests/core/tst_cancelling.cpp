#include "platform/longWait.h"
#include "support/coreTest.h"

#include <QRandomGenerator>

class tst_Cancelling : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { setWaitPresenter({}); }
    void atAnyMoment_data();
    void atAnyMoment();
};

void tst_Cancelling::atAnyMoment_data()
{
    const QString numbers = u"with recursive c(n) as (select 1 union all select n + 1 from c "
                            "where n < %1) select n from c"_s;
    const DataRows<QString, QString> row("connection", "numbers");
    row("SQLite", u"DRIVER=SQLite3;Database=:memory:"_s, numbers);
    row("SQLite, row by row", u"DRIVER=SQLite3;Database=:memory:;StepAPI=1"_s, numbers);
    SandboxFixture::useSharedFolder();
    row("sandbox", SandboxFixture::connectionString(), u"select seq from seq_1_to_%1"_s);
}

// A statement is done whole or not at all, rows come in order up to a failure, and what comes after
// a cancel is not hit by it. Takes a second, or as many as QUERNA_CANCEL_SECONDS says.
void tst_Cancelling::atAnyMoment()
{
    QFETCH(QString, connection);
    QFETCH(QString, numbers);
    QRandomGenerator random(QRandomGenerator::securelySeeded());
    bool cancels = false;
    setWaitPresenter([&](LongWait &wait) {
        for (int steps = random.bounded(300); !wait.isOver(); QThread::usleep(50)) {
            if (!cancels || --steps > 0)
                continue;
            wait.cancel();
            steps = random.bounded(800);
        }
    });
    int cancelled = 0;
    const auto isDone = [&](const std::function<void()> &work) {
        cancels = true;
        const RuntimeError error = raised(work);
        cancels = false;
        if (error.number != 0 && !error.isCancelled)
            throw error;
        cancelled += error.isCancelled;
        return error.number == 0;
    };

    const auto opened = std::make_shared<Connection>();
    opened->Open(connection);
    opened->Execute(u"create table cancelled (n integer)"_s);
    const auto drop = qScopeGuard([&] { opened->Execute(u"drop table cancelled"_s); });
    const auto count = [&] {
        return SandboxFixture::scalar(opened, u"select count(*) from cancelled"_s).toInt();
    };
    const int seconds = std::max(1, qEnvironmentVariableIntValue("QUERNA_CANCEL_SECONDS"));
    const QDeadlineTimer end(seconds * 1000);
    while (!end.hasExpired() || cancelled < 5) {
        opened->BeginTrans();
        const int wanted = 1 + random.bounded(100'000);
        const QString series = numbers.arg(wanted);
        bool done = isDone([&] { opened->Execute(u"insert into cancelled "_s + series); });
        int rows = count();
        QVERIFY(rows == wanted || (!done && rows == 0));
        opened->Execute(u"insert into cancelled values (0)"_s);
        rows = count();

        int read = 0;
        done = isDone([&] {
            Recordset reader;
            reader.setCacheSize(100);
            for (reader.Open(series, opened); !reader.Eof(); reader.MoveNext())
                QCOMPARE(reader.value(0).toText(), QString::number(++read));
        });
        QVERIFY(read == wanted || (!done && read < wanted));

        const bool commits = random.bounded(2) == 0;
        done = isDone([&] { commits ? opened->CommitTrans() : opened->RollbackTrans(); });
        if (!done)
            opened->RollbackTrans();
        const int left = count();
        QVERIFY(left == (commits ? rows : 0) || (!done && left == 0));
        opened->Execute(u"delete from cancelled"_s);
    }
}

QTEST_GUILESS_MAIN(tst_Cancelling)
#include "tst_cancelling.moc"
