#include "app/MDIFormQuerna.h"
#include "connection/session.h"
#include "dataaccess/Recordset.h"
#include "editor/frmQuerna.h"
#include "support/DataRows.h"
#include "support/SandboxFixture.h"
#include "uisupport/ModalAnswers.h"
#include "uisupport/ProgramFixture.h"

#include <QTest>
#include <QTimer>

#include <functional>

using namespace Qt::StringLiterals;

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
    void commands_data();
    void commands();

private:
    /// Keeps the server running, which would otherwise end with each window.
    std::shared_ptr<Connection> m_server;
};

void TestWhileRetrieving::commands_data()
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

void TestWhileRetrieving::commands()
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
