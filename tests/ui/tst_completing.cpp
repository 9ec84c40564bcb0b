#include "connection/frmQuernaLogin.h"
#include "uisupport/ProgramFixture.h"

namespace {

/// What the list that is shown offers, its current entry in brackets; empty when there is none.
QString listed()
{
    const auto *list = qobject_cast<QAbstractItemView *>(QApplication::activePopupWidget());
    if (!list)
        return {};
    QStringList entries;
    for (int row = 0; row < list->model()->rowCount(); ++row) {
        const QModelIndex entry = list->model()->index(row, list->currentIndex().column());
        const QString text = entry.data().toString();
        entries += entry == list->currentIndex() ? u'[' + text + u']' : text;
    }
    return entries.join(u' ');
}

/// Presses a key where the keyboard goes: in the list, when there is one.
void press(QWidget *otherwise, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    QWidget *list = QApplication::activePopupWidget();
    QTest::keyClick(list ? list : otherwise, key, modifiers);
}

/// Replaces the text, which has `^` where the caret is to be, and asks for completion.
void complete(EditorControl *editor, const QString &text)
{
    const int caret = static_cast<int>(text.indexOf(u'^'));
    editor->setText(QString(text).remove(u'^'));
    editor->setSelStart(caret);
    press(editor, Qt::Key_Space, Qt::ControlModifier);
    QCoreApplication::processEvents();
}

} // namespace

/// The lists of names, as they are used with keys.
class tst_completing : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void editorListsNames();
    void serverWithoutDictionary();
    void loginListsDatabases();
};

void tst_completing::initTestCase()
{
    showMessagesInWindows();
    SandboxFixture::useSharedFolder();
}

void tst_completing::editorListsNames()
{
    ProgramFixture program(SandboxFixture::connectionString());
    EditorControl *editor = program.text();
    complete(editor, u"select e.^ from dept e"_s);
    QCOMPARE(listed(), u"[DEPTNO] DNAME LOC"_s);
    QCOMPARE(editor->Text(), u"select e. from dept e"_s);
    press(editor, Qt::Key_D);
    press(editor, Qt::Key_Down);
    QCOMPARE(listed(), u"DEPTNO [DNAME]"_s);
    press(editor, Qt::Key_Return);
    QCOMPARE(listed(), QString());
    QCOMPARE(editor->Text(), u"select e.dname from dept e"_s);
    QCOMPARE(editor->SelStart(), 14);
    editor->ExecuteCommand(EditorControl::CommandUndo);
    QCOMPARE(editor->Text(), u"select e.d from dept e"_s);

    complete(editor, u"SELECT * FROM SCOTT.E^P"_s);
    press(editor, Qt::Key_Tab);
    QCOMPARE(editor->Text(), u"SELECT * FROM SCOTT.EMP"_s);

    complete(editor, u"select d.^loc from dept d"_s);
    press(editor, Qt::Key_Escape);
    QCOMPARE(listed(), QString());
    complete(editor, u"select d.^loc from dept d"_s);
    press(editor, Qt::Key_Down);
    press(editor, Qt::Key_Enter);
    QCOMPARE(editor->Text(), u"select d.dnameloc from dept d"_s);
    for (const Qt::Key leaving : {Qt::Key_Left, Qt::Key_Period, Qt::Key_X}) {
        complete(editor, u"select ^ from dept"_s);
        QVERIFY(!listed().isEmpty());
        press(editor, leaving);
        QCOMPARE(listed(), QString());
    }
}

void tst_completing::serverWithoutDictionary()
{
    ProgramFixture program(sqlite);
    MessageAnswers answers;
    EditorControl *editor = program.text();
    for (int time = 0; time < 2; ++time) {
        complete(editor, u"Sel^"_s);
        QCOMPARE(listed(), u"[SELECT]"_s);
        press(editor, Qt::Key_Return);
        QCOMPARE(editor->Text(), u"SELECT"_s);
    }
    QCOMPARE(answers.texts, QStringList());
    complete(editor, u"select '^'"_s);
    QCOMPARE(listed(), QString());
}

void tst_completing::loginListsDatabases()
{
    const QTemporaryDir folder;
    makeFile(folder.filePath(u"tnsnames.ora"_s), "ORCL=(D)\nTEST=(D)\n");
    makeFile(fileInVariable("ODBCINI", folder.filePath(u"odbc.ini"_s)),
             "[payroll]\nDriver=SQLite3\n[Paper]\nDriver=SQLite3\n");
    qputenv("TNS_ADMIN", folder.path().toLocal8Bit());
    frmQuernaLogin login;
    login.show();
    QVERIFY(QTest::qWaitForWindowActive(&login));
    auto *box = login.findChild<QLineEdit *>(u"txtDb"_s);
    box->setFocus();
    box->setText(u"ORCL"_s);
    press(box, Qt::Key_Down);
    QCOMPARE(listed(), u"[ORCL] TEST"_s);
    press(box, Qt::Key_T);
    QCOMPARE(listed(), QString());
    box->setText(u"t"_s);
    press(box, Qt::Key_Down);
    press(box, Qt::Key_Return);
    QCOMPARE(box->text(), u"TEST"_s);
    QVERIFY(login.isVisible());

    login.findChild<QRadioButton *>(u"optPrefConn_2"_s)->click();
    box->clear();
    press(box, Qt::Key_P);
    QCOMPARE(listed(), QString());
    press(box, Qt::Key_Down);
    QCOMPARE(listed(), u"[Paper] payroll"_s);
    press(box, Qt::Key_Escape);
    QVERIFY(login.isVisible());
    QCOMPARE(box->text(), u"p"_s);
    qunsetenv("TNS_ADMIN");
    qunsetenv("ODBCINI");
}

QTEST_MAIN(tst_completing)
#include "tst_completing.moc"
