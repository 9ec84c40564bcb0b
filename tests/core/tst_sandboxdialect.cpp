#include "dataaccess/sandbox/sandboxDialect.h"
#include "dataaccess/text/SqlTokens.h"
#include "sqltext/sqlTexts.h"
#include "support/coreTest.h"

namespace {

// A plan as text: each step indented below its parent, with its object and the rows expected.
// Depth first and without gaps: what draws the plan finds each step's parent above it.
QString outline(const QList<PlanStep> &steps)
{
    QStringList lines;
    QList<int> depths;
    for (const PlanStep &step : steps) {
        if (step.id != lines.size() || step.parentId >= step.id ||
            (step.parentId < 0) != lines.isEmpty())
            return u"misnumbered"_s;
        depths.append(step.parentId < 0 ? 0 : depths[step.parentId] + 1);
        QStringList parts = {step.operation};
        if (!step.options.isEmpty())
            parts.append(step.options);
        if (!step.objectName.isEmpty())
            parts.append(u'[' + step.objectName + u']');
        if (step.cardinality)
            parts.append(QString::number(*step.cardinality));
        lines.append(QString(2 * depths.last(), u' ') + parts.join(u' '));
    }
    return lines.join(u'\n');
}

// Statement id and statement of a request for a plan, "-" for any other.
QString explained(const QString &text)
{
    const auto request = explainRequest(text);
    return request ? request->statementId.value_or(QString()) + u':' + request->statement : u"-"_s;
}

} // namespace

class tst_sandboxdialect : public QObject
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts() { compareTextRow(); }
    void plan_data();
    void plan();
    void insertion();
};

void tst_sandboxdialect::texts_data()
{
    addTextColumns();
    addTextRows(
        "explain", explained,
        u"EXPLAIN PLAN set statement_id = 'SCOTT3/2/2024 10:30:00' FOR select 1\r\nfrom dual→"
        "SCOTT3/2/2024 10:30:00: select 1\r\nfrom dual|"
        "explain  plan\n\tSET STATEMENT_ID='it''s FOR x'for select ''';'' FOR→"
        "it's FOR x: select ''';'' FOR|"
        "-- for\n/* plan */ explain plan set statement_id = 'a' for update t set c = 'for'→"
        "a: update t set c = 'for'|"
        "explain plan for select 2→: select 2|explain plan set statement_id = 'a' for→a:|"
        "explain select 1|explain plan set statement_id = 'a for select 1|"
        "explain plan set statement_id = a for select 1|select plan from explain for update|→-"_s);
    addTextRows(
        "block", [](const QString &text) { return blockStatement(text).value_or(u"-"_s); },
        u"-- a\n/* b */Begin null; end;→BEGIN NOT ATOMIC null; end;|"
        "begin not atomic null; end;→begin not atomic null; end;|"
        "declare n int; begin null; end -- ;→"
        "BEGIN NOT ATOMIC DECLARE n int; begin null; end -- ;\n; END|"
        "beginning|{call dbms_output.disable}|select 'begin' from dual→-"_s);
    addTextRows(
        "plan that is none",
        [](const QString &json) { return outline(planSteps(u"select 1"_s, json)); },
        u"|DEPTNO|[1]|{→error 3000"_s);
    const TextFunction id = [](const QString &text) { return planQueryId(text).value_or(u"-"_s); };
    const QString query = planQuery(u"O''NEIL1"_s);
    const QString otherCase =
        query.toLower().replace(u' ', u"\r\n\t "_s).replace(u"'\r\n\t '"_s, u"' '"_s);
    QTest::newRow("plan query") << id << query << u"O'NEIL1"_s;
    QTest::newRow("of an empty id") << id << planQuery({}) << QString();
    QTest::newRow("in other case and white space") << id << otherCase << u"o'neil1"_s;
    for (const QString &other :
         {QString(query).replace(u"ID= 0"_s, u"ID= 1"_s), query + u" order by id"_s,
          query.chopped(10), query.left(query.indexOf(u"NEIL")), u"select * from plan_table"_s})
        QTest::addRow("another query: %s", qPrintable(other)) << id << other << u"-"_s;
}

void tst_sandboxdialect::plan_data()
{
    const DataRows<QString, QString, QString> row("statement", "json", "steps");
    row("join, aliases, access by key",
        u"select e.ename, d.dname from scott.emp e join dept as \"D\" on 1=1, salgrade"_s,
        uR"json({"query_block": {"select_id": 1, "nested_loop": [
             {"table": {"table_name": "e", "access_type": "ALL", "rows": 14}},
             {"table": {"table_name": "D", "access_type": "eq_ref", "key": "PRIMARY", "rows": 1}},
             {"block-nl-join": {"table": {"table_name": "salgrade", "access_type": "hash_ALL",
                 "rows": 5}, "join_type": "BNLH"}}]}})json"_s,
        u"SELECT STATEMENT\n"
        "  HASH JOIN\n"
        "    NESTED LOOPS\n"
        "      TABLE ACCESS FULL [EMP] 14\n"
        "      TABLE ACCESS BY INDEX ROWID [DEPT] 1\n"
        "        INDEX UNIQUE SCAN [PRIMARY] 1\n"
        "    TABLE ACCESS FULL [SALGRADE] 5"_s);
    row("sort, outer join, subquery", u"with x as (select 1) select * from emp"_s,
        uR"json({"query_block": {"filesort": {"sort_key": "a", "temporary_table": {
             "nested_loop": [
                 {"read_sorted_file": {"filesort": {"table": {"table_name": "emp",
                     "access_type": "index", "key": "pk", "using_index": true, "rows": 14}}}},
                 {"table": {"table_name": "dept", "access_type": "range", "key": "pk", "rows": 2,
                     "attached_condition": "trigcond(x)"}}]}},
             "subqueries": [{"query_block": {"table": {"message": "No tables used"}}}]}})json"_s,
        u"SELECT STATEMENT\n"
        "  FILTER\n"
        "    SORT ORDER BY\n"
        "      TEMPORARY TABLE\n"
        "        NESTED LOOPS OUTER\n"
        "          SORT ORDER BY\n"
        "            INDEX FULL SCAN [PK] 14\n"
        "          TABLE ACCESS BY INDEX ROWID [DEPT] 2\n"
        "            INDEX RANGE SCAN [PK] 2\n"
        "    FAST DUAL"_s);
    row("union of a view and nothing",
        u"(select * from (select distinct deptno from emp) v) union select 1 from dual"_s,
        uR"json({"query_block": {"union_result": {"table_name": "<union1,3>",
             "access_type": "ALL", "query_specifications": [
                 {"query_block": {"nested_loop": [{"table": {"table_name": "<derived2>",
                     "access_type": "ALL", "rows": 8, "materialized": {"query_block": {
                         "table": {"table_name": "emp", "access_type": "ALL", "rows": 14}}}}}]}},
                 {"query_block": {"operation": "UNION", "table": {
                     "message": "Impossible WHERE"}}}]}}})json"_s,
        u"SELECT STATEMENT\n"
        "  UNION\n"
        "    VIEW 8\n"
        "      TABLE ACCESS FULL [EMP] 14\n"
        "    RESULT IMPOSSIBLE WHERE"_s);
    row("insert", u"insert into dept values (1, 'a', 'b')"_s,
        uR"json({"query_block": {"table": {"table_name": "dept"}}})json"_s,
        u"INSERT STATEMENT\n"
        "  LOAD TABLE CONVENTIONAL [DEPT]"_s);
    row("update", u"update emp set sal = 1, comm = 2 where deptno = 10"_s,
        uR"json({"query_block": {"table": {"update": 1, "table_name": "emp",
             "access_type": "range", "key": "fk", "rows": 3}}})json"_s,
        u"UPDATE STATEMENT\n"
        "  UPDATE [EMP]\n"
        "    TABLE ACCESS BY INDEX ROWID [EMP] 3\n"
        "      INDEX RANGE SCAN [FK] 3"_s);
    row("parts nobody knows are passed through", u"select 1"_s,
        uR"json({"query_block": {"novelty": {"list": [7, {"table": {"table_name": "t",
             "access_type": "ALL", "rows": 1e300}}]}, "nested_loop": "odd"}})json"_s,
        u"SELECT STATEMENT\n"
        "  TABLE ACCESS FULL [T]"_s);
}

void tst_sandboxdialect::plan()
{
    QFETCH(QString, statement);
    QFETCH(QString, json);
    QTEST(outline(planSteps(statement, json)), "steps");
}

void tst_sandboxdialect::insertion()
{
    PlanStep step;
    step.operation = u"TABLE ACCESS"_s;
    step.options = QString(300, u'\'');
    step.objectName = u"O'NEIL"_s;
    step.cardinality = 0;
    QCOMPARE(planInsertion(u"it's"_s, {step}).section(u'\n', 1),
             u"('it''s', 'TABLE ACCESS', '%1', 'O''NEIL', 0, NULL, NULL, 0)"_s.arg(
                 QString(2 * 255, u'\'')));
    QVERIFY(planInsertion({}, {step}).contains(u"(NULL, 'TABLE"_s));
}

QTEST_APPLESS_MAIN(tst_sandboxdialect)
#include "tst_sandboxdialect.moc"
