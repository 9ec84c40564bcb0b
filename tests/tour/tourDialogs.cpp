#include "Tour.h"

#include "app/MDIFormQuerna.h"
#include "controls/EditorControl.h"
#include "controls/FlexGrid.h"
#include "support/testFiles.h"
#include "uisupport/ModalAnswers.h"
#include "uisupport/userActions.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QListWidget>
#include <QTest>

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

} // namespace

void tourPickersAndHistory(Tour &tour)
{
    EditorControl *text = tour.text();
    text->setText({});
    tour.modal([&] { tour.press(u"tbrQuerna"_s, 16); },
               [&](QWidget *dialog) {
                   tour.picture(u"tables"_s, dialog);
                   auto *list = dialog->findChild<QListWidget *>(u"lstObject"_s);
                   const QListWidgetItem *emp = list->findItems(u"EMP"_s, Qt::MatchExactly).at(0);
                   QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                                     list->visualItemRect(emp).center());
                   dialog->close();
               });
    tour.expect(text->Text() == u" SCOTT.EMP "_s, u"the table's name is inserted"_s);

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
    tour.run(u"select * from emp order by empno"_s);
    exportRows(tour, 1, {}); // which only closes the dialog
    tour.expect(visibleDialog() == nullptr, u"the worksheet export only closes its dialog"_s);
    const QByteArray insert = "Insert into  (EMPNO,ENAME,JOB,MGR,HIREDATE,SAL,COMM,DEPTNO) VALUES "
                              "('7101' ,'KING' ,'PRESIDENT' ,'' ,'3/2/2009' ,'5200' ,'' ,'10' );";
    for (const auto &[option, file, record] :
         {std::tuple(0, u"emp.csv"_s, "7101,KING,PRESIDENT,,3/2/2009,5200,,10"_ba),
          std::tuple(2, u"emp.txt"_s, "7101\tKING\tPRESIDENT\t\t3/2/2009\t5200\t\t10"_ba),
          std::tuple(3, u"emp.sql"_s, insert)}) {
        const MessageAnswers messages;
        const QString path = tour.picturePath(file);
        exportRows(tour, option, path);
        const QByteArray written = contentOf(path);
        tour.expect(written.startsWith(record + "\r\n") && written.count("\r\n") == 14,
                    u"%1 has the 14 records"_s.arg(file));
        tour.expect(messages.texts.join(u'|').contains(u"14 records written"_s) == (option != 0),
                    u"%1 is reported as it should be"_s.arg(file));
    }
    tour.modal([&] { tour.press(u"tbrQuerna"_s, 3); },
               [&](QWidget *dialog) {
                   click(*dialog, u"optExport_4"_s);
                   enter(*dialog, u"txtDelimiter"_s, u";"_s);
                   tour.picture(u"export"_s, dialog);
                   click(*dialog, u"cmdExpCancel"_s);
               });
}

void tourFiles(Tour &tour)
{
    const QString path = tour.picturePath(u"saved.sql"_s);
    tour.text()->setText(u"select 'größe' from dual"_s);
    tour.modal([&] { tour.menuItem(u"mnuSave"_s)->trigger(); },
               [&](QWidget *dialog) {
                   tour.picture(u"save"_s, dialog);
                   enter(*dialog, u"fileNameEdit"_s, path);
                   QTest::keyClick(dialog, Qt::Key_Return);
               });
    tour.expect(contentOf(path) == u"select 'größe' from dual\r\n"_s.toUtf8(),
                u"the text is saved with a line end"_s);
    tour.text()->setText({});
    answerFileDialog(path);
    tour.menuItem(u"mnuOpen"_s)->trigger();
    tour.expect(tour.text()->Text() == u"select 'größe' from dual\r\n"_s, u"the text comes back"_s);

    for (const auto &[item, name] :
         {std::pair(u"mnuFind"_s, u"find"_s), std::pair(u"mnuReplace"_s, u"replace"_s)}) {
        tour.frame().activateWindow();
        tour.text()->setFocus();
        settle();
        tour.menuItem(item)->trigger();
        settle();
        QWidget *dialog = visibleDialog();
        tour.expect(dialog != nullptr, u"%1 opens a dialog"_s.arg(item));
        if (dialog == nullptr)
            continue;
        tour.picture(name, dialog);
        QTest::keyClick(dialog, Qt::Key_Escape);
        settle();
    }
    tour.modal([&] { tour.menuItem(u"mnuPrint"_s)->trigger(); },
               [&](QWidget *dialog) {
                   tour.picture(u"page-set-up"_s, dialog);
                   QTest::keyClick(dialog, Qt::Key_Escape);
               });
}

void tourFailures(Tour &tour)
{
    tour.text()->setText(u"select nothing_here from emp"_s);
    const int rows = tour.rows();
    const QString text = tour.message([&] { tour.press(u"tbrQuerna"_s, 1); }, u"server-error"_s);
    tour.expect(text.contains(u"nothing_here"_s), u"the server's own text is shown"_s);
    tour.expect(tour.rows() == rows, u"the rows on the screen stay"_s);

    const QString refused =
        tour.message([&] { tour.logOn(u"scott"_s, u"wrong"_s, u"NOSUCHDSN"_s); }, u"no-such-dsn"_s);
    tour.expect(!refused.isEmpty(), u"a failed log-on says why"_s);
}
