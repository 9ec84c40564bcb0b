#include "dataaccess/SqlTokens.h"
#include "dataaccess/sandbox/PlanStep.h"
#include "dataaccess/sandbox/sandboxDialect.h"
#include "dataaccess/sandbox/sandboxSetup.h"
#include "support/planText.h"
#include "support/raisedError.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A plan as text: each step indented below its parent, with its object and the rows expected.
QString outline(const QList<PlanStep> &steps)
{
    QStringList lines;
    for (const PlanStep &step : steps) {
        QStringList parts = {step.operation};
        if (!step.options.isEmpty())
            parts.append(step.options);
        if (!step.objectName.isEmpty())
            parts.append(u'[' + step.objectName + u']');
        if (step.cardinality)
            parts.append(QString::number(*step.cardinality));
        lines.append(QString(2 * step.depth, u' ') + parts.join(u' '));
    }
    return lines.join(u'\n');
}

} // namespace

class tst_sandboxdialect : public QObject
{
    Q_OBJECT

private slots:
    void explain_data();
    void explain();
    void planQuery_data();
    void planQuery();
    void plan_data();
    void plan();
    void planIsNumbered();
    void planThatIsNone();
    void insertion();
    void block_data();
    void block();
    void setupStatements();
};

void tst_sandboxdialect::explain_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("id"); // null for a statement that is passed through
    QTest::addColumn<QString>("statement");

    QTest::newRow("as the program sends it")
        << u"EXPLAIN PLAN set statement_id = 'SCOTT3/2/2024 10:30:00' FOR select 1\r\nfrom dual"_s
        << u"SCOTT3/2/2024 10:30:00"_s << u" select 1\r\nfrom dual"_s;
    QTest::newRow("quotes and the word within the id")
        << u"explain  plan\n\tSET STATEMENT_ID='it''s FOR x'for select ''';'' FOR"_s
        << u"it's FOR x"_s << u" select ''';'' FOR"_s;
    QTest::newRow("behind comments") << u"-- for\n/* plan */ explain plan set statement_id = 'a' "
                                        "for update t set c = 'for'"_s
                                     << u"a"_s << u" update t set c = 'for'"_s;
    QTest::newRow("without an id") << u"explain plan for select 2"_s << u""_s << u" select 2"_s;
    QTest::newRow("nothing to explain")
        << u"explain plan set statement_id = 'a' for"_s << u"a"_s << u""_s;
    QTest::newRow("the server's own explain") << u"explain select 1"_s << QString() << QString();
    QTest::newRow("id not closed")
        << u"explain plan set statement_id = 'a for select 1"_s << QString() << QString();
    QTest::newRow("id no literal")
        << u"explain plan set statement_id = a for select 1"_s << QString() << QString();
    QTest::newRow("a column of that name")
        << u"select plan from explain for update"_s << QString() << QString();
    QTest::newRow("empty") << u""_s << QString() << QString();
}

void tst_sandboxdialect::explain()
{
    QFETCH(QString, text);
    QFETCH(QString, id);
    QFETCH(QString, statement);

    const auto request = explainRequest(text);
    QCOMPARE(request.has_value(), !id.isNull());
    if (!request)
        return;
    QCOMPARE(request->statementId.value_or(u""_s), id);
    QCOMPARE(request->statement, statement);
}

void tst_sandboxdialect::planQuery_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("id"); // null for a statement that is passed through

    const QString id = u"SCOTT3/2/2024 10:30:00"_s;
    QTest::newRow("as the program sends it") << planText(id) << id;
    QTest::newRow("doubled quote") << planText(u"O''NEIL1/1/2024"_s) << u"O'NEIL1/1/2024"_s;
    QTest::newRow("an empty id") << planText({}) << u""_s;
    QTest::newRow("other case and white space")
        << planText(u"ID"_s).replace(u' ', u"\r\n\t "_s).toLower().replace(u"'\r\n\t '"_s, u"' '"_s)
        << u"id"_s;
    QTest::newRow("another root") << planText(id).replace(u"ID= 0"_s, u"ID= 1"_s) << QString();
    QTest::newRow("more behind") << planText(id) + u" order by id"_s << QString();
    QTest::newRow("cut short") << planText(id).chopped(10) << QString();
    QTest::newRow("not closed") << planText(id).left(planText(id).indexOf(id) + 3) << QString();
    QTest::newRow("another query") << u"select * from plan_table"_s << QString();
}

void tst_sandboxdialect::planQuery()
{
    QFETCH(QString, text);
    QFETCH(QString, id);

    const auto found = planQueryId(text);
    QCOMPARE(found.has_value(), !id.isNull());
    if (found)
        QCOMPARE(*found, id);
}

void tst_sandboxdialect::plan_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QString>("json");
    QTest::addColumn<QString>("steps");

    QTest::newRow("join, aliases, access by key")
        << u"select e.ename, d.dname from scott.emp e join dept as \"D\" on 1=1, salgrade"_s
        << uR"json({"query_block": {"select_id": 1, "nested_loop": [
             {"table": {"table_name": "e", "access_type": "ALL", "rows": 14}},
             {"table": {"table_name": "D", "access_type": "eq_ref", "key": "PRIMARY", "rows": 1}},
             {"block-nl-join": {"table": {"table_name": "salgrade", "access_type": "hash_ALL",
                 "rows": 5}, "join_type": "BNLH"}}]}})json"_s
        << u"SELECT STATEMENT\n"
           "  HASH JOIN\n"
           "    NESTED LOOPS\n"
           "      TABLE ACCESS FULL [EMP] 14\n"
           "      TABLE ACCESS BY INDEX ROWID [DEPT] 1\n"
           "        INDEX UNIQUE SCAN [PRIMARY] 1\n"
           "    TABLE ACCESS FULL [SALGRADE] 5"_s;
    QTest::newRow("sort, outer join, subquery")
        << u"with x as (select 1) select * from emp"_s
        << uR"json({"query_block": {"filesort": {"sort_key": "a", "temporary_table": {
             "nested_loop": [
                 {"read_sorted_file": {"filesort": {"table": {"table_name": "emp",
                     "access_type": "index", "key": "pk", "using_index": true, "rows": 14}}}},
                 {"table": {"table_name": "dept", "access_type": "range", "key": "pk", "rows": 2,
                     "attached_condition": "trigcond(x)"}}]}},
             "subqueries": [{"query_block": {"table": {"message": "No tables used"}}}]}})json"_s
        << u"SELECT STATEMENT\n"
           "  FILTER\n"
           "    SORT ORDER BY\n"
           "      TEMPORARY TABLE\n"
           "        NESTED LOOPS OUTER\n"
           "          SORT ORDER BY\n"
           "            INDEX FULL SCAN [PK] 14\n"
           "          TABLE ACCESS BY INDEX ROWID [DEPT] 2\n"
           "            INDEX RANGE SCAN [PK] 2\n"
           "    FAST DUAL"_s;
    QTest::newRow("union of a view and nothing")
        << u"(select * from (select distinct deptno from emp) v) union select 1 from dual"_s
        << uR"json({"query_block": {"union_result": {"table_name": "<union1,3>",
             "access_type": "ALL", "query_specifications": [
                 {"query_block": {"nested_loop": [{"table": {"table_name": "<derived2>",
                     "access_type": "ALL", "rows": 8, "materialized": {"query_block": {
                         "table": {"table_name": "emp", "access_type": "ALL", "rows": 14}}}}}]}},
                 {"query_block": {"operation": "UNION", "table": {
                     "message": "Impossible WHERE"}}}]}}})json"_s
        << u"SELECT STATEMENT\n"
           "  UNION\n"
           "    VIEW 8\n"
           "      TABLE ACCESS FULL [EMP] 14\n"
           "    RESULT IMPOSSIBLE WHERE"_s;
    QTest::newRow("insert") << u"insert into dept values (1, 'a', 'b')"_s
                            << uR"json({"query_block": {"table": {"table_name": "dept"}}})json"_s
                            << u"INSERT STATEMENT\n"
                               "  LOAD TABLE CONVENTIONAL [DEPT]"_s;
    QTest::newRow("update") << u"update emp set sal = 1, comm = 2 where deptno = 10"_s
                            << uR"json({"query_block": {"table": {"update": 1, "table_name": "emp",
                                "access_type": "range", "key": "fk", "rows": 3}}})json"_s
                            << u"UPDATE STATEMENT\n"
                               "  UPDATE [EMP]\n"
                               "    TABLE ACCESS BY INDEX ROWID [EMP] 3\n"
                               "      INDEX RANGE SCAN [FK] 3"_s;
    QTest::newRow("parts nobody knows are passed through")
        << u"select 1"_s
        << uR"json({"query_block": {"novelty": {"list": [7, {"table": {"table_name": "t",
             "access_type": "ALL", "rows": 1e300}}]}, "nested_loop": "odd"}})json"_s
        << u"SELECT STATEMENT\n"
           "  TABLE ACCESS FULL [T]"_s;
}

void tst_sandboxdialect::plan()
{
    QFETCH(QString, statement);
    QFETCH(QString, json);
    QFETCH(QString, steps);
    QCOMPARE(outline(planSteps(statement, json)), steps);
}

// Depth first and without gaps: what draws the plan finds each step's parent above it.
void tst_sandboxdialect::planIsNumbered()
{
    QStringList tables;
    for (int table = 0; table < 40; ++table)
        tables.append(
            uR"json({"table": {"table_name": "t", "access_type": "ref", "key": "k"}})json"_s);
    const auto steps =
        planSteps(u"select 1"_s,
                  uR"json({"query_block": {"nested_loop": [%1]}})json"_s.arg(tables.join(u',')));

    QCOMPARE(steps.size(), 1 + 39 + 2 * 40);
    QVERIFY(!steps[0].parentId);
    for (int id = 1; id < steps.size(); ++id) {
        QCOMPARE(steps[id].id, id);
        QVERIFY(*steps[id].parentId < id);
        QCOMPARE(steps[id].depth, steps[*steps[id].parentId].depth + 1);
        QVERIFY(steps[id].position >= 1 && steps[id].position <= 2);
    }
}

void tst_sandboxdialect::planThatIsNone()
{
    for (const QString &json : {u""_s, u"DEPTNO"_s, u"[1]"_s, u"{"_s}) {
        QCOMPARE(raisedError([&] { planSteps(u"select 1"_s, json); }), ErrorNumber::ProviderFailed);
    }
}

void tst_sandboxdialect::insertion()
{
    PlanStep step;
    step.operation = u"TABLE ACCESS"_s;
    step.objectName = u"O'NEIL"_s;
    step.cardinality = 0;
    step.filterPredicates = QString(5000, u'\'');
    const QString text = planInsertion(u"it's"_s, {step});
    QVERIFY(text.startsWith(u"INSERT INTO plan_table ("_s));
    QVERIFY(text.contains(u"('it''s', SYSDATE(), 'TABLE ACCESS', NULL, 'O''NEIL', NULL, NULL, 0, "
                          "NULL, 0, 0, NULL, 0, NULL, '"_s));
    QCOMPARE(text.count(u'\''), 2 * 4 + 2 + 2 + 2 * 4000);
    QVERIFY(planInsertion({}, {step}).contains(u"(NULL, SYSDATE()"_s));
}

void tst_sandboxdialect::block_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("sent"); // null for a statement that is passed through

    QTest::newRow("of the Data tab")
        << u"begin \r\n execute immediate 'insert into t values (1)'; end;"_s
        << u"BEGIN NOT ATOMIC \r\n execute immediate 'insert into t values (1)'; end;"_s;
    QTest::newRow("behind a comment")
        << u"-- a\n/* b */Begin null; end;"_s << u"BEGIN NOT ATOMIC null; end;"_s;
    QTest::newRow("that has the words")
        << u"begin not atomic null; end;"_s << u"begin not atomic null; end;"_s;
    QTest::newRow("declare") << u"declare n int := 1; begin null; end;"_s
                             << u"BEGIN NOT ATOMIC DECLARE n int := 1; begin null; end;\nEND"_s;
    QTest::newRow("declare, not closed")
        << u"declare n int; begin null; end -- ;"_s
        << u"BEGIN NOT ATOMIC DECLARE n int; begin null; end -- ;\n; END"_s;
    QTest::newRow("a word that begins so") << u"beginning"_s << QString();
    QTest::newRow("a call") << u"{call dbms_output.disable}"_s << QString();
    QTest::newRow("a query") << u"select 'begin' from dual"_s << QString();
}

void tst_sandboxdialect::block()
{
    QFETCH(QString, text);
    QFETCH(QString, sent);
    const auto statement = blockStatement(text);
    QCOMPARE(statement.has_value(), !sent.isNull());
    if (statement)
        QCOMPARE(*statement, sent);
}

void tst_sandboxdialect::setupStatements()
{
    QCOMPARE(sandboxStatements("-- note\nSELECT 1\n  FROM dual\n/\n\nDROP x;\n/\nleft over\n"),
             "SELECT 1 FROM dual;\nDROP x;;\n"_ba);
}

QTEST_APPLESS_MAIN(tst_sandboxdialect)
#include "tst_sandboxdialect.moc"
