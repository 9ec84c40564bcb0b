// Connection strings, those of a login among them, and command texts that are procedure references
// or hold escapes.

#include "connection/login.h"
#include "connection/session.h"
#include "dataaccess/odbc/sessionParties.h"
#include "dataaccess/providers/providers.h"
#include "dataaccess/text/SqlTokens.h"
#include "dataaccess/text/connectionString.h"
#include "platform/errorTraps.h"
#include "support/coreTest.h"

namespace {

TextFunction itemNamed(const QString &name)
{
    return [name](const QString &text) { return ConnectionString(text).value(name); };
}

/// The connection string for a user, the number of a driver and that of a privilege.
QString connectionStringOf(const QString &choice)
{
    const auto number = [&](int field) { return choice.section(u' ', field, field).toShort(); };
    return loginConnectionString(choice.section(u' ', 0, 0), u"x"_s, u"ORCL"_s, number(1),
                                 number(2));
}

QString namesIn(const QString &commandLine)
{
    QString userName = u"kept"_s;
    QString tnsName = u"kept"_s;
    readLoginNames(commandLine, userName, tnsName);
    return userName + u'@' + tnsName;
}

/// A procedure reference as the call that it is sent as, any other text as "-".
QString procedureCall(const QString &text)
{
    const QString sent = asProcedureCall(text);
    return sent == text ? u"-"_s : sent;
}

QString opened(const QString &text)
{
    Connection().Open(text);
    return u"yes"_s;
}

} // namespace

class tst_connectionstring : public QObject
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts() { compareTextRow(); }
    void loginTexts_data();
    void loginTexts() { compareTextRow(); }
    void failedLogins();
    void manyItems();
    void missingOracleDriverIsNamed();
};

void tst_connectionstring::texts_data()
{
    addTextColumns();
    addTextRows("item a", itemNamed(u"a"_s),
                u"A=1;a=2→1| a = x y ; b=z→x y|a={x;y};b=2|a= {x;y} ;b=2→x;y|a={x}};y};b=2→x};y|"
                "a={x;b=2→{x;b=2|a=;b=2→|a=b=c→b=c|;;=;;|b=2;a=|b=2;a→"_s);
    addTextRows("item b", itemNamed(u"b"_s), u"a={x;y};b=2|a;b=2|a={x}y;b=2→2|a=x{y;b=2}→2}"_s);
    addTextRows("item without a name", itemNamed({}), u"=x;b=2→x"_s);
    addTextRows(
        "provider", [](const QString &text) { return openProvider(text).odbcConnectionString; },
        u"DSN=x;ChunkSize=65535;Uid=a;Pwd=b c→DSN=x;ChunkSize=65535;Uid=a;Pwd=b c|"
        "provider = MSDASQL;DSN=x;Uid=a→DSN=x;Uid=a|"
        "Provider=MSDASQL;Pwd={a;provider=b};DSN=x→Pwd={a;provider=b};DSN=x|"
        "Provider=nobody;Data Source=x→error 3706"_s);
    addTextRows(
        "aliases", [](const QString &text) { return tnsAliases(text).join(u' '); },
        u"# X = (\r\nA.world, B=\r\n  (D=(H=x)(P=1)) # Y=(\r\nifile = /x/y.ora\r\n"
        "C\r\n=(D)\r\nB=(D)→A.world B C|A=(D=(H=(P=1)\nB=(D))\nC,\nD = (→A B C D|"
        "A=(D=(H=\"(\nB= # x\n()|junk\nA=\n() B=\n()→A B|=()|(A=(D))|A=B(C)|A B=(D)|→"_s);
    addTextRows("procedure", procedureCall,
                u"dbms_output.disable→{call dbms_output.disable}|"
                "dbms_output.enable(abc)→{call dbms_output.enable(abc)}|"
                "  refresh_all ;\r\n→{call refresh_all}|"
                "scott.pack.proc (1, ')', f(2))→{call scott.pack.proc (1, ')', f(2))}|"
                "\"Odd name\".p→{call \"Odd name\".p}|"
                "commit|ROLLBACK;|begin|values (1)|select(1)||;|select 1|p(1) q|p(1)(2)|p(1|p(')|"
                "a.b.c.d|1p|p.|{call p}|begin p; end;|p -- comment→-"_s);
    addTextRows(
        "escape", [](const QString &text) { return hasOdbcEscape(text) ? u"yes"_s : u"no"_s; },
        u"{call p(?, ?)}|{ ? = call p }|select {fn now()} from t|select {d '2020-01-01'}|"
        "select 'it''s', {ts '2020-01-01 00:00:00'}→yes|"
        "|select '{call p}'|select 1 -- {fn now()}|/* {d '1'} */ select 1|select {x} from t|"
        "select {date}|select '{d→no"_s);
    // Where the driver manager would end the process.
    const QString kilobyte(1000, u'x');
    const QStringList tooLong = {u"DSN=x;UID="_s + kilobyte.repeated(100), u"driver=x"_s + kilobyte,
                                 u"DRIVER="_s + QString(501, u'ä'),
                                 u"Driver={a;"_s + kilobyte + u'}',
                                 u"DRIVER=x; DRIVER=x"_s + kilobyte};
    addTextRows("opened", opened, tooLong.join(u'|') + u"→error 3001"_s);
}

void tst_connectionstring::loginTexts_data()
{
    addTextColumns();
    addTextRows(
        "connection string", connectionStringOf,
        u"scott 0 0→Provider=msdaora;Data Source=ORCL;User ID=scott;Password=x|"
        " 0 0→Provider=msdaora;Data Source=ORCL;User ID=;Password=x|"
        "scott 1 0→"
        "Provider=OraOLEDB.Oracle;ChunkSize=65535;Data Source=ORCL;User ID=scott;Password=x|"
        "scott 2 0|scott 2 3→DSN=ORCL;ChunkSize=65535;Uid=scott;Pwd=x|"
        "a;b=\"c 2 0→DSN=ORCL;ChunkSize=65535;Uid=a;b=\"c;Pwd=x|"
        "scott 3 0→|"
        "scott 1 1|scott 7 1→DSN=ORCL;Uid=scott;Pwd=x AS SYSDBA|"
        "scott 0 2→DSN=ORCL;Uid=scott;Pwd=x AS SYSOPER"_s);
    addTextRows("cleaned", cleanedCommandLine,
                u"| \" \"\"  \" →|\"DSN=a b;Uid=c\"→DSN=a b;Uid=c|"
                "  \"DSN\"=\"a\";Pwd=\"\"x\" →DSN=a;Pwd=x|\tDSN=a\t →\tDSN=a\t"_s);
    addTextRows(
        "names", namesIn,
        u"Provider=msdaora;Data Source=ORCL;User ID=scott;Password=x→scott@ORCL|"
        "DATA SOURCE=a;user id=b;data source=c;user id=d;→b@a|"
        "Data Source=ORCL;User ID=scott→kept@ORCL|user id = scott;Data Source=x;→= scott@x|"
        "User ID=;Data Source=;→@|Groß=ß;User ID=straße;Data Source=x;→straße@x|"
        "|User ID|User ID;Data Source;|DSN=ORCL;ChunkSize=65535;Uid=scott;Pwd=x→kept@kept"_s);
}

void tst_connectionstring::failedLogins()
{
    const QTemporaryDir folder;
    makeFile(fileInVariable("ODBCINI", folder.filePath(u"odbc.ini"_s)),
             "[fake]\nDriver = " QUERNA_FAKE_DRIVER "\n");
    gConnectString = u"the last good one"_s;
    QString connectionString = u"untouched"_s;
    QStringList shown;
    setMessagePresenter([&](const QString &text) { shown.append(text); });
    const auto logOn = [&](const QString &database) {
        const auto before = std::make_shared<Connection>();
        std::shared_ptr<Connection> conn = before;
        bool connected = true;
        connectDb(u"scott"_s, u"tiger"_s, database, connected, conn, LoginDriver::OdbcDataSource,
                  LoginPrivilege::Normal, connectionString);
        return connected || !conn || conn == before ? -1 : conn->State();
    };
    QCOMPARE(logOn(u"x;Provider=NoSuchProvider"_s), adStateClosed);
    QCOMPARE(connectionString, u"untouched"_s);
    QCOMPARE(gConnectString, u"the last good one"_s);
    // Without transactions the connection is open, and known by its string.
    QCOMPARE(logOn(u"fake;NOBEGIN=1"_s), adStateOpen);
    QCOMPARE(connectionString, u"DSN=fake;NOBEGIN=1;ChunkSize=65535;Uid=scott;Pwd=tiger"_s);
    QCOMPARE(gConnectString, connectionString);
    setMessagePresenter({});
    QCOMPARE(shown, QStringList({errorDescription(ErrorNumber::ProviderNotFound),
                                 u"there are no transactions"_s}));
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

QTEST_GUILESS_MAIN(tst_connectionstring)
#include "tst_connectionstring.moc"
