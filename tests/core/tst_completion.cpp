#include "sqltext/completion.h"
#include "sqltext/dictionary.h"
#include "support/coreTest.h"

namespace {

/// Answers the dictionary's queries: two schemas with a few tables.
QStringList asked(const QString &query)
{
    static const QHash<QString, QString> answers{
        {u"owner = 'SCOTT'"_s, u"EMP DEPT Odd"_s},
        {u"owner = 'HR'"_s, u"JOBS EMP"_s},
        {u"owner = 'SCOTT' and table_name = 'EMP' "_s, u"SAL ENAME"_s},
        {u"owner = 'SCOTT' and table_name = 'DEPT' "_s, u"DNAME"_s},
        {u"owner = 'SCOTT' and table_name = 'Odd' "_s, u"odd"_s},
        {u"owner = 'HR' and table_name = 'EMP' "_s, u"EMAIL"_s}};
    const QString condition = query.section(u" where "_s, 1);
    const QString names = condition.isEmpty() ? u"SCOTT HR"_s : answers.value(condition);
    return names.split(u' ', Qt::SkipEmptyParts);
}

/// What a text in which `^` is the caret can be completed with, as it would be put in.
QString completed(const QString &text)
{
    const qsizetype caret = text.indexOf(u'^');
    const QString left = text.first(caret);
    const auto place = completionPlace(left + text.sliced(caret + 1), caret);
    if (!place)
        return u"(no name)"_s;
    DictionaryNames names(asked);
    QStringList found;
    for (const QString &name : completions(*place, names, u"SCOTT"_s)) {
        if (name.startsWith(left.sliced(place->begin), Qt::CaseInsensitive))
            found += completionText(name, place->lowerCase);
    }
    return found.join(u' ');
}

} // namespace

class tst_Completion : public QObject
{
    Q_OBJECT
private slots:
    void places_data();
    void places() { compareTextRow(); }
    void dictionaryIsAskedOnce();
    void failedQueryLeavesTheTransaction();
};

void tst_Completion::places_data()
{
    addTextColumns();
    addTextRows("columns", completed,
                u"select e.^ from emp e|select 'e' x, e.^, 1 from dept d, emp e where 1 = 1|"
                "select e.^ from (select * from dept d) f, emp as e|update emp e set e.^|"
                "select 1 from hr.emp e; select e.^ from scott.emp e|"
                "select emp.^ from scott.emp|select emp.^|select scott.emp.^|"
                "select 1 from dept d join emp e on d.x = f(1, 2) and e.^→ename sal|"
                "select e.^ from dept e|select e. -- e.\n^from dept\ne|"
                "merge into dept e using emp s on (e.^ = 1)→dname|"
                "select e.^ from hr.emp e|select hr . emp . ^|"
                "select e.^ from hr.emp e /* ; */ where 1 = 2\nselect e.x from emp e→email|"
                "select x.^ from emp e|select e.^; select 1 from emp e→|"
                "select o.^ from \"Odd\" o→odd"_s);
    addTextRows(
        "names", completed,
        u"select * from scott.^→dept emp Odd|select * from scott.^\nwhere x = 1→dept emp Odd|"
        "select * from Scott.^→DEPT EMP Odd|select * from scott.E^→EMP|"
        "SELECT * FROM hr.e^→emp|select * from e^mp where e = ';'; x|"
        "begin select 1 from e^→else elsif emp end exception execute exists exit extent|"
        "select 1 from dept where d^→database date declare default delete dept desc "
        "distinct dname do drop|s^ from hr.emp→savepoint schema scott segment select "
        "sequence set start storage sum synonym sysdate|"
        "SELECT em^ FROM hr.emp→email emp"_s);
    addTextRows("elsewhere", completed,
                u"select '^'|select 'it''s ^|-- e.^|select 1 /* e.^ */ from emp e|"
                "select \"^\"→(no name)|--\nx.^→"_s);
}

void tst_Completion::dictionaryIsAskedOnce()
{
    int askings = 0;
    DictionaryNames names([&](const QString &query) {
        ++askings;
        return asked(query);
    });
    names.tables(u"HR"_s);
    QCOMPARE(names.tables(u"HR"_s), QStringList({u"JOBS"_s, u"EMP"_s}));
    QCOMPARE(askings, 1);
    QVERIFY(names.columns(u"x' or 'x' = 'x"_s, u"EMP"_s).isEmpty());
    QCOMPARE(askings, 1);
    names.forget();
    names.tables(u"HR"_s);
    QCOMPARE(askings, 2);

    DictionaryNames refusing([&](const QString &) -> QStringList {
        ++askings;
        throw RuntimeError(0, QString());
    });
    QVERIFY(refusing.schemas().isEmpty());
    refusing.forget();
    QVERIFY(refusing.tables(u"HR"_s).isEmpty());
    QCOMPARE(askings, 3);
}

/// A query that changes something before it fails tells whether it is taken back, and it alone.
void tst_Completion::failedQueryLeavesTheTransaction()
{
    const auto connection = std::make_shared<Connection>();
    connection->Open(u"DRIVER=SQLite3;Database=:memory:"_s);
    connection->BeginTrans();
    connection->Execute(u"create table t (x)"_s);
    connection->Execute(u"insert into t values (1)"_s);
    const QString query = u"insert into t values (2) returning null"_s;
    QVERIFY(raisedError([&] { namesFromUnharmed(query, connection); }) != 0);
    QVERIFY(raisedError([&] { namesFromUnharmed(u"select * from nowhere"_s, connection); }) != 0);
    QCOMPARE(SandboxFixture::table(connection, u"select x from t"_s), u"1"_s);
    connection->RollbackTrans();
}

QTEST_GUILESS_MAIN(tst_Completion)
#include "tst_completion.moc"
