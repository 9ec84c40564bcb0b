#include "controls/EditorControl.h"
#include "controls/EditorSearch.h"
#include "uisupport/userActions.h"

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

/// The editor control's own find and replace dialogs, as a user works with them.
class tst_EditorDialogs : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_editor = std::make_unique<EditorControl>();
        m_editor->show();
    }
    void cleanup() { m_editor.reset(); }
    void findsOnwardsAndWraps();
    void options();
    void notFoundIsSaid();
    void keysOfTheDialog();
    void replacesOneAfterTheOther();
    void replacesAllInOneStep();
    void offersTheSelection();

private:
    QDialog &findDialog() { return *m_editor->findChild<QDialog *>(u"EditorFindDialog"_s); }
    QDialog &replaceDialog() { return *m_editor->findChild<QDialog *>(u"EditorReplaceDialog"_s); }
    static QString note(const QDialog &dialog)
    {
        return dialog.findChild<QLabel *>(u"lblNote"_s)->text();
    }
    static bool isEnabled(const QDialog &dialog, const QString &button)
    {
        return dialog.findChild<QPushButton *>(button)->isEnabled();
    }

    std::unique_ptr<EditorControl> m_editor;
};

void tst_EditorDialogs::findsOnwardsAndWraps()
{
    m_editor->setText(u"é one\ntwo one"_s);
    m_editor->FindDialog();
    enter(findDialog(), u"txtSearch"_s, u"one"_s);
    const QString next = u"cmdFindNext"_s;
    const QString previous = u"cmdFindPrevious"_s;
    for (const auto &[button, start, wraps] :
         {std::tuple(next, 2, false), std::tuple(next, 11, false), std::tuple(next, 2, true),
          std::tuple(previous, 11, true), std::tuple(previous, 2, false)}) {
        click(findDialog(), button);
        QCOMPARE(m_editor->SelStart(), start);
        QCOMPARE(m_editor->SelText(), u"one"_s);
        QCOMPARE(note(findDialog()).isEmpty(), !wraps);
    }
}

void tst_EditorDialogs::options()
{
    m_editor->setText(u"emps EMP Emps Emp ä"_s);
    m_editor->FindDialog();
    const auto option = [&](const QString &name) {
        return findDialog().findChild<QCheckBox *>(name);
    };
    for (const auto &[wanted, matchCase, wholeWord, start] :
         {std::tuple(u"Emp"_s, false, false, 0), std::tuple(u"Emp"_s, true, false, 9),
          std::tuple(u"Emp"_s, false, true, 5), std::tuple(u"Emp"_s, true, true, 14),
          std::tuple(u"Ä"_s, false, false, 18)}) {
        findDialog().findChild<QLineEdit *>(u"txtSearch"_s)->setText(wanted);
        option(u"chkMatchCase"_s)->setChecked(matchCase);
        option(u"chkWholeWord"_s)->setChecked(wholeWord);
        m_editor->setSelStart(0);
        click(findDialog(), u"cmdFindNext"_s);
        QCOMPARE(m_editor->SelStart(), start);
    }
}

void tst_EditorDialogs::notFoundIsSaid()
{
    m_editor->setText(u"text"_s);
    m_editor->setSelStart(2);
    m_editor->FindDialog();
    QVERIFY(!isEnabled(findDialog(), u"cmdFindNext"_s));
    enter(findDialog(), u"txtSearch"_s, u"nothing"_s);
    click(findDialog(), u"cmdFindNext"_s);
    QVERIFY(note(findDialog()).contains(u"nothing"_s));
    QCOMPARE(m_editor->SelStart(), 2);
    enter(findDialog(), u"txtSearch"_s, u"x"_s);
    QCOMPARE(note(findDialog()), u""_s);
}

void tst_EditorDialogs::keysOfTheDialog()
{
    m_editor->setText(u"a b a"_s);
    m_editor->setSelStart(1);
    m_editor->FindDialog();
    QVERIFY(!findDialog().isModal());
    auto *search = findDialog().findChild<QLineEdit *>(u"txtSearch"_s);
    QTest::keyClicks(search, u"a"_s);
    QTest::keyClick(search, Qt::Key_Return);
    QCOMPARE(m_editor->SelStart(), 4);
    QTest::keyClick(search, Qt::Key_Escape);
    QVERIFY(!findDialog().isVisible());
    // The same dialog comes back with what was looked for.
    m_editor->FindDialog();
    QCOMPARE(m_editor->findChildren<QDialog *>().size(), 1);
    QCOMPARE(search->text(), u"a"_s);
}

void tst_EditorDialogs::replacesOneAfterTheOther()
{
    m_editor->setText(u"a x a"_s);
    m_editor->ReplaceDialog();
    enter(replaceDialog(), u"txtSearch"_s, u"a"_s);
    enter(replaceDialog(), u"txtReplacement"_s, u"long"_s);
    // Nothing is selected yet: the first click only finds.
    click(replaceDialog(), u"cmdReplace"_s);
    QCOMPARE(m_editor->GetText(), u"a x a"_s);
    QCOMPARE(m_editor->SelText(), u"a"_s);
    click(replaceDialog(), u"cmdReplace"_s);
    QCOMPARE(m_editor->GetText(), u"long x a"_s);
    QCOMPARE(m_editor->SelStart(), 7);
    click(replaceDialog(), u"cmdReplace"_s);
    QCOMPARE(m_editor->GetText(), u"long x long"_s);
    QVERIFY(!note(replaceDialog()).isEmpty());
}

void tst_EditorDialogs::replacesAllInOneStep()
{
    const QString text = u"aa é aaa\r\nA"_s;
    m_editor->setText(text);
    m_editor->ReplaceDialog();
    enter(replaceDialog(), u"txtSearch"_s, u"a"_s);
    enter(replaceDialog(), u"txtReplacement"_s, u"aa"_s);
    click(replaceDialog(), u"cmdReplaceAll"_s);
    QCOMPARE(m_editor->GetText(), u"aaaa é aaaaaa\r\naa"_s);
    QVERIFY(note(replaceDialog()).startsWith(u"6 "_s));
    m_editor->ExecuteCommand(100);
    QCOMPARE(m_editor->GetText(), text);

    enter(replaceDialog(), u"txtReplacement"_s, {});
    click(replaceDialog(), u"chkMatchCase"_s);
    click(replaceDialog(), u"cmdReplaceAll"_s);
    QCOMPARE(m_editor->GetText(), u" é \r\nA"_s);
    click(replaceDialog(), u"cmdReplaceAll"_s);
    QVERIFY(note(replaceDialog()).startsWith(u"Not found"_s));

    // Many in one line take no longer.
    m_editor->setText(u"ab "_s.repeated(200000));
    EditorSearch search(*m_editor);
    QCOMPARE(search.replaceAll({u"b"_s, true, false}, u"cd"_s), 200000);
    QCOMPARE(m_editor->GetText(), u"acd "_s.repeated(200000));
}

void tst_EditorDialogs::offersTheSelection()
{
    m_editor->setText(u"one two\nthree"_s);
    m_editor->setSelStart(4);
    // A selection of several lines is none to look for.
    for (const int length : {3, 99}) {
        m_editor->setSelLength(length);
        m_editor->setReadOnly(length == 99);
        m_editor->ReplaceDialog();
        QCOMPARE(replaceDialog().findChild<QLineEdit *>(u"txtSearch"_s)->text(), u"two"_s);
        QVERIFY(isEnabled(replaceDialog(), u"cmdFindNext"_s));
        QCOMPARE(isEnabled(replaceDialog(), u"cmdReplace"_s), !m_editor->ReadOnly());
        QCOMPARE(isEnabled(replaceDialog(), u"cmdReplaceAll"_s), !m_editor->ReadOnly());
    }
}

QTEST_MAIN(tst_EditorDialogs)
#include "tst_editordialogs.moc"
