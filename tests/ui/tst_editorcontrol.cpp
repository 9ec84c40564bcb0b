#include "editor/EditorEvents.h"
#include "uisupport/uiTest.h"

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

/// The editor control's text, selection, files and keys; its caret, as the window follows it.
class tst_EditorControl : public QObject
{
    Q_OBJECT
private slots:
    void textHasCrLfLineEnds();
    void positionsAreUtf16Units();
    void selectionIsClamped_data();
    void selectionIsClamped();
    void replacingTheTextIsOneStep();
    void loading();
    void largeFileIsWatchedToo();
    void blocksAreTakenByLine();
    void readOnlyTextStays();
    void keysAreReported_data();
    void keysAreReported();
    void otherKeys();
    void seenByScreenReaders();
    void lineAndColumn();
    void panelFollowsTheCaret();
    void tabStopsComeBack();
    void wordAtCaretIsColoured();
    void colouringKeepsTheView();
};

void tst_EditorControl::textHasCrLfLineEnds()
{
    EditorControl editor;
    editor.setText(u"a\nb\rc\r\nd"_s);
    QCOMPARE(editor.GetText(), u"a\r\nb\r\nc\r\nd"_s);
    QCOMPARE(editor.textLength(), 10);
    editor.setSelStart(4);
    editor.InsertText(u"x\ny"_s);
    QCOMPARE(editor.Text(), u"a\r\nbx\r\ny\r\nc\r\nd"_s);
    QCOMPARE(editor.SelStart(), 8);
    QCOMPARE(editor.SelLength(), 0);
    QGuiApplication::clipboard()->setText(u"-\n"_s);
    QTest::keyClick(&editor, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(editor.Text(), u"a\r\nbx\r\ny-\r\n\r\nc\r\nd"_s);
    // Odd characters keep the rest.
    editor.setText(u"a"_s + QChar(0xD83D) + u"b"_s + QChar(0) + u"c"_s);
    QCOMPARE(editor.GetText(), u"a\uFFFDb"_s + QChar(0) + u"c"_s);
    editor.setSelStart(2);
    editor.setSelLength(2);
    QCOMPARE(editor.SelText(), u"b"_s + QChar(0));
    editor.setSelText(QString(QChar(0)) + QChar(0xDE00));
    QCOMPARE(editor.GetText(), u"a\uFFFD"_s + QChar(0) + u"\uFFFDc"_s);
}

void tst_EditorControl::positionsAreUtf16Units()
{
    const QString text = u"aé€😀\r\n\r\n😀😀x\r\nplain\r\nö"_s;
    EditorControl editor;
    editor.setText(text);
    QCOMPARE(editor.textLength(), text.size());
    int line = 0;
    int lineStart = 0;
    for (int at = 0; at <= text.size(); ++at) {
        if (at > 0 && text[at - 1] == u'\n') {
            ++line;
            lineStart = at;
        }
        QCOMPARE(editor.lineFromCharacter(at), line);
        QCOMPARE(editor.lineIndex(line), lineStart);
        const bool inside =
            at > 0 && at < text.size() && (text[at].isLowSurrogate() || text[at] == u'\n');
        if (inside)
            continue;
        editor.setSelStart(at);
        QCOMPARE(editor.SelStart(), at);
        QCOMPARE(editor.lineFromCharacter(-1), line);
        QCOMPARE(editor.lineIndex(-1), lineStart);
        editor.setSelLength(static_cast<int>(text.size()));
        QCOMPARE(editor.SelText(), text.mid(at));
    }
    QCOMPARE(editor.lineIndex(5), -1);
}

void tst_EditorControl::selectionIsClamped_data()
{
    const DataRows<int, int, QString, int> row("start", "length", "selected", "expectedStart");
    row("inside", 1, 2, u"bc"_s, 1);
    row("beyond the end", 2, 2147483647, u"cd\r\ne"_s, 2);
    row("start beyond the end", 99, 5, u""_s, 7);
    row("start before the text", -3, 1, u"a"_s, 0);
    row("negative length", 2, -1, u""_s, 2);
    row("from inside a line end", 5, 1, u"\r\n"_s, 4);
    row("up to inside a line end", 3, 2, u"d\r\n"_s, 3);
    row("caret inside a line end", 5, 0, u""_s, 4);
}

void tst_EditorControl::selectionIsClamped()
{
    QFETCH(int, start);
    QFETCH(int, length);
    EditorControl editor;
    editor.setText(u"abcd\ne"_s);
    editor.setSelStart(start);
    editor.setSelLength(length);
    QTEST(editor.SelText(), "selected");
    QTEST(editor.GetSelection(), "selected");
    QTEST(editor.SelStart(), "expectedStart");
}

void tst_EditorControl::replacingTheTextIsOneStep()
{
    EditorControl editor;
    editor.setText(u"first"_s);
    editor.setText(u"second\nline"_s);
    editor.ExecuteCommand(99);
    QCOMPARE(editor.GetText(), u"second\r\nline"_s);
    editor.ExecuteCommand(EditorControl::CommandUndo);
    QCOMPARE(editor.GetText(), u"first"_s);
    editor.ExecuteCommand(EditorControl::CommandRedo);
    QCOMPARE(editor.GetText(), u"second\r\nline"_s);

    editor.setSelStart(0);
    editor.setSelLength(6);
    editor.setSelText(u"2nd"_s);
    editor.ExecuteCommand(100);
    QCOMPARE(editor.GetText(), u"second\r\nline"_s);
}

void tst_EditorControl::blocksAreTakenByLine()
{
    const QString text = u"abcß\r\nx\r\nefgh"_s;
    EditorControl editor;
    editor.setText(text);
    const auto selectBlock = [&](long anchor, long caret) { // in bytes
        editor.SendScintilla(Sci::SCI_SETRECTANGULARSELECTIONANCHOR, anchor);
        editor.SendScintilla(Sci::SCI_SETRECTANGULARSELECTIONCARET, caret);
    };
    for (const auto &[replacement, expected] :
         {std::tuple(u"BCSS\r\n\r\nFGH"_s, u"aBCSS\r\nx\r\neFGH"_s),
          std::tuple(u"1"_s, u"a1\r\nx\r\ne"_s), std::tuple(u""_s, u"a\r\nx\r\ne"_s),
          std::tuple(u"1\n2\n3\n4"_s, u"a1\r\nx2\r\ne3\r\n4"_s)}) {
        selectBlock(1, 14);
        QCOMPARE(editor.SelText(), u"bcß\r\n\r\nfgh"_s);
        QCOMPARE(editor.SelStart(), 1);
        QCOMPARE(editor.SelLength(), 10);
        editor.setSelText(replacement);
        QCOMPARE(editor.GetText(), expected);
        QCOMPARE(editor.SelStart(), expected.size());
        const QSignalSpy changes(&editor, &EditorControl::contentChanged);
        QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(changes.size(), 1);
        QTest::keyClick(&editor, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(editor.GetText(), expected);
        editor.ExecuteCommand(EditorControl::CommandUndo);
        QCOMPARE(editor.GetText(), text);
    }
    selectBlock(11, 5);
    QTest::keyClick(&editor, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"bcß\r\n\r\nfgh"_s);
    const QSignalSpy changes(&editor, &EditorControl::contentChanged);
    QTest::keyClicks(&editor, u"-"_s);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(editor.GetText(), u"a-\r\nx-\r\ne-"_s);
    QGuiApplication::clipboard()->setText(u"1\n2"_s);
    QTest::keyClick(&editor, Qt::Key_Left, Qt::AltModifier | Qt::ShiftModifier);
    QTest::keyClick(&editor, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(editor.GetText(), u"a1\r\nx2\r\ne"_s);
    // Every row of a large one is replaced without a look at all the others.
    editor.setText(u"ab\r\n"_s.repeated(50000));
    selectBlock(1, 4 * 49999 + 2);
    editor.setSelText(editor.SelText().toUpper());
    QCOMPARE(editor.GetText(), u"aB\r\n"_s.repeated(50000));
    editor.ExecuteCommand(EditorControl::CommandUndo);
    QCOMPARE(editor.GetText(), u"ab\r\n"_s.repeated(50000));
}

// A load that fails changes nothing, one that does not is one step.
void tst_EditorControl::loading()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"a.sql"_s);
    EditorControl editor;
    editor.setText(u"typed"_s);
    editor.setText(u"more"_s);
    QCOMPARE(raisedError([&] { editor.LoadFile(file); }), 53);
    QCOMPARE(raisedError([&] { editor.LoadFile(folder.path()); }), 75);
    QCOMPARE(editor.GetText(), u"more"_s);
    editor.ExecuteCommand(100);
    QCOMPARE(editor.GetText(), u"typed"_s);

    makeFile(file, "\xFF\xFE"
                   "a\0\r\0\xE4\0"_ba);
    editor.LoadFile(file);
    QCOMPARE(editor.GetText(), u"a\r\nä"_s);
    QCOMPARE(editor.SelStart(), 0);
    QVERIFY(!editor.isModified());
    editor.ExecuteCommand(EditorControl::CommandUndo);
    QCOMPARE(editor.GetText(), u"typed"_s);
    editor.ExecuteCommand(EditorControl::CommandRedo);
    QCOMPARE(editor.GetText(), u"a\r\nä"_s);
    QVERIFY(!editor.isModified());
}

void tst_EditorControl::largeFileIsWatchedToo()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"large.sql"_s);
    makeFile(file, QByteArray("select '\xC3\xA4' from t;\n").repeated(150000));

    EditorControl editor;
    QSignalSpy changes(&editor, &EditorControl::contentChanged);
    QSignalSpy lines(&editor, &EditorControl::linesChanged);
    const int numbersWidth = editor.marginWidth(0);
    editor.LoadFile(file);
    QVERIFY(editor.marginWidth(0) > numbersWidth);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(lines.count(), 1);
    const int length = editor.textLength();
    QCOMPARE(length, 150000 * 20);
    editor.setSelStart(length);
    editor.InsertText(u"x"_s);
    QTRY_COMPARE(changes.count(), 2);
    // A text that is replaced as a whole is told of at once, and once only.
    editor.setText(u"small"_s);
    QCOMPARE(changes.count(), 3);
    QCOMPARE(editor.marginWidth(0), numbersWidth);
    QCoreApplication::processEvents();
    editor.InsertText(u"y"_s);
    QCOMPARE(changes.count(), 4);
}

void tst_EditorControl::readOnlyTextStays()
{
    EditorControl editor;
    editor.setText(u"text"_s);
    editor.setReadOnly(true);
    QVERIFY(editor.ReadOnly());
    editor.InsertText(u"x"_s);
    QTest::keyClick(&editor, Qt::Key_X);
    QCOMPARE(editor.GetText(), u"text"_s);
    editor.setText(u"other"_s);
    QCOMPARE(editor.GetText(), u"other"_s);
    QVERIFY(editor.ReadOnly());
}

void tst_EditorControl::keysAreReported_data()
{
    const DataRows<Qt::Key, Qt::KeyboardModifiers, int, int> row("key", "modifiers", "code",
                                                                 "shift");
    const Qt::KeyboardModifiers none;
    row("blank", Qt::Key_Space, none, 32, 0);
    row("tab", Qt::Key_Tab, none, 9, 0);
    row("Shift+Tab", Qt::Key_Backtab, Qt::ShiftModifier, 9, 1);
    row("nine", Qt::Key_9, Qt::ShiftModifier, 57, 1);
    row("opening parenthesis", Qt::Key_ParenLeft, Qt::ShiftModifier, 57, 1);
    row("zero", Qt::Key_0, none, 48, 0);
    row("pad's nine", Qt::Key_9, Qt::KeypadModifier, 0, 0);
    row("pad's Enter", Qt::Key_Enter, Qt::KeypadModifier, 13, 0);
    row("Backspace", Qt::Key_Backspace, Qt::ControlModifier, 8, 2);
    row("Delete", Qt::Key_Delete, Qt::AltModifier, 46, 4);
    row("letter", Qt::Key_A, none, 0, 0);
}

void tst_EditorControl::keysAreReported()
{
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(int, code);
    QFETCH(int, shift);
    EditorControl editor;
    editor.setText(u"text"_s);
    QString textThen;
    QSignalSpy keys(&editor, &EditorControl::keyWentDown);
    connect(&editor, &EditorControl::keyWentDown, this, [&] { textThen = editor.GetText(); });
    QTest::keyClick(&editor, key, modifiers);
    // Shift, Ctrl and Alt are keys of their own.
    QCOMPARE(keys.count(), 1 + (modifiers & ~Qt::KeypadModifier ? 1 : 0));
    QCOMPARE(keys.last(), (QVariantList{code, shift}));
    QCOMPARE(textThen, u"text"_s);
}

// Those that zoom leave the text alone; the usual one for selecting all does nothing.
void tst_EditorControl::otherKeys()
{
    EditorControl editor;
    editor.setText(u"text"_s);
    QTest::keyClick(&editor, Qt::Key_Plus, Qt::ControlModifier);
    QTest::keyClick(&editor, Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(editor.zoomLevel(), 2);
    QTest::keyClick(&editor, Qt::Key_Minus, Qt::ControlModifier | Qt::KeypadModifier);
    QCOMPARE(editor.zoomLevel(), 1);
    QTest::keyClick(&editor, Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(editor.zoomLevel(), 0);
    QTest::keyClick(&editor, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(editor.SelLength(), 0);
    QCOMPARE(editor.GetText(), u"text"_s);
}

void tst_EditorControl::seenByScreenReaders()
{
    EditorControl editor;
    editor.setAccessibleName(u"SQL"_s);
    editor.setText(u"a\nb😀c"_s);
    QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(&editor);
    QVERIFY(seen);
    QCOMPARE(seen->text(QAccessible::Name), u"SQL"_s);
    QVERIFY(seen->state().multiLine && seen->state().editable);
    QAccessibleTextInterface *text = seen->textInterface();
    QVERIFY(text);
    QCOMPARE(text->characterCount(), 7);
    QCOMPARE(text->text(3, 6), u"b😀"_s);
    text->setSelection(0, 3, 6);
    QCOMPARE(editor.SelText(), u"b😀"_s);
    QCOMPARE(text->cursorPosition(), 6);
    QCOMPARE(text->selectionCount(), 1);
    text->setCursorPosition(1);
    QCOMPARE(editor.SelStart(), 1);
}

void tst_EditorControl::lineAndColumn()
{
    EditorControl editor;
    editor.setText(u"abc\ndef😀\n"_s);
    for (const auto &[position, line, column] :
         {std::tuple(0, 1, 1), std::tuple(7, 2, 3), std::tuple(12, 3, 1)}) {
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

void tst_EditorControl::panelFollowsTheCaret()
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
}

void tst_EditorControl::tabStopsComeBack()
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

void tst_EditorControl::wordAtCaretIsColoured()
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

void tst_EditorControl::colouringKeepsTheView()
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

QTEST_MAIN(tst_EditorControl)
#include "tst_editorcontrol.moc"
