#include "uisupport/ProgramFixture.h"

namespace {

void drop(const QString &path, EditorControl &editor)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(QPoint(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(editor.viewport(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event(QPointF(1, 1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(editor.viewport(), &event);
}

} // namespace

/// What people take for granted in any program, in the real window.
class tst_habits : public QObject
{
    Q_OBJECT
private slots:
    void keys_data();
    void keys();
    void paneKeys();
    void controlsTellWhatTheyAre();
    void frameAndZoomAreKept();
    void otherProgramsAreStarted();
    void droppedFileIsOpened();
};

void tst_habits::keys_data()
{
    const DataRows<QKeyCombination, QString> row("key", "result");
    const QString unchanged = u"--aB c"_s;
    row("F5", QKeyCombination(Qt::Key_F5), unchanged);
    row("Ctrl+Return", QKeyCombination(Qt::CTRL | Qt::Key_Return), unchanged);
    row("Ctrl+Enter", QKeyCombination(Qt::ControlModifier | Qt::KeypadModifier, Qt::Key_Enter),
        unchanged);
    row("upper case", QKeyCombination(Qt::CTRL | Qt::SHIFT, Qt::Key_U), u"--AB C"_s);
    row("upper case, beside input methods", QKeyCombination(Qt::CTRL | Qt::SHIFT, Qt::Key_X),
        u"--AB C"_s);
    row("lower case", QKeyCombination(Qt::CTRL, Qt::Key_U), u"--ab c"_s);
    row("initials", QKeyCombination(Qt::CTRL, Qt::Key_I), u"--ab C"_s);
    row("comment", QKeyCombination(Qt::CTRL, Qt::Key_K), u"----aB c"_s);
    row("uncomment", QKeyCombination(Qt::CTRL | Qt::SHIFT, Qt::Key_K), u"aB c"_s);
}

void tst_habits::keys()
{
    QFETCH(QKeyCombination, key);
    QFETCH(QString, result);
    ProgramFixture program(sqlite);
    program.text()->setText(u"--aB c"_s);
    program.text()->setSelLength(6);
    QTest::keyClick(program.text(), key.key(), key.keyboardModifiers());
    QCOMPARE(program.text()->Text(), result);
    // The first ones run the text, which the history then has.
    QCOMPARE(program.history().startsWith("--aB c\r\n"), result == u"--aB c"_s);
}

void tst_habits::paneKeys()
{
    ProgramFixture program(sqlite);
    QTest::keyClick(program.text(), Qt::Key_3, Qt::AltModifier);
    QCOMPARE(program.control<QTabWidget>(u"tbSql"_s)->currentIndex(), 2);
    QVERIFY(program.text()->hasFocus());
    QTest::keyClick(program.text(), Qt::Key_Q, Qt::AltModifier);
    QCOMPARE(program.text()->Text(), QString());
    QTest::keyClick(program.text(), Qt::Key_F4);
    auto *output = program.control<QPlainTextEdit>(u"rtbdbms"_s);
    QVERIFY(output->hasFocus());
    QTest::keyClicks(output, u"a\rb"_s);
    QTest::keyClick(output, Qt::Key_Q, Qt::AltModifier);
    QTest::keyClick(output, Qt::Key_A, Qt::ControlModifier);
    QVERIFY(!output->textCursor().hasSelection());
    output->selectAll();
    QTest::keyClick(output, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"a\r\nb"_s);
    // A field of one line is selected by the key that does so in every program.
    auto *bufferSize = program.control<QLineEdit>(u"txtBufferSize"_s);
    QTest::keyClick(bufferSize, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(bufferSize->selectedText(), u"20000"_s);
    QTest::keyClick(output, Qt::Key_F4);
    QVERIFY(program.text()->hasFocus());
    // The menu's key finds in the rows where they have the focus.
    program.run(u"select 1 as one"_s);
    program.grid()->setFocus();
    QTest::keyClick(program.grid(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(program.control<QLineEdit>(u"txtGridFind"_s)->hasFocus());
}

// Buttons tell their keys, and every control has a name for those who do not see it.
void tst_habits::controlsTellWhatTheyAre()
{
    ProgramFixture program(sqlite);
    program.run(u"select 1 as one"_s);
    QCOMPARE(namelessControls(program.frame()).join(u'|'), QString());
    for (const QString &name : {u"tbrQuerna"_s, u"Toolbar1"_s}) {
        auto *bar = program.control<QToolBar>(name);
        for (QAction *action : bar->actions()) {
            if (action->isSeparator())
                continue;
            QWidget *button = bar->widgetForAction(action);
            QHelpEvent hover(QEvent::ToolTip, QPoint(1, 1), QPoint(1, 1));
            QCoreApplication::sendEvent(button, &hover);
            QVERIFY2(QToolTip::text().startsWith(action->toolTip() + u" ("_s) &&
                         QToolTip::text().endsWith(u')'),
                     qPrintable(QToolTip::text()));
        }
    }
    QToolTip::hideText();
}

void tst_habits::frameAndZoomAreKept()
{
    ProgramFixture program(sqlite);
    const QSize size = program.frame().size() - QSize(120, 70);
    program.frame().resize(size);
    const QPointF place(5, 5);
    QWheelEvent wheel(place, program.text()->viewport()->mapToGlobal(place), {}, QPoint(0, 120),
                      Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(program.text()->viewport(), &wheel);
    QCOMPARE(program.text()->zoomLevel(), 1);
    // The program may be ended at any moment; nothing is closed here.
    QTest::qWait(500);

    MDIFormQuerna next;
    next.Form_Load(sqlite);
    QCOMPARE(next.size(), size);
    QCOMPARE(next.findChild<EditorControl *>(u"txtSQL"_s)->zoomLevel(), 1);

    // Whoever starts it can have it maximized; that is then not what the user has made it.
    for (const bool maximized : {true, false}) {
        qputenv("QUERNA_START_WINDOW", maximized ? "maximized" : "");
        MDIFormQuerna started;
        started.Form_Load({});
        QCOMPARE(started.isMaximized(), maximized);
        QTest::qWait(500);
    }
}

void tst_habits::otherProgramsAreStarted()
{
#ifndef Q_OS_UNIX
    QSKIP("The programs started are scripts for a Unix shell.");
#endif
    ProgramFixture program(sqlite);
    // In their places, something that tells what it was started with.
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(program.folder()) + ':' + path);
    const QString told = program.folder() + u"/told"_s;
    for (const auto &[file, item, window, argument] :
         {std::tuple(u"Querna"_s, u"mnuOrbekSqlEditor"_s, u"maximized"_s, sqlite),
          std::tuple(u"xdg-open"_s, u"mnuJoinOrbekUserGroup"_s, QString(),
                     u"https://orbek-users.example/join"_s),
          std::tuple(u"xdg-open"_s, u"mnuMessageOrbekUserGroup"_s, QString(),
                     u"https://orbek-users.example/messages"_s)}) {
        const QString standIn = program.folder() + u'/' + file;
        makeFile(standIn, "#!/bin/sh\nprintf '%s %s' \"$QUERNA_START_WINDOW\" \"$1\" >${0%/*}/new\n"
                          "mv ${0%/*}/new ${0%/*}/told\n");
        QFile::setPermissions(standIn, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        program.menuItem(item)->trigger();
        QTRY_VERIFY(QFile::exists(told));
        QCOMPARE(QString::fromUtf8(contentOf(told)), window + u' ' + argument);
        QFile::remove(told);
    }
    qputenv("PATH", path);
    QVERIFY(program.ends.empty());
    // Who leaves is not offered the text again.
    const QDir kept(program.folder() + u"/state/Querna"_s);
    program.text()->setText(u"typed"_s);
    QTRY_COMPARE(kept.entryList({u"*.sql"_s}).size(), 1);
    program.press(u"tbrQuerna"_s, 20);
    QCOMPARE(kept.entryList(QDir::Files).size(), 0);
    program.menuItem(u"mnuExit"_s)->trigger();
    QCOMPARE(program.ends, (std::vector{0, 0}));
}

void tst_habits::droppedFileIsOpened()
{
    ProgramFixture program(sqlite);
    const QString path = program.folder() + u"/a.sql"_s;
    makeFile(path, "select 1\n");
    program.text()->setText(u"typed"_s);
    drop(path, *program.text());
    QCOMPARE(program.text()->Text(), u"select 1\r\n"_s);

    MessageAnswers messages;
    drop(program.folder() + u"/gone.sql"_s, *program.text());
    QCOMPARE(messages.texts, QStringList(u"File not found"_s));
    QTest::keyClick(program.text(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(program.text()->Text(), u"typed"_s);
    QVERIFY(program.ends.empty());
}

QTEST_MAIN(tst_habits)
#include "tst_habits.moc"
