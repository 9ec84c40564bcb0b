#include "platform/RuntimeError.h"
#include "sqltext/dynamicStatements.h"
#include "sqltext/elapsedTime.h"
#include "sqltext/scriptRunner.h"
#include "support/raisedError.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_Scripts : public QObject
{
    Q_OBJECT

private slots:
    void blocks();
    void scripts_data();
    void scripts();
    void failuresAreCollected();
    void largeScript();
    void elapsed_data();
    void elapsed();
    void elapsedOverflows();
};

void tst_Scripts::blocks()
{
    QCOMPARE(dmlBlock(u" insert into t\r\nvalues ('a''b'); -- c\n"_s),
             u"begin \r\n execute immediate ' insert into t\nvalues (''a''''b''); -- c\n'; end;"_s);
    QCOMPARE(scriptBlock(u"\r\nupdate t\rset c = ''"_s),
             u"Begin \r\nexecute immediate ('\nupdate t\rset c = ''''');\r\nend;"_s);
}

void tst_Scripts::scripts_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QStringList>("pieces");
    const auto row = [](const char *name, const QString &script, const QStringList &pieces) {
        QTest::newRow(name) << script << pieces;
    };
    row("empty", QString(), {});
    row("blank", u"   "_s, {});
    row("without an end", u"drop table x"_s, {});
    row("text behind the last end", u"drop table x; create table x (a number)"_s,
        {u"drop table x"_s});
    row("two statements", u"a;\r\nb;\r\n"_s, {u"a"_s, u"\r\nb"_s});
    row("end in a literal", u"insert into t values ('a;b');"_s,
        {u"insert into t values ('a"_s, u"b')"_s});
    row("end in a comment", u"-- only a comment;"_s, {});
    row("comment in front", u"-- c\r\nb;"_s, {u"-- c\r\nb"_s});
    row("nothing in the pieces", u"; ;\r\n;\n -- x\n;;"_s, {});
    row("a tab is a statement", u"\t;"_s, {u"\t"_s});
    row("block comments are statements", u"/* c */;"_s, {u"/* c */"_s});
}

void tst_Scripts::scripts()
{
    QFETCH(QString, script);
    QFETCH(QStringList, pieces);
    QStringList expected;
    for (const QString &piece : pieces)
        expected.append(scriptBlock(piece));
    QStringList sent;
    QString errors = u"kept"_s;
    runScript(script, errors, [&](const QString &command) { sent.append(command); });
    QCOMPARE(sent, expected);
    QCOMPARE(errors, u"kept"_s);
}

void tst_Scripts::failuresAreCollected()
{
    int sent = 0;
    QString errors;
    runScript(u"a;b;c;"_s, errors, [&](const QString &) {
        if (++sent != 2)
            throw RuntimeError(ErrorNumber::ProviderFailed, u"failure %1"_s.arg(sent));
    });
    QCOMPARE(sent, 3);
    QCOMPARE(errors, u" failure 1\r\n failure 3\r\n"_s);
}

// Neither many pieces nor a long one may cost more than their length.
void tst_Scripts::largeScript()
{
    qsizetype characters = 0;
    QString errors;
    const auto count = [&](const QString &command) { characters += command.size(); };
    runScript(u"x'\r\n;"_s.repeated(1'000'000), errors, count);
    const qsizetype frame = scriptBlock(QString()).size();
    QCOMPARE(characters, (frame + 4) * 1'000'000);
    characters = 0;
    runScript(u"x'\r\n"_s.repeated(2'000'000) + u';', errors, count);
    QCOMPARE(characters, frame + 4 * 2'000'000);
}

void tst_Scripts::elapsed_data()
{
    QTest::addColumn<QTime>("start");
    QTest::addColumn<QTime>("end");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, QTime start, QTime end, const QString &text) {
        QTest::newRow(name) << start << end << text;
    };
    const QTime noon(12, 0);
    row("nothing", noon, noon, u"0 msec"_s);
    row("milliseconds", noon, QTime(12, 0, 0, 250), u"250 msec"_s);
    row("across a second", QTime(11, 59, 59, 900), QTime(12, 0, 0, 300), u"400 msec"_s);
    row("just below a second", noon, QTime(12, 0, 0, 999), u"999 msec"_s);
    row("one second", noon, QTime(12, 0, 1), u"1 sec"_s);
    row("seconds", noon, QTime(12, 0, 1, 500), u"1.5 sec"_s);
    row("hours", noon, QTime(21, 5, 59, 7), u"32759.007 sec"_s);
    row("across midnight", QTime(23, 59, 59, 900), QTime(0, 0, 0, 100), u"-86399800 msec"_s);
}

static SystemTime systemTimeOf(QTime time)
{
    SystemTime result;
    result.hour = static_cast<qint16>(time.hour());
    result.minute = static_cast<qint16>(time.minute());
    result.second = static_cast<qint16>(time.second());
    result.millisecond = static_cast<qint16>(time.msec());
    return result;
}

void tst_Scripts::elapsed()
{
    QFETCH(QTime, start);
    QFETCH(QTime, end);
    QTEST(elapsedText(elapsedSeconds(systemTimeOf(start), systemTimeOf(end))), "text");
}

void tst_Scripts::elapsedOverflows()
{
    const auto run = [](QTime end) {
        return raisedError([=] { elapsedSeconds(systemTimeOf(QTime(0, 0)), systemTimeOf(end)); });
    };
    QCOMPARE(run(QTime(9, 6, 7, 999)), 0);
    QCOMPARE(run(QTime(10, 0)), ErrorNumber::Overflow);
}

QTEST_GUILESS_MAIN(tst_Scripts)
#include "tst_scripts.moc"
