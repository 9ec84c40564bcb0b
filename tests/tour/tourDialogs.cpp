#include "Tour.h"

#include "controls/EditorControl.h"
#include "controls/FlexGrid.h"
#include "support/testFiles.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A dialog that is shown beside the frame; null when there is none.
QWidget *visibleDialog()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && qobject_cast<QDialog *>(window) != nullptr)
            return window;
    }
    return nullptr;
}

/// Gives a file dialog its name and presses its button.
void acceptFile(QWidget *window, const QString &path)
{
    auto *dialog = qobject_cast<QFileDialog *>(window);
    if (dialog == nullptr)
        return window->hide();
    dialog->findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(path);
    QTest::keyClick(dialog->findChild<QLineEdit *>(u"fileNameEdit"_s), Qt::Key_Return);
}

} // namespace

void tourPickersAndHistory(Tour &tour)
{
    EditorControl *text = tour.text();
    text->setText({});
    text->setFocus();
    tour.modal([&] { tour.press(u"tbrQuerna"_s, 16); },
               [&](QWidget *dialog) {
                   tour.picture(u"tables"_s, dialog);
                   auto *list = dialog->findChild<QListWidget *>(u"lstObject"_s);
                   const QList<QListWidgetItem *> emp = list->findItems(u"EMP"_s, Qt::MatchExactly);
                   tour.expect(!emp.isEmpty(), u"EMP is among the tables"_s);
                   if (!emp.isEmpty())
                       QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                                         list->visualItemRect(emp.first()).center());
                   dialog->close();
               });
    tour.expect(text->Text() == u" SCOTT.EMP "_s, u"the table's name is inserted"_s);

    text->setFocus();
    tour.modal([&] { tour.press(u"tbrQuerna"_s, 17); },
               [&](QWidget *dialog) {
                   auto *tables = dialog->findChild<QComboBox *>(u"cmbTable"_s);
                   tables->setCurrentIndex(tables->findText(u"EMP"_s));
                   emit tables->activated(tables->currentIndex());
                   settle();
                   tour.picture(u"columns"_s, dialog);
                   auto *list = dialog->findChild<QListWidget *>(u"lstObject"_s);
                   tour.expect(list->count() == 8, u"EMP has 8 columns"_s);
                   dialog->close();
               });

    text->setFocus();
    tour.modal([&] { tour.press(u"tbrQuerna"_s, 18); },
               [&](QWidget *dialog) {
                   tour.picture(u"history"_s, dialog);
                   auto *records = dialog->findChild<FlexGrid *>(u"msfgSQL"_s);
                   tour.expect(records->Rows() > 5, u"the statements run are listed"_s);
                   dialog->close();
               });
}

void tourExports(Tour &tour)
{
    struct Format
    {
        int option;
        QString file;
        QByteArray firstLine;
        bool speaks;
    };
    const QList<Format> formats = {
        {0, u"emp.csv"_s, "7101,KING,PRESIDENT,,3/2/2009,5200,,10", false},
        {2, u"emp.txt"_s, "7101\tKING\tPRESIDENT\t\t3/2/2009\t5200\t\t10", true},
        {3, u"emp.sql"_s,
         "Insert into  (EMPNO,ENAME,JOB,MGR,HIREDATE,SAL,COMM,DEPTNO) VALUES ('7101' ,'KING' "
         ",'PRESIDENT' ,'' ,'3/2/2009' ,'5200' ,'' ,'10' );",
         true},
        {4, u"emp-semicolon.txt"_s, "7101;KING;PRESIDENT;;3/2/2009;5200;;10", true},
    };
    tour.run(u"select * from emp order by empno"_s);
    tour.modal([&] { tour.press(u"tbrQuerna"_s, 3); },
               [](QWidget *) {
                   clickOption(u"optExport_1"_s); // which only closes the dialog
                   QTest::mouseClick(control(u"cmdExpOK"_s), Qt::LeftButton);
               });
    tour.expect(visibleDialog() == nullptr, u"the worksheet export only closes its dialog"_s);
    for (const Format &format : formats) {
        const QString path = tour.folder().absoluteFilePath(format.file);
        QString told;
        tour.modal([&] { tour.press(u"tbrQuerna"_s, 3); },
                   [&](QWidget *dialog) {
                       clickOption(u"optExport_%1"_s.arg(format.option));
                       if (format.option == 4)
                           dialog->findChild<QLineEdit *>(u"txtDelimiter"_s)->setText(u";"_s);
                       tour.picture(u"export"_s, dialog);
                       const auto save = [&] {
                           tour.modal(
                               [&] { QTest::mouseClick(control(u"cmdExpOK"_s), Qt::LeftButton); },
                               [&](QWidget *files) { acceptFile(files, path); });
                       };
                       if (format.speaks)
                           told = tour.message(save, u"OK"_s);
                       else
                           save();
                   });
        const QByteArray written = contentOf(path);
        tour.expect(written.startsWith(format.firstLine + "\r\n"),
                    u"%1 begins with its first record"_s.arg(format.file));
        tour.expect(written.count("\r\n") == 14, u"%1 has 14 lines"_s.arg(format.file));
        tour.expect(told.contains(u"14 records written to disk."_s) == format.speaks,
                    u"%1 is reported as it should be"_s.arg(format.file));
    }
}

void tourFiles(Tour &tour)
{
    const QString path = tour.folder().absoluteFilePath(u"saved.sql"_s);
    tour.text()->setText(u"select 'größe' from dual"_s);
    tour.modal([&] { tour.menu(u"mnuSave"_s); },
               [&](QWidget *dialog) {
                   tour.picture(u"save"_s, dialog);
                   acceptFile(dialog, path);
               });
    tour.expect(contentOf(path) == u"select 'größe' from dual\r\n"_s.toUtf8(),
                u"the text is saved with a line end"_s);
    tour.text()->setText({});
    tour.modal([&] { tour.menu(u"mnuOpen"_s); },
               [&](QWidget *dialog) { acceptFile(dialog, path); });
    tour.expect(tour.text()->Text() == u"select 'größe' from dual\r\n"_s, u"the text comes back"_s);

    tour.text()->setFocus();
    for (const auto &[item, name] :
         {std::pair(u"mnuFind"_s, u"find"_s), std::pair(u"mnuReplace"_s, u"replace"_s)}) {
        tour.text()->window()->activateWindow();
        tour.text()->setFocus();
        settle();
        tour.menu(item);
        settle();
        QWidget *dialog = visibleDialog();
        tour.expect(dialog != nullptr, u"%1 opens a dialog"_s.arg(item));
        if (dialog == nullptr)
            continue;
        tour.picture(name, dialog);
        QTest::keyClick(dialog, Qt::Key_Escape);
        settle();
    }
    tour.modal([&] { tour.menu(u"mnuPrint"_s); },
               [&](QWidget *dialog) {
                   tour.picture(u"page-set-up"_s, dialog);
                   QTest::keyClick(dialog, Qt::Key_Escape);
               });
}

void tourFailures(Tour &tour)
{
    tour.text()->setText(u"select nothing_here from emp"_s);
    const int rows = tour.gridRows();
    const QString text =
        tour.message([&] { tour.press(u"tbrQuerna"_s, 1); }, u"OK"_s, u"server-error"_s);
    tour.expect(text.contains(u"nothing_here"_s), u"the server's own text is shown"_s);
    tour.expect(tour.gridRows() == rows, u"the rows on the screen stay"_s);

    tour.menu(u"mnuChangeConnection"_s);
    settle();
    control<QLineEdit>(u"txtUserName"_s)->setText(u"scott"_s);
    control<QLineEdit>(u"txtPassword"_s)->setText(u"wrong"_s);
    control<QLineEdit>(u"txtDb"_s)->setText(u"NOSUCHDSN"_s);
    clickOption(u"optPrefConn_2"_s);
    const QString refused = tour.message(
        [&] { QTest::mouseClick(control(u"cmdOK"_s), Qt::LeftButton); }, u"OK"_s, u"no-such-dsn"_s);
    tour.expect(!refused.isEmpty(), u"a failed log-on says why"_s);
}
