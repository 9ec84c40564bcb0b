// Connections, readers and commands over ODBC: on a SQLite file, and on a driver that misbehaves.

#include "dataaccess/Command.h"
#include "support/coreTest.h"

namespace {

const QString fakeDriver = QStringLiteral(QUERNA_FAKE_DRIVER);

/// What the fake driver's text columns hold.
QString fakeText(int row, int length)
{
    QString text(length, QChar());
    for (int i = 0; i < length; ++i)
        text[i] = QChar(u'a' + (row + i) % 26);
    return text;
}

std::shared_ptr<Connection> opened(const QString &connectionString)
{
    auto connection = std::make_shared<Connection>();
    connection->Open(connectionString);
    return connection;
}

std::shared_ptr<Connection> fake(const QString &more = {})
{
    return opened(u"DRIVER=%1;%2"_s.arg(fakeDriver, more));
}

} // namespace

class tst_odbc : public QObject
{
    Q_OBJECT

private slots:
    void states();
    void transactions();
    void readsRows();
    void valuesComeWhole_data();
    void valuesComeWhole();
    void diagnosticsAreGathered();
    void cutValuesAreReadAgain_data();
    void cutValuesAreReadAgain();
    void openResultsAreReleased();
    void lostConnectionEndsTheReader_data();
    void lostConnectionEndsTheReader();
    void outputsAreReadAfterTheLastResult();
    void oracleProvidersReachTheDriver();

private:
    std::shared_ptr<Connection> sqlite() const { return opened(m_sqlite); }

    QTemporaryDir m_folder;
    QString m_sqlite = u"DRIVER=SQLite3;Database="_s + m_folder.filePath(u"test.db"_s);
};

void tst_odbc::states()
{
    const auto connection = sqlite();
    QCOMPARE(connection->State(), adStateOpen);
    QCOMPARE(raisedError([&] { connection->Open(u"DSN=x"_s); }), 3705);
    Recordset reader;
    reader.Open(u"select 1"_s, connection);
    Recordset copy;
    copy.setCursorLocation(adUseClient);
    copy.Open(u"select 1"_s, connection);
    Recordset orphan;
    orphan.Open(u"select 1"_s, sqlite());
    connection->Close();
    for (const Recordset *closed : {&reader, &copy, &orphan})
        QCOMPARE(closed->State(), adStateClosed);
    QCOMPARE(connection->State(), adStateClosed);
    QCOMPARE(raisedError([&] { connection->Close(); }), 3704);
    QCOMPARE(raisedError([&] { reader.Open(u"select 1"_s, connection); }), 3709);
    Command command;
    QCOMPARE(raisedError([&] { command.Execute(); }), 3709);
    for (const auto &text :
         {u""_s, u"DSN=no such source"_s, u"DRIVER=/no/such/driver.so"_s, u"Database=x"_s}) {
        QVERIFY(raisedError([&] { connection->Open(text); }) != 0);
        QCOMPARE(connection->State(), adStateClosed);
    }
}

void tst_odbc::transactions()
{
    const auto connection = sqlite();
    connection->Execute(u"create table tx (n integer)"_s);
    QCOMPARE(raisedError([&] { connection->CommitTrans(); }), -2147168242);
    QCOMPARE(raisedError([&] { connection->RollbackTrans(); }), -2147168242);
    const auto count = [&] {
        return connection->Execute(u"select count(*) from tx"_s)->value(0).toInteger();
    };

    connection->BeginTrans();
    QCOMPARE(raisedError([&] { connection->BeginTrans(); }), -2147168237);
    connection->Execute(u"insert into tx values (1)"_s);
    connection->RollbackTrans();
    QCOMPARE(count(), 0);

    connection->BeginTrans();
    connection->Execute(u"insert into tx values (2)"_s);
    QVERIFY(raisedError([&] { connection->Execute(u"insert into nothing values (3)"_s); }) != 0);
    connection->CommitTrans(); // a failed statement leaves the others standing
    connection->Execute(u"insert into tx values (4)"_s); // committed at once
    connection->BeginTrans();
    connection->Execute(u"insert into tx values (5)"_s);
    connection->Close(); // rolls back
    connection->Open(m_sqlite);
    QCOMPARE(count(), 2);
}

void tst_odbc::readsRows()
{
    const auto connection = sqlite();
    Recordset rows;
    rows.setCacheSize(3);
    rows.Open(u"select 1 union all select 2 union all select 3 union all select 4"_s, connection);
    QCOMPARE(rows.RecordCount(), -1);
    QCOMPARE(raisedError([&] { rows.setCacheSize(4); }), 3705);
    QCOMPARE(raisedError([&] { rows.AddNew(); }), 3251);
    QCOMPARE(raisedError([&] { rows.sort(0, false); }), 3251);
    rows.MoveFirst();
    QCOMPARE(remainingRows(rows), QStringList({u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
    QCOMPARE(raisedError([&] { rows.MoveNext(); }), 3021);
    QCOMPARE(raisedError([&] { rows.MoveFirst(); }), 3219);

    Recordset none;
    none.Open(u"select 1 where 1 = 0"_s, connection);
    QVERIFY(none.Eof());
    QCOMPARE(none.fieldCount(), 1);

    // A statement without rows leaves it closed, and one that changes no row is no failure.
    for (const auto &text : {u"create table dml (n integer)"_s, u"delete from dml"_s}) {
        const auto result = connection->Execute(text);
        QCOMPARE(result->State(), adStateClosed);
        QCOMPARE(raisedError([&] { result->Eof(); }), 3704);
    }

    Recordset odd;
    odd.Open(u"select 1 as ID, 2 as id, 3 as \"%1\""_s.arg(QString(4000, u'n')), connection);
    QCOMPARE(odd.fieldIndex(u"Id"_s), 0);
    QCOMPARE(odd.value(u"ID"_s).toInteger(), 1);
    QCOMPARE(odd.value(1).toInteger(), 2);
    QVERIFY(odd.fieldName(2).startsWith(QString(200, u'n')));

    QStringList columns;
    for (int i = 0; i < 1000; ++i)
        columns.append(u"v%1"_s.arg(i));
    Recordset wide;
    wide.setCacheSize(100);
    wide.setCursorLocation(adUseClient);
    wide.Open(u"select '"_s + columns.join(u"','"_s) + u'\'', connection);
    QCOMPARE(remainingRows(wide).first(), columns.join(u','));

    connection->setCursorLocation(adUseClient);
    const auto copy = connection->Execute(u"select 2 as A union all select 1"_s);
    QCOMPARE(copy->RecordCount(), 2);
    copy->sort(0, false);
    QCOMPARE(remainingRows(*copy), QStringList({u"1"_s, u"2"_s}));
}

void tst_odbc::valuesComeWhole_data()
{
    const DataRows<QString, QString, Value> row("type", "literal", "expected");
    row("largest integer", u"bigint"_s, u"9223372036854775807"_s,
        std::numeric_limits<std::int64_t>::max());
    row("double", u"double"_s, u"0.1"_s, 0.1);
    row("text in a number's column", u"integer"_s, u"'fünf'"_s, u"fünf"_s);
    row("text that reads like a number", u"integer"_s, u"'nan'"_s, u"nan"_s);
    row("fraction in an integer's column", u"integer"_s, u"2.5"_s, 2.5);
    row("null", u"varchar(10)"_s, u"null"_s, NullValue{});
    row("beyond the basic plane", u"varchar(10)"_s, u"'a\U0001F600b'"_s, u"a\U0001F600b"_s);
    row("no text", u"varchar(10)"_s, u"''"_s, QString(u""_s));
    row("longer than declared", u"varchar(3)"_s, u"'%1'"_s.arg(QString(5000, u'x')),
        QString(5000, u'x'));
    row("text in a truth value's column", u"boolean"_s, u"'abc'"_s, u"abc"_s);
    row("number in a date's column", u"date"_s, u"1700000000"_s, 1'700'000'000);
    row("time in a timestamp's column", u"datetime"_s, u"'12:34:56.780'"_s, u"12:34:56.780"_s);
    row("bytes", u"blob"_s, u"x'00ff10'"_s, QByteArray("\0\xFF\x10", 3));
    // More than the largest piece that is read at once.
    row("4 MB of bytes", u"blob"_s, u"zeroblob(4000000)"_s, QByteArray(4'000'000, '\0'));
    row("24 MB of text", u"text"_s, u"replace(hex(zeroblob(6000000)), '00', 'yz')"_s,
        QString(u"yz"_s).repeated(6'000'000));
}

void tst_odbc::valuesComeWhole()
{
    QFETCH(QString, type);
    QFETCH(QString, literal);
    QFETCH(Value, expected);
    const auto connection = sqlite();
    connection->Execute(u"drop table if exists v"_s);
    connection->Execute(u"create table v (a integer, v %1, z integer)"_s.arg(type));
    connection->Execute(u"insert into v values (1, %1, 9)"_s.arg(literal));
    Recordset reader;
    reader.setCacheSize(100);
    reader.Open(u"select * from v"_s, connection);
    QVERIFY(reader.value(1) == expected);
    QCOMPARE(reader.value(2).toInteger(), 9);
    const auto copy = makeTable({{u"A"_s}, {u"V"_s}, {u"Z"_s}}, {});
    copy->addNewFrom(reader);
    QVERIFY(copy->value(1) == (expected.isNull() ? Value(QString(u""_s)) : expected));
    QCOMPARE(copy->value(2).toInteger(), 9);
}

void tst_odbc::diagnosticsAreGathered()
{
    const auto connection = fake();
    for (const auto &text : {u"refuse 3"_s, u"refuse 3 badlengths"_s}) {
        const RuntimeError error = raised([&] { connection->Execute(text); });
        QCOMPARE(error.description, u"reason 3\r\nreason 2\r\nreason 1"_s);
        QCOMPARE(error.number, 903);
        QCOMPARE(error.nativeError, 903);
        QCOMPARE(error.sqlState, u"42000"_s);
    }
    QCOMPARE(connection->Execute(u"rows 1 integer"_s)->value(0).toInteger(), 0);
    QCOMPARE(raisedError([&] { connection->Execute(u"nothing but late"_s); }), 1476);
    for (const int number : {14, 3709}) // some drivers are not to be asked again after that
        QCOMPARE(raisedError([&] { connection->Execute(u"rows 1 nomemory"_s); }), number);
}

void tst_odbc::cutValuesAreReadAgain_data()
{
    const DataRows<QString, QList<int>, int> row("columns", "lengths", "failsUpTo");
    row("honest", u"text 20 20"_s, {20}, -1);
    row("expression of unknown size", u"integer expression 0 70000 text 9 9"_s, {0, 70000, 9}, -1);
    row("guessed size", u"expression 255 3000 text 9 9"_s, {3000, 9}, -1);
    row("unknown length", u"expression 0 70000 nototal"_s, {70000}, -1);
    row("stored length", u"expression 255 3000 storedlength"_s, {3000}, -1);
    row("misreckoned length", u"expression 0 30 misreckoned"_s, {30}, -1);
    row("no progress", u"expression 0 70000 stuck"_s, {70000}, 15);
    // A table's column that lies: read again, or an error, but never cut.
    row("false size", u"text 10 500"_s, {500}, 11);
}

void tst_odbc::cutValuesAreReadAgain()
{
    QFETCH(QString, columns);
    QFETCH(QList<int>, lengths);
    QFETCH(int, failsUpTo);
    std::shared_ptr<Connection> connection;
    const auto readAll = [&] {
        Recordset rows;
        rows.setCacheSize(4);
        rows.Open(u"rows 10 "_s + columns, connection);
        int row = 0;
        for (; !rows.Eof(); rows.MoveNext(), ++row) {
            for (int field = 0; field < rows.fieldCount(); ++field) {
                const QString expected =
                    lengths[field] == 0 ? QString::number(row) : fakeText(row, lengths[field]);
                QVERIFY(rows.value(field).toText() == expected);
            }
        }
        QCOMPARE(row, 10);
    };
    // SQL_GD_…: 1 any column, 2 any order, 4 block, 8 bound.
    for (const int abilities : {15, 11, 3, 0}) {
        connection = fake(u"GETDATA=%1"_s.arg(abilities));
        const int error = raisedError(readAll);
        QVERIFY2(error == (abilities <= failsUpTo ? 3000 : 0),
                 qPrintable(u"%1: error %2"_s.arg(abilities).arg(error)));
    }
}

// Whether the driver refuses, says beforehand that it will, or ends them with the transaction.
void tst_odbc::openResultsAreReleased()
{
    for (const auto &items : {u"ONERESULT=1"_s, u"ONERESULT=1;ACTIVITIES=1"_s,
                              // PostgreSQL's driver, as it is registered for narrow texts.
                              u"NAME=psqlodbca.so;NARROW=1;ROLLSBACK=1;UseDeclareFetch=1"_s}) {
        const auto connection = fake(items);
        Recordset first;
        first.setCacheSize(10);
        first.Open(u"rows 50 integer text 20 20"_s, connection);
        for (int i = 0; i < 6; ++i)
            first.MoveNext();
        Recordset second;
        second.Open(u"rows 3 integer"_s, connection);
        QCOMPARE(raisedError([&] { connection->Execute(u"refuse 1"_s); }), 901);
        first.MoveNext();
        connection->Execute(u"rollback"_s);
        QCOMPARE(first.RecordCount(), -1);
        QCOMPARE(raisedError([&] { first.MoveFirst(); }), 3219);
        const QStringList rest = remainingRows(first);
        QCOMPARE(rest.size(), 43);
        QCOMPARE(rest.first(), u"7,"_s + fakeText(7, 20));
        QCOMPARE(rest.last(), u"49,"_s + fakeText(49, 20));
        QCOMPARE(remainingRows(second), QStringList({u"0"_s, u"1"_s, u"2"_s}));
    }
}

void tst_odbc::lostConnectionEndsTheReader_data()
{
    const DataRows<QString, bool, int, int> row("fault", "isReleased", "rows", "error");
    row("lost", u"lost 25"_s, false, 20, 3113);
    row("lost, read into memory", u"lost 25"_s, true, 20, 3113);
    row("a row in error", u"rowerror 25"_s, false, 25, 77);
    row("a value breaks off", u"expression 0 70000 storedlength broken 25"_s, false, 25, 57);
    row("the row it stands on, read into memory", u"text 10 500"_s, true, 0, 3000);
    row("late", u"late"_s, false, 100, 1476);
}

void tst_odbc::lostConnectionEndsTheReader()
{
    QFETCH(QString, fault);
    QFETCH(bool, isReleased);
    QFETCH(int, rows);
    QFETCH(int, error);
    const auto connection = fake(u"ONERESULT=1;GETDATA=11"_s);
    Recordset reader;
    reader.setCacheSize(10);
    reader.Open(u"rows 100 integer "_s + fault, connection);
    if (isReleased)
        connection->Execute(u"rows 1 integer"_s);
    int read = 0;
    const auto readAll = [&] {
        for (; !reader.Eof(); reader.MoveNext()) {
            reader.value(reader.fieldCount() - 1);
            ++read;
        }
    };
    QCOMPARE(raisedError(readAll), error);
    QCOMPARE(read, rows);
    if (!reader.Eof())
        QCOMPARE(raisedError([&] { reader.MoveNext(); }), error);
    QVERIFY(reader.Eof()); // no row comes twice
}

void tst_odbc::outputsAreReadAfterTheLastResult()
{
    Command command;
    command.ActiveConnection = fake();
    command.CommandText = u"dbms_output.get_line"_s;
    QCOMPARE(raisedError([&] { command.appendParameter({u"x"_s, adVarChar, 0, {}}); }), 3708);
    command.appendParameter({u"lines"_s, adVarChar, 255, {}});
    command.appendParameter({u"status"_s, adInteger, 0, {}});
    QCOMPARE(command.parameter(u"Status"_s).toInteger(), 0);
    for (int i = 0; i < 3; ++i)
        command.Execute();
    QCOMPARE(command.parameter(u"lines"_s), Value(u"out"_s));
    QCOMPARE(command.parameter(u"status"_s).toInteger(), 7);
    QCOMPARE(raisedError([&] { command.parameter(u"none"_s); }), 3265);
    command.CommandText = u"rows 2 integer late "_s;
    for (int i = 0; i < 2; ++i) // a failure leaves nothing open that the next one would stumble on
        QCOMPARE(raisedError([&] { command.Execute(); }), 1476);
    command.ActiveConnection->Close();
    QCOMPARE(raisedError([&] { command.Execute(); }), 3709);
}

void tst_odbc::oracleProvidersReachTheDriver()
{
    // The fake driver stands in, under a name that the driver manager does not know.
    const QString record = fileInVariable("FAKEDRIVER_RECORD", m_folder.filePath(u"record"_s));
    saveSetting(u"Orbek Oracle"_s, u"Settings"_s, u"OracleDriver"_s, fakeDriver);
    Connection().Open(u"Provider=msdaora;Data Source=ORCL;User ID=scott;Password=x"_s);
    QVERIFY(contentOf(record).contains("DBQ=ORCL;UID=scott;PWD=x;"));
    Connection().Open(u"Provider=OraOLEDB.Oracle;ChunkSize=65535;Data Source=host:1521/db;"
                      "User ID=;Password={a;b}"_s);
    QVERIFY(contentOf(record).contains("DBQ=host:1521/db;UID=;PWD={a;b};"));
    qunsetenv("FAKEDRIVER_RECORD");
    saveSetting(u"Orbek Oracle"_s, u"Settings"_s, u"OracleDriver"_s, QString());
}

QTEST_GUILESS_MAIN(tst_odbc)
#include "tst_odbc.moc"
