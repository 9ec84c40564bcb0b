#include "sqltext/ResultPaging.h"
#include "support/coreTest.h"

namespace {

/// A query of the numbers from 1 to @p rows.
QString numbers(int rows)
{
    return u"with recursive c(n) as (select 1 union all select n + 1 from c where n < %1) "
           "select n from c"_s.arg(rows);
}

} // namespace

// On a SQLite database in memory, whose driver hands rows out as they are read.
class tst_ResultPaging : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void setsOfRows();
    void withoutRows();
    void fieldNames_data();
    void fieldNames() { compareTextRow(); }
    void whatHappensDuringAYield_data();
    void whatHappensDuringAYield();

private:
    void open(QString sql)
    {
        m_paging->setResult(std::make_shared<Recordset>());
        m_paging->openResult(sql, m_connection);
    }

    std::shared_ptr<Connection> m_connection;
    std::shared_ptr<ResultPaging> m_paging;
    QStringList m_shown;
};

void tst_ResultPaging::init()
{
    m_connection = std::make_shared<Connection>();
    m_connection->Open(u"DRIVER=SQLite3;Database=:memory:;StepAPI=1"_s);
    m_shown.clear();
    m_paging = std::make_shared<ResultPaging>();
    m_paging->setRowsArrived([this] { m_shown.append(m_paging->retrievedText()); });
}

void tst_ResultPaging::setsOfRows()
{
    open(numbers(30));
    QCOMPARE(m_paging->recordsFetched(), 25);
    QCOMPARE(m_shown, QStringList());
    for (int i = 0; i < 2; ++i) {
        m_paging->retrieveNext();
        QCOMPARE(m_paging->result()->RecordCount(), 30);
        QCOMPARE(m_shown.last(), u"Records Retrieved: 30"_s);
    }
    QCOMPARE(m_paging->result()->textAt(29, 0), u"30"_s);

    int yields = 0;
    m_paging->setYield([&] {
        QCOMPARE(m_paging->recordsFetched(), 26 + yields++);
        QCOMPARE(m_shown.last(), m_paging->retrievedText());
    });
    open(numbers(1'100));
    m_paging->retrieveAll();
    QCOMPARE(yields, 1'075);
    QCOMPARE(m_paging->result()->RecordCount(), 1'100);
    QCOMPARE(m_shown.last(), u"Records Retrieved: 1100"_s);

    open(u"select null as a, 'x' as b"_s);
    QCOMPARE(m_paging->recordsFetched(), 1);
    QCOMPARE(m_paging->result()->value(0), Value(QString()));
    QCOMPARE(m_paging->result()->textAt(0, 1), u"x"_s);
    QCOMPARE(m_paging->result()->fieldType(1), adVariant);

    m_paging->setResult(std::make_shared<Recordset>());
    QString sql = u"select\r\n'a\rb'\n"_s;
    m_paging->openResult(sql, m_connection);
    QCOMPARE(sql, u"select\n'a\rb'\n"_s);
    QCOMPARE(m_paging->recordsFetched(), 1);
    QString blank = u"  "_s;
    m_paging->openResult(blank, m_connection);
    QCOMPARE(m_paging->recordsFetched(), 1);
    QCOMPARE(raisedError([&] { m_paging->openResult(sql, nullptr); }),
             ErrorNumber::InvalidConnection);
}

void tst_ResultPaging::withoutRows()
{
    QCOMPARE(raisedError([this] { m_paging->retrieveNext(); }), ErrorNumber::ObjectVariableNotSet);
    m_paging->stop();
    m_paging->retrieveAll();
    QCOMPARE(m_paging->recordsFetched(), 0);
    m_shown.clear();

    for (const auto &statement :
         {u"select 1 as a where 1 = 2"_s, u"create table t (a integer)"_s}) {
        open(numbers(30));
        open(statement);
        QCOMPARE(m_paging->recordsFetched(), 0);
        QCOMPARE(m_paging->result()->State(), adStateClosed);
        QCOMPARE(m_paging->result()->fieldCount(), 0);
        m_paging->retrieveAll();
        QCOMPARE(m_shown.last(), u"Records Retrieved: 0"_s);
    }
    QCOMPARE(raisedError([this] { m_paging->retrieveNext(); }), ErrorNumber::ObjectClosed);
    open(u"select 1 as a where 1 = 2"_s);
    m_paging->retrieveNext();
    QCOMPARE(m_shown, QStringList(3, u"Records Retrieved: 0"_s));
}

void tst_ResultPaging::fieldNames_data()
{
    addTextColumns();
    const auto namesOf = [this](const QString &sql) {
        open(sql);
        return ::fieldNames(*m_paging->result()).join(u' ');
    };
    addTextRows("names", namesOf,
                u"select 1 as ID, 2 as NAME→ID NAME|select 1 as ID, 2 as B, 3 as ID→ID B ID_1|"
                "select 1 as id, 2 as ID→id ID|select 1 as A, 2 as A, 3 as A→A A_1 A_1_1|"
                "select 1 as A, 2 as A, 3 as A_1→A A_1 A_1_1"_s);
}

void tst_ResultPaging::whatHappensDuringAYield_data()
{
    const DataRows<int, std::function<void()>> row("fetched", "event"); // at the 30th row
    row("stopped", 30, [this] { m_paging->stop(); });
    row("next set", 100, [this] { m_paging->retrieveNext(); });
    row("all again", 100, [this] { m_paging->retrieveAll(); });
    row("connection closed", 30, [this] { m_connection->Close(); });
    row("another query", 25, [this] { open(numbers(60)); });
    row("query without rows", 0, [this] { open(u"select 1 where 1 = 2"_s); });
    row("no query", 0, [this] { m_paging->setResult(std::make_shared<Recordset>()); });
    row("owner gone", 0, [this] {
        m_paging->setRowsArrived({});
        m_paging->stop();
        m_paging.reset();
    });
    row("query that fails", 0, [this] { raisedError([this] { open(u"select"_s); }); });
}

void tst_ResultPaging::whatHappensDuringAYield()
{
    QFETCH(std::function<void()>, event);
    bool happened = false;
    m_paging->setYield([&] {
        if (m_paging->recordsFetched() == 30 && !std::exchange(happened, true))
            event();
    });
    open(numbers(100));
    const std::weak_ptr<ResultPaging> paging = m_paging;
    const std::weak_ptr<Recordset> result = m_paging->result();
    m_paging->retrieveAll();
    QVERIFY(happened);
    if (!m_paging) {
        QVERIFY(paging.expired());
        QVERIFY(result.expired());
        return;
    }
    QTEST(int(m_paging->recordsFetched()), "fetched");
    QVERIFY(m_paging->recordsFetched() > 0 || !m_paging->hasMore());
    QCOMPARE(m_shown.last(), m_paging->retrievedText());
}

QTEST_GUILESS_MAIN(tst_ResultPaging)
#include "tst_resultpaging.moc"
