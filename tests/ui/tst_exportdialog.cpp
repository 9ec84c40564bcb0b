#include "export/frmExport.h"
#include "uisupport/uiTest.h"

namespace {

enum Option { Comma, Worksheet, Tab, Insert, OtherDelimiter };

using RecordsetPtr = std::shared_ptr<Recordset>;

/// ID and NAME of two people, the second, who is current, without a name.
RecordsetPtr people()
{
    return makeTable({{u"ID"_s, adInteger}, {u"NAME"_s, adVarChar, 50}},
                     {{1, u" Ann, A. "_s}, {2, NullValue()}});
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
            const auto *save = qobject_cast<QFileDialog *>(window);
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
    void optionsAndButtons();
    void formats_data();
    void formats();

private:
    QTemporaryDir m_folder;
};

void tst_exportdialog::initTestCase()
{
    showMessagesInWindows();
    setApplicationFolder(m_folder.path());
}

// A worksheet is never written, and the delimiter is open for its option only.
void tst_exportdialog::optionsAndButtons()
{
    ExportBench bench(people());
    bench.dialog.show();
    QCOMPARE(bench.dialog.windowTitle(), u"Save/Export Data"_s);
    QVERIFY(bench.dialog.findChild<QRadioButton *>(u"optExport_0"_s)->isChecked());
    QVERIFY(!bench.delimiter()->isEnabled());
    const auto *rows = bench.dialog.findChild<QLabel *>(u"lblRows"_s);
    QCOMPARE(rows->text(), u"2 rows will be written"_s);
    bench.dialog.setHasMore(true);
    QCOMPARE(rows->text(), u"2 rows will be written; more wait on the server"_s);
    for (const int index : {OtherDelimiter, Tab, OtherDelimiter, Insert, Comma, Worksheet}) {
        bench.choose(index);
        QCOMPARE(bench.delimiter()->isEnabled(), index == OtherDelimiter);
    }
    bench.pressOk();
    QVERIFY(bench.answers.texts.isEmpty());
    bench.dialog.show();
    click(bench.dialog, u"cmdExpCancel"_s);
    QVERIFY(!bench.dialog.isVisible());
}

void tst_exportdialog::formats_data()
{
    // Titles are empty where nothing is said.
    const DataRows<int, QByteArray, QString, QString, QString, QString, bool> row(
        "option", "content", "dialogTitle", "fileName", "successTitle", "cancelTitle",
        "reportsErrors");
    row("comma", Comma, "1,Ann, A.\r\n2,,\r\n"_ba, u"Save Comma Delimited Export File"_s,
        u"Export.csv"_s, QString(), QString(), false);
    row("tab", Tab, "1\tAnn, A.\r\n2\t\t\r\n"_ba, u"Save Tab Delimited Export File"_s,
        u"Export.txt"_s, u"Comma delimited file"_s, u"comma Delimited Export File"_s, true);
    row("semicolon", OtherDelimiter, "1;Ann, A.\r\n2;\t\r\n"_ba,
        u"Save Tab Delimited Export File"_s, u"Export.txt"_s, u"Comma delimited file"_s,
        u"comma Delimited Export File"_s, false);
    row("insert statements", Insert,
        "Insert into EMP (ID,NAME) VALUES ('1' ,' Ann, A. ' );\r\n"
        "Insert into EMP (ID,NAME) VALUES ('2' ,'' );\r\n"_ba,
        u"Save SQL Export File"_s, u"Export.sql"_s, u"SQL file"_s, u"SQL Export File"_s, true);
}

// A file that is there is replaced without asking; cancelling and failing leave it. Without a
// recordset it fails before a file is asked for, without records nothing happens at all.
void tst_exportdialog::formats()
{
    QFETCH(int, option);
    QFETCH(QString, dialogTitle);
    QFETCH(QString, fileName);
    QFETCH(QString, successTitle);
    QFETCH(QString, cancelTitle);
    QFETCH(bool, reportsErrors);
    const QString type = QFileInfo(fileName).suffix().toUpper();
    const QString errorTitle = reportsErrors ? u"Orbek SQL Editor"_s : QString();
    const auto said = [](const QString &title, const QString &text) {
        return title.isEmpty() ? QStringList() : QStringList{title, text};
    };
    const QString there = m_folder.filePath(u"out.dat"_s);
    makeFile(there, QByteArray(1000, 'x'));
    for (const auto &[path, told] :
         {std::pair(there, said(successTitle, u"Export File %1\r\nsuccessfully created.\r\n"
                                              "2 records written to disk.\r\n"_s.arg(
                                                  QDir::toNativeSeparators(there)))),
          std::pair(QString(), said(cancelTitle, u"the export operation was canceled.\r\n"_s)),
          std::pair(there + u"/x"_s, said(errorTitle, u"76 Path not found"_s))}) {
        ExportBench bench(people());
        bench.dialog.setTable(u"EMP"_s);
        bench.exportTo(path, option, u";"_s);
        QTEST(contentOf(there), "content");
        QCOMPARE(bench.asked, QStringList({dialogTitle, fileName, m_folder.path(),
                                           u"Export Files (*.%1) (*.%1)"_s.arg(type), type}));
        QCOMPARE(bench.answers.titles + bench.answers.texts, told);
    }
    for (const auto &[recordset, told] :
         {std::pair(makeTable({{u"ID"_s, adInteger}}, {}), QStringList()),
          std::pair(RecordsetPtr(),
                    said(errorTitle, u"91 Object variable or With block variable not set"_s))}) {
        ExportBench bench(recordset);
        bench.choose(option);
        bench.pressOk();
        QCOMPARE(bench.answers.titles + bench.answers.texts, told);
    }
}

QTEST_MAIN(tst_exportdialog)
#include "tst_exportdialog.moc"
