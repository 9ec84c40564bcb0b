#include "dialogs/frmFind.h"
#include "uisupport/uiTest.h"

namespace {

/// An editor window with its find dialog, driven by the names of the controls.
struct FindBench
{
    QWidget window;
    EditorControl *editor = new EditorControl(&window);
    std::unique_ptr<frmFind> dialog = std::make_unique<frmFind>(&window);

    explicit FindBench(const QString &text)
    {
        editor->setObjectName(u"txtSQL"_s);
        (new QVBoxLayout(&window))->addWidget(editor);
        editor->setText(text);
        editor->setSelStart(0);
        dialog->setTxt(editor, &window);
        window.show();
        editor->setFocus();
        dialog->show();
    }

    void type(const QString &field, const QString &text) { enter(*dialog, field, text); }
    void press(const QString &button) { click(*dialog, button); }
    /// Presses a button that finds. @returns where the selection then begins
    int found(const QString &button)
    {
        press(button);
        return editor->SelStart();
    }

    void replaceAll(const QString &find, const QString &replacement)
    {
        type(u"txtFind"_s, find);
        type(u"txtReplace"_s, replacement);
        press(u"cmdReplaceAll"_s);
    }
    bool replacing() { return !dialog->findChild<QPushButton *>(u"cmdReplaceAll"_s)->isEnabled(); }
};

} // namespace

/// The program's dialog to find and replace, and the editor control's own one.
class tst_finddialog : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { showMessagesInWindows(); }
    void init()
    {
        m_editor = std::make_unique<EditorControl>();
        m_editor->show();
    }
    void cleanup() { m_editor.reset(); }
    void findsFromTheBeginning();
    void findNext_data();
    void findNext();
    void emptyTextsDoNothing();
    void replaceTakesTheSelection();
    void replacesAgainAndAgain();
    void replaceAllOfLargeText_data();
    void replaceAllOfLargeText();
    void endlessOneTakesInWhatIsTyped();
    void closingOrLosingTheEditorEndsReplacing();
    void ownDialogFindsOnwardsAndWraps();
    void ownDialogHasOptions();
    void ownDialogStaysAndTells();
    void ownDialogReplacesOneAfterTheOther();
    void ownDialogReplacesAllInOneStep();
    void ownDialogOffersTheSelection();

private:
    QDialog &dialog() { return *m_editor->findChild<QDialog *>(u"EditorFindDialog"_s); }
    QString note() { return dialog().findChild<QLabel *>(u"lblNote"_s)->text(); }
    bool isEnabled(const QString &button)
    {
        return dialog().findChild<QPushButton *>(button)->isEnabled();
    }

    std::unique_ptr<EditorControl> m_editor;
};

// Letter case counts, whether its box is checked or not.
void tst_finddialog::findsFromTheBeginning()
{
    MessageAnswers answers;
    FindBench bench(u"select ename\r\nfrom emp"_s);
    bench.editor->setSelStart(20);
    bench.type(u"txtFind"_s, u"e"_s);
    QTest::keyClick(bench.dialog->findChild<QLineEdit *>(u"txtFind"_s), Qt::Key_Return);
    QCOMPARE(bench.editor->SelStart(), 1);
    QCOMPARE(bench.editor->SelText(), u"e"_s);
    QTRY_VERIFY(bench.editor->hasFocus());

    bench.type(u"txtFind"_s, u"SELECT"_s);
    bench.press(u"cmdFindFirst"_s);
    bench.press(u"chkCase"_s);
    bench.press(u"cmdFindFirst"_s);
    QCOMPARE(answers.texts, QStringList(2, u"Search string not found"_s));
    QCOMPARE(answers.titles.first(), u"Orbek SQL Editor"_s);
}

void tst_finddialog::findNext_data()
{
    // The last one of the starts is the caret that is left over.
    const DataRows<QString, QString, QList<int>> row("text", "wanted", "starts");
    row("overlapping", u"aaa"_s, u"aa"_s, {0, 1, 3});
    row("once", u"one two three"_s, u"two"_s, {4, 6});
    // The step of two characters may end between the two of a line end, in the middle of a
    // character that takes two units, or before its time at the text's end.
    row("line ends", u"ab\r\nb\r\n\r\nb😀b"_s, u"b"_s, {1, 4, 9, 12, 13});
}

void tst_finddialog::findNext()
{
    QFETCH(QString, text);
    QFETCH(QString, wanted);
    MessageAnswers answers;
    FindBench bench(text);
    bench.type(u"txtFind"_s, wanted);
    QList<int> starts{bench.found(u"cmdFindFirst"_s)};
    while (answers.texts.isEmpty() && starts.size() < text.size())
        starts += bench.found(u"cmdFindNext"_s);
    QTEST(starts, "starts");
    QCOMPARE(answers.texts, QStringList{u"No more occurrences found"_s});
    QCOMPARE(bench.editor->SelLength(), 0);
    bench.editor->setText(QString());
    bench.press(u"cmdFindNext"_s);
    QCOMPARE(answers.texts.size(), 2);
}

void tst_finddialog::emptyTextsDoNothing()
{
    MessageAnswers answers;
    FindBench bench(u"one two"_s);
    bench.editor->setSelStart(3);
    bench.press(u"cmdFindFirst"_s);
    bench.press(u"cmdFindNext"_s);
    bench.replaceAll(QString(), u"x"_s);
    bench.replaceAll(u"o"_s, QString());
    QCOMPARE(bench.editor->SelStart(), 3);
    QCOMPARE(bench.editor->Text(), u"one two"_s);
    QVERIFY(answers.texts.isEmpty());
}

void tst_finddialog::replaceTakesTheSelection()
{
    MessageAnswers answers;
    FindBench bench(u"aXb aYb aZb"_s);
    bench.type(u"txtFind"_s, u"a"_s);
    bench.type(u"txtReplace"_s, u"--"_s);
    bench.editor->setSelStart(1);
    bench.editor->setSelLength(1);
    bench.press(u"cmdReplace"_s);
    QCOMPARE(bench.editor->Text(), u"a--b aYb aZb"_s);
    QCOMPARE(bench.editor->SelStart(), 5);
    QCOMPARE(bench.editor->SelText(), u"a"_s);
    QTRY_VERIFY(bench.editor->hasFocus());

    bench.editor->setSelStart(12);
    bench.press(u"cmdReplace"_s);
    QCOMPARE(bench.editor->Text(), u"a--b aYb aZb--"_s);
    QCOMPARE(answers.texts, QStringList{u"No more occurrences found"_s});
}

void tst_finddialog::replacesAgainAndAgain()
{
    FindBench bench(QString{});
    QRandomGenerator random(20240305);
    for (int round = 0; round < 600; ++round) {
        const auto randomText = [&](int shortest, int longest) {
            QString text;
            for (int n = random.bounded(shortest, longest + 1); n > 0; --n)
                text += QChar(u'a' + random.bounded(2));
            return text;
        };
        const QString text = randomText(0, 14);
        const QString find = randomText(1, 4);
        const QString replacement = randomText(1, 5);
        // The rule word for word: search from the beginning, replace, and so again.
        QString expected = text;
        int most = 100;
        for (qsizetype at = 0; most > 0 && (at = expected.indexOf(find)) >= 0; --most)
            expected = expected.left(at) + replacement + expected.mid(at + find.size());
        if (most == 0)
            continue;
        bench.editor->setText(text);
        bench.replaceAll(find, replacement);
        QCOMPARE(bench.editor->Text() + u" by "_s + find, expected + u" by "_s + find);
        QVERIFY(!bench.replacing());
    }
    bench.editor->setText(u"x😀y😀"_s);
    bench.replaceAll(u"y"_s, u"z"_s);
    QCOMPARE(bench.editor->Text(), u"x😀z😀"_s);
    bench.editor->ExecuteCommand(EditorControl::CommandUndo);
    QCOMPARE(bench.editor->Text(), u"x😀y😀"_s);
}

void tst_finddialog::replaceAllOfLargeText_data()
{
    const DataRows<QString, int, QString, QString> row("unit", "times", "find", "replacement");
    row("plain hits", u"where empno = 4711;\r\n"_s, 50'000, u"empno"_s, u"employee_number"_s);
    row("hits across borders", u"ab"_s, 500'000, u"ab"_s, u"a"_s);
    row("near misses", u"aaaaaaaaaaaaaaaaaaaaaaab"_s, 40'000, u"aaaaaaaaaaaaaaaab"_s, u"b"_s);
    // Sorting takes the square of the length in replacements.
    row("more than one portion", u"ba"_s, 1000, u"ba"_s, u"ab"_s);
}

// A search from the beginning each time would take minutes to hours.
void tst_finddialog::replaceAllOfLargeText()
{
    QFETCH(QString, unit);
    QFETCH(int, times);
    QFETCH(QString, find);
    QFETCH(QString, replacement);
    FindBench bench(unit.repeated(times));
    bench.replaceAll(find, replacement);
    QTRY_VERIFY(!bench.replacing());
    QVERIFY(!bench.editor->Text().contains(find));
}

void tst_finddialog::endlessOneTakesInWhatIsTyped()
{
    FindBench bench(u"banana"_s);
    bench.replaceAll(u"a"_s, u"aa"_s);
    QTRY_VERIFY(bench.editor->textLength() > 1000);
    QVERIFY(bench.replacing());

    bench.editor->setSelStart(0);
    QTest::keyClicks(bench.editor, u"xyz "_s);
    const int typed = bench.editor->textLength();
    QTRY_VERIFY(bench.editor->textLength() > typed);
    QVERIFY(bench.editor->Text().startsWith(u"xyz baaa"_s));
    QVERIFY(bench.replacing());

    bench.editor->setText(u"nothing left"_s);
    QTRY_VERIFY(!bench.replacing());
    QCOMPARE(bench.editor->Text(), u"nothing left"_s);
}

void tst_finddialog::closingOrLosingTheEditorEndsReplacing()
{
    FindBench bench(u"banana"_s);
    bench.replaceAll(u"a"_s, u"aa"_s);
    QVERIFY(bench.replacing());
    QVERIFY(QTest::qWaitForWindowActive(bench.dialog.get()));
    bench.press(u"cmdFindCancel"_s);
    QVERIFY(!bench.dialog->isVisible());
    QTRY_VERIFY(bench.editor->hasFocus());
    const QString text = bench.editor->Text();
    QTest::qWait(100);
    QCOMPARE(bench.editor->Text(), text);

    bench.dialog->show();
    bench.replaceAll(u"a"_s, u"aa"_s);
    QVERIFY(bench.replacing());
    delete bench.editor;
    QTRY_VERIFY(!bench.replacing());

    FindBench other(u"banana"_s);
    other.replaceAll(u"a"_s, u"aa"_s);
    other.dialog.reset();
    QTest::qWait(100);
}

void tst_finddialog::ownDialogFindsOnwardsAndWraps()
{
    m_editor->setText(u"é one\ntwo one"_s);
    m_editor->FindDialog();
    enter(dialog(), u"txtSearch"_s, u"one"_s);
    const QString next = u"cmdFindNext"_s;
    const QString previous = u"cmdFindPrevious"_s;
    for (const auto &[button, start, wraps] :
         {std::tuple(next, 2, false), std::tuple(next, 11, false), std::tuple(next, 2, true),
          std::tuple(previous, 11, true), std::tuple(previous, 2, false)}) {
        click(dialog(), button);
        QCOMPARE(m_editor->SelStart(), start);
        QCOMPARE(m_editor->SelText(), u"one"_s);
        QCOMPARE(note().isEmpty(), !wraps);
    }
}

void tst_finddialog::ownDialogHasOptions()
{
    m_editor->setText(u"emps EMP Emps Emp ä"_s);
    m_editor->FindDialog();
    const auto option = [&](const QString &name) { return dialog().findChild<QCheckBox *>(name); };
    for (const auto &[wanted, matchCase, wholeWord, start] :
         {std::tuple(u"Emp"_s, false, false, 0), std::tuple(u"Emp"_s, true, false, 9),
          std::tuple(u"Emp"_s, false, true, 5), std::tuple(u"Emp"_s, true, true, 14),
          std::tuple(u"Ä"_s, false, false, 18)}) {
        dialog().findChild<QLineEdit *>(u"txtSearch"_s)->setText(wanted);
        option(u"chkMatchCase"_s)->setChecked(matchCase);
        option(u"chkWholeWord"_s)->setChecked(wholeWord);
        m_editor->setSelStart(0);
        click(dialog(), u"cmdFindNext"_s);
        QCOMPARE(m_editor->SelStart(), start);
    }
}

void tst_finddialog::ownDialogStaysAndTells()
{
    m_editor->setText(u"a b a"_s);
    m_editor->setSelStart(1);
    m_editor->FindDialog();
    QVERIFY(!dialog().isModal());
    QVERIFY(!isEnabled(u"cmdFindNext"_s));
    enter(dialog(), u"txtSearch"_s, u"nothing"_s);
    click(dialog(), u"cmdFindNext"_s);
    QVERIFY(note().contains(u"nothing"_s));
    QCOMPARE(m_editor->SelStart(), 1);
    enter(dialog(), u"txtSearch"_s, u"a"_s);
    QCOMPARE(note(), u""_s);
    auto *search = dialog().findChild<QLineEdit *>(u"txtSearch"_s);
    QTest::keyClick(search, Qt::Key_Return);
    QCOMPARE(m_editor->SelStart(), 4);
    QTest::keyClick(search, Qt::Key_Escape);
    QVERIFY(!dialog().isVisible());
    // The same dialog comes back with what was looked for.
    m_editor->ReplaceDialog();
    QCOMPARE(m_editor->findChildren<QDialog *>().size(), 1);
    QCOMPARE(search->text(), u"a"_s);
    // The editor goes on without it.
    QTest::keyClick(search, Qt::Key_Escape);
    QApplication::setActiveWindow(m_editor.get());
    m_editor->setFocus();
    QTest::keyClick(m_editor.get(), Qt::Key_F3);
    QCOMPARE(m_editor->SelStart(), 0);
    QTest::keyClick(m_editor.get(), Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(m_editor->SelStart(), 4);
}

void tst_finddialog::ownDialogReplacesOneAfterTheOther()
{
    m_editor->setText(u"a x a"_s);
    m_editor->ReplaceDialog();
    enter(dialog(), u"txtSearch"_s, u"a"_s);
    enter(dialog(), u"txtReplacement"_s, u"long"_s);
    // Nothing is selected yet: the first click only finds.
    click(dialog(), u"cmdReplace"_s);
    QCOMPARE(m_editor->GetText(), u"a x a"_s);
    QCOMPARE(m_editor->SelText(), u"a"_s);
    click(dialog(), u"cmdReplace"_s);
    QCOMPARE(m_editor->GetText(), u"long x a"_s);
    QCOMPARE(m_editor->SelStart(), 7);
    click(dialog(), u"cmdReplace"_s);
    QCOMPARE(m_editor->GetText(), u"long x long"_s);
    QVERIFY(!note().isEmpty());
}

void tst_finddialog::ownDialogReplacesAllInOneStep()
{
    const QString text = u"aa é aaa\r\nA"_s;
    m_editor->setText(text);
    m_editor->ReplaceDialog();
    enter(dialog(), u"txtSearch"_s, u"a"_s);
    enter(dialog(), u"txtReplacement"_s, u"aa"_s);
    click(dialog(), u"cmdReplaceAll"_s);
    QCOMPARE(m_editor->GetText(), u"aaaa é aaaaaa\r\naa"_s);
    QVERIFY(note().startsWith(u"6 "_s));
    m_editor->ExecuteCommand(100);
    QCOMPARE(m_editor->GetText(), text);

    enter(dialog(), u"txtReplacement"_s, {});
    click(dialog(), u"chkMatchCase"_s);
    click(dialog(), u"cmdReplaceAll"_s);
    QCOMPARE(m_editor->GetText(), u" é \r\nA"_s);
    click(dialog(), u"cmdReplaceAll"_s);
    QVERIFY(note().startsWith(u"Not found"_s));

    // Many in one line take no longer.
    m_editor->setText(u"ab "_s.repeated(200000));
    enter(dialog(), u"txtSearch"_s, u"b"_s);
    enter(dialog(), u"txtReplacement"_s, u"\\1d"_s);
    click(dialog(), u"cmdReplaceAll"_s);
    QVERIFY(note().startsWith(u"200000 "_s));
    QCOMPARE(m_editor->GetText(), u"a\\1d "_s.repeated(200000));
}

void tst_finddialog::ownDialogOffersTheSelection()
{
    m_editor->setText(u"one two\nthree"_s);
    m_editor->setSelStart(4);
    // A selection of several lines is none to look for.
    for (const int length : {3, 99}) {
        m_editor->setSelLength(length);
        m_editor->setReadOnly(length == 99);
        m_editor->ReplaceDialog();
        QCOMPARE(dialog().findChild<QLineEdit *>(u"txtSearch"_s)->text(), u"two"_s);
        QVERIFY(isEnabled(u"cmdFindNext"_s));
        QCOMPARE(isEnabled(u"cmdReplace"_s), !m_editor->ReadOnly());
        QCOMPARE(isEnabled(u"cmdReplaceAll"_s), !m_editor->ReadOnly());
    }
}

QTEST_MAIN(tst_finddialog)
#include "tst_finddialog.moc"
