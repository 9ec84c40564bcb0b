#include "connection/commandLine.h"
#include "connection/connectDb.h"
#include "connection/session.h"
#include "platform/RuntimeError.h"
#include "platform/messageBox.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_Login : public QObject
{
    Q_OBJECT

private slots:
    void connectionStrings_data();
    void connectionStrings();
    void failedLogin();
    void cleaning_data();
    void cleaning();
    void loginNames_data();
    void loginNames();
};

void tst_Login::connectionStrings_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<int>("driver");
    QTest::addColumn<int>("privilege");
    QTest::addColumn<QString>("string");
    const QString scott = u"scott"_s;
    QTest::newRow("Microsoft") << scott << 0 << 0
                               << u"Provider=msdaora;Data Source=ORCL;User ID=scott;Password=x"_s;
    QTest::newRow("Oracle")
        << scott << 1 << 0
        << u"Provider=OraOLEDB.Oracle;ChunkSize=65535;Data Source=ORCL;User ID=scott;Password=x"_s;
    QTest::newRow("ODBC") << scott << 2 << 0 << u"DSN=ORCL;ChunkSize=65535;Uid=scott;Pwd=x"_s;
    QTest::newRow("unknown driver") << scott << 3 << 0 << QString();
    QTest::newRow("SYSDBA") << scott << 1 << 1 << u"DSN=ORCL;Uid=scott;Pwd=x AS SYSDBA"_s;
    QTest::newRow("SYSOPER") << scott << 0 << 2 << u"DSN=ORCL;Uid=scott;Pwd=x AS SYSOPER"_s;
    QTest::newRow("privilege of an unknown driver")
        << scott << 7 << 1 << u"DSN=ORCL;Uid=scott;Pwd=x AS SYSDBA"_s;
    QTest::newRow("unknown privilege")
        << scott << 2 << 3 << u"DSN=ORCL;ChunkSize=65535;Uid=scott;Pwd=x"_s;
    QTest::newRow("no user") << QString() << 0 << 0
                             << u"Provider=msdaora;Data Source=ORCL;User ID=;Password=x"_s;
    QTest::newRow("nothing is quoted")
        << u"a;b=\"c"_s << 2 << 0 << u"DSN=ORCL;ChunkSize=65535;Uid=a;b=\"c;Pwd=x"_s;
}

void tst_Login::connectionStrings()
{
    QFETCH(QString, user);
    QFETCH(int, driver);
    QFETCH(int, privilege);
    QTEST(loginConnectionString(user, u"x"_s, u"ORCL"_s, static_cast<qint16>(driver),
                                static_cast<qint16>(privilege)),
          "string");
}

void tst_Login::failedLogin()
{
    QStringList shown;
    setMessagePresenter({[&](const Message &message) {
                             shown.append(message.text);
                             return MessageAnswer::Ok;
                         },
                         {}});
    gConnectString = u"the last good one"_s;
    QString connectionString = u"untouched"_s;
    const auto before = std::make_shared<Connection>();
    std::shared_ptr<Connection> conn = before;
    bool connected = true;
    connectDb(u"scott"_s, u"tiger"_s, u"x;Provider=NoSuchProvider"_s, connected, conn,
              LoginDriver::OdbcDataSource, LoginPrivilege::Normal, connectionString);
    setMessagePresenter({});

    QVERIFY(!connected);
    QCOMPARE(shown, QStringList{errorDescription(ErrorNumber::ProviderNotFound)});
    QVERIFY(conn && conn != before);
    QCOMPARE(conn->State(), adStateClosed);
    QCOMPARE(conn->CursorLocation(), adUseClient);
    QCOMPARE(connectionString, u"untouched"_s);
    QCOMPARE(gConnectString, u"the last good one"_s);
}

void tst_Login::cleaning_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::addColumn<QString>("cleaned");
    QTest::newRow("nothing") << QString() << QString();
    QTest::newRow("blanks and quotes") << u" \" \"\"  \" "_s << QString();
    QTest::newRow("quoted as a whole") << u"\"DSN=a b;Uid=c\""_s << u"DSN=a b;Uid=c"_s;
    QTest::newRow("quoted in parts") << u"  \"DSN\"=\"a\";Pwd=\"\"x\" "_s << u"DSN=a;Pwd=x"_s;
    QTest::newRow("tabs stay") << u"\tDSN=a\t "_s << u"\tDSN=a\t"_s;
}

void tst_Login::cleaning()
{
    QFETCH(QString, commandLine);
    QTEST(cleanedCommandLine(commandLine), "cleaned");
}

void tst_Login::loginNames_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::addColumn<QString>("userName"); // "kept": not found
    QTest::addColumn<QString>("tnsName");
    const auto row = [](const char *commandLine, const QString &userName, const QString &tnsName) {
        QTest::newRow(commandLine) << QString::fromUtf8(commandLine) << userName << tnsName;
    };
    const QString kept = u"kept"_s;
    row("Provider=msdaora;Data Source=ORCL;User ID=scott;Password=x", u"scott"_s, u"ORCL"_s);
    row("DATA SOURCE=a;user id=b;data source=c;user id=d;", u"b"_s, u"a"_s);
    row("Data Source=ORCL;User ID=scott", kept, u"ORCL"_s);
    row("user id = scott;Data Source=x;", u"= scott"_s, u"x"_s);
    row("User ID=;Data Source=;", u""_s, u""_s);
    row("User ID;Data Source;", kept, kept);
    row("User ID", kept, kept);
    row("DSN=ORCL;ChunkSize=65535;Uid=scott;Pwd=x", kept, kept);
    row("Groß=\xc3\x9f;User ID=stra\xc3\x9f"
        "e;Data Source=x;",
        u"straße"_s, u"x"_s);
    row("", kept, kept);
    const QString longName(50'000, u'x');
    QTest::newRow("very long names")
        << u"Data Source="_s + longName + u"y;User ID="_s + longName + u';' << longName
        << longName + u'y';
}

void tst_Login::loginNames()
{
    QFETCH(QString, commandLine);
    QString userName = u"kept"_s;
    QString tnsName = u"kept"_s;
    readLoginNames(commandLine, userName, tnsName);
    QTEST(userName, "userName");
    QTEST(tnsName, "tnsName");
}

QTEST_GUILESS_MAIN(tst_Login)
#include "tst_login.moc"
