#include "connection/session.h"
#include "controls/uiPresenters.h"
#include "dialogs/frmRecords.h"
#include "uisupport/ModalAnswers.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_recordsdialog : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { installUiPresenters(); }
    void limit_data();
    void limit();
    void wrongNumberKeepsDialogOpen_data();
    void wrongNumberKeepsDialogOpen();
    void cancelKeepsLimit();
};

void tst_recordsdialog::limit_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("limit");
    QTest::newRow("highest") << u"10000"_s << 10000;
    QTest::newRow("over the highest means all") << u"10001"_s << 0;
    QTest::newRow("highest of 32 bits") << u"2147483647"_s << 0;
    QTest::newRow("zero") << u"0"_s << 0;
    QTest::newRow("negative") << u"-5"_s << -5;
    QTest::newRow("blanks around") << u"  250 "_s << 250;
    QTest::newRow("half to even") << u"2.5"_s << 2;
    QTest::newRow("nothing") << QString() << 77;
    QTest::newRow("only blanks") << u"   "_s << 77;
}

void tst_recordsdialog::limit()
{
    QFETCH(QString, typed);
    frmRecords dialog;
    maxRecords = 77;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    auto *records = dialog.findChild<QLineEdit *>(u"txtRecords"_s);
    QCOMPARE(records->text(), QString());
    QVERIFY(records->hasFocus());
    QTest::keyClicks(records, typed);
    QTest::keyClick(records, Qt::Key_Return);
    QVERIFY(waitUntilClosed(&dialog));
    QTEST(maxRecords, "limit");
    dialog.show();
    QCOMPARE(records->text(), QString());
}

void tst_recordsdialog::wrongNumberKeepsDialogOpen_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("message");
    QTest::newRow("letters") << u"many"_s << u"Type mismatch"_s;
    QTest::newRow("out of 32 bits") << u"2147483648"_s << u"Overflow"_s;
}

void tst_recordsdialog::wrongNumberKeepsDialogOpen()
{
    QFETCH(QString, typed);
    QFETCH(QString, message);
    MessageAnswers answers;
    frmRecords dialog;
    maxRecords = 77;
    dialog.show();
    QTest::keyClicks(dialog.findChild<QLineEdit *>(u"txtRecords"_s), typed);
    QTest::mouseClick(dialog.findChild<QPushButton *>(u"cmdOK"_s), Qt::LeftButton);
    QCOMPARE(answers.texts, QStringList{message});
    QVERIFY(dialog.isVisible());
    QCOMPARE(maxRecords, 77);
}

void tst_recordsdialog::cancelKeepsLimit()
{
    frmRecords dialog;
    maxRecords = 77;
    dialog.show();
    QTest::keyClicks(dialog.findChild<QLineEdit *>(u"txtRecords"_s), u"5"_s);
    QTest::mouseClick(dialog.findChild<QPushButton *>(u"cmdCancel"_s), Qt::LeftButton);
    QVERIFY(waitUntilClosed(&dialog));
    QCOMPARE(maxRecords, 77);
}

QTEST_MAIN(tst_recordsdialog)
#include "tst_recordsdialog.moc"
