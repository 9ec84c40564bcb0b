#include "controls/editor/EditorControl.h"
#include "uisupport/userActions.h"

#include <QApplication>
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
    QDialog &dialog() { return *m_editor->findChild<QDialog *>(u"EditorFindDialog"_s); }
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
    enter(dialog(), u"txtSearch"_s, u"one"_s);
    const QString next = u"cmdFindNext"_s;
    const QString previous = u"cmdFindPrevious"_s;
    for (const auto &[button, start, wraps] :
         {std::tuple(next, 2, false), std::tuple(next, 11, false), std::tuple(next, 2, true),
          std::tuple(previous, 11, true), std::tuple(previous, 2, false)}) {
        click(dialog(), button);
        QCOMPARE(m_editor->SelStart(), start);
        QCOMPARE(m_editor->SelText(), u"one"_s);
        QCOMPARE(note(dialog()).isEmpty(), !wraps);
    }
}

void tst_EditorDialogs::options()
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

void tst_EditorDialogs::notFoundIsSaid()
{
    m_editor->setText(u"text"_s);
    m_editor->setSelStart(2);
    m_editor->FindDialog();
    QVERIFY(!isEnabled(dialog(), u"cmdFindNext"_s));
    enter(dialog(), u"txtSearch"_s, u"nothing"_s);
    click(dialog(), u"cmdFindNext"_s);
    QVERIFY(note(dialog()).contains(u"nothing"_s));
    QCOMPARE(m_editor->SelStart(), 2);
    enter(dialog(), u"txtSearch"_s, u"x"_s);
    QCOMPARE(note(dialog()), u""_s);
}

void tst_EditorDialogs::keysOfTheDialog()
{
    m_editor->setText(u"a b a"_s);
    m_editor->setSelStart(1);
    m_editor->FindDialog();
    QVERIFY(!dialog().isModal());
    auto *search = dialog().findChild<QLineEdit *>(u"txtSearch"_s);
    QTest::keyClicks(search, u"a"_s);
    QTest::keyClick(search, Qt::Key_Return);
    QCOMPARE(m_editor->SelStart(), 4);
    QTest::keyClick(search, Qt::Key_Escape);
    QVERIFY(!dialog().isVisible());
    // The same dialog comes back with what was looked for.
    m_editor->FindDialog();
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

void tst_EditorDialogs::replacesOneAfterTheOther()
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
    QVERIFY(!note(dialog()).isEmpty());
}

void tst_EditorDialogs::replacesAllInOneStep()
{
    const QString text = u"aa é aaa\r\nA"_s;
    m_editor->setText(text);
    m_editor->ReplaceDialog();
    enter(dialog(), u"txtSearch"_s, u"a"_s);
    enter(dialog(), u"txtReplacement"_s, u"aa"_s);
    click(dialog(), u"cmdReplaceAll"_s);
    QCOMPARE(m_editor->GetText(), u"aaaa é aaaaaa\r\naa"_s);
    QVERIFY(note(dialog()).startsWith(u"6 "_s));
    m_editor->ExecuteCommand(100);
    QCOMPARE(m_editor->GetText(), text);

    enter(dialog(), u"txtReplacement"_s, {});
    click(dialog(), u"chkMatchCase"_s);
    click(dialog(), u"cmdReplaceAll"_s);
    QCOMPARE(m_editor->GetText(), u" é \r\nA"_s);
    click(dialog(), u"cmdReplaceAll"_s);
    QVERIFY(note(dialog()).startsWith(u"Not found"_s));

    // Many in one line take no longer.
    m_editor->setText(u"ab "_s.repeated(200000));
    enter(dialog(), u"txtSearch"_s, u"b"_s);
    enter(dialog(), u"txtReplacement"_s, u"\\1d"_s);
    click(dialog(), u"cmdReplaceAll"_s);
    QVERIFY(note(dialog()).startsWith(u"200000 "_s));
    QCOMPARE(m_editor->GetText(), u"a\\1d "_s.repeated(200000));
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
        QCOMPARE(dialog().findChild<QLineEdit *>(u"txtSearch"_s)->text(), u"two"_s);
        QVERIFY(isEnabled(dialog(), u"cmdFindNext"_s));
        QCOMPARE(isEnabled(dialog(), u"cmdReplace"_s), !m_editor->ReadOnly());
        QCOMPARE(isEnabled(dialog(), u"cmdReplaceAll"_s), !m_editor->ReadOnly());
    }
}

QTEST_MAIN(tst_EditorDialogs)
#include "tst_editordialogs.moc"
