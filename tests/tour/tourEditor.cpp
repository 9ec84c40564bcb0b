#include "Tour.h"

#include "app/MDIFormQuerna.h"
#include "controls/ColumnTree.h"
#include "controls/DataGrid.h"
#include "controls/EditorControl.h"
#include "editor/frmQuerna.h"
#include "platform/applicationFolder.h"
#include "support/testFiles.h"

#include <QDialog>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

const QString sandbox =
    u"Provider=OrbekSandbox;Data Source=SANDBOX;User ID=scott;Password=tiger;"_s;
const QString joinOfBoth =
    u"select e.ename, d.dname from emp e, dept d where e.deptno = d.deptno"_s;

void showTab(int index)
{
    control<QTabWidget>(u"tbSql"_s)->setCurrentIndex(index);
    settle();
}

} // namespace

void tourLogOn(Tour &tour, MDIFormQuerna &frame)
{
    frame.Form_Load({});
    settle();
    QWidget *login = control(u"frmQuernaLogin"_s);
    tour.picture(u"login"_s, login);
    tour.expect(login->windowTitle() == u"Querna Login"_s, u"the login dialog is there"_s);
    clickOption(u"optSYS_1"_s);
    tour.picture(u"login-as-sysdba"_s, login);
    tour.expect(!control(u"optPrefConn_1"_s)->isEnabled(), u"SYSDBA needs a DSN"_s);
    QTest::mouseClick(control(u"cmdCancel"_s), Qt::LeftButton);
    settle();
    tour.expect(tour.editor() == nullptr, u"cancelling leaves the frame empty"_s);

    frame.Form_Load(sandbox);
    settle(300);
    tour.picture(u"sandbox"_s, &frame);
    tour.expect(tour.editor()->windowTitle() == u"SCOTT@SANDBOX - SQL Editor: ..."_s,
                u"the caption names user and database"_s);
}

void tourRows(Tour &tour)
{
    QWidget *frame = control(u"MDIFormQuerna"_s);
    tour.type(u"select * from emp"_s);
    tour.press(u"tbrQuerna"_s, 1);
    tour.picture(u"first-rows"_s, frame);
    tour.expect(tour.gridRows() == 14, u"EMP has 14 rows"_s);
    tour.expect(tour.panel(4) == u"Records Retrieved: 14"_s, u"panel 4 counts them"_s);
    tour.expect(tour.panel(3).endsWith(u"sec"_s), u"panel 3 shows the time"_s);
    tour.expect(tour.panel(5).startsWith(u"Query executed at "_s), u"panel 5 shows when"_s);
    const QRegularExpression record(
        u"select \\* from emp\r\nSQLTIME\r\n\\d+/\\d+/\\d{4} [\\d:]+\r\nSQLEND\r\n$"_s);
    const QByteArray history = contentOf(applicationFile(u"OrbekSqlHistory.txt"_s));
    tour.expect(record.match(QString::fromUtf8(history)).hasMatch(),
                u"the history has the record"_s);

    tour.run(u"select * from sales order by sale_id"_s);
    tour.expect(tour.gridRows() == 25, u"a query shows its first 25 rows"_s);
    tour.press(u"Toolbar1"_s, 1);
    tour.picture(u"next-set"_s, frame);
    tour.expect(tour.gridRows() == 50, u"the next set is 25 more"_s);
    QTimer::singleShot(0, tour.editor(), [&tour] { tour.press(u"Toolbar1"_s, 3); });
    tour.press(u"Toolbar1"_s, 2);
    tour.picture(u"stopped"_s, frame);
    tour.expect(tour.gridRows() < 100000, u"Stop ends the retrieval"_s);
    tour.press(u"Toolbar1"_s, 2);
    tour.picture(u"all-rows"_s, frame);
    tour.expect(tour.gridRows() == 100000, u"all rows of SALES arrive"_s);
    tour.expect(tour.panel(4) == u"Records Retrieved: 100000"_s, u"panel 4 counts them all"_s);
}

void tourPlanAndOutput(Tour &tour)
{
    QWidget *frame = control(u"MDIFormQuerna"_s);
    showTab(1);
    tour.run(joinOfBoth);
    tour.picture(u"plan"_s, frame);
    auto *tree = control<ColumnTree>(u"tvwColumns"_s);
    tour.expect(tree->topLevelItemCount() == 1 && tree->topLevelItem(0)->childCount() > 0,
                u"the plan is a tree"_s);
    tour.expect(tour.gridRows() == 100000, u"explaining leaves the grid alone"_s);

    showTab(2);
    tour.run(u"begin dbms_output.put_line('one'); dbms_output.put_line('two'); "
             "dbms_output.put_line('three'); end;"_s);
    tour.picture(u"output"_s, frame);
    tour.expect(control<QPlainTextEdit>(u"rtbdbms"_s)->toPlainText() ==
                    u"  one\n  two\n  three\n"_s,
                u"the pane shows the three lines"_s);
    showTab(0);
}

void tourTransactions(Tour &tour)
{
    QWidget *frame = control(u"MDIFormQuerna"_s);
    tour.run(u"insert into dept values (50, 'IT''S', 'HERE') -- a new one"_s);
    tour.run(u"select * from dept"_s);
    tour.picture(u"inserted"_s, frame);
    tour.expect(tour.gridRows() == 5, u"the new department is seen at once"_s);
    tour.press(u"tbrQuerna"_s, 7);
    tour.run(u"select * from dept"_s);
    tour.expect(tour.gridRows() == 4, u"rollback takes it out again"_s);
    tour.press(u"tbrQuerna"_s, 6);

    tour.text()->setText(
        u"update emp set sal = sal;\r\nnonsense one;\r\n-- nothing;\r\n"
        "update dept set loc = loc;\r\nnonsense two;\r\ndelete from emp where 1 = 0;"_s);
    const QString errors =
        tour.message([&] { tour.press(u"tbrQuerna"_s, 2); }, u"OK"_s, u"script-errors"_s);
    tour.expect(errors.count(u"\r\n"_s) == 2, u"two of the five statements fail"_s);
    tour.press(u"tbrQuerna"_s, 7);
}

void tourTextCommands(Tour &tour)
{
    QWidget *frame = control(u"MDIFormQuerna"_s);
    EditorControl *text = tour.text();
    const auto changed = [&](int button, const QString &before, const QString &after) {
        text->setText(before);
        text->setSelStart(0);
        text->setSelLength(static_cast<int>(before.size()));
        tour.press(u"tbrQuerna"_s, button);
        tour.expect(text->Text() == after, u"button %1 gives %2"_s.arg(button).arg(after));
    };
    changed(8, u"select 1"_s, u"SELECT 1"_s);
    changed(9, u"SELECT 1"_s, u"select 1"_s);
    changed(10, u"select EMP_NAME from emp"_s, u"Select Emp_name From Emp"_s);
    changed(12, u"x -- y"_s, u"x  y"_s);
    changed(11, u"a\r\nb"_s, u"--a\r\n--b"_s);
    tour.picture(u"commented"_s, frame);
    tour.press(u"tbrQuerna"_s, 13);
    tour.expect(text->Text() == u"a\r\nb"_s, u"undo takes the comment marks back"_s);
    tour.press(u"tbrQuerna"_s, 14);
    tour.expect(text->Text() == u"--a\r\n--b"_s, u"redo puts them there again"_s);

    text->setText(u"select ename, 'a literal' as kind, 42 -- a comment\r\nfrom scott.emp\r\n"
                  "/* and a longer one */\r\nwhere hiredate is not null;\r\n"
                  "declare x varchar2(10); begin null; end;"_s);
    tour.picture(u"colours"_s, frame);
    tour.modal([&] { tour.press(u"tbrQuerna"_s, 5); },
               [&](QWidget *dialog) {
                   tour.picture(u"background-colour"_s, dialog);
                   QTest::keyClick(dialog, Qt::Key_Escape);
               });
}
