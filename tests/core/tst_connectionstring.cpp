// Connection strings, and command texts that are procedure references or hold escapes.

#include "dataaccess/Connection.h"
#include "dataaccess/commandText.h"
#include "dataaccess/connectionString.h"
#include "dataaccess/odbc/installedDrivers.h"
#include "dataaccess/providers.h"
#include "support/raisedError.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_connectionstring : public QObject
{
    Q_OBJECT

private slots:
    void items_data();
    void items();
    void providers_data();
    void providers();
    void manyItems();
    void tooLong_data();
    void tooLong();
    void missingOracleDriverIsNamed();
    void procedureReferences_data();
    void procedureReferences();
    void escapes_data();
    void escapes();
};

void tst_connectionstring::items_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::newRow("any letter case") << u"User ID=scott;PASSWORD=x"_s << u"password"_s << u"x"_s;
    QTest::newRow("blanks") << u" User ID = scott ; x=y"_s << u"user id"_s << u"scott"_s;
    QTest::newRow("inner blanks") << u"Pwd=x AS SYSDBA"_s << u"PWD"_s << u"x AS SYSDBA"_s;
    QTest::newRow("first counts") << u"a=1;A=2"_s << u"a"_s << u"1"_s;
    QTest::newRow("braces") << u"a={x;y};b=2"_s << u"a"_s << u"x;y"_s;
    QTest::newRow("after braces") << u"a={x;y};b=2"_s << u"b"_s << u"2"_s;
    QTest::newRow("doubled brace") << u"a={x}};y};b=2"_s << u"a"_s << u"x};y"_s;
    QTest::newRow("brace never closed") << u"a={x;b=2"_s << u"a"_s << u"{x;b=2"_s;
    QTest::newRow("empty value") << u"User ID=;b=2"_s << u"user id"_s << u""_s;
    QTest::newRow("equals in the value") << u"a=b=c"_s << u"a"_s << u"b=c"_s;
    QTest::newRow("no value") << u"a;b=2"_s << u"b"_s << u"2"_s;
    QTest::newRow("braces behind blanks") << u"a= {x;y} ;b=2"_s << u"A"_s << u"x;y"_s;
    QTest::newRow("text behind braces") << u"a={x}y;b=2"_s << u"b"_s << u"2"_s;
    QTest::newRow("brace within a value") << u"a=x{y;b=2}"_s << u"b"_s << u"2}"_s;
    QTest::newRow("no name") << u"=x;b=2"_s << u""_s << u"x"_s;
    QTest::newRow("nothing but separators") << u";;=;;"_s << u"a"_s << u""_s;
}

void tst_connectionstring::items()
{
    QFETCH(QString, text);
    QFETCH(QString, name);
    QFETCH(QString, value);
    QCOMPARE(ConnectionString(text).value(name), value);
}

void tst_connectionstring::providers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("odbc");
    QTest::addColumn<int>("error");
    QTest::newRow("none") << u"DSN=x;ChunkSize=65535;Uid=a;Pwd=b c"_s
                          << u"DSN=x;ChunkSize=65535;Uid=a;Pwd=b c"_s << 0;
    QTest::newRow("ODBC") << u"provider = MSDASQL;DSN=x;Uid=a"_s << u"DSN=x;Uid=a"_s << 0;
    QTest::newRow("ODBC, the name in a value")
        << u"Provider=MSDASQL;Pwd={a;provider=b};DSN=x"_s << u"Pwd={a;provider=b};DSN=x"_s << 0;
    QTest::newRow("unknown") << u"Provider=nobody;Data Source=x"_s << QString() << 3706;
}

void tst_connectionstring::providers()
{
    QFETCH(QString, text);
    QFETCH(QString, odbc);
    QFETCH(int, error);
    QString result;
    QCOMPARE(raisedError([&] { result = openProvider(text).odbcConnectionString; }), error);
    QCOMPARE(result, odbc);
}

// Reading takes no longer for an item that has many before it.
void tst_connectionstring::manyItems()
{
    QString text;
    for (int i = 0; i < 300'000; ++i)
        text += u"item%1=%1;"_s.arg(i);
    text += QString(1'000'000, u';') + u"last=x"_s;
    QCOMPARE(ConnectionString(text).value(u"last"), u"x"_s);
}

void tst_connectionstring::tooLong_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("as a whole") << u"DSN=x;UID="_s + QString(100'000, u'x');
    QTest::newRow("driver") << u"driver="_s + QString(1001, u'x');
    QTest::newRow("driver in UTF-8") << u"DRIVER="_s + QString(501, u'\u00e4');
    QTest::newRow("driver in braces") << u"Driver={a;"_s + QString(1000, u'x') + u'}';
    QTest::newRow("second driver") << u"DRIVER=x; DRIVER="_s + QString(1001, u'x');
}

// The driver manager would end the process.
void tst_connectionstring::tooLong()
{
    QFETCH(QString, text);
    Connection connection;
    QCOMPARE(raisedError([&] { connection.Open(text); }), ErrorNumber::InvalidArgument);
}

void tst_connectionstring::missingOracleDriverIsNamed()
{
    if (!installedDrivers().filter(u"Oracle"_s, Qt::CaseInsensitive).isEmpty())
        QSKIP("An Oracle driver is installed here.");
    const RuntimeError error = raised(
        [] { openProvider(u"Provider=msdaora;Data Source=ORCL;User ID=scott;Password=tiger"_s); });
    QCOMPARE(error.number, 3706);
    QVERIFY(error.description.contains(u"ODBC driver for Oracle"_s));
    QVERIFY(!error.description.contains(u"tiger"_s));
}

void tst_connectionstring::procedureReferences_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("call"); // empty: sent as it stands
    const auto row = [](const QString &text, const QString &call) {
        QTest::newRow(qPrintable(text)) << text << call;
    };
    row(u"dbms_output.disable"_s, u"{call dbms_output.disable}"_s);
    row(u"dbms_output.enable(20000)"_s, u"{call dbms_output.enable(20000)}"_s);
    row(u"dbms_output.enable(abc)"_s, u"{call dbms_output.enable(abc)}"_s);
    row(u"  refresh_all ;\r\n"_s, u"{call refresh_all}"_s);
    row(u"scott.pack.proc (1, ')', f(2))"_s, u"{call scott.pack.proc (1, ')', f(2))}"_s);
    row(u"\"Odd name\".p"_s, u"{call \"Odd name\".p}"_s);
    for (const auto &text :
         {u"commit"_s, u"ROLLBACK;"_s, u"begin"_s, u"values (1)"_s, u"select(1)"_s, u""_s, u";"_s,
          u"select 1"_s, u"p(1) q"_s, u"p(1)(2)"_s, u"p(1"_s, u"p(')"_s, u"a.b.c.d"_s, u"1p"_s,
          u"p."_s, u"{call p}"_s, u"begin p; end;"_s, u"p -- comment"_s})
        row(text, QString());
}

void tst_connectionstring::procedureReferences()
{
    QFETCH(QString, text);
    QFETCH(QString, call);
    QCOMPARE(asProcedureCall(text), call.isEmpty() ? text : call);
}

void tst_connectionstring::escapes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("has");
    QTest::newRow("call") << u"{call p(?, ?)}"_s << true;
    QTest::newRow("function result") << u"{ ? = call p }"_s << true;
    QTest::newRow("inside") << u"select {fn now()} from t"_s << true;
    QTest::newRow("date") << u"select {d '2020-01-01'}"_s << true;
    QTest::newRow("after a literal") << u"select 'it''s', {ts '2020-01-01 00:00:00'}"_s << true;
    QTest::newRow("in a literal") << u"select '{call p}'"_s << false;
    QTest::newRow("in a comment") << u"select 1 -- {fn now()}"_s << false;
    QTest::newRow("in a block comment") << u"/* {d '1'} */ select 1"_s << false;
    QTest::newRow("other braces") << u"select {x} from t"_s << false;
    QTest::newRow("longer word") << u"select {date}"_s << false;
    QTest::newRow("never closed literal") << u"select '{d"_s << false;
    QTest::newRow("none") << u""_s << false;
}

void tst_connectionstring::escapes()
{
    QFETCH(QString, text);
    QFETCH(bool, has);
    QCOMPARE(hasOdbcEscape(text), has);
}

QTEST_GUILESS_MAIN(tst_connectionstring)
#include "tst_connectionstring.moc"
