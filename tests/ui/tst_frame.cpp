#include "app/FrameCommands.h"
#include "app/MDIFormQuerna.h"
#include "app/startUp.h"
#include "connection/frmQuernaLogin.h"
#include "connection/session.h"
#include "controls/EditorControl.h"
#include "editor/frmQuerna.h"
#include "platform/settings.h"
#include "support/testFiles.h"
#include "uisupport/ModalAnswers.h"
#include "uisupport/ProgramFixture.h"

#include <QAction>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QFontDialog>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

QString setting(const QString &key)
{
    return getSetting(u"Orbek Oracle"_s, u"Settings"_s, key);
}

frmQuernaLogin *loginOf(MDIFormQuerna &frame)
{
    return frame.findChild<frmQuernaLogin *>(u"frmQuernaLogin"_s);
}

void enter(QWidget *form, const QString &name, const QString &text)
{
    auto *box = form->findChild<QLineEdit *>(name);
    box->clear();
    QTest::keyClicks(box, text);
}

void click(QWidget *form, const QString &name)
{
    auto *button = form->findChild<QAbstractButton *>(name);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}

QString menuTree(const QMenuBar &menuBar)
{
    QString tree;
    for (const QAction *top : menuBar.actions()) {
        const QMenu *menu = top->menu();
        tree += menu->objectName() + u' ' + top->text() + u'\n';
        for (const QAction *item : menu->actions()) {
            tree += u"  "_s + item->objectName();
            if (!item->isSeparator())
                tree += u' ' + item->text() + u' ' + item->shortcut().toString();
            tree += u'\n';
        }
    }
    return tree;
}

} // namespace

class TestFrame : public QObject
{
    Q_OBJECT
private slots:
    void emptyCommandLineShowsLogin_data();
    void emptyCommandLineShowsLogin();
    void commandLineOpensTheSession();
    void commandLineThatFailsEndsInSilence();
    void menusStandInOrder();
    void toolbarsStandInOrder();
    void dividerFollowsTheMouse();
    void recordLimitIsShown();
    void loginPrivilegesChooseTheDriver();
    void loginKeepsEntriesThoughItFails();
    void loginOnADataSource();
    void closingTheWindowClosesTheConnection();
    void undoWithoutAWindowEndsTheProgram();
    void clipboardCommands();
    void saveAndOpen();
    void saveThatCannotWrite();
    void fontCommand();
};

void TestFrame::emptyCommandLineShowsLogin_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::newRow("nothing") << QString();
    QTest::newRow("blanks and quotes") << u" \" \"\"  "_s;
}

void TestFrame::emptyCommandLineShowsLogin()
{
    QFETCH(QString, commandLine);
    ProgramFixture program;
    program.start(commandLine);
    QVERIFY(program.frame().isVisible());
    QVERIFY(loginOf(program.frame())->isVisible());
    QVERIFY(!loginOf(program.frame())->isModal());
    QVERIFY(program.editor() == nullptr);
    QVERIFY(!gConnection);
    click(loginOf(program.frame()), u"cmdCancel"_s);
    QVERIFY(program.editor() == nullptr);
    QVERIFY(program.ends.empty());
}

void TestFrame::commandLineOpensTheSession()
{
    ProgramFixture program;
    const QString connection = sqliteConnectionString(program.folder());
    program.start(u"\"%1\""_s.arg(connection));
    QCOMPARE(gConnectString, connection);
    QCOMPARE(gUserName, u"scott"_s);
    QCOMPARE(gTnsName, u"dwh"_s);
    QCOMPARE(gConnection->State(), adStateOpen);
    QCOMPARE(program.editor()->windowTitle(), u"SCOTT@DWH - SQL Editor: ..."_s);
    QCOMPARE(maxRecords, 100);
    program.text()->setText(u"  select 1 from a_table_with_a_long_name "_s);
    program.editor()->Form_Activate();
    QCOMPARE(program.editor()->windowTitle(),
             u"SCOTT@DWH - SQL Editor: select 1 from a_table_with_a_l..."_s);
    QCOMPARE(program.text()->ScratchFile(), program.folder() + u"/dummy.sql"_s);
    QCOMPARE(program.text()->Text(), u"  select 1 from a_table_with_a_long_name "_s);
}

void TestFrame::commandLineThatFailsEndsInSilence()
{
    ProgramFixture program;
    MessageAnswers messages;
    program.start(u"Provider=NoSuchProvider;Data Source=X;User ID=a;Password=b"_s);
    QCOMPARE(program.ends.size(), size_t{1});
    QVERIFY(messages.texts.isEmpty());
    QVERIFY(program.editor() == nullptr);
}

void TestFrame::menusStandInOrder()
{
    ProgramFixture program;
    QCOMPARE(menuTree(*program.frame().menuBar()), uR"(mnuFile &File
  mnuOrbekSqlEditor New Window Ctrl+N
  mnuOpen &Open Ctrl+O
  mnuSave &Save Ctrl+S
  mnuPrint &Print Ctrl+P
  mnuSep1
  mnuExit &Exit Ctrl+W
mnuEdit &Edit
  mnuUndo Undo Ctrl+Z
  mnuRedo Redo Ctrl+Y
  mnuCut Cut 
  mnuCopy Copy Ctrl+C
  mnuPaste Paste 
  mnuSep2
  mnuSelectAll Select All Ctrl+A
  mnuDelete Delete 
  mnuFind Find Ctrl+F
  mnuReplace Replace Ctrl+H
mnuConnection &Connection
  mnuChangeConnection Change Connection 
mnuorbekusergroup Orbek User Group
  mnuJoinOrbekUserGroup Join 
  mnuMessageOrbekUserGroup Messages 
)"_s);
}

void TestFrame::toolbarsStandInOrder()
{
    ProgramFixture program;
    program.start(sqliteConnectionString(program.folder()));
    const auto toolTips = [&](const QString &name) {
        QStringList tips;
        for (const QAction *action : program.editor()->findChild<QToolBar *>(name)->actions())
            tips += action->isSeparator() ? u"-"_s : action->toolTip();
        return tips.join(u'|');
    };
    QCOMPARE(toolTips(u"tbrQuerna"_s),
             u"Run sql statement|Run as a script|Export data|-|Background color|Commit|Rollback|"
             "Uppe case|Lower case|Initcap|Comment text|Uncomment text|Undo|Redo|-|"
             "Display Schema and Tables|Display Schema, Tables and Columns|"
             "Recall history of SQL statements|-|Exit Sql Editor"_s);
    QCOMPARE(toolTips(u"Toolbar1"_s), u"Retrieve next set of records|Retrieve all records|"
                                      "Stop retrieval of all records"_s);
}

void TestFrame::dividerFollowsTheMouse()
{
    ProgramFixture program;
    program.start(sqliteConnectionString(program.folder()));
    frmQuerna *window = program.editor();
    const auto drag = [&](QPoint from, int to) {
        QWidget *pressed = window->childAt(from);
        pressed = pressed == nullptr ? window : pressed;
        QTest::mousePress(pressed, Qt::LeftButton, {}, pressed->mapFrom(window, from));
        QTest::mouseMove(pressed, pressed->mapFrom(window, QPoint(from.x(), to)));
        QTest::mouseRelease(pressed, Qt::LeftButton, {}, pressed->mapFrom(window, from));
        return qRound(100.0 * program.text()->height() / window->height());
    };
    const auto strip = [&] { return QPoint(200, program.text()->geometry().bottom() + 2); };
    QCOMPARE(drag(strip(), window->height() / 4), 25);
    QCOMPARE(drag(strip(), 0), 5);
    QCOMPARE(drag(strip(), window->height()), 80);
    // Neither an empty stretch of the toolbar nor the status bar moves it.
    QCOMPARE(drag(QPoint(window->width() - 5, 5), 200), 80);
    QCOMPARE(drag(QPoint(200, window->height() - 10), 200), 80);

    const QRect laidOut = program.text()->geometry();
    window->resize(laidOut.width(), 132);
    window->resize(132, laidOut.height());
    QCOMPARE(program.text()->geometry(), laidOut);
}

void TestFrame::recordLimitIsShown()
{
    ProgramFixture program;
    program.start(sqliteConnectionString(program.folder()));
    for (const auto &[limit, shown] :
         {std::pair(10000, u"Records: 10000"_s), std::pair(10001, u"All records"_s),
          std::pair(0, u"All records"_s), std::pair(-5, u"Records: -5"_s)}) {
        program.editor()->setMaxRec(static_cast<qint16>(limit));
        program.editor()->showRecordLimit();
        QCOMPARE(program.panel(4), shown);
    }
}

void TestFrame::loginPrivilegesChooseTheDriver()
{
    ProgramFixture program;
    program.start({});
    QWidget *login = loginOf(program.frame());
    const auto option = [&](const QString &name) { return login->findChild<QRadioButton *>(name); };
    QVERIFY(option(u"optPrefConn_0"_s)->isChecked());
    QVERIFY(option(u"optSYS_0"_s)->isChecked());
    click(login, u"optPrefConn_1"_s);
    click(login, u"optSYS_2"_s);
    QVERIFY(option(u"optPrefConn_2"_s)->isChecked());
    QVERIFY(!option(u"optPrefConn_0"_s)->isEnabled());
    QVERIFY(!option(u"optPrefConn_1"_s)->isEnabled());
    QVERIFY(option(u"optPrefConn_2"_s)->isEnabled());
    click(login, u"optSYS_0"_s);
    QVERIFY(option(u"optPrefConn_0"_s)->isChecked());
    QVERIFY(option(u"optPrefConn_1"_s)->isEnabled());
}

void TestFrame::loginKeepsEntriesThoughItFails()
{
    ProgramFixture program;
    program.start({});
    QWidget *login = loginOf(program.frame());
    // A store without values empties the boxes.
    QCOMPARE(login->findChild<QLineEdit *>(u"txtUserName"_s)->text(), QString());
    enter(login, u"txtUserName"_s, u"scott"_s);
    enter(login, u"txtPassword"_s, u"no tiger"_s);
    enter(login, u"txtDb"_s, u"nowhere"_s);
    click(login, u"optPrefConn_2"_s);
    MessageAnswers messages;
    click(login, u"cmdOK"_s);
    QCOMPARE(messages.texts.size(), 1);
    QVERIFY(!messages.texts.first().contains(u"no tiger"_s));
    QCOMPARE(messages.titles.first(), u"Orbek SQL Editor"_s);
    QCOMPARE(setting(u"Login"_s), u"scott"_s);
    QCOMPARE(setting(u"Password"_s), u"no tiger"_s);
    QCOMPARE(setting(u"Database"_s), u"nowhere"_s);
    QVERIFY(gConnectString.isEmpty());
    QVERIFY(program.editor()->isVisible());
    QCOMPARE(program.editor()->windowTitle(), u"SCOTT@NOWHERE - SQL Editor: ..."_s);
    // Its commands then fail by themselves.
    program.run(u"select 1"_s);
    QCOMPARE(messages.texts.size(), 2);
}

void TestFrame::loginOnADataSource()
{
    ProgramFixture program;
    const QString odbcIni = program.folder() + u"/odbc.ini"_s;
    makeFile(odbcIni,
             "[practice]\nDriver=SQLite3\nDatabase=" + program.folder().toUtf8() + "/dsn.db\n");
    qputenv("ODBCINI", QFile::encodeName(odbcIni));

    program.start({});
    QWidget *login = loginOf(program.frame());
    enter(login, u"txtUserName"_s, u"Ann"_s);
    enter(login, u"txtDb"_s, u"practice"_s);
    click(login, u"optPrefConn_2"_s);
    MessageAnswers messages;
    QTest::keyClick(login, Qt::Key_Return);
    QVERIFY2(messages.texts.isEmpty(), qPrintable(messages.texts.join(u'|')));
    QCOMPARE(gConnectString, u"DSN=practice;ChunkSize=65535;Uid=Ann;Pwd="_s);
    program.run(u"select 42 as answer"_s);
    QCOMPARE(program.panel(4), u"Records Retrieved: 1"_s);

    // Changing the connection keeps window and text.
    program.menuItem(u"mnuChangeConnection"_s)->trigger();
    login = loginOf(program.frame());
    enter(login, u"txtUserName"_s, u"Bob"_s);
    click(login, u"optPrefConn_2"_s);
    click(login, u"cmdOK"_s);
    QCOMPARE(program.editor()->windowTitle(),
             u"BOB@PRACTICE - SQL Editor: select 42 as answer..."_s);
    QCOMPARE(gConnection->State(), adStateOpen);
    qunsetenv("ODBCINI");
}

void TestFrame::closingTheWindowClosesTheConnection()
{
    ProgramFixture program;
    program.start(sqliteConnectionString(program.folder()));
    const std::shared_ptr<Connection> held = gConnection;
    program.editor()->parentWidget()->close();
    QVERIFY(!gConnection);
    QCOMPARE(held->State(), adStateClosed);
    QTRY_VERIFY(program.editor() == nullptr);
    program.menuItem(u"mnuChangeConnection"_s)->trigger();
    QVERIFY(loginOf(program.frame())->isVisible());
}

void TestFrame::undoWithoutAWindowEndsTheProgram()
{
    ProgramFixture program;
    program.start({});
    MessageAnswers messages;
    program.menuItem(u"mnuUndo"_s)->trigger();
    QCOMPARE(messages.texts, QStringList(u"Object variable or With block variable not set"_s));
    QCOMPARE(program.ends.size(), size_t{1});
    for (const char *item : {"mnuOpen", "mnuSave", "mnuPrint", "mnuFind", "mnuCut"})
        program.menuItem(QString::fromLatin1(item))->trigger();
    QCOMPARE(program.ends.size(), size_t{1});
    QCOMPARE(messages.texts.size(), 1);
}

void TestFrame::clipboardCommands()
{
    ProgramFixture program;
    program.start(sqliteConnectionString(program.folder()));
    QClipboard *clipboard = QGuiApplication::clipboard();
    EditorControl *text = program.text();
    clipboard->setText(u"before"_s);
    text->setText(u"abc def"_s);
    text->setSelStart(0);
    program.menuItem(u"mnuCopy"_s)->trigger();
    QCOMPARE(clipboard->text(), u"before"_s);
    text->setSelLength(3);
    program.menuItem(u"mnuSelectAll"_s)->trigger();
    QCOMPARE(text->SelText(), u"abc"_s);
    program.menuItem(u"mnuCopy"_s)->trigger();
    QCOMPARE(clipboard->text(), u"abc"_s);
    text->setReadOnly(true);
    for (const char *item : {"mnuCut", "mnuPaste", "mnuDelete"})
        program.menuItem(QString::fromLatin1(item))->trigger();
    QCOMPARE(text->Text(), u"abc def"_s);
    text->setReadOnly(false);
    program.menuItem(u"mnuCut"_s)->trigger();
    QCOMPARE(text->Text(), u" def"_s);
    program.menuItem(u"mnuPaste"_s)->trigger();
    QCOMPARE(text->Text(), u"abc def"_s);

    auto *box = program.editor()->findChild<QLineEdit *>(u"txtBufferSize"_s);
    program.editor()->findChild<QTabWidget *>(u"tbSql"_s)->setCurrentIndex(2);
    box->setFocus();
    box->setSelection(0, 2);
    program.menuItem(u"mnuCut"_s)->trigger();
    QCOMPARE(box->text(), u"000"_s);
    QCOMPARE(clipboard->text(), u"20"_s);
}

void TestFrame::saveAndOpen()
{
    ProgramFixture program;
    program.start(sqliteConnectionString(program.folder()));
    const QString path = program.folder() + u"/a.sql"_s;
    program.text()->setText(u"first\nsecond"_s);
    answerFileDialog(path);
    program.menuItem(u"mnuSave"_s)->trigger();
    QCOMPARE(contentOf(path), QByteArray("first\r\nsecond\r\n"));

    program.text()->setText(u"other"_s);
    {
        MessageAnswers no(u"No"_s);
        answerFileDialog(path);
        program.menuItem(u"mnuSave"_s)->trigger();
        QCOMPARE(no.texts, QStringList(u"File Exists - Do you want to overwrite the file?"_s));
    }
    QCOMPARE(contentOf(path), QByteArray("first\r\nsecond\r\n"));
    {
        MessageAnswers yes(u"Yes"_s);
        answerFileDialog(path);
        program.menuItem(u"mnuSave"_s)->trigger();
    }
    QCOMPARE(contentOf(path), QByteArray("other\r\n"));

    MessageAnswers messages;
    answerFileDialog({});
    program.menuItem(u"mnuSave"_s)->trigger();
    QCOMPARE(messages.texts, QStringList(u"Cancel was selected."_s));

    program.text()->setText(u"kept"_s);
    answerFileDialog({});
    program.menuItem(u"mnuOpen"_s)->trigger();
    QCOMPARE(program.text()->Text(), u"kept"_s);
    answerFileDialog(path);
    program.menuItem(u"mnuOpen"_s)->trigger();
    QCOMPARE(program.text()->Text(), u"other\r\n"_s);
    QVERIFY(program.ends.empty());
}

void TestFrame::saveThatCannotWrite()
{
    ProgramFixture program;
    program.start(sqliteConnectionString(program.folder()));
    program.text()->setText(u"text"_s);
    MessageAnswers messages;
    answerFileDialog(program.folder() + u"/no such folder/a.sql"_s);
    program.menuItem(u"mnuSave"_s)->trigger();
    QCOMPARE(messages.texts, QStringList(u"Path not found"_s));
    QCOMPARE(program.text()->Text(), u"text"_s);
}

void TestFrame::fontCommand()
{
    ProgramFixture program;
    program.start(sqliteConnectionString(program.folder()));
    FrameCommands commands(program.frame());
    EditorControl *text = program.text();
    text->setText(u"plain heavy"_s);
    text->setSelStart(6);
    text->setSelLength(5);
    const auto look = [text](int position) {
        using Sci = QsciScintillaBase;
        const auto style = text->SendScintilla(Sci::SCI_GETSTYLEAT, position);
        return std::pair(text->SendScintilla(Sci::SCI_STYLEGETBOLD, style) != 0,
                         text->SendScintilla(Sci::SCI_STYLEGETSIZE, style));
    };
    const QString family = text->Font().family();
    const auto before = look(6);

    const auto choose = [](const QFont &font, Qt::Key end) {
        whenModal([=](QWidget *window) {
            QCOMPARE(window->windowTitle(), u"Choose a font"_s);
            auto *fonts = window->findChild<QFontDialog *>();
            fonts->setCurrentFont(font);
            QTest::keyClick(fonts, end);
        });
    };
    QFont heavy(u"DejaVu Sans Mono"_s, 17, QFont::Bold);
    choose(heavy, Qt::Key_Escape);
    commands.mnuFont_Click();
    QCOMPARE(text->Font().family(), family);
    QCOMPARE(look(6), before);

    choose(heavy, Qt::Key_Return);
    commands.mnuFont_Click();
    QCOMPARE(text->Font().family(), heavy.family());
    text->grab();
    QCOMPARE(look(6), std::pair(true, 17L));
    QCOMPARE(look(0), before);
    QVERIFY(program.ends.empty());
}

QTEST_MAIN(TestFrame)
#include "tst_frame.moc"
