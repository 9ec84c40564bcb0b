#include "Tour.h"

#include "controls/ColumnTree.h"
#include "controls/EditorControl.h"
#include "editor/frmQuerna.h"
#include "support/SandboxFixture.h"
#include "uisupport/userActions.h"

#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

void tourLogOn(Tour &tour)
{
    tour.start({});
    settle();
    auto *login = tour.control<QWidget>(u"frmQuernaLogin"_s);
    tour.picture(u"login"_s, login);
    click(*login, u"optSYS_1"_s);
    tour.picture(u"login-as-sysdba"_s, login);
    tour.expect(!tour.control<QWidget>(u"optPrefConn_1"_s)->isEnabled(), u"SYSDBA needs a DSN"_s);
    click(*login, u"cmdCancel"_s);
    settle();
    tour.expect(tour.editor() == nullptr, u"cancelling leaves the frame empty"_s);

    tour.start(SandboxFixture::connectionString());
    settle(300);
    tour.picture(u"sandbox"_s);
    tour.expect(tour.editor()->windowTitle() == u"SCOTT@SANDBOX - SQL Editor: ..."_s,
                u"the caption names user and database"_s);
}

void tourRows(Tour &tour)
{
    tour.run(u"select * from emp"_s);
    tour.picture(u"first-rows"_s);
    tour.expect(tour.rows() == 14, u"EMP has 14 rows"_s);
    tour.expect(tour.panel(4) == u"Records Retrieved: 14"_s, u"panel 4 counts them"_s);
    tour.expect(tour.panel(3).endsWith(u"sec"_s), u"panel 3 shows the time"_s);
    tour.expect(tour.panel(5).startsWith(u"Query executed at "_s), u"panel 5 shows when"_s);
    const QRegularExpression record(
        u"select \\* from emp\r\nSQLTIME\r\n\\d+/\\d+/\\d{4} [\\d:]+\r\nSQLEND\r\n$"_s);
    tour.expect(record.match(QString::fromUtf8(tour.history())).hasMatch(),
                u"the history has the record"_s);

    tour.run(u"select * from sales order by sale_id"_s);
    tour.expect(tour.rows() == 25, u"a query shows its first 25 rows"_s);
    tour.press(u"Toolbar1"_s, 1);
    tour.picture(u"next-set"_s);
    tour.expect(tour.rows() == 50, u"the next set is 25 more"_s);
    QTimer::singleShot(0, tour.editor(), [&tour] { tour.press(u"Toolbar1"_s, 3); });
    tour.press(u"Toolbar1"_s, 2);
    tour.picture(u"stopped"_s);
    tour.expect(tour.rows() < 100000, u"Stop ends the retrieval"_s);
    tour.press(u"Toolbar1"_s, 2);
    tour.picture(u"all-rows"_s);
    tour.expect(tour.rows() == 100000, u"all rows of SALES arrive"_s);
    tour.expect(tour.panel(4) == u"Records Retrieved: 100000"_s, u"panel 4 counts them all"_s);
}

void tourPlanAndOutput(Tour &tour)
{
    tour.showTab(1);
    tour.run(u"select e.ename, d.dname from emp e, dept d where e.deptno = d.deptno"_s);
    tour.picture(u"plan"_s);
    const auto *tree = tour.control<ColumnTree>(u"tvwColumns"_s);
    tour.expect(tree->topLevelItemCount() == 1 && tree->topLevelItem(0)->childCount() > 0,
                u"the plan is a tree"_s);
    tour.expect(tour.rows() == 100000, u"explaining leaves the grid alone"_s);

    tour.showTab(2);
    tour.run(u"begin dbms_output.put_line('one'); dbms_output.put_line('two'); "
             "dbms_output.put_line('three'); end;"_s);
    tour.picture(u"output"_s);
    tour.expect(tour.control<QPlainTextEdit>(u"rtbdbms"_s)->toPlainText() ==
                    u"  one\n  two\n  three\n"_s,
                u"the pane shows the three lines"_s);
    tour.showTab(0);
}

void tourTransactions(Tour &tour)
{
    tour.run(u"insert into dept values (50, 'IT''S', 'HERE') -- a new one"_s);
    tour.run(u"select * from dept"_s);
    tour.picture(u"inserted"_s);
    tour.expect(tour.rows() == 5, u"the new department is seen at once"_s);
    tour.press(u"tbrQuerna"_s, 7);
    tour.run(u"select * from dept"_s);
    tour.expect(tour.rows() == 4, u"rollback takes it out again"_s);
    tour.press(u"tbrQuerna"_s, 6);

    tour.text()->setText(
        u"update emp set sal = sal;\r\nnonsense one;\r\n-- nothing;\r\n"
        "update dept set loc = loc;\r\nnonsense two;\r\ndelete from emp where 1 = 0;"_s);
    const QString errors = tour.message([&] { tour.press(u"tbrQuerna"_s, 2); }, u"script-errors"_s);
    tour.expect(errors.count(u"\r\n"_s) == 2, u"two of the five statements fail"_s);
    tour.press(u"tbrQuerna"_s, 7);
}

void tourTextCommands(Tour &tour)
{
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
    tour.picture(u"commented"_s);
    tour.press(u"tbrQuerna"_s, 13);
    tour.expect(text->Text() == u"a\r\nb"_s, u"undo takes the comment marks back"_s);
    tour.press(u"tbrQuerna"_s, 14);
    tour.expect(text->Text() == u"--a\r\n--b"_s, u"redo puts them there again"_s);

    text->setText(u"select ename, 'a literal' as kind, 42 -- a comment\r\nfrom scott.emp\r\n"
                  "/* and a longer one */\r\nwhere hiredate is not null;\r\n"
                  "declare x varchar2(10); begin null; end;"_s);
    tour.picture(u"colours"_s);
    tour.modal([&] { tour.press(u"tbrQuerna"_s, 5); },
               [&](QWidget *dialog) {
                   tour.picture(u"background-colour"_s, dialog);
                   QTest::keyClick(dialog, Qt::Key_Escape);
               });
}
