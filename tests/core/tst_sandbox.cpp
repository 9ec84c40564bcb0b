#include "dataaccess/Command.h"
#include "sqltext/sqlTexts.h"
#include "support/coreTest.h"

using SandboxFixture::scalar;
using SandboxFixture::table;

namespace {

QString failureOf(const std::shared_ptr<Connection> &connection, const QString &text)
{
    return raised([&] { connection->Execute(text); }).description;
}

// The lines that wait on the server, each with the status it came with.
class OutputLines
{
public:
    explicit OutputLines(const std::shared_ptr<Connection> &connection)
    {
        m_command.CommandText = u"dbms_output.get_line"_s;
        m_command.ActiveConnection = connection;
        m_command.appendParameter({u"lines"_s, adVarChar, 255, {}});
        m_command.appendParameter({u"status"_s, adInteger, 0, {}});
    }

    QString next()
    {
        m_command.Execute();
        return shownText(m_command.parameter(u"status"_s)) + u':' +
               shownText(m_command.parameter(u"lines"_s));
    }

    QString all()
    {
        QStringList lines;
        do {
            lines.append(next());
        } while (lines.last().startsWith(u"0:"));
        return lines.join(u'\n');
    }

private:
    Command m_command;
};

} // namespace

/// What the sandbox's server says to the statements that the program sends.
class tst_sandbox : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void refusals_data();
    void refusals();
    void sampleSchema();
    void blocks_data();
    void blocks();
    void rowsWithinABlock();
    void dictionary();
    void output();
    void outputLimits();
    void explainJoin();
    void explainAgain();
    void explainRefused();

private:
    std::shared_ptr<Connection> m_connection;
};

void tst_sandbox::initTestCase()
{
    m_connection = SandboxFixture::open();
    m_connection->BeginTrans();
}

void tst_sandbox::cleanup()
{
    m_connection->RollbackTrans();
    m_connection->BeginTrans();
}

void tst_sandbox::refusals_data()
{
    const DataRows<QString, QString> row("user", "password");
    row("wrong password", u"scott"_s, u"lion"_s);
    row("nobody at all", {}, {});
    row("the server's own root", u"root"_s, {});
    row("owner of the packages", u"dbms_output"_s, {});
    row("items within the password", u"scott"_s, u"{x};UID=system;PWD=lantern"_s);
}

void tst_sandbox::refusals()
{
    QFETCH(QString, user);
    QFETCH(QString, password);
    const RuntimeError error = raised([&] { SandboxFixture::open(user, password); });
    QVERIFY2(error.description.contains(u"Access denied"_s), error.what());
    QVERIFY(password.isEmpty() || !error.description.contains(password));
}

void tst_sandbox::sampleSchema()
{
    QCOMPARE(table(m_connection, u"select count(distinct sale_id), count(distinct customer) > 100, "
                                 "count(discount) > 1000, count(note) < 90000 from sales"_s),
             u"100000|1|1|1"_s);
    QCOMPARE(table(m_connection, u"select ename, '' || 'a\\', nvl('', 'null') from emp e, dept d "
                                 "where e.deptno = d.deptno and ename in ('king', 'NOWAK')"_s),
             u"NOWAK|a\\|null"_s);

    // No way in but the socket in the user's own folder; names in any letter case.
    const auto system = SandboxFixture::open(u"SYSTEM"_s, u"lantern"_s);
    QCOMPARE(table(system, u"select user, host, @@skip_networking from mysql.global_priv where "
                           "json_value(priv, '$.account_locked') is null and user <> 'PUBLIC' "
                           "order by user"_s),
             u"scott|localhost|1\nsystem|localhost|1"_s);
    QCOMPARE(scalar(system, u"select count(*) from scott.emp"_s), u"14"_s);
}

void tst_sandbox::blocks_data()
{
    const DataRows<QString, QString> row("block", "effect");
    row("of the Data tab",
        u"begin \r\n execute immediate '-- a''s\ninsert into dept\n values (50, ''IT''''S'', "
        "''a;b'') '; end;"_s,
        u"IT'S|a;b"_s);
    row("declare", u"declare n number := 50; begin insert into dept values (n, 'x', 'y'); end;"_s,
        u"x|y"_s);
    row("a block in a script",
        u"Begin \r\nexecute immediate ('\nbegin insert into dept values (50, ''x'', ''y''); "
        "end');\r\nend;"_s,
        u"x|y"_s);
}

void tst_sandbox::blocks()
{
    QFETCH(QString, block);
    QFETCH(QString, effect);

    QCOMPARE(m_connection->Execute(block)->State(), adStateClosed);
    const QString query = u"select dname, loc from dept where deptno = 50"_s;
    QCOMPARE(table(m_connection, query), effect);
    QCOMPARE(table(SandboxFixture::open(), query), u""_s);
}

// What fails after the first rows fails, however many they are and whether somebody reads them.
void tst_sandbox::rowsWithinABlock()
{
    for (const QString &block :
         {u"Begin \r\nexecute immediate ('select * from nowhere');\r\nend;"_s,
          u"begin select 1 from dual; insert into nowhere values (1); end;"_s,
          u"begin select * from sales; signal sqlstate '45000' set message_text = 'nowhere'; "
          "end;"_s}) {
        QVERIFY(failureOf(m_connection, block).contains(u"nowhere"_s));
        m_connection->Execute(
            u"declare n int; begin select 1 from dual; select * from emp; end;"_s);
    }
    QCOMPARE(table(m_connection, u"begin select deptno from dept; select 1 from dual; end;"_s),
             u"10\n20\n30\n40"_s);
    // The driver counts semicolons, and must not be asked for what the server does not send.
    m_connection->Execute(u"create procedure steps as begin null; null; null; end;"_s);
    QCOMPARE(m_connection->Execute(u"steps()"_s)->State(), adStateClosed);
    m_connection->Execute(u"drop procedure steps"_s);
}

void tst_sandbox::dictionary()
{
    QCOMPARE(table(m_connection, u"SELECT username from SYS.ALL_USERS order by username"_s),
             u"SCOTT\nSYSTEM"_s);
    const QString tables =
        table(m_connection, u"SELECT table_name FROM SYS.ALL_TABLES where owner = 'SCOTT'"_s);
    QVERIFY(tables.contains(u"SALES"_s) && tables.contains(u"PLAN_TABLE"_s));
    QCOMPARE(table(m_connection, u"SELECT column_name FROM SYS.ALL_TAB_COLUMNS where owner = "
                                 "'SCOTT' and table_name = 'EMP' "_s),
             u"EMPNO\nENAME\nJOB\nMGR\nHIREDATE\nSAL\nCOMM\nDEPTNO"_s);
    QCOMPARE(table(m_connection, u"SELECT table_name FROM SYS.ALL_TABLES where owner = 'scott'"_s),
             u""_s);

    // Of each other's tables they see what they may.
    const auto system = SandboxFixture::open(u"system"_s, u"lantern"_s);
    const QString query = u"SELECT table_name FROM SYS.ALL_TABLES where owner = 'SYSTEM'"_s;
    QVERIFY(table(system, query).contains(u"PLAN_TABLE"_s));
    QCOMPARE(table(m_connection, query), u""_s);
    QVERIFY(failureOf(m_connection, u"select * from system.plan_table"_s).contains(u"denied"_s));
    QCOMPARE(table(system, u"select distinct owner from SYS.ALL_TABLES order by owner"_s),
             u"SCOTT\nSYSTEM"_s);
}

void tst_sandbox::output()
{
    OutputLines lines(m_connection);
    m_connection->Execute(u"dbms_output.disable"_s);
    m_connection->Execute(u"begin dbms_output.put_line('lost'); end;"_s);
    QCOMPARE(lines.all(), u"1:(null)"_s);

    m_connection->Execute(u"dbms_output.enable(20000)"_s);
    m_connection->Execute(u"begin dbms_output.put_line('one'); dbms_output.put_line(''); "
                          "dbms_output.put('t'); dbms_output.put(2.50); dbms_output.new_line; "
                          "dbms_output.put_line(' drei;'); dbms_output.put('begun'); end;"_s);
    QCOMPARE(lines.all(), u"0:one\n0:(null)\n0:t2.50\n0: drei;\n1:(null)"_s);

    m_connection->Execute(u"begin dbms_output.put_line(', ended'); dbms_output.put_line('x'); "
                          "end;"_s);
    QCOMPARE(lines.next(), u"0:begun, ended"_s);
    m_connection->Execute(u"begin dbms_output.put_line('new'); end;"_s);
    QCOMPARE(lines.all(), u"0:new\n1:(null)"_s);

    m_connection->Execute(u"begin dbms_output.put_line('cleared'); end;"_s);
    m_connection->Execute(u"dbms_output.disable"_s);
    m_connection->Execute(u"dbms_output.enable(20000)"_s);
    QCOMPARE(lines.all(), u"1:(null)"_s);
    QVERIFY(failureOf(m_connection, u"dbms_output.enable(abc)"_s).contains(u"abc"_s));

    // Lines survive a rollback and a change of the schema.
    const auto system = SandboxFixture::open(u"system"_s, u"lantern"_s);
    system->BeginTrans();
    system->Execute(u"dbms_output.enable(20000)"_s);
    system->Execute(u"begin dbms_output.put_line('kept'); end;"_s);
    system->RollbackTrans();
    system->Execute(u"use scott"_s);
    QCOMPARE(OutputLines(system).all(), u"0:kept\n1:(null)"_s);
}

void tst_sandbox::outputLimits()
{
    OutputLines lines(m_connection);
    m_connection->Execute(u"dbms_output.disable"_s);
    m_connection->Execute(u"dbms_output.enable(5)"_s); // 2,000 at least
    m_connection->Execute(u"begin dbms_output.put_line(rpad('x', 255, 'x')); end;"_s);
    QCOMPARE(lines.next(), u"0:"_s + QString(255, u'x'));

    m_connection->Execute(u"begin dbms_output.put_line(rpad('x', 256, 'x')); end;"_s);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, lines.next()); // longer than the parameter, not cut
    QVERIFY(failureOf(m_connection, u"begin for i in 1..3 loop dbms_output.put_line(rpad('x', "
                                    "1000, 'x')); end loop; end;"_s)
                .contains(u"ORU-10027"_s));
    QVERIFY(failureOf(m_connection, u"begin dbms_output.put_line(rpad('x', 32768, 'x')); end;"_s)
                .contains(u"ORU-10028"_s));
    m_connection->Execute(u"dbms_output.disable"_s);
}

void tst_sandbox::explainJoin()
{
    const QString id = u"SCOTT3/2/2024 10:30:00"_s;
    m_connection->Execute(u"DELETE FROM PLAN_TABLE WHERE statement_id = '%1'"_s.arg(id));
    m_connection->Execute(u"EXPLAIN PLAN set statement_id = '%1' FOR select e.ename, d.dname from "
                          "emp e, dept d where e.deptno = d.deptno"_s.arg(id));

    QCOMPARE(fieldNames(*m_connection->Execute(planQuery(id))).join(u' '),
             u"QUERY_PLAN LEVEL ID PARENT_ID OBJECT_NAME CARDINALITY BYTES COST"_s);
    QCOMPARE(table(m_connection, planQuery(id)), u"SELECT STATEMENT|1|0|(null)| | | | \n"
                                                 "NESTED LOOPS|2|1|0| | | | \n"
                                                 "TABLE ACCESS FULL|3|2|1|DEPT|4| | \n"
                                                 "TABLE ACCESS FULL|3|3|1|EMP|14| | "_s);

    // Within the transaction, as everything else.
    QCOMPARE(table(SandboxFixture::open(), planQuery(id)), u""_s);
}

// Steps in the order of reading whatever the order of their numbers, and each id for itself.
void tst_sandbox::explainAgain()
{
    m_connection->Execute(u"EXPLAIN PLAN set statement_id = 'O''NEIL' FOR delete from emp"_s);
    QCOMPARE(table(m_connection, planQuery(u"O''NEIL"_s)).section(u'|', 0, 0),
             u"DELETE STATEMENT"_s);

    m_connection->Execute(u"insert into plan_table (statement_id, operation, id, parent_id) values "
                          "('x', 'ROOT', 0, null), ('x', 'B', 10, 0), ('x', 'A', 9, 0), "
                          "('x', 'A1', 11, 9), ('x', 'LOST', 12, 99), ('y', 'OTHER', 1, 0)"_s);
    QCOMPARE(table(m_connection, planQuery(u"x"_s)), u"ROOT|1|0|(null)| | | | \n"
                                                     "A|2|9|0| | | | \n"
                                                     "A1|3|11|9| | | | \n"
                                                     "B|2|10|0| | | | "_s);
}

void tst_sandbox::explainRefused()
{
    const QString explain = u"EXPLAIN PLAN set statement_id = 'bad' FOR "_s;
    QVERIFY(failureOf(m_connection, explain + u"select * from nope"_s).contains(u"nope"_s));
    QVERIFY(failureOf(m_connection, explain + u"selec"_s).contains(u"syntax"_s));
    QVERIFY(
        failureOf(m_connection, explain + u"select 1; delete from emp"_s).contains(u"syntax"_s));
    QVERIFY(raisedError([&] { m_connection->Execute(explain); }) != 0);
    QCOMPARE(scalar(m_connection, u"select count(*) from plan_table where statement_id = 'bad'"_s),
             u"0"_s);
    QCOMPARE(scalar(m_connection, u"select count(*) from emp"_s), u"14"_s);
}

QTEST_GUILESS_MAIN(tst_sandbox)
#include "tst_sandbox.moc"
