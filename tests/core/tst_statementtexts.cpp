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
