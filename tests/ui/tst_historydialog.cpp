#include "controls/grids/FlexGrid.h"
#include "history/frmSQLHistory.h"
#include "history/historyFile.h"
#include "uisupport/uiTest.h"

namespace {

/// An editor window with the history dialog beside it.
struct HistoryBench
{
    QWidget window;
    EditorControl *editor = new EditorControl(&window);
    frmSQLHistory dialog{&window};
    FlexGrid *grid = dialog.findChild<FlexGrid *>(u"msfgSQL"_s);

    HistoryBench()
    {
        (new QVBoxLayout(&window))->addWidget(editor);
        window.show();
        editor->setFocus();
        dialog.setTxt(editor, &window);
    }

    QPoint middleOf(int row) const
    {
        return grid->visualRect(grid->model()->index(row - 1, 0)).center();
    }
    void click(int row) { QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, middleOf(row)); }
    void doubleClick(int row)
    {
        click(row);
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, middleOf(row));
    }
};

void remember(const QString &statement, const QDateTime &time)
{
    setClockSource([time] { return time.toUTC(); });
    appendToHistory(statement);
    setClockSource({});
}

QDateTime at(int month, int day)
{
    return QDateTime(QDate(2026, month, day), QTime(8, 30, 5));
}

} // namespace

class tst_historydialog : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { showMessagesInWindows(); }
    void init();
    void cleanup() { setApplicationFolder(QString()); }
    void newestFirstAsTexts();
    void picksGoIntoTheEditor();
    void failedLoadingIsToldAndOpens();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

void tst_historydialog::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    setApplicationFolder(m_folder->path());
    m_file = m_folder->filePath(u"OrbekSqlHistory.txt"_s);
}

void tst_historydialog::newestFirstAsTexts()
{
    MessageAnswers answers;
    HistoryBench bench;
    const FlexGrid &grid = *bench.grid;
    bench.dialog.show();
    QCOMPARE(grid.Rows(), 1);
    QTest::keyClick(bench.grid, Qt::Key_Return); // picks nothing
    QVERIFY(answers.texts.isEmpty() && bench.editor->Text().isEmpty());

    remember(u"  select 1\r\nfrom dual  "_s, at(12, 1));
    remember(u"select 2"_s, at(9, 1));
    QCOMPARE(grid.Rows(), 1);
    bench.dialog.close();
    bench.dialog.show();
    QStringList texts;
    for (int row = 0; row < grid.Rows(); ++row)
        texts << grid.TextMatrix(row, 0) << grid.TextMatrix(row, 1) << grid.TextMatrix(row, 2);
    QCOMPARE(texts, (QStringList{QString(), u"SQL Statement"_s, u"SQL_Time"_s, QString(),
                                 u"select 2\r\n"_s, u"9/1/2026 08:30:05"_s, QString(),
                                 u"select 1\r\nfrom dual\r\n"_s, u"12/1/2026 08:30:05"_s}));
    QCOMPARE(grid.verticalHeader()->width(), 20);
    QCOMPARE(grid.columnWidth(0), 467);
    QCOMPARE(grid.columnWidth(1), 67);
    QCOMPARE(grid.rowHeight(0), 67);
}

void tst_historydialog::picksGoIntoTheEditor()
{
    remember(u"select 1\r\nfrom dual"_s, at(2, 1));
    remember(u"select 2"_s, at(1, 1));
    HistoryBench bench;
    bench.editor->setText(u"-- begin\r\n-- end"_s);
    bench.editor->setSelStart(10);
    bool ran = false;
    whenModal([&](QWidget *window) {
        ran = window == &bench.dialog;
        // The newest statement can be taken at once.
        QTest::keyClick(window->focusWidget(), Qt::Key_Enter);
        const QString first = u"-- begin\r\nselect 1\r\nfrom dual\r\n-- end"_s;
        QCOMPARE(bench.editor->Text(), first);
        QVERIFY(bench.dialog.isVisible());
        // Typing filters; what is left can be taken.
        auto *filter = bench.dialog.findChild<QLineEdit *>(u"txtFilter"_s);
        const auto *whole = bench.dialog.findChild<QPlainTextEdit *>(u"txtStatement"_s);
        QCOMPARE(whole->toPlainText(), u"select 1\nfrom dual\n"_s);
        QTest::keyClick(bench.grid, 'T');
        QTest::keyClicks(filter, u" 2"_s);
        QCOMPARE(filter->text(), u"T 2"_s);
        QCOMPARE(bench.grid->TextMatrix(bench.grid->Rows() - 1, 1), u"select 2\r\n"_s);
        QCOMPARE(whole->toPlainText(), u"select 2\n"_s);
        filter->setText(u"no such"_s);
        QCOMPARE(std::pair(bench.grid->Rows(), whole->toPlainText()), std::pair(1, QString()));
        filter->clear();
        QCOMPARE(bench.grid->columnWidth(0), 467);
        bench.click(2);
        QCOMPARE(bench.editor->Text(), first);
        bench.doubleClick(2);
        QCOMPARE(bench.editor->Text(),
                 u"-- begin\r\nselect 1\r\nfrom dual\r\nselect 2\r\n-- end"_s);
        bench.dialog.close();
    });
    bench.dialog.exec();
    QVERIFY(ran);
    QCOMPARE(bench.window.focusWidget(), bench.editor);

    // Without an editor a pick does nothing.
    delete bench.editor;
    bench.dialog.show();
    MessageAnswers answers;
    bench.doubleClick(1);
    QVERIFY(bench.dialog.isVisible());
    QVERIFY(answers.texts.isEmpty());
}

// The dialog opens with what the grid got, which may be as many records as can be counted.
void tst_historydialog::failedLoadingIsToldAndOpens()
{
    const QByteArray record = "a\r\nSQLTIME\r\n1/1/2026\r\nSQLEND\r\n";
    MessageAnswers answers;
    HistoryBench bench;
    const auto rowsOf = [&](const QByteArray &history) {
        makeFile(m_file, history);
        bench.dialog.close();
        bench.dialog.show();
        return bench.dialog.isVisible() ? bench.grid->Rows() : -1;
    };
    QCOMPARE(rowsOf(record.repeated(32767)), 32768);
    QVERIFY(answers.texts.isEmpty());
    QCOMPARE(rowsOf(record.repeated(32768)), 1);
    QCOMPARE(rowsOf("select 1\r\nSQLTIME\r\nlast tuesday\r\nSQLEND\r\n"), 1);
    // A column may be narrower than its margins.
    QCOMPARE(rowsOf("a\r\nSQLTIME\r\n"), 2);
    bench.grid->setColumnWidth(1, 1);
    bench.grid->grab();
    QCOMPARE(answers.texts, (QStringList{u"Overflow"_s, u"Type mismatch"_s}));
    QCOMPARE(answers.titles.first(), u"Orbek SQL Editor"_s);
}

QTEST_MAIN(tst_historydialog)
#include "tst_historydialog.moc"
