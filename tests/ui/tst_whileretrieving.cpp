#include "app/MDIFormQuerna.h"
#include "connection/session.h"
#include "controls/EditorControl.h"
#include "controls/mousePointer.h"
#include "dataaccess/Recordset.h"
#include "editor/frmQuerna.h"
#include "support/DataRows.h"
#include "support/SandboxFixture.h"
#include "uisupport/ModalAnswers.h"
#include "uisupport/ProgramFixture.h"
#include "uisupport/accessibleNames.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using UserAction = std::function<void(ProgramFixture &)>;

const QString sandbox = SandboxFixture::connectionString();
constexpr int soon = 2; // milliseconds

UserAction presses(const QString &toolBar, int button)
{
    return [=](ProgramFixture &program) { program.press(toolBar, button); };
}

UserAction picks(const QString &menuItem)
{
    return [=](ProgramFixture &program) { program.menuItem(menuItem)->trigger(); };
}

UserAction runsOnTab(int tab)
{
    return [=](ProgramFixture &program) { program.run(u"select * from dept"_s, tab); };
}

/// Everything that leaves the rows alone, in the order of toolbars and menus.
QList<UserAction> harmlessActions()
{
    QList<UserAction> actions = {runsOnTab(1), runsOnTab(2)};
    for (const int button : {2, 3, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 16, 17, 18, 20})
        actions.append(presses(u"tbrQuerna"_s, button));
    actions.append(presses(u"Toolbar1"_s, 1));
    for (const char *item :
         {"mnuOrbekSqlEditor", "mnuOpen", "mnuSave", "mnuPrint", "mnuExit", "mnuUndo", "mnuRedo",
          "mnuCut", "mnuCopy", "mnuPaste", "mnuSelectAll", "mnuDelete", "mnuFind", "mnuReplace",
          "mnuChangeConnection", "mnuJoinOrbekUserGroup", "mnuMessageOrbekUserGroup"})
        actions.append(picks(QString::fromLatin1(item)));
    return actions;
}

/// Closes every modal dialog that comes up, other than a message box, and keeps their names and
/// the controls that a screen reader has no name for.
class DialogCloser : public QObject
{
public:
    QStringList names;
    QStringList nameless;

    DialogCloser() { startTimer(1); }

protected:
    void timerEvent(QTimerEvent *) override
    {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr || qobject_cast<QMessageBox *>(dialog) != nullptr)
            return;
        names += dialog->objectName();
        nameless += namelessControls(*dialog);
        dialog->reject();
    }
};

/// Panel, result and grid of @p program agree. @returns the number of rows
qint64 shownRows(ProgramFixture &program)
{
    const qint64 rows = program.editor()->rsResult()->RecordCount();
    if (program.panel(4) != u"Records Retrieved: "_s + QString::number(rows) ||
        !QTest::qWaitFor([&] { return program.rows() == rows; }))
        return -1;
    return rows;
}

} // namespace

Q_DECLARE_METATYPE(UserAction)

/// What the user may do while all rows are being retrieved, which lets events through.
class TestWhileRetrieving : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { m_server = SandboxFixture::open(); }
    void cleanupTestCase() { m_server.reset(); }
    void everyHarmlessCommand();
    void commandsThatMatter_data();
    void commandsThatMatter();

private:
    /// Keeps the server running, which would otherwise end with each window.
    std::shared_ptr<Connection> m_server;
};

void TestWhileRetrieving::everyHarmlessCommand()
{
    const QByteArray path = qgetenv("PATH");
    ProgramFixture program(sandbox);
    program.run(u"select * from sales"_s);
    qputenv("PATH", "/nowhere"); // no browser is to come up
    MessageAnswers messages;
    DialogCloser dialogs;
    QList<UserAction> actions = harmlessActions();
    QTimer user;
    connect(&user, &QTimer::timeout, &user, [&] {
        if (actions.isEmpty() || QApplication::activeModalWidget() != nullptr)
            return;
        QApplication::setActiveWindow(&program.frame());
        program.text()->setFocus();
        const UserAction action = actions.takeFirst();
        action(program);
    });
    user.start(1);
    program.press(u"Toolbar1"_s, 2);
    qputenv("PATH", path);
    QCOMPARE(actions.size(), 0);
    QCOMPARE(shownRows(program), 100000);
    QCOMPARE(dialogs.names.join(u' '), u"frmExport dlgColor frmObject frmObjectColumn "
                                       "frmSQLHistory dlgOpen dlgSave EditorPageSetupDialog"_s);
    QCOMPARE(dialogs.nameless.join(u' '), QString());
    QCOMPARE(messages.texts.join(u'|'),
             u"File not found|Cancel was selected.|File not found|File not found"_s);
    QCOMPARE(program.ends, (std::vector<int>{0, 0}));
    QCOMPARE(mousePointer(), MousePointer::Default);
}

void TestWhileRetrieving::commandsThatMatter_data()
{
    // The rows are those at the end; 0 means that no window is left, -1 some rows.
    const DataRows<qint64, UserAction> row("rows", "command");
    row("retrieve all again", 30000, presses(u"Toolbar1"_s, 2));
    row("next set", 30000, presses(u"Toolbar1"_s, 1));
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

void TestWhileRetrieving::commandsThatMatter()
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
    program.press(u"Toolbar1"_s, 2);
    QVERIFY(commanded);
    QVERIFY2(messages.texts.isEmpty(), qPrintable(messages.texts.join(u'|')));
    if (rows == 0) {
        QTRY_VERIFY(program.editor() == nullptr);
        QVERIFY(!gConnection);
        return;
    }
    const qint64 shown = shownRows(program);
    QVERIFY(rows < 0 ? shown >= 25 && shown < 30000 : shown == rows);
    program.run(u"select count(*) from dept"_s);
    QCOMPARE(program.cell(0, 0), u"4"_s);
}

QTEST_MAIN(TestWhileRetrieving)
#include "tst_whileretrieving.moc"
