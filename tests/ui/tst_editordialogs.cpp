#include "controls/EditorControl.h"
#include "controls/EditorSearch.h"
#include "uisupport/ModalAnswers.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPageSetupDialog>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

/// The editor control's own find, replace and page set-up dialogs, as a user works with them.
class tst_EditorDialogs : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void findsOnwardsAndWraps();
    void options_data();
    void options();
    void notFoundIsSaid();
    void keysOfTheDialog();
    void replacesOneAfterTheOther();
    void replacesAllInOneStep();
    void replacesManyInOneLine();
    void readOnlyTextIsNotReplaced();
    void selectionIsOffered();
    void pageSetup();

private:
    template <typename Widget>
    Widget &part(const QString &dialog, const QString &name)
    {
        auto *window = m_editor->findChild<QDialog *>(dialog);
        Q_ASSERT(window);
        return *window->findChild<Widget *>(name);
    }
    void click(const QString &dialog, const QString &button)
    {
        QTest::mouseClick(&part<QPushButton>(dialog, button), Qt::LeftButton);
    }
    QString note(const QString &dialog) { return part<QLabel>(dialog, u"lblNote"_s).text(); }

    const QString m_find = u"EditorFindDialog"_s;
    const QString m_replace = u"EditorReplaceDialog"_s;
    std::unique_ptr<EditorControl> m_editor;
};

void tst_EditorDialogs::init()
{
    m_editor = std::make_unique<EditorControl>();
    m_editor->show();
}

void tst_EditorDialogs::cleanup()
{
    m_editor.reset();
}

void tst_EditorDialogs::findsOnwardsAndWraps()
{
    m_editor->setText(u"é one\ntwo one"_s);
    m_editor->FindDialog();
    QTest::keyClicks(&part<QLineEdit>(m_find, u"txtSearch"_s), u"one"_s);
    click(m_find, u"cmdFindNext"_s);
    QCOMPARE(m_editor->SelStart(), 2);
    QCOMPARE(m_editor->SelText(), u"one"_s);
    click(m_find, u"cmdFindNext"_s);
    QCOMPARE(m_editor->SelStart(), 11);
    QCOMPARE(note(m_find), u""_s);
    click(m_find, u"cmdFindNext"_s);
    QCOMPARE(m_editor->SelStart(), 2);
    QVERIFY(!note(m_find).isEmpty());
    click(m_find, u"cmdFindPrevious"_s);
    QCOMPARE(m_editor->SelStart(), 11);
    click(m_find, u"cmdFindPrevious"_s);
    QCOMPARE(m_editor->SelStart(), 2);
}

void tst_EditorDialogs::options_data()
{
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<bool>("matchCase");
    QTest::addColumn<bool>("wholeWord");
    QTest::addColumn<int>("start");

    QTest::newRow("any") << u"Emp"_s << false << false << 0;
    QTest::newRow("case") << u"Emp"_s << true << false << 9;
    QTest::newRow("word") << u"Emp"_s << false << true << 5;
    QTest::newRow("case and word") << u"Emp"_s << true << true << 14;
    QTest::newRow("case beyond ASCII") << u"Ä"_s << false << false << 18;
}

void tst_EditorDialogs::options()
{
    QFETCH(QString, wanted);
    QFETCH(bool, matchCase);
    QFETCH(bool, wholeWord);
    m_editor->setText(u"emps EMP Emps Emp ä"_s);
    m_editor->FindDialog();
    part<QLineEdit>(m_find, u"txtSearch"_s).setText(wanted);
    part<QCheckBox>(m_find, u"chkMatchCase"_s).setChecked(matchCase);
    part<QCheckBox>(m_find, u"chkWholeWord"_s).setChecked(wholeWord);
    click(m_find, u"cmdFindNext"_s);
    QTEST(m_editor->SelStart(), "start");
}

void tst_EditorDialogs::notFoundIsSaid()
{
    m_editor->setText(u"text"_s);
    m_editor->setSelStart(2);
    m_editor->FindDialog();
    auto &search = part<QLineEdit>(m_find, u"txtSearch"_s);
    QVERIFY(!part<QPushButton>(m_find, u"cmdFindNext"_s).isEnabled());
    search.setText(u"nothing"_s);
    click(m_find, u"cmdFindNext"_s);
    QVERIFY(note(m_find).contains(u"nothing"_s));
    QCOMPARE(m_editor->SelStart(), 2);
    QTest::keyClicks(&search, u"x"_s);
    QCOMPARE(note(m_find), u""_s);
}

void tst_EditorDialogs::keysOfTheDialog()
{
    m_editor->setText(u"a b a"_s);
    m_editor->setSelStart(1);
    m_editor->FindDialog();
    auto *dialog = m_editor->findChild<QDialog *>(m_find);
    QVERIFY(!dialog->isModal());
    auto &search = part<QLineEdit>(m_find, u"txtSearch"_s);
    QTest::keyClicks(&search, u"a"_s);
    QTest::keyClick(&search, Qt::Key_Return);
    QCOMPARE(m_editor->SelStart(), 4);
    QTest::keyClick(&search, Qt::Key_Escape);
    QVERIFY(!dialog->isVisible());
    // The same dialog comes back with what was looked for.
    m_editor->FindDialog();
    QCOMPARE(m_editor->findChildren<QDialog *>(m_find).size(), 1);
    QCOMPARE(search.text(), u"a"_s);
}

void tst_EditorDialogs::replacesOneAfterTheOther()
{
    m_editor->setText(u"a x a"_s);
    m_editor->ReplaceDialog();
    part<QLineEdit>(m_replace, u"txtSearch"_s).setText(u"a"_s);
    part<QLineEdit>(m_replace, u"txtReplacement"_s).setText(u"long"_s);
    // Nothing is selected yet: the first click only finds.
    click(m_replace, u"cmdReplace"_s);
    QCOMPARE(m_editor->GetText(), u"a x a"_s);
    QCOMPARE(m_editor->SelText(), u"a"_s);
    click(m_replace, u"cmdReplace"_s);
    QCOMPARE(m_editor->GetText(), u"long x a"_s);
    QCOMPARE(m_editor->SelStart(), 7);
    click(m_replace, u"cmdReplace"_s);
    QCOMPARE(m_editor->GetText(), u"long x long"_s);
    QVERIFY(!note(m_replace).isEmpty());
}

void tst_EditorDialogs::replacesAllInOneStep()
{
    const QString text = u"aa é aaa\r\nA"_s;
    m_editor->setText(text);
    m_editor->ReplaceDialog();
    part<QLineEdit>(m_replace, u"txtSearch"_s).setText(u"a"_s);
    part<QLineEdit>(m_replace, u"txtReplacement"_s).setText(u"aa"_s);
    click(m_replace, u"cmdReplaceAll"_s);
    QCOMPARE(m_editor->GetText(), u"aaaa é aaaaaa\r\naa"_s);
    QVERIFY(note(m_replace).startsWith(u"6 "_s));
    m_editor->ExecuteCommand(100);
    QCOMPARE(m_editor->GetText(), text);

    part<QLineEdit>(m_replace, u"txtReplacement"_s).clear();
    part<QCheckBox>(m_replace, u"chkMatchCase"_s).setChecked(true);
    click(m_replace, u"cmdReplaceAll"_s);
    QCOMPARE(m_editor->GetText(), u" é \r\nA"_s);
    click(m_replace, u"cmdReplaceAll"_s);
    QVERIFY(note(m_replace).startsWith(u"Not found"_s));
}

void tst_EditorDialogs::replacesManyInOneLine()
{
    m_editor->setText(u"ab "_s.repeated(200000));
    EditorSearch search(*m_editor);
    QCOMPARE(search.replaceAll({u"b"_s, true, false}, u"cd"_s), 200000);
    QCOMPARE(m_editor->GetText(), u"acd "_s.repeated(200000));
}

void tst_EditorDialogs::readOnlyTextIsNotReplaced()
{
    m_editor->setText(u"a a"_s);
    m_editor->setReadOnly(true);
    m_editor->ReplaceDialog();
    part<QLineEdit>(m_replace, u"txtSearch"_s).setText(u"a"_s);
    QVERIFY(part<QPushButton>(m_replace, u"cmdFindNext"_s).isEnabled());
    QVERIFY(!part<QPushButton>(m_replace, u"cmdReplace"_s).isEnabled());
    QVERIFY(!part<QPushButton>(m_replace, u"cmdReplaceAll"_s).isEnabled());
}

void tst_EditorDialogs::selectionIsOffered()
{
    m_editor->setText(u"one two\nthree"_s);
    m_editor->setSelStart(4);
    m_editor->setSelLength(3);
    m_editor->ReplaceDialog();
    QCOMPARE(part<QLineEdit>(m_replace, u"txtSearch"_s).text(), u"two"_s);
    m_editor->setSelLength(99);
    m_editor->ReplaceDialog();
    QCOMPARE(part<QLineEdit>(m_replace, u"txtSearch"_s).text(), u"two"_s);
}

void tst_EditorDialogs::pageSetup()
{
    m_editor->setText(u"text"_s);
    bool hasPrint = false;
    whenModal([&hasPrint](QWidget *window) {
        hasPrint = window->findChild<QPushButton *>(u"cmdPrint"_s) != nullptr;
        qobject_cast<QDialog *>(window)->reject();
    });
    m_editor->PageSetupDialog();
    QVERIFY(hasPrint);
    QCOMPARE(m_editor->GetText(), u"text"_s);
}

QTEST_MAIN(tst_EditorDialogs)
#include "tst_editordialogs.moc"
