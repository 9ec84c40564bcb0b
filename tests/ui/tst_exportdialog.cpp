#include "controls/uiPresenters.h"
#include "dataaccess/Recordset.h"
#include "export/frmExport.h"
#include "platform/applicationFolder.h"
#include "platform/mousePointer.h"
#include "support/testFiles.h"
#include "uisupport/ModalAnswers.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

enum Option { Comma, Worksheet, Tab, Insert, OtherDelimiter };

/// ID, NAME and HIRED of two people, the second without a date.
std::shared_ptr<Recordset> people()
{
    auto recordset = std::make_shared<Recordset>();
    recordset->appendField(u"ID"_s, adInteger);
    recordset->appendField(u"NAME"_s, adVarChar, 50);
    recordset->appendField(u"HIRED"_s, adDBTimeStamp);
    recordset->Open();
    recordset->AddNew();
    recordset->setValue(0, 1);
    recordset->setValue(1, u" Ann, A. "_s);
    recordset->setValue(2, Timestamp{.year = 2024, .month = 3, .day = 5, .hour = 9});
    recordset->AddNew();
    recordset->setValue(0, 2);
    recordset->setValue(1, u"O'Neil"_s);
    recordset->setValue(2, NullValue());
    recordset->MoveFirst();
    return recordset;
}

std::shared_ptr<Recordset> manyRecords(int count)
{
    auto recordset = std::make_shared<Recordset>();
    recordset->appendField(u"ID"_s, adInteger);
    recordset->Open();
    for (int i = 0; i < count; ++i) {
        recordset->AddNew();
        recordset->setValue(0, i);
    }
    if (count > 0)
        recordset->MoveFirst();
    return recordset;
}

/// What a save dialog showed when it came up.
struct SaveDialog
{
    QString title;
    QString fileName;
    QString folder;
    QStringList filters;
    QString suffix;
};

/// The export dialog, driven by the names of its controls.
struct ExportBench
{
    frmExport dialog;
    MessageAnswers answers;
    SaveDialog asked;
    int timesAsked = 0;

    explicit ExportBench(const std::shared_ptr<Recordset> &recordset) { dialog.setRs(recordset); }

    QRadioButton *option(int index)
    {
        return dialog.findChild<QRadioButton *>(u"optExport_%1"_s.arg(index));
    }
    QLineEdit *delimiter() { return dialog.findChild<QLineEdit *>(u"txtDelimiter"_s); }

    void choose(int index, const QString &userDelimiter = {})
    {
        dialog.show();
        QTest::mouseClick(option(index), Qt::LeftButton, {},
                          QPoint(10, option(index)->height() / 2));
        QTest::keyClicks(delimiter(), userDelimiter);
    }
    void pressOk()
    {
        QTest::mouseClick(dialog.findChild<QPushButton *>(u"cmdExpOK"_s), Qt::LeftButton);
    }

    /// Answers the save dialog with a file name, or cancels it for an empty one.
    void answerSaveDialog(const QString &path)
    {
        whenModal([this, path](QWidget *window) {
            auto *save = qobject_cast<QFileDialog *>(window);
            QVERIFY(save);
            ++timesAsked;
            auto *name = save->findChild<QLineEdit *>(u"fileNameEdit"_s);
            asked = {save->windowTitle(), name->text(), save->directory().path(),
                     save->nameFilters(), save->defaultSuffix()};
            QCOMPARE(mousePointer(), MousePointer::Default);
            if (path.isEmpty()) {
                QTest::keyClick(save, Qt::Key_Escape);
                return;
            }
            name->setText(path);
            QTest::keyClick(name, Qt::Key_Return);
        });
    }
    void exportTo(const QString &path, int index, const QString &userDelimiter = {})
    {
        choose(index, userDelimiter);
        answerSaveDialog(path);
        pressOk();
    }
};

QString successText(const QString &path, int records)
{
    return u"Export File %1\r\nsuccessfully created.\r\n%2 records written to disk.\r\n"_s.arg(path)
        .arg(records);
}

} // namespace

class tst_exportdialog : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase() { setApplicationFolder(QString()); }
    void cleanup() { QCOMPARE(mousePointer(), MousePointer::Default); }
    void delimiterIsOpenForItsOptionOnly();
    void formats_data();
    void formats();
    void cancelled_data();
    void cancelled();
    void tableNameOfInsertStatements();
    void failures_data();
    void failures();
    void nothingIsAsked_data();
    void nothingIsAsked();
    void exportsAgainFromTheFirstRecord();
    void cancelButtonCloses();

private:
    QTemporaryDir m_folder;
    QString m_path;
    QString m_fullDevice;
};

void tst_exportdialog::initTestCase()
{
    installUiPresenters();
    setApplicationFolder(m_folder.path());
    m_path = m_folder.filePath(u"out.dat"_s);
    m_fullDevice = m_folder.filePath(u"full.dat"_s);
    QVERIFY(QFile::link(u"/dev/full"_s, m_fullDevice));
}

void tst_exportdialog::delimiterIsOpenForItsOptionOnly()
{
    ExportBench bench(people());
    bench.dialog.show();
    QCOMPARE(bench.dialog.windowTitle(), u"Save/Export Data"_s);
    QVERIFY(bench.option(Comma)->isChecked());
    QVERIFY(!bench.delimiter()->isEnabled());
    for (const int index : {OtherDelimiter, Tab, OtherDelimiter, Worksheet, Insert, Comma}) {
        bench.choose(index);
        QVERIFY(bench.option(index)->isChecked());
        QCOMPARE(bench.delimiter()->isEnabled(), index == OtherDelimiter);
    }
}

void tst_exportdialog::formats_data()
{
    QTest::addColumn<int>("option");
    QTest::addColumn<QString>("userDelimiter");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("dialogTitle");
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("messageTitle");
    QTest::newRow("comma") << int{Comma} << QString()
                           << QByteArray("1,Ann, A.,3/5/2024 09:00:00\r\n2,O'Neil,,\r\n")
                           << u"Save Comma Delimited Export File"_s << u"Export.csv"_s
                           << u"Export Files (*.CSV) (*.CSV)"_s << QString();
    QTest::newRow("tab") << int{Tab} << QString()
                         << QByteArray("1\tAnn, A.\t3/5/2024 09:00:00\r\n2\tO'Neil\t\t\r\n")
                         << u"Save Tab Delimited Export File"_s << u"Export.txt"_s
                         << u"Export Files (*.TXT) (*.TXT)"_s << u"Comma delimited file"_s;
    QTest::newRow("semicolon") << int{OtherDelimiter} << u";"_s
                               << QByteArray("1;Ann, A.;3/5/2024 09:00:00\r\n2;O'Neil;\t\r\n")
                               << u"Save Tab Delimited Export File"_s << u"Export.txt"_s
                               << u"Export Files (*.TXT) (*.TXT)"_s << u"Comma delimited file"_s;
    QTest::newRow("no delimiter") << int{OtherDelimiter} << QString()
                                  << QByteArray("1Ann, A.3/5/2024 09:00:00\r\n2O'Neil\t\r\n")
                                  << u"Save Tab Delimited Export File"_s << u"Export.txt"_s
                                  << u"Export Files (*.TXT) (*.TXT)"_s << u"Comma delimited file"_s;
    QTest::newRow("insert statements")
        << int{Insert} << QString()
        << QByteArray("Insert into  (ID,NAME,HIRED) VALUES ('1' ,' Ann, A. ' ,'05-Mar-2024' );\r\n"
                      "Insert into  (ID,NAME,HIRED) VALUES ('2' ,'O'Neil' ,'' );\r\n")
        << u"Save SQL Export File"_s << u"Export.sql"_s << u"Export Files (*.SQL) (*.SQL)"_s
        << u"SQL file"_s;
}

void tst_exportdialog::formats()
{
    QFETCH(int, option);
    QFETCH(QString, userDelimiter);
    QFETCH(QString, messageTitle);
    ExportBench bench(people());
    bench.exportTo(m_path, option, userDelimiter);
    QVERIFY(!bench.dialog.isVisible());
    QTEST(contentOf(m_path), "content");
    QTEST(bench.asked.title, "dialogTitle");
    QTEST(bench.asked.fileName, "fileName");
    QTEST(bench.asked.filters.join(u'|'), "filter");
    QCOMPARE(bench.asked.folder, m_folder.path());
    QCOMPARE(bench.asked.suffix, QFileInfo(bench.asked.fileName).suffix().toUpper());
    if (messageTitle.isEmpty()) {
        QVERIFY(bench.answers.texts.isEmpty());
    } else {
        QCOMPARE(bench.answers.texts, QStringList{successText(m_path, 2)});
        QCOMPARE(bench.answers.titles, QStringList{messageTitle});
    }
}

void tst_exportdialog::cancelled_data()
{
    QTest::addColumn<int>("option");
    QTest::addColumn<QString>("messageTitle");
    QTest::newRow("comma") << int{Comma} << QString();
    QTest::newRow("tab") << int{Tab} << u"comma Delimited Export File"_s;
    QTest::newRow("insert") << int{Insert} << u"SQL Export File"_s;
    QTest::newRow("other") << int{OtherDelimiter} << u"comma Delimited Export File"_s;
}

void tst_exportdialog::cancelled()
{
    QFETCH(int, option);
    QFETCH(QString, messageTitle);
    ExportBench bench(people());
    bench.exportTo(QString(), option);
    QVERIFY(!bench.dialog.isVisible());
    QCOMPARE(bench.timesAsked, 1);
    if (messageTitle.isEmpty()) {
        QVERIFY(bench.answers.texts.isEmpty());
    } else {
        QCOMPARE(bench.answers.texts, QStringList{u"the export operation was canceled.\r\n"_s});
        QCOMPARE(bench.answers.titles, QStringList{messageTitle});
    }
}

void tst_exportdialog::tableNameOfInsertStatements()
{
    ExportBench bench(people());
    bench.dialog.setTable(u"EMP"_s);
    bench.exportTo(m_path, Insert);
    QVERIFY(contentOf(m_path).startsWith(
        "Insert into EMP (ID,NAME,HIRED) VALUES ('1' ,' Ann, A. ' ,'05-Mar-2024' );\r\n"));
}

void tst_exportdialog::failures_data()
{
    QTest::addColumn<int>("option");
    QTest::addColumn<bool>("speaks");
    QTest::newRow("comma") << int{Comma} << false;
    QTest::newRow("tab") << int{Tab} << true;
    QTest::newRow("insert") << int{Insert} << true;
    QTest::newRow("other") << int{OtherDelimiter} << false;
}

// Without a recordset, with a closed one, with a file that takes nothing, and with more records
// than can be counted.
void tst_exportdialog::failures()
{
    QFETCH(int, option);
    QFETCH(bool, speaks);
    QStringList expected{u"91 Object variable or With block variable not set"_s,
                         u"3704 Operation is not allowed when the object is closed."_s,
                         u"61 Disk full"_s, u"6 Overflow"_s};
    QStringList told;
    for (const auto &recordset : {std::shared_ptr<Recordset>(), std::make_shared<Recordset>()}) {
        ExportBench bench(recordset);
        bench.choose(option);
        bench.pressOk();
        QVERIFY(!bench.dialog.isVisible());
        told += bench.answers.texts;
    }
    for (const auto &[recordset, path] :
         {std::pair(people(), m_fullDevice), std::pair(manyRecords(32768), m_path)}) {
        ExportBench bench(recordset);
        bench.exportTo(path, option);
        QVERIFY(!bench.dialog.isVisible());
        told += bench.answers.texts;
    }
    QCOMPARE(told, speaks ? expected : QStringList());
    QVERIFY(contentOf(m_path).count('\n') >= 32767);
}

void tst_exportdialog::nothingIsAsked_data()
{
    QTest::addColumn<int>("option");
    QTest::addColumn<std::shared_ptr<Recordset>>("recordset");
    for (const int option : {Comma, Worksheet, Tab, Insert, OtherDelimiter})
        QTest::addRow("no records, %d", option) << option << manyRecords(0);
    QTest::newRow("worksheet") << int{Worksheet} << people();
    QTest::newRow("worksheet of nothing") << int{Worksheet} << std::shared_ptr<Recordset>();
}

void tst_exportdialog::nothingIsAsked()
{
    QFETCH(int, option);
    QFETCH(std::shared_ptr<Recordset>, recordset);
    ExportBench bench(recordset);
    bench.choose(option);
    bench.pressOk();
    QVERIFY(!bench.dialog.isVisible());
    QVERIFY(bench.answers.texts.isEmpty());
}

void tst_exportdialog::exportsAgainFromTheFirstRecord()
{
    const auto recordset = people();
    recordset->MoveNext();
    makeFile(m_path, QByteArray(1000, 'x'));
    for (int round = 0; round < 2; ++round) {
        ExportBench bench(recordset);
        bench.exportTo(m_path, Comma);
        QCOMPARE(bench.timesAsked, 1);
        QCOMPARE(contentOf(m_path), "1,Ann, A.,3/5/2024 09:00:00\r\n2,O'Neil,,\r\n");
    }
}

void tst_exportdialog::cancelButtonCloses()
{
    ExportBench bench(people());
    bench.dialog.show();
    setMousePointer(MousePointer::Hourglass);
    QTest::mouseClick(bench.dialog.findChild<QPushButton *>(u"cmdExpCancel"_s), Qt::LeftButton);
    QVERIFY(!bench.dialog.isVisible());
    QCOMPARE(mousePointer(), MousePointer::Default);

    bench.dialog.show();
    QTest::keyClick(&bench.dialog, Qt::Key_Escape);
    QVERIFY(!bench.dialog.isVisible());
}

QTEST_MAIN(tst_exportdialog)
#include "tst_exportdialog.moc"
