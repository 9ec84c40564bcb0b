#include "connection/session.h"
#include "controls/uiPresenters.h"
#include "dialogs/frmRecords.h"
#include "support/DataRows.h"
#include "uisupport/ModalAnswers.h"
#include "uisupport/userActions.h"

#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_recordsdialog : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { installUiPresenters(); }
    void limit_data();
    void limit();
    void cancelKeepsLimit();
};

void tst_recordsdialog::limit_data()
{
    // The dialog stays open where there is a message.
    const DataRows<QString, int, QString> row("typed", "limit", "message");
    row("highest", u"10000"_s, 10000, {});
    row("over the highest means all", u"10001"_s, 0, {});
    row("highest of 32 bits", u"2147483647"_s, 0, {});
    row("zero", u"0"_s, 0, {});
    row("negative", u"-5"_s, -5, {});
    row("blanks around", u"  250 "_s, 250, {});
    row("half to even", u"2.5"_s, 2, {});
    row("nothing", QString(), 77, {});
    row("only blanks", u"   "_s, 77, {});
    row("letters", u"many"_s, 77, u"Type mismatch"_s);
    row("out of 32 bits", u"2147483648"_s, 77, u"Overflow"_s);
}

void tst_recordsdialog::limit()
{
    QFETCH(QString, typed);
    QFETCH(QString, message);
    MessageAnswers answers;
    frmRecords dialog;
    maxRecords = 77;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    auto *records = dialog.findChild<QLineEdit *>(u"txtRecords"_s);
    QCOMPARE(records->text(), QString());
    QVERIFY(records->hasFocus());
    QTest::keyClicks(records, typed);
    QTest::keyClick(records, Qt::Key_Return);
    QCOMPARE(answers.texts.join(u'|'), message);
    QCOMPARE(dialog.isVisible(), !message.isEmpty());
    QTEST(maxRecords, "limit");
    dialog.close();
    dialog.show();
    QCOMPARE(records->text(), QString());
}

void tst_recordsdialog::cancelKeepsLimit()
{
    frmRecords dialog;
    maxRecords = 77;
    dialog.show();
    enter(dialog, u"txtRecords"_s, u"5"_s);
    click(dialog, u"cmdCancel"_s);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(maxRecords, 77);
}

QTEST_MAIN(tst_recordsdialog)
#include "tst_recordsdialog.moc"
