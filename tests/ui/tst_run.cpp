#include "controls/grids/ColumnTree.h"
#include "editor/ToolbarCommands.h"
#include "uisupport/ProgramFixture.h"

namespace {

using UserAction = std::function<void(ProgramFixture &)>;

const QString sandbox = SandboxFixture::connectionString();
constexpr int soon = 2; // milliseconds

UserAction presses(const QString &toolBar, int button)
{
    return [=](ProgramFixture &program) { program.press(toolBar, button); };
}

UserAction runsOnTab(int tab)
{
    return [=](ProgramFixture &program) { program.run(u"select * from dept"_s, tab); };
}

void appendPlan(const QTreeWidgetItem *item, int depth, QString &text)
{
    text += QString(2 * depth, u' ');
    for (int column = 0; column < item->columnCount(); ++column)
        text += item->text(column) + u'|';
    text += item->isExpanded() || item->childCount() == 0 ? u"\n"_s : u" folded\n"_s;
    for (int i = 0; i < item->childCount(); ++i)
        appendPlan(item->child(i), depth + 1, text);
}

} // namespace

/// The Run command and the row commands of an editor window, on a real server.
class TestRun : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { m_server = SandboxFixture::open(); }
    void cleanupTestCase() { m_server.reset(); }
    void queryFillsGridPanelsAndHistory();
    void everyCommandWhileRetrieving();
    void commandsWhileRetrieving_data();
    void commandsWhileRetrieving();
    void dmlStaysInTheTransaction();
    void plans();
    void serverOutput();
    void script();
    void missingConnectionIsReportedAlike();

private:
    /// Keeps the server running, which would otherwise end with each window.
    std::shared_ptr<Connection> m_server;
};

void TestRun::queryFillsGridPanelsAndHistory()
{
    ProgramFixture program(sandbox);
    QCOMPARE(program.editor()->windowTitle(), u"SCOTT@SANDBOX - SQL Editor: ..."_s);
    QCOMPARE(program.panel(2), u"Sandbox tables: emp, dept, salgrade, sales"_s);
    // Read for the history, the start, panel 5 and the end, in this order.
    const QDateTime start(QDate(2026, 3, 4), QTime(12, 0), Qt::UTC);
    int reading = 0;
    setClockSource([&] { return ++reading < 4 ? start : start.addMSecs(400); });
    program.run(u" select * from emp order by empno "_s);
    setClockSource({});
    QCOMPARE(program.rows(), 14);
    QCOMPARE(program.cell(0, 1), u"KING"_s);
    QCOMPARE(program.panel(4), u"Records Retrieved: 14"_s);
    QCOMPARE(program.panel(2), u"All 14 rows"_s);
    QCOMPARE(program.panel(3), u"400 msec"_s);
    QCOMPARE(program.editor()->windowTitle(),
             u"SCOTT@SANDBOX - SQL Editor: select * from emp order by emp..."_s);
    const QString time = program.panel(5).mid(18);
    QCOMPARE(QString::fromUtf8(program.history()),
             u"select * from emp order by empno\r\nSQLTIME\r\n"_s + time + u"\r\nSQLEND\r\n"_s);
    QCOMPARE(mousePointer(), MousePointer::Default);
    // A statement of nothing is remembered as well.
    program.run({});
    QVERIFY(program.history().contains("SQLEND\r\n\r\nSQLTIME\r\n"));

    program.text()->setText(u"nonsense;\r\nselect dname -- every name\r\nfrom dept\r\nnonsense"_s);
    program.text()->setSelStart(11);
    program.text()->setSelLength(39);
    program.press(u"tbrQuerna"_s, 1);
    QCOMPARE(program.rows(), 4);
    QVERIFY(
        program.history().contains("\r\nselect dname -- every name\r\nfrom dept\r\n\r\nSQLTIME"));
}

// All but Run, by button and by menu, each dialog closed again: the rows arrive as if nothing was.
void TestRun::everyCommandWhileRetrieving()
{
    ProgramFixture program(sandbox);
    program.run(u"select * from sales"_s);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", "/nowhere"); // no browser is to come up
    MessageAnswers messages;
    QStringList dialogs;
    QStringList nameless;
    QTimer closing;
    connect(&closing, &QTimer::timeout, this, [&] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr || qobject_cast<QMessageBox *>(dialog) != nullptr)
            return;
        dialogs += dialog->objectName();
        nameless += namelessControls(*dialog);
        dialog->reject();
    });
    closing.start(1);
    const QRegularExpression others(u"^(mnu[A-Z].*|tbrQuerna_([2-9]|..))$"_s);
    QTimer::singleShot(soon, this, [&] {
        for (QAction *action : program.frame().findChildren<QAction *>(others)) {
            QApplication::setActiveWindow(&program.frame());
            program.text()->setFocus();
            action->trigger();
        }
    });
    program.press(u"Toolbar1"_s, 2);
    qputenv("PATH", path);
    dialogs.sort();
    // Windows has no page setup without a printer.
    const bool hasPrinter = !messages.texts.removeOne(u"No printer is installed."_s);
    QCOMPARE(dialogs.join(u' '), (hasPrinter ? u"EditorPageSetupDialog "_s : QString()) +
                                     u"dlgColor dlgOpen dlgSave frmExport "
                                     "frmObject frmObjectColumn frmSQLHistory"_s);
    QCOMPARE(nameless.join(u' '), QString());
    const int pages = QSysInfo::kernelType() == u"winnt"_s ? 0 : 2; // that shell needs no path
    QCOMPARE(messages.texts.filter(u"File not found"_s).size(), 1 + pages);
    QCOMPARE(messages.texts.size(), 2 + pages); // and that saving was cancelled
    QCOMPARE(program.ends, (std::vector<int>{0, 0}));
    QCOMPARE(mousePointer(), MousePointer::Default);
    QCOMPARE(program.editor()->rsResult()->RecordCount(), 100000);
    QTRY_COMPARE(program.rows(), 100000);
}

// Retrieving all rows lets events through.
void TestRun::commandsWhileRetrieving_data()
{
    // The rows are those at the end; 0 means that no window is left, -1 some rows.
    const DataRows<qint64, UserAction> row("rows", "command");
    row("retrieve all again", 30000, presses(u"Toolbar1"_s, 2));
    row("next set", 30000, presses(u"Toolbar1"_s, 1));
    row("plan", 30000, runsOnTab(1));
    row("output", 30000, runsOnTab(2));
    row("commit", 30000, presses(u"tbrQuerna"_s, 6));
    row("dialog on the same connection", 30000, [](ProgramFixture &program) {
        whenModal([](QWidget *picker) { picker->close(); });
        program.press(u"tbrQuerna"_s, 17);
    });
    row("stop", -1, presses(u"Toolbar1"_s, 3));
    row("run another query", 4, runsOnTab(0));
    row("change the connection", -1, [](ProgramFixture &program) {
        program.logOn(u"scott"_s, u"tiger"_s, u"x;Provider=OrbekSandbox"_s);
    });
    const UserAction closesWindow = [](ProgramFixture &program) {
        program.editor()->parentWidget()->close();
    };
    row("close the window", 0, closesWindow);
    row("close the window while retrieving within", 0, [closesWindow](ProgramFixture &program) {
        QTimer::singleShot(soon, &program.frame(), [&] { closesWindow(program); });
        program.press(u"Toolbar1"_s, 2);
    });
    row("close the frame", 0, [](ProgramFixture &program) { program.frame().close(); });
}

void TestRun::commandsWhileRetrieving()
{
    QFETCH(UserAction, command);
    QFETCH(qint64, rows);
    ProgramFixture program(sandbox);
    MessageAnswers messages;
    program.run(u"select * from sales where sale_id <= 30000"_s);
    bool commanded = false;
    QTimer::singleShot(soon, &program.frame(), [&] {
        commanded = true;
        command(program);
    });
    QCOMPARE(program.panel(2), u"25 rows; more on the server: F7 next, Shift+F7 all"_s);
    program.press(u"Toolbar1"_s, 2);
    QVERIFY(commanded);
    QVERIFY2(messages.texts.isEmpty(), qPrintable(messages.texts.join(u'|')));
    if (rows == 0) {
        QTRY_VERIFY(program.editor() == nullptr);
        QVERIFY(!gConnection);
        return;
    }
    const qint64 shown = program.editor()->rsResult()->RecordCount();
    QCOMPARE(program.panel(4), u"Records Retrieved: %1"_s.arg(shown));
    QTRY_COMPARE(program.rows(), shown);
    QVERIFY(rows < 0 ? shown >= 25 && shown < 30000 : shown == rows);
    QVERIFY2(!program.panel(2).contains(u"Retrieving"_s), qPrintable(program.panel(2)));
    program.run(u"select count(*) from dept"_s);
    QCOMPARE(program.cell(0, 0), u"4"_s);
}

void TestRun::dmlStaysInTheTransaction()
{
    ProgramFixture program(sandbox);
    const MessageAnswers messages;
    const auto seenByOthers = [this](const QString &expression) {
        return SandboxFixture::scalar(m_server,
                                      u"select %1 from dept where deptno = 60"_s.arg(expression));
    };
    program.run(u"insert into dept values (60, 'IT''S -- so', /* where */ 'HERE')"_s);
    QCOMPARE(program.panel(2), u"● 1 row changed, not committed"_s);
    QCOMPARE(seenByOthers(u"count(*)"_s), u"0"_s);
    program.run(u"select * from no_such_table"_s);
    QVERIFY2(program.panel(2).startsWith(u"● Failed: "_s), qPrintable(program.panel(2)));
    program.press(u"tbrQuerna"_s, 8);
    QCOMPARE(program.panel(2), u"● Not committed"_s);
    program.press(u"tbrQuerna"_s, 6);
    QCOMPARE(program.panel(2), u"Committed"_s);
    QCOMPARE(seenByOthers(u"dname"_s), u"IT'S -- so"_s);
    for (const auto &[button, left] : {std::pair(7, u"1"_s), std::pair(6, u"0"_s)}) {
        program.run(u"delete from dept where deptno = 60"_s);
        program.press(u"tbrQuerna"_s, button);
        QCOMPARE(seenByOthers(u"count(*)"_s), left);
    }
    // Closing rolls back.
    program.run(u"delete from emp"_s);
    program.editor()->parentWidget()->close();
    QCOMPARE(SandboxFixture::scalar(m_server, u"select count(*) from emp"_s), u"14"_s);
}

void TestRun::plans()
{
    ProgramFixture program(sandbox);
    program.run(u"select * from dept"_s);
    // What the other cases have rolled back may still stand in the server's statistics.
    gConnection->Execute(u"analyze table emp, dept"_s);
    program.run(u"select e.ename, d.dname from emp e, dept d where e.deptno = d.deptno"_s, 1);
    const auto *tree = program.control<ColumnTree>(u"tvwColumns"_s);
    QCOMPARE(tree->headerItem()->text(1), u"Object Name"_s);
    QCOMPARE(tree->topLevelItemCount(), 1);
    QCOMPARE(program.panel(2), u"Plan of 4 steps"_s);
    QString plan;
    appendPlan(tree->topLevelItem(0), 0, plan);
    QVERIFY2(plan.startsWith(u"SELECT STATEMENT"_s), qPrintable(plan));
    QVERIFY2(plan.contains(u"|EMP|14|"_s), qPrintable(plan));
    QVERIFY2(plan.contains(u"|DEPT|"_s), qPrintable(plan));
    QVERIFY2(!plan.contains(u"folded"_s), qPrintable(plan));
    QVERIFY(tree->topLevelItem(0)->text(2).isEmpty());
    // The rows of the query before it stay.
    QCOMPARE(program.rows(), 4);
    // A second request in the same second replaces the first one's rows.
    program.run(u"select * from emp where hiredate > '10:30'"_s, 1);
    QCOMPARE(tree->topLevelItemCount(), 1);

    MessageAnswers messages;
    program.run(u"select * from no_such_table"_s, 1);
    QCOMPARE(messages.texts.size(), 1);
    QVERIFY(program.history().contains("\r\nselect * from no_such_table\r\nSQLTIME"));

    // A step past the table of nodes ends the filling; the steps before it stay.
    ColumnTree steps;
    setupPlanColumns(steps);
    const QString step = u"select '%1' query_plan, %2 id, %3 parent_id, 'T' object_name, "
                         "'1' cardinality, ' ' bytes, '2' cost from dual"_s;
    QCOMPARE(raisedError([&] {
                 fillPlanTree(steps, QStringList{step.arg(u"ROOT"_s, u"0"_s, u"null"_s),
                                                 step.arg(u"LAST"_s, u"500"_s, u"0"_s),
                                                 step.arg(u"FAR"_s, u"501"_s, u"0"_s),
                                                 step.arg(u"NEVER"_s, u"1"_s, u"0"_s)}
                                         .join(u" union all "_s));
             }),
             ErrorNumber::SubscriptOutOfRange);
    plan.clear();
    appendPlan(steps.topLevelItem(0), 0, plan);
    QCOMPARE(plan, u"ROOT|\n  LAST|T|1| |2|\n"_s);
}

void TestRun::serverOutput()
{
    ProgramFixture program(sandbox);
    const auto *pane = program.control<QPlainTextEdit>(u"rtbdbms"_s);
    auto *size = program.control<QLineEdit>(u"txtBufferSize"_s);
    MessageAnswers messages;
    program.run(u"begin dbms_output.put_line('one'); dbms_output.put_line(''); "
                "dbms_output.put_line('three'); end;"_s,
                2);
    QCOMPARE(pane->toPlainText(), u"  one\n  three\n"_s);
    QCOMPARE(program.panel(2), u"● 2 lines of output"_s);
    program.run(u"select 1 from dual"_s, 2);
    QCOMPARE(pane->toPlainText(), QString());

    // A size that the server does not take keeps the statement from being run.
    QVERIFY(messages.texts.isEmpty());
    size->setText(u"abc"_s);
    program.run(u"delete from emp"_s, 2);
    QCOMPARE(messages.texts.size(), 1);
    size->setText(u"20000"_s);
    program.run(u"select count(*) from emp"_s);
    QCOMPARE(program.cell(0, 0), u"14"_s);

    // The lines that came before a failure stay.
    program.run(
        u"begin dbms_output.put_line('short'); dbms_output.put_line(rpad('x', 300, 'x')); end;"_s,
        2);
    QCOMPARE(messages.texts.size(), 2);
    QCOMPARE(pane->toPlainText(), u"  short\n"_s);
}

void TestRun::script()
{
    ProgramFixture program(sandbox);
    program.text()->setText(
        u"update dept set loc = 'it''s';\r\nnonsense one;\r\n-- nothing;\r\n"
        "select no_such from emp;\r\n/* more */ delete from emp where empno = 7245;\r\n"
        "delete from dept"_s);
    MessageAnswers messages;
    program.press(u"tbrQuerna"_s, 2);
    QCOMPARE(messages.texts.size(), 1);
    QCOMPARE(messages.texts.first().count(u"\r\n"_s), 2);
    QVERIFY(messages.texts.first().startsWith(u' '));
    QVERIFY2(messages.texts.first().indexOf(u"no_such"_s) > messages.texts.first().indexOf(u'\n'),
             qPrintable(messages.texts.first()));
    QCOMPARE(program.panel(2), u"● Script: 4 statements, 2 failed, first at line 2"_s);
    // The marks stand at what has failed until it is changed, and tell why.
    EditorControl &editor = *program.text();
    const auto marked = [&] {
        QString lines;
        for (int line = 0; line < editor.lines(); ++line)
            lines += editor.markersAtLine(line) == 0 ? u'.' : u'x';
        return lines;
    };
    QCOMPARE(marked(), u".x.x.."_s);
    const int height = static_cast<int>(editor.SendScintilla(EditorControl::SCI_TEXTHEIGHT, 0L));
    QHelpEvent hover(QEvent::ToolTip, QPoint(3, height * 3 / 2), QPoint(3, 3));
    QCoreApplication::sendEvent(editor.viewport(), &hover);
    QVERIFY2(QToolTip::text().contains(u"SQL syntax"_s), qPrintable(QToolTip::text()));
    for (const auto &[place, left] : {std::pair(0, u".x.x.."_s), std::pair(36, u"...x.."_s)}) {
        editor.setSelStart(place);
        editor.InsertText(u"x"_s);
        QCOMPARE(marked(), left);
    }
    program.run(u"\r\nselect\r\nfrom emp"_s);
    QCOMPARE(marked(), u"..x"_s);
    program.run(
        u"select (select count(*) from emp), (select count(*) from dept where loc = 'it''s') "
        "from dual"_s);
    QCOMPARE(program.cell(0, 0), u"13"_s);
    QCOMPARE(program.cell(0, 1), u"4"_s);
    program.press(u"tbrQuerna"_s, 7);
}

void TestRun::missingConnectionIsReportedAlike()
{
    ProgramFixture program(sandbox);
    gConnection->Close();
    MessageAnswers messages;
    program.press(u"tbrQuerna"_s, 6);
    program.press(u"tbrQuerna"_s, 7);
    program.press(u"tbrQuerna"_s, 15);
    for (const int tab : {0, 1, 2})
        program.run(u"select 1 from dual"_s, tab);
    QCOMPARE(messages.texts, QStringList(5, errorDescription(ErrorNumber::InvalidConnection)));
    QCOMPARE(program.panel(2), u"Not connected"_s);
    QVERIFY(program.ends.empty());
    program.press(u"tbrQuerna"_s, 20);
    QCOMPARE(program.ends.size(), size_t{1});
}

QTEST_MAIN(TestRun)
#include "tst_run.moc"
