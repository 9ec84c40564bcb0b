#include "controls/forms/messageBox.h"
#include "controls/forms/mousePointer.h"
#include "export/frmExport.h"
#include "platform/applicationFolder.h"
#include "support/DataRows.h"
#include "support/tables.h"
#include "support/testFiles.h"
#include "uisupport/ModalAnswers.h"
#include "uisupport/userActions.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

enum Option { Comma, Worksheet, Tab, Insert, OtherDelimiter };

using RecordsetPtr = std::shared_ptr<Recordset>;

/// ID, NAME and HIRED of two people, the second, who is current, without a date.
RecordsetPtr people()
{
    const Timestamp hired{.year = 2024, .month = 3, .day = 5, .hour = 9};
    return makeTable(
        {{u"ID"_s, adInteger}, {u"NAME"_s, adVarChar, 50}, {u"HIRED"_s, adDBTimeStamp}},
        {{1, u" Ann, A. "_s, hired}, {2, u"O'Neil"_s, NullValue()}});
}

RecordsetPtr numbers(int count)
{
    return makeTable({{u"ID"_s, adInteger}}, QList<QList<Value>>(count, {7}));
}

/// The export dialog, driven by the names of its controls.
struct ExportBench
{
    frmExport dialog;
    MessageAnswers answers;
    QStringList asked; ///< title, name, folder, filters and suffix of the save dialog

    explicit ExportBench(const RecordsetPtr &recordset) { dialog.setRs(recordset); }

    QLineEdit *delimiter() { return dialog.findChild<QLineEdit *>(u"txtDelimiter"_s); }

    void choose(int index, const QString &userDelimiter = {})
    {
        dialog.show();
        click(dialog, u"optExport_%1"_s.arg(index));
        QTest::keyClicks(delimiter(), userDelimiter);
    }

    /// Presses OK and answers the save dialog with a file name, or cancels it for an empty one.
    void exportTo(const QString &path, int index, const QString &userDelimiter = {})
    {
        choose(index, userDelimiter);
        whenModal([this, path](QWidget *window) {
            auto *save = qobject_cast<QFileDialog *>(window);
            QVERIFY(save);
            auto *name = save->findChild<QLineEdit *>(u"fileNameEdit"_s);
            asked += {save->windowTitle(), name->text(), save->directory().path(),
                      save->nameFilters().join(u'|'), save->defaultSuffix()};
            QCOMPARE(mousePointer(), MousePointer::Default);
            name->setText(path);
            QTest::keyClick(name, path.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
        });
        pressOk();
    }
    void pressOk()
    {
        click(dialog, u"cmdExpOK"_s);
        QVERIFY(!dialog.isVisible());
    }
};

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
    void failures_data() { formats_data(); }
    void failures();
    void worksheetAndCancelOnlyClose();

private:
    QTemporaryDir m_folder;
    QString m_path;
    QString m_fullDevice;
};

void tst_exportdialog::initTestCase()
{
    showMessagesInWindows();
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
    QVERIFY(bench.dialog.findChild<QRadioButton *>(u"optExport_0"_s)->isChecked());
    QVERIFY(!bench.delimiter()->isEnabled());
    for (const int index : {OtherDelimiter, Tab, OtherDelimiter, Worksheet, Insert, Comma}) {
        bench.choose(index);
        QCOMPARE(bench.delimiter()->isEnabled(), index == OtherDelimiter);
    }
}

void tst_exportdialog::formats_data()
{
    // Titles are empty where nothing is said.
    const DataRows<int, QByteArray, QString, QString, QString, QString, bool> row(
        "option", "content", "dialogTitle", "fileName", "successTitle", "cancelTitle",
        "reportsErrors");
    row("comma", Comma, "1,Ann, A.,3/5/2024 09:00:00\r\n2,O'Neil,,\r\n"_ba,
        u"Save Comma Delimited Export File"_s, u"Export.csv"_s, QString(), QString(), false);
    row("tab", Tab, "1\tAnn, A.\t3/5/2024 09:00:00\r\n2\tO'Neil\t\t\r\n"_ba,
        u"Save Tab Delimited Export File"_s, u"Export.txt"_s, u"Comma delimited file"_s,
        u"comma Delimited Export File"_s, true);
    row("semicolon", OtherDelimiter, "1;Ann, A.;3/5/2024 09:00:00\r\n2;O'Neil;\t\r\n"_ba,
        u"Save Tab Delimited Export File"_s, u"Export.txt"_s, u"Comma delimited file"_s,
        u"comma Delimited Export File"_s, false);
    row("insert statements", Insert,
        "Insert into EMP (ID,NAME,HIRED) VALUES ('1' ,' Ann, A. ' ,'05-Mar-2024' );\r\n"
        "Insert into EMP (ID,NAME,HIRED) VALUES ('2' ,'O'Neil' ,'' );\r\n"_ba,
        u"Save SQL Export File"_s, u"Export.sql"_s, u"SQL file"_s, u"SQL Export File"_s, true);
}

// The file there is replaced without asking, and the second record was the current one.
void tst_exportdialog::formats()
{
    QFETCH(int, option);
    QFETCH(QString, dialogTitle);
    QFETCH(QString, fileName);
    QFETCH(QString, successTitle);
    QFETCH(QString, cancelTitle);
    const QString type = QFileInfo(fileName).suffix().toUpper();
    const QStringList asked{dialogTitle, fileName, m_folder.path(),
                            u"Export Files (*.%1) (*.%1)"_s.arg(type), type};
    const auto said = [](const QString &title, const QString &text) {
        return title.isEmpty() ? QStringList() : QStringList{title, text};
    };
    makeFile(m_path, QByteArray(1000, 'x'));
    {
        ExportBench bench(people());
        bench.dialog.setTable(u"EMP"_s);
        bench.exportTo(m_path, option, u";"_s);
        QTEST(contentOf(m_path), "content");
        QCOMPARE(bench.asked, asked);
        QCOMPARE(bench.answers.titles + bench.answers.texts,
                 said(successTitle, u"Export File %1\r\nsuccessfully created.\r\n"
                                    "2 records written to disk.\r\n"_s.arg(m_path)));
    }
    ExportBench bench(people());
    bench.exportTo(QString(), option);
    QCOMPARE(bench.asked, asked);
    QCOMPARE(bench.answers.titles + bench.answers.texts,
             said(cancelTitle, u"the export operation was canceled.\r\n"_s));
}

// Without a recordset, with a closed one, with one that has no records, with a file that takes
// nothing, and with more records than can be counted.
void tst_exportdialog::failures()
{
    QFETCH(int, option);
    QFETCH(bool, reportsErrors);
    QStringList told;
    for (const auto &recordset : {RecordsetPtr(), std::make_shared<Recordset>(), numbers(0)}) {
        ExportBench bench(recordset);
        bench.choose(option);
        bench.pressOk();
        told += bench.answers.texts;
    }
    for (const auto &[recordset, path] :
         {std::pair(people(), m_fullDevice), std::pair(numbers(32768), m_path)}) {
        ExportBench bench(recordset);
        bench.exportTo(path, option);
        told += bench.answers.texts;
    }
    const QStringList expected{u"91 Object variable or With block variable not set"_s,
                               u"3704 Operation is not allowed when the object is closed."_s,
                               u"61 Disk full"_s, u"6 Overflow"_s};
    QCOMPARE(told, reportsErrors ? expected : QStringList());
    QVERIFY(contentOf(m_path).count('\n') >= 32767);
}

void tst_exportdialog::worksheetAndCancelOnlyClose()
{
    ExportBench worksheet(people());
    worksheet.choose(Worksheet);
    worksheet.pressOk();
    QVERIFY(worksheet.answers.texts.isEmpty());
    ExportBench bench(people());
    bench.dialog.show();
    setMousePointer(MousePointer::Hourglass);
    click(bench.dialog, u"cmdExpCancel"_s);
    QVERIFY(!bench.dialog.isVisible());
}

QTEST_MAIN(tst_exportdialog)
#include "tst_exportdialog.moc"
