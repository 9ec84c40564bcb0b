#include "app/FrameCommands.h"
#include "connection/frmQuernaLogin.h"
#include "editor/windowLook.h"
#include "uisupport/ProgramFixture.h"

namespace {

frmQuernaLogin *loginOf(MDIFormQuerna &frame)
{
    return frame.findChild<frmQuernaLogin *>(u"frmQuernaLogin"_s);
}

#ifdef Q_OS_WIN
const QStringList settingsFile; // the registry is none
#else
const QStringList settingsFile{u"Orbek Oracle.ini"_s};
#endif

/// The places where a text can be seen: titles, labels, and files below @p folder.
QStringList placesOf(const QString &text, const QString &folder)
{
    QStringList places;
    for (const QWidget *widget : QApplication::allWidgets()) {
        const auto *label = qobject_cast<const QLabel *>(widget);
        if (widget->windowTitle().contains(text) || (label && label->text().contains(text)))
            places += widget->objectName();
    }
    QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        if (contentOf(files.next()).contains(text.toUtf8()))
            places += files.fileName();
    }
    return places;
}

/// Every menu with its items and their keys.
QStringList menusOf(const QMenuBar &menuBar)
{
    QStringList menus;
    for (const QAction *top : menuBar.actions()) {
        QStringList items;
        for (const QAction *item : top->menu()->actions())
            items += QString(item->text() + u' ' + item->shortcut().toString()).trimmed();
        menus += top->text() + u": "_s + items.join(u", "_s);
    }
    return menus;
}

} // namespace

class TestFrame : public QObject
{
    Q_OBJECT
private slots:
    void emptyCommandLineShowsLogin();
    void commandLineOpensTheSession();
    void menusAndToolbarsStandInOrder();
    void clicksLeaveTheFocus();
    void childWindowKeepsItsSize();
    void passwordLeavesTheProcessList();
    void dividerFollowsTheMouse();
    void panesAreLaidOutInTwips();
    void recordLimitIsShown();
    void loginKeepsEntriesThoughItFails();
    void withoutAWindow();
    void clipboardCommands();
    void saveAndOpen();
    void fontCommand();
    void textsOfWindowsThatEndedUnexpectedly();
};

// Of blanks and quotes there is nothing left.
void TestFrame::emptyCommandLineShowsLogin()
{
    ProgramFixture program(u" \" \"\"  "_s);
    QVERIFY(program.frame().isVisible());
    frmQuernaLogin *login = loginOf(program.frame());
    QVERIFY(login->isVisible());
    QVERIFY(!login->isModal());
    QVERIFY(!gConnection);
    const auto option = [&](const QString &name) { return login->findChild<QRadioButton *>(name); };
    const auto press = [&](Qt::Key key) { QTest::keyClick(login, key, Qt::AltModifier); };
    QApplication::setActiveWindow(login);
    press(Qt::Key_D);
    QTest::keyClicks(login->focusWidget(), u"elsewhere"_s);
    QCOMPARE(login->findChild<QLineEdit *>(u"txtDb"_s)->text(), u"elsewhere"_s);

    // A SYS privilege leaves one driver to choose.
    click(*login, u"optPrefConn_1"_s);
    press(Qt::Key_Y);
    QTRY_VERIFY(option(u"optSYS_2"_s)->isChecked());
    QVERIFY(option(u"optPrefConn_2"_s)->isChecked());
    QVERIFY(!option(u"optPrefConn_0"_s)->isEnabled() && !option(u"optPrefConn_1"_s)->isEnabled());
    QVERIFY(option(u"optPrefConn_2"_s)->isEnabled());
    click(*login, u"optSYS_0"_s);
    QVERIFY(option(u"optPrefConn_0"_s)->isChecked() && option(u"optPrefConn_1"_s)->isEnabled());
    click(*login, u"optSYS_1"_s);

    // Left, it is loaded afresh, and may be used again before anything else has happened.
    QTest::keyClick(login, Qt::Key_Escape);
    QVERIFY(program.editor() == nullptr);
    program.menuItem(u"mnuChangeConnection"_s)->trigger();
    login = loginOf(program.frame());
    QCOMPARE(login->findChild<QLineEdit *>(u"txtDb"_s)->text(), QString());
    QVERIFY(option(u"optSYS_0"_s)->isChecked() && option(u"optPrefConn_0"_s)->isEnabled());
    const MessageAnswers messages;
    program.logOn({}, {}, u"nowhere"_s);
    QCOMPARE(messages.texts.size(), 1);
    QVERIFY(program.ends.empty());
}

// One that fails ends the program in silence.
void TestFrame::commandLineOpensTheSession()
{
    {
        const MessageAnswers messages;
        const ProgramFixture failing(u"Provider=NoSuchProvider;Data Source=X;User ID=a;"_s);
        QCOMPARE(failing.ends.size(), size_t{1});
        QVERIFY(messages.texts.isEmpty() && failing.editor() == nullptr);
    }
    {
        // A connection string need not name user and database to the program.
        const ProgramFixture nameless(u"DRIVER=SQLite3;Database=:memory:"_s);
        QCOMPARE(nameless.editor()->windowTitle(), u"@ - SQL Editor: ..."_s);
    }
    ProgramFixture program(u"\"%1\""_s.arg(sqlite));
    QCOMPARE(gConnectString, sqlite);
    QCOMPARE(gUserName, u"scott"_s);
    QCOMPARE(gTnsName, u"dwh"_s);
    QCOMPARE(gConnection->State(), adStateOpen);
    QCOMPARE(maxRecords, 100);
    QCOMPARE(program.editor()->windowTitle(), u"SCOTT@DWH - SQL Editor: ..."_s);
    // The caption tells of the text whenever the window becomes the active one again. What a title
    // bar cannot show is a blank there, and nothing in it is taken as a mark.
    QWidget other;
    other.show();
    for (const auto &[text, shown, title] :
         {std::tuple(u"  select 1 from a_table_with_a_long_name "_s,
                     u"select 1 from a_table_with_a_l"_s, u"select 1 from a_table_with_a_l"_s),
          std::tuple(u"\ta\r\nb[*]"_s, u"\ta\r\nb[*]"_s, u" a  b[*]"_s)}) {
        program.text()->setText(text);
        QApplication::setActiveWindow(&other);
        QApplication::setActiveWindow(&program.frame());
        const QString caption = u"SCOTT@DWH - SQL Editor: %1..."_s;
        QCOMPARE(program.editor()->windowTitle(), caption.arg(shown));
        QCOMPARE(program.frame().windowHandle()->title(),
                 u"Orbek SQL Editor - [%1]"_s.arg(caption.arg(title)));
    }
    QCOMPARE(program.text()->ScratchFile(),
             QDir::toNativeSeparators(program.folder() + u"/dummy.sql"_s));
}

void TestFrame::menusAndToolbarsStandInOrder()
{
    ProgramFixture program(sqlite);
    QCOMPARE(menusOf(*program.frame().menuBar()),
             QStringList(
                 {u"&File: New Window Ctrl+N, &Open Ctrl+O, &Save Ctrl+S, &Print Ctrl+P, , "
                  "&Exit Ctrl+W"_s,
                  u"&Edit: Undo Ctrl+Z, Redo Ctrl+Y, Cut, Copy Ctrl+C, Paste, , Select All Ctrl+A, "
                  "Delete, Find Ctrl+F, Replace Ctrl+H"_s,
                  u"&Connection: Change Connection"_s, u"Orbek User Group: Join, Messages"_s}));
    const auto toolTips = [&](const QString &name) {
        QStringList tips;
        for (const QAction *action : program.control<QToolBar>(name)->actions())
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

    // Editor and grid have some of these keys themselves.
    program.control<QTabWidget>(u"tbSql"_s)->setFocus();
    for (QAction *item : program.frame().menuBar()->findChildren<QAction *>()) {
        if (item->shortcut().isEmpty())
            continue;
        int reached = 0;
        item->disconnect(SIGNAL(triggered(bool)));
        connect(item, &QAction::triggered, this, [&] { ++reached; });
        const QKeyCombination key = item->shortcut()[0];
        QTest::keyClick(QApplication::focusWidget(), key.key(), key.keyboardModifiers());
        QVERIFY2(reached == 1, qPrintable(item->objectName()));
    }
}

// The grid, a pane or a box goes on with what it was doing.
void TestFrame::clicksLeaveTheFocus()
{
    ProgramFixture program(sqlite);
    program.run(u"select 1 union select 2"_s);
    QVERIFY(program.text()->hasFocus());
    program.grid()->setFocus();
    program.press(u"Toolbar1"_s, 1);
    QVERIFY(program.grid()->hasFocus());
    program.control<QTabWidget>(u"tbSql"_s)->setCurrentIndex(2);
    auto *box = program.control<QLineEdit>(u"txtBufferSize"_s);
    box->setFocus();
    program.press(u"tbrQuerna"_s, 18); // the history, only from the editor
    QVERIFY(box->hasFocus());
}

void TestFrame::childWindowKeepsItsSize()
{
    ProgramFixture program(sqlite);
    QWidget *window = program.editor()->parentWidget();
    QVERIFY(window->isMaximized());
    window->showNormal();
    QCOMPARE(window->size(), QSize(1024, 654));
    window->resize(700, 500);
    const MessageAnswers messages;
    program.logOn(u"Bob"_s, {}, u"nowhere"_s);
    QCOMPARE(window->size(), QSize(700, 500));

    const QSize room = program.frame().screen()->availableSize() - program.frame().size();
    QVERIFY(room.height() >= program.frame().style()->pixelMetric(QStyle::PM_TitleBarHeight));
}

void TestFrame::passwordLeavesTheProcessList()
{
#ifndef Q_OS_UNIX
    QSKIP("Nothing but Windows itself can change what it shows of a process.");
#endif
    const QTemporaryDir folder;
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_CONFIG_HOME"_s, folder.path());
    process.setProcessEnvironment(environment);
    const QString database = folder.filePath(u"used.db"_s);
    process.start(QStringLiteral(QUERNA_PROGRAM),
                  {u"DRIVER=SQLite3;Database=%1;PWD=open sesame"_s.arg(database)});
    QVERIFY(process.waitForStarted());
    QTRY_VERIFY(QFileInfo::exists(database)); // the arguments have arrived
    const QByteArray shown = contentOf(u"/proc/%1/cmdline"_s.arg(process.processId()));
    QVERIFY2(shown.startsWith(QUERNA_PROGRAM), shown);
    QVERIFY(!shown.contains("sesame"));
    process.kill();
    process.waitForFinished();
}

void TestFrame::dividerFollowsTheMouse()
{
    ProgramFixture program(sqlite);
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

void TestFrame::panesAreLaidOutInTwips()
{
    const PaneLayout panes = layoutPanes(0.5F, {15000, 10000, 600});
    QCOMPARE((QList{panes.width, panes.editorHeight, panes.tabTop, panes.tabHeight, panes.pageWidth,
                    panes.gridHeight, panes.planHeight, panes.outputHeight}),
             (QList{14800, 5000, 5650, 3850, 14700, 2850, 3100, 2725}));
}

void TestFrame::recordLimitIsShown()
{
    ProgramFixture program(sqlite);
    for (const auto &[limit, shown] :
         {std::pair(10000, u"Records: 10000"_s), std::pair(10001, u"All records"_s),
          std::pair(0, u"All records"_s)}) {
        program.editor()->setMaxRec(static_cast<qint16>(limit));
        program.editor()->showRecordLimit();
        QCOMPARE(program.panel(4), shown);
    }
}

// The password is kept in the settings, which their owner alone can read, and shown nowhere.
void TestFrame::loginKeepsEntriesThoughItFails()
{
    const QString password = u"open sesame"_s;
    ProgramFixture program(QString{});
    // A store without values empties the boxes.
    QCOMPARE(program.control<QLineEdit>(u"txtUserName"_s)->text(), QString());
    const MessageAnswers messages;
    program.logOn(u"scott"_s, password, u"nowhere"_s);
    QCOMPARE(messages.texts.size(), 1);
    QStringList kept;
    for (const QString &key : {u"Login"_s, u"Password"_s, u"Database"_s})
        kept += getSetting(u"Orbek Oracle"_s, u"Settings"_s, key);
    QCOMPARE(kept, QStringList({u"scott"_s, password, u"nowhere"_s}));
    QVERIFY(gConnectString.isEmpty());
    QCOMPARE(program.editor()->windowTitle(), u"SCOTT@NOWHERE - SQL Editor: ..."_s);
    // Its commands then fail by themselves.
    program.run(u"select 42 as answer"_s);
    QCOMPARE(messages.texts.size(), 2);

    // Another log-on keeps window and text.
    makeFile(fileInVariable("ODBCINI", program.folder() + u"/odbc.ini"_s),
             "[practice]\nDriver=SQLite3\nDatabase=:memory:\n");
    program.logOn(u"Ann"_s, password, u"practice"_s);
    QCOMPARE(gConnectString, u"DSN=practice;ChunkSize=65535;Uid=Ann;Pwd=open sesame"_s);
    QCOMPARE(program.editor()->windowTitle(),
             u"ANN@PRACTICE - SQL Editor: select 42 as answer..."_s);
    const std::shared_ptr<Connection> before = gConnection;
    program.logOn(u"Bob"_s, password, u"practice"_s);
    QCOMPARE(before->State(), adStateClosed);
    QCOMPARE(gConnection->State(), adStateOpen);
    qunsetenv("ODBCINI");
    QCOMPARE(messages.texts.size(), 2);
    QVERIFY(!messages.texts.join(u'|').contains(password));
    QCOMPARE(placesOf(password, program.folder()), settingsFile);
}

void TestFrame::withoutAWindow()
{
    ProgramFixture program(sqlite);
    const std::shared_ptr<Connection> held = gConnection;
    program.editor()->parentWidget()->close();
    QVERIFY(!gConnection);
    QCOMPARE(held->State(), adStateClosed);
    QTRY_VERIFY(program.editor() == nullptr);

    const MessageAnswers messages;
    for (const char *item : {"mnuOpen", "mnuSave", "mnuPrint", "mnuFind", "mnuCut"})
        program.menuItem(QString::fromLatin1(item))->trigger();
    QVERIFY(program.ends.empty() && messages.texts.isEmpty());
    program.menuItem(u"mnuUndo"_s)->trigger();
    QCOMPARE(messages.texts, QStringList(u"Object variable or With block variable not set"_s));
    QCOMPARE(program.ends.size(), size_t{1});
    program.menuItem(u"mnuChangeConnection"_s)->trigger();
    QVERIFY(loginOf(program.frame())->isVisible());
}

void TestFrame::clipboardCommands()
{
    ProgramFixture program(sqlite);
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

    auto *box = program.control<QLineEdit>(u"txtBufferSize"_s);
    program.control<QTabWidget>(u"tbSql"_s)->setCurrentIndex(2);
    box->setFocus();
    box->setSelection(0, 2);
    program.menuItem(u"mnuCut"_s)->trigger();
    QCOMPARE(box->text(), u"000"_s);
    QCOMPARE(clipboard->text(), u"20"_s);
}

void TestFrame::saveAndOpen()
{
    ProgramFixture program(sqlite);
    const QString path = program.folder() + u"/a.sql"_s;
    const auto saying = [&](const QString &item, const QString &file,
                            const QString &answer = u"OK"_s) {
        const MessageAnswers messages(answer);
        answerFileDialog(file);
        program.menuItem(item)->trigger();
        return messages.texts.join(u'|');
    };
    const QString question = u"File Exists - Do you want to overwrite the file?"_s;
    program.text()->setText(u"first\nsecond"_s);
    QCOMPARE(saying(u"mnuSave"_s, path), QString());
    QCOMPARE(contentOf(path), "first\r\nsecond\r\n");
    program.text()->setText(u"other"_s);
    QCOMPARE(saying(u"mnuSave"_s, path, u"No"_s), question);
    QCOMPARE(contentOf(path), "first\r\nsecond\r\n");
    QCOMPARE(saying(u"mnuSave"_s, path, u"Yes"_s), question);
    QCOMPARE(contentOf(path), "other\r\n");
    QCOMPARE(saying(u"mnuSave"_s, {}), u"Cancel was selected."_s);

    program.text()->setText(u"kept"_s);
    QCOMPARE(saying(u"mnuOpen"_s, {}), QString());
    QCOMPARE(program.text()->Text(), u"kept"_s);
    QCOMPARE(saying(u"mnuOpen"_s, path), QString());
    QCOMPARE(program.text()->Text(), u"other\r\n"_s);

    QString offered;
    whenModal([&offered](QWidget *dialog) {
        offered = qobject_cast<QFileDialog *>(dialog)->selectedFiles().value(0);
        dialog->close();
    });
    const MessageAnswers messages;
    program.menuItem(u"mnuSave"_s)->trigger();
    QCOMPARE(offered, path);
    QVERIFY(program.ends.empty());
}

void TestFrame::fontCommand()
{
    ProgramFixture program(sqlite);
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
    const QFont heavy(u"DejaVu Sans Mono"_s, 17, QFont::Bold);
    for (const Qt::Key end : {Qt::Key_Escape, Qt::Key_Return}) {
        whenModal([=](QWidget *window) {
            QCOMPARE(window->windowTitle(), u"Choose a font"_s);
            auto *fonts = qobject_cast<QFontDialog *>(window);
            fonts->setCurrentFont(heavy);
            QTest::keyClick(fonts, end);
        });
        commands.mnuFont_Click();
        text->grab();
        QCOMPARE(text->Font().family(), end == Qt::Key_Escape ? family : heavy.family());
        QCOMPARE(look(6), end == Qt::Key_Escape ? before : std::pair(true, 17L));
        QCOMPARE(look(0), before);
    }
    QVERIFY(program.ends.empty());
}

/// Each is offered above the editor, and what is typed from then on is kept, too.
void TestFrame::textsOfWindowsThatEndedUnexpectedly()
{
    ProgramFixture program;
    const QDir kept(program.folder() + u"/state/Querna"_s);
    QVERIFY(kept.mkpath(u"."_s));
    makeFile(kept.filePath(u"1.sql"_s), "select 1");
    makeFile(kept.filePath(u"2.sql"_s), "select 1");
    program.start(sqlite);
    const auto *bar = program.control<QToolBar>(u"tbrRecovery"_s);
    QVERIFY(bar->isVisible());
    program.text()->setText(u"mine"_s);

    bar->findChild<QAction *>(u"tbrRecovery_Restore"_s)->trigger();
    QCOMPARE(program.text()->Text(), u"mine\r\nselect 1"_s);
    QCOMPARE(kept.entryList({u"*.sql"_s}).size(), 2); // the window's own and the other one
    QVERIFY(bar->isVisible());
    bar->findChild<QAction *>(u"tbrRecovery_Discard"_s)->trigger();
    QVERIFY(!bar->isVisible());
    program.text()->ExecuteCommand(EditorControl::CommandUndo);
    QCOMPARE(program.text()->Text(), u"mine"_s);
    QTRY_COMPARE(contentOf(kept.filePath(kept.entryList({u"*.sql"_s}).value(0))), "mine");
    program.frame().close();
    QTRY_COMPARE(kept.entryList({u"*.sql"_s}).size(), 0);
}

QTEST_MAIN(TestFrame)
#include "tst_frame.moc"
