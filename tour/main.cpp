// Shows what the program does where there is no display: walks through it on the sandbox and leaves
// a picture of every step.

#include "Tour.h"

#include "app/startUp.h"
#include "controls/editor/EditorControl.h"
#include "platform/process.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

const QString commands = u"tbrQuerna"_s;
const QString paging = u"Toolbar1"_s;

/// Settings, history and files that are the tour's alone.
void prepare(const QString &folder)
{
    for (const char *home : {"XDG_CONFIG_HOME", "XDG_STATE_HOME"})
        qputenv(home, QFile::encodeName(folder));
    const QString syntax = u"/T-SQL.bcp"_s;
    QFile::copy(QApplication::applicationDirPath() + u"/../app"_s + syntax, folder + syntax);
    setApplicationFolder(folder);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    prepareApplication();
}

void logOn(Tour &tour)
{
    tour.frame.Form_Load({});
    auto &login = tour.control<QWidget>(u"frmQuernaLogin"_s);
    tour.picture(u"login"_s, &login);
    tour.control<QAbstractButton>(u"optSYS_1"_s).click();
    tour.picture(u"login-as-sysdba"_s, &login);
    login.close();
    tour.frame.Form_Load(
        u"Provider=OrbekSandbox;Data Source=SANDBOX;User ID=scott;Password=tiger;"_s);
    settle(300);
    tour.picture(u"sandbox"_s);
}

void runStatements(Tour &tour)
{
    tour.run(u"select * from emp"_s);
    tour.picture(u"first-rows"_s);
    tour.run(u"select * from sales order by sale_id"_s);
    tour.press(paging, 1);
    tour.picture(u"next-set"_s);
    QTimer::singleShot(0, &tour.frame, [&] { tour.press(paging, 3); });
    tour.press(paging, 2);
    tour.picture(u"stopped"_s);
    tour.press(paging, 2);
    tour.picture(u"all-rows"_s);
    QTimer::singleShot(1500, &tour.frame, [&] { tour.picture(u"running"_s); });
    tour.run(u"select sleep(2) from dual"_s);
    tour.run(u"select e.ename, d.dname from emp e, dept d where e.deptno = d.deptno"_s, 1);
    tour.picture(u"plan"_s);
    tour.run(u"begin dbms_output.put_line('one'); dbms_output.put_line('two'); end;"_s, 2);
    tour.picture(u"output"_s);
    tour.run(u"insert into dept values (50, 'IT''S', 'HERE') -- a new one"_s);
    tour.run(u"select * from dept"_s);
    tour.picture(u"inserted"_s);
    tour.press(commands, 7);
    tour.run(u"select * from dept"_s);
    tour.picture(u"rolled-back"_s);
    tour.text().setText(u"update emp set sal = sal;\r\nnonsense one;\r\nnonsense two;"_s);
    tour.dialog(u"script-errors"_s, [&] { tour.press(commands, 2); });
    tour.press(commands, 7);
    tour.dialog(u"server-error"_s, [&] { tour.run(u"select nothing_here from emp"_s); });
}

void editText(Tour &tour)
{
    EditorControl &text = tour.text();
    text.setText(u"select ename, 'a literal' as kind, 42 -- a comment\r\nfrom scott.emp\r\n"
                 "/* and a longer one */\r\nwhere hiredate is not null;\r\n"
                 "declare x varchar2(10); begin null; end;"_s);
    tour.picture(u"colours"_s);
    text.setSelStart(0);
    text.setSelLength(text.textLength());
    tour.press(commands, 11);
    tour.picture(u"commented"_s);
    tour.press(commands, 13);
    tour.picture(u"undone"_s);
    tour.dialog(u"background-colour"_s, [&] { tour.press(commands, 5); });
    QStringList items{u"mnuFind"_s, u"mnuReplace"_s, u"mnuSave"_s};
#ifndef Q_OS_WIN // there it is the system's own, which would stay
    items += u"mnuPrint"_s;
#endif
    for (const QString &item : items)
        tour.dialog(item.mid(3).toLower(), [&] { tour.choose(item); });
    for (const QString &name : {u"mnuFile"_s, u"mnuEdit"_s}) {
        auto &menu = tour.control<QMenu>(name);
        menu.popup(tour.frame.mapToGlobal(QPoint(0, 40)));
        tour.picture(name.mid(3).toLower() + u"-menu"_s, &menu);
        menu.close();
    }
}

void pick(Tour &tour)
{
    const auto pickFirst = [](QWidget *picker) {
        auto *list = picker->findChild<QListWidget *>(u"lstObject"_s);
        list->setCurrentRow(0);
        emit list->itemClicked(list->item(0));
    };
    tour.text().setText({});
    tour.dialog(
        u"tables"_s, [&] { tour.press(commands, 16); }, pickFirst);
    tour.dialog(
        u"columns"_s, [&] { tour.press(commands, 17); },
        [&](QWidget *picker) {
            auto *tables = picker->findChild<QComboBox *>(u"cmbTable"_s);
            tables->setEditText(u"EMP"_s);
            emit tables->lineEdit()->returnPressed();
            pickFirst(picker);
        });
    tour.picture(u"picked"_s);
    tour.dialog(u"history"_s, [&] { tour.press(commands, 18); });
    tour.dialog(u"export"_s, [&] { tour.press(commands, 3); });
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "The folder for the pictures is expected.\n");
        return 2;
    }
    const QDir pictures(QString::fromLocal8Bit(argv[1]));
    for (const QString &old : pictures.entryList({u"*.png"_s}))
        QFile::remove(pictures.filePath(old));
    const QTemporaryDir folder;
    prepare(folder.path());
    Tour tour(pictures);
    logOn(tour);
    runStatements(tour);
    editText(tour);
    pick(tour);
    std::printf("The pictures are in %s\n", argv[1]);
}
