#include "controls/editor/EditorControl.h"
#include "editor/EditorEvents.h"
#include "editor/caretPosition.h"
#include "support/raisedError.h"

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using Sci = QsciScintillaBase;

/// An editor with its events between two text boxes, as in a window.
class Window : public QWidget
{
public:
    Window()
        : editor(new EditorControl(this))
        , before(new QLineEdit(this))
        , behind(new QLineEdit(this))
        , events(*editor, *this, [this](const QString &text) { panel = text; })
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(before);
        layout->addWidget(editor);
        layout->addWidget(behind);
        before->setFocusPolicy(Qt::StrongFocus);
        behind->setFocusPolicy(Qt::TabFocus);
        setTabOrder(before, editor);
        setTabOrder(editor, behind);
        show();
        activateWindow();
    }

    EditorControl *editor;
    QLineEdit *before;
    QLineEdit *behind;
    QString panel;
    EditorEvents events;
};

/// The caret's position, the panel that shows it, tab stops and the colouring of single words.
class tst_EditorCaret : public QObject
{
    Q_OBJECT
private slots:
    void lineAndColumn();
    void panelFollowsTheCaret();
    void tabStopsComeBack();
    void lastKeyIsKept();
    void wordAtCaretIsColoured();
    void colouringKeepsTheView();
};

void tst_EditorCaret::lineAndColumn()
{
    EditorControl editor;
    editor.setText(u"abc\ndef😀\n"_s);
    for (const auto &[position, line, column] :
         {std::tuple(0, 1, 1), std::tuple(3, 1, 4), std::tuple(7, 2, 3), std::tuple(10, 2, 6),
          std::tuple(12, 3, 1)}) {
        editor.setSelStart(position);
        QCOMPARE(CurrentLine(editor), line);
        QCOMPARE(CurrentColumn(editor), column);
    }
    // Both in one value, the line in its upper half.
    editor.setText(u"\n"_s.repeated(40000) + QString(40000, u'x'));
    editor.setSelStart(4);
    QCOMPARE(caretLineColumn(editor), (3 << 16) + 1);
    editor.setSelStart(2 * 40000);
    QCOMPARE(raisedError([&] { caretLineColumn(editor); }), 6);
    editor.setText(QString(40000, u'x'));
    editor.setSelStart(32766);
    QCOMPARE(caretLineColumn(editor), (1 << 16) + 32767);
    editor.setSelStart(32767);
    QCOMPARE(raisedError([&] { caretLineColumn(editor); }), 6);
}

void tst_EditorCaret::panelFollowsTheCaret()
{
    Window window;
    window.events.showCaretPosition();
    QCOMPARE(window.panel, u" Line: 1 Col: 1"_s);
    window.editor->setText(u"a\n😀é b"_s);
    window.editor->setSelStart(6);
    QCOMPARE(window.panel, u" Line: 2 Col: 4"_s);
    QTest::keyClick(window.editor, Qt::Key_Left);
    QCOMPARE(window.panel, u" Line: 2 Col: 3"_s);
    QTest::keyClick(window.editor, Qt::Key_Up);
    QCOMPARE(window.panel, u" Line: 1 Col: 2"_s);
    QTest::keyClick(window.editor, Qt::Key_X);
    QCOMPARE(window.panel, u" Line: 1 Col: 3"_s);
    window.panel.clear();
    window.events.showCaretPosition();
    QCOMPARE(window.panel, u" Line: 1 Col: 3"_s);
}

void tst_EditorCaret::tabStopsComeBack()
{
    Window window;
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.before->setFocus();
    QTest::keyClick(window.before, Qt::Key_Tab);
    QVERIFY(window.editor->hasFocus());
    QCOMPARE(window.before->focusPolicy() & Qt::TabFocus, 0);
    QVERIFY((window.before->focusPolicy() & Qt::ClickFocus) != 0);
    QCOMPARE(window.behind->focusPolicy(), Qt::NoFocus);
    const QLineEdit late(&window);
    const Qt::FocusPolicy latePolicy = late.focusPolicy();

    QTest::keyClick(window.editor, Qt::Key_Tab);
    QVERIFY(window.editor->hasFocus());
    QCOMPARE(window.editor->GetText(), u"\t"_s);

    window.before->setFocus();
    QCOMPARE(window.before->focusPolicy(), Qt::StrongFocus);
    QCOMPARE(window.behind->focusPolicy(), Qt::TabFocus);
    QCOMPARE(late.focusPolicy(), latePolicy);
    QTest::keyClick(window.before, Qt::Key_Tab);
    QVERIFY(window.editor->hasFocus());
    // A control that goes while the editor has the focus is no trouble.
    delete window.behind;
    window.before->setFocus();
    QCOMPARE(window.before->focusPolicy(), Qt::StrongFocus);
}

void tst_EditorCaret::lastKeyIsKept()
{
    Window window;
    QTest::keyClick(window.editor, Qt::Key_9, Qt::ShiftModifier);
    // Letting Shift go is no key that goes down.
    QCOMPARE(window.events.lastKeyClass(), KeyClass::OpenParenthesis);
    QTest::keyClick(window.editor, Qt::Key_A);
    QCOMPARE(window.events.lastKeyClass(), KeyClass::Other);
    QTest::keyClick(window.editor, Qt::Key_Delete);
    QCOMPARE(window.events.lastKeyClass(), KeyClass::Delete);
}

void tst_EditorCaret::wordAtCaretIsColoured()
{
    for (const auto &[typed, word, group] :
         {std::tuple(u"x select "_s, u"select"_s, 6), std::tuple(u"emp"_s, u"emp"_s, 0),
          std::tuple(u"a in("_s, u"in"_s, 6), std::tuple(u"a  "_s, u""_s, -1)}) {
        Window window;
        for (const QChar letter : typed)
            QTest::keyClick(window.editor, letter.toLatin1(),
                            letter == u'(' ? Qt::ShiftModifier : Qt::NoModifier);
        QCOMPARE(window.events.wordAtCaret().word, word);
        QCOMPARE(window.events.colourWordAtCaret(), group);
        QCOMPARE(window.editor->GetText(), typed);
        QCOMPARE(window.editor->SelStart(), typed.size());
        QCOMPARE(window.editor->SelLength(), 0);
    }
}

void tst_EditorCaret::colouringKeepsTheView()
{
    Window window;
    window.editor->setText(u"line of text\n"_s.repeated(500));
    window.editor->setSelStart(3000);
    window.editor->setSelLength(20);
    window.editor->SendScintilla(Sci::SCI_SETFIRSTVISIBLELINE, 200L);
    const auto view = [&] {
        return std::tuple(window.editor->SelStart(), window.editor->SelLength(), window.panel,
                          window.editor->SendScintilla(Sci::SCI_GETFIRSTVISIBLELINE));
    };
    const auto before = view();
    window.events.colourRange(1, 4, 6);
    QCOMPARE(view(), before);
    const auto colourAt = [&](long at) {
        return window.editor->SendScintilla(Sci::SCI_INDICATORVALUEAT, Sci::INDIC_CONTAINER, at);
    };
    QCOMPARE(colourAt(0) & Sci::SC_INDICVALUEMASK, 0xFF0000); // blue is the widget's high byte
    QCOMPARE(colourAt(4), 0);
}

QTEST_MAIN(tst_EditorCaret)
#include "tst_editorcaret.moc"
