#include "sqltext/explainStatements.h"
#include "sqltext/selectionEdits.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Texts made for the server and for the editor's selection.
class TestStatementTexts : public QObject
{
    Q_OBJECT
private slots:
    void statementIdFitsThePlanTable();
    void explainTexts();
    void lineComments_data();
    void lineComments();
    void uncommenting();
};

void TestStatementTexts::statementIdFitsThePlanTable()
{
    const QDateTime time(QDate(2026, 12, 31), QTime(23, 59, 58));
    const QString id = explainStatementId(u"averylongusername"_s, time);
    QCOMPARE(id, u"averylong12/31/2026 23:59:58"_s);
    QVERIFY(id.size() <= 30);
    QCOMPARE(explainStatementId(u"scott"_s, QDateTime(QDate(2026, 1, 2), QTime(0, 0))),
             u"scott1/2/2026"_s);
}

void TestStatementTexts::explainTexts()
{
    const QString id = u"scott1/2/2026 10:30:00"_s;
    QCOMPARE(deletePlanStatement(id),
             u"DELETE FROM PLAN_TABLE WHERE statement_id = 'scott1/2/2026 10:30:00'"_s);
    // The colons of the statement go, those of the id stay.
    QCOMPARE(explainPlanStatement(id, u"select ':a', b from t where c = '10:30'"_s),
             u"EXPLAIN PLAN set statement_id = 'scott1/2/2026 10:30:00' FOR "
             "select '&a', b from t where c = '10&30'"_s);
    const QString query = planQuery(id);
    QVERIFY(
        query.startsWith(u" SELECT  rtrim(substr(OPERATION || ' ' || OPTIONS    || ' ' ||  "_s));
    QVERIFY(query.contains(u" cost From (SELECT * FROM PLAN_TABLE WHERE statement_id = 'scott"_s));
    QVERIFY(query.endsWith(u"10:30:00')    START      WITH ID= 0  CONNECT    BY PRIOR ID= "
                           "PARENT_ID"_s));
}

void TestStatementTexts::lineComments_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("commented");
    QTest::newRow("two lines") << u"a\r\nb"_s << u"--a\r\n--b"_s;
    QTest::newRow("ends with a line end") << u"a\r\n"_s << u"--a\r\n--"_s;
    QTest::newRow("commented already") << u"--a"_s << u"----a"_s;
    QTest::newRow("lone line feed is no line end") << u"a\nb"_s << u"--a\nb"_s;
}

void TestStatementTexts::lineComments()
{
    QFETCH(QString, text);
    QTEST(commentLines(text), "commented");
}

void TestStatementTexts::uncommenting()
{
    QCOMPARE(uncommentText(u"x -- y"_s), u"x  y"_s);
    QCOMPARE(uncommentText(u"----a\r\n--b - c---d"_s), u"a\r\nb - c-d"_s);
}

QTEST_APPLESS_MAIN(TestStatementTexts)
#include "tst_statementtexts.moc"
