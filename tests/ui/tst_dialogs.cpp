#include "connection/frmQuernaLogin.h"
#include "connection/session.h"
#include "controls/editor/EditorFindDialog.h"
#include "dialogs/frmFind.h"
#include "dialogs/frmObject.h"
#include "dialogs/frmRecords.h"
#include "export/frmExport.h"
#include "history/frmSQLHistory.h"
#include "uisupport/uiTest.h"

namespace {

/// An editor window with a picker, driven by the names of its controls.
template <typename Picker>
struct PickerBench
{
    QWidget window;
    EditorControl *editor = new EditorControl(&window);
    Picker picker{&window};
    QComboBox *cmbSchema = picker.template findChild<QComboBox *>(u"cmbSchema"_s);
    QComboBox *cmbTable = picker.template findChild<QComboBox *>(u"cmbTable"_s);
    QListWidget *lstObject = picker.template findChild<QListWidget *>(u"lstObject"_s);

    explicit PickerBench(const std::shared_ptr<Connection> &connection,
                         const QString &user = u"scott"_s)
    {
        (new QVBoxLayout(&window))->addWidget(editor);
        window.show();
        editor->setFocus();
        picker.setUserPwd(user, user, u"SANDBOX"_s);
        picker.setDbc(connection);
        picker.setTxt(editor, &window);
    }
    void open()
    {
        picker.show();
        QVERIFY(QTest::qWaitForWindowActive(&picker));
    }
    void press(Qt::Key key) { QTest::keyClick(picker.focusWidget(), key); }
    /// Types a text into a combo box and picks it.
    void pick(QComboBox *combo, const QString &text)
    {
        combo->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(combo, text);
        press(Qt::Key_Return);
    }
    QPoint placeOf(const QString &entry) const
    {
        QListWidgetItem *item = lstObject->findItems(entry, Qt::MatchExactly).value(0);
        lstObject->scrollToItem(item);
        return lstObject->visualItemRect(item).center();
    }
    void click(const QString &entry)
    {
        QTest::mouseClick(lstObject->viewport(), Qt::LeftButton, {}, placeOf(entry));
    }
    bool lists(const QString &entry) const
    {
        return !lstObject->findItems(entry, Qt::MatchExactly).isEmpty();
    }
};

using ObjectBench = PickerBench<frmObject>;
using ColumnBench = PickerBench<frmObjectColumn>;
using DialogMaker = std::function<std::unique_ptr<QDialog>()>;

template <typename Dialog>
std::unique_ptr<QDialog> plain()
{
    return std::make_unique<Dialog>();
}

template <typename Picker>
std::unique_ptr<QDialog> onSandbox()
{
    auto dialog = std::make_unique<Picker>();
    dialog->setUserPwd(u"scott"_s, QString(), u"SANDBOX"_s);
    dialog->setDbc(SandboxFixture::open());
    return dialog;
}

/// The controls that the tabulator visits, beginning with the one that has the focus.
QStringList tabOrder(QDialog &dialog)
{
    QStringList names;
    for (const QWidget *start = dialog.focusWidget(); names.size() < 20;) {
        names += dialog.focusWidget()->objectName();
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        if (dialog.focusWidget() == start)
            break;
    }
    return names;
}

} // namespace

/// What every dialog has to offer to somebody without a mouse, or without eyes; the object pickers
/// on the sandbox's dictionary; the record limit.
class tst_dialogs : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase() { setApplicationFolder({}); }
    void keysAndNames_data();
    void keysAndNames();
    void mousePicksATable();
    void keysPickATable();
    void columnsOfATable();
    void failedLoadingShowsNothing();
    void recordLimit();

private:
    QTemporaryDir m_folder;
    std::shared_ptr<Connection> m_connection;
};

void tst_dialogs::initTestCase()
{
    showMessagesInWindows();
    setApplicationFolder(m_folder.path());
    m_connection = SandboxFixture::open();
}

void tst_dialogs::keysAndNames_data()
{
    const DataRows<DialogMaker, QString, QString> row("make", "tabOrder", "defaultButton");
    row("frmQuernaLogin", plain<frmQuernaLogin>,
        u"txtUserName txtPassword txtDb optPrefConn_0 optSYS_0 cmdOK cmdCancel"_s, u"cmdOK"_s);
    row(
        "EditorFindDialog",
        [] {
            static auto *const editor = new EditorControl;
            return std::make_unique<EditorFindDialog>(*editor);
        },
        u"txtSearch txtReplacement chkMatchCase chkWholeWord cmdClose"_s, u"cmdFindNext"_s);
    row("frmFind", plain<frmFind>,
        u"txtFind txtReplace chkCase cmdFindFirst cmdFindNext cmdReplace cmdReplaceAll "
        "cmdFindCancel"_s,
        u"cmdFindFirst"_s);
    row("frmRecords", plain<frmRecords>, u"txtRecords cmdOK cmdCancel"_s, u"cmdOK"_s);
    row("frmExport", plain<frmExport>, u"optExport_0 cmdExpOK cmdExpCancel"_s, u"cmdExpOK"_s);
    row("frmSQLHistory", plain<frmSQLHistory>, u"msfgSQL txtStatement txtFilter"_s, {});
    row("frmObject", onSandbox<frmObject>, u"lstObject cmbSchema"_s, {});
    row("frmObjectColumn", onSandbox<frmObjectColumn>, u"cmbTable lstObject cmbSchema"_s, {});
}

void tst_dialogs::keysAndNames()
{
    QFETCH(DialogMaker, make);
    QFETCH(QString, defaultButton);
    const std::unique_ptr<QDialog> dialog = make();
    dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    QCOMPARE(dialog->objectName(), QString::fromLatin1(QTest::currentDataTag()));
    QTEST(tabOrder(*dialog).join(u' '), "tabOrder");
    QCOMPARE(namelessControls(*dialog).join(u'|'), QString());
    for (const QPushButton *button : dialog->findChildren<QPushButton *>())
        QCOMPARE(button->isDefault(), button->objectName() == defaultButton);
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Escape);
    QVERIFY(!dialog->isVisible());
}

void tst_dialogs::mousePicksATable()
{
    ObjectBench bench(m_connection);
    bench.editor->setText(u"select * from where 1 = 1"_s);
    bench.editor->setSelStart(13);
    whenModal([&](QWidget *) {
        QCOMPARE(bench.picker.windowTitle(), u"Select Schema and Table"_s);
        QVERIFY(bench.cmbSchema->findText(u"SYSTEM"_s) >= 0);
        // A double click is one pick, and the picker stays.
        bench.click(u"EMP"_s);
        QTest::mouseDClick(bench.lstObject->viewport(), Qt::LeftButton, {},
                           bench.placeOf(u"EMP"_s));
        QVERIFY(bench.picker.isVisible());
        bench.picker.close();
    });
    bench.picker.exec();
    QCOMPARE(bench.editor->Text(), u"select * from SCOTT.EMP  where 1 = 1"_s);
    QCOMPARE(bench.window.focusWidget(), bench.editor);

    // Without an editor a pick does nothing.
    const MessageAnswers answers;
    delete bench.editor;
    bench.open();
    bench.click(u"EMP"_s);
    QVERIFY(answers.texts.isEmpty());
}

void tst_dialogs::keysPickATable()
{
    ObjectBench bench(m_connection);
    bench.open();
    const QString first = bench.lstObject->item(0)->text();
    bench.press(Qt::Key_Return);
    QCOMPARE(bench.editor->Text(), QString());
    bench.press(Qt::Key_Down);
    bench.press(Qt::Key_Return);
    QCOMPARE(bench.editor->Text(), u" SCOTT.%1 "_s.arg(first));

    // A schema that is only typed is written into the editor, and looked up when it is picked.
    bench.editor->setText({});
    bench.cmbSchema->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(bench.cmbSchema, u"SYSTEM"_s);
    bench.press(Qt::Key_Tab);
    QVERIFY(bench.lists(u"EMP"_s));
    bench.click(u"EMP"_s);
    QCOMPARE(bench.editor->Text(), u" SYSTEM.EMP "_s);
    bench.pick(bench.cmbSchema, u"system"_s);
    QVERIFY(!bench.lists(u"EMP"_s));
    bench.press(Qt::Key_Up); // through the entries above it
    bench.pick(bench.cmbSchema, u"SCOTT"_s);
    QVERIFY(bench.lists(u"EMP"_s));
}

void tst_dialogs::columnsOfATable()
{
    ColumnBench bench(m_connection);
    bench.open();
    QCOMPARE(bench.picker.windowTitle(), u"Select Schema, Table and Column"_s);
    QCOMPARE(bench.cmbSchema->currentText(), u"SCOTT"_s);
    QTest::keyClicks(bench.picker.focusWidget(), u"emp"_s);
    QCOMPARE(bench.lstObject->count(), 0);
    bench.press(Qt::Key_Return);
    bench.click(u"ENAME"_s);
    bench.pick(bench.cmbTable, u"DEPT"_s);
    QVERIFY(!bench.lists(u"ENAME"_s));
    bench.click(u"DNAME"_s);
    QCOMPARE(bench.editor->Text(), u"ENAME DNAME "_s);

    // Typing finds, and what is found can be picked.
    QVERIFY(QTest::qWaitForWindowActive(&bench.picker));
    bench.cmbTable->setFocus();
    QTest::keyClick(bench.cmbTable->lineEdit(), Qt::Key_E);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_M);
    QCOMPARE(bench.cmbTable->currentText(), u"em"_s);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    QCOMPARE(bench.cmbTable->currentText(), u"EMP"_s);
    QVERIFY(bench.lists(u"ENAME"_s));

    // The next opening starts afresh.
    const int schemas = bench.cmbSchema->count();
    bench.picker.close();
    bench.picker.show();
    QCOMPARE(bench.cmbSchema->count(), schemas);
    QCOMPARE(bench.cmbTable->currentText(), QString());
    QCOMPARE(bench.lstObject->count(), 0);
}

// Another time it may go well, if for a user without tables; a later look-up that fails closes.
void tst_dialogs::failedLoadingShowsNothing()
{
    MessageAnswers answers;
    for (const auto &[connection, user, message] :
         {std::tuple(std::shared_ptr<Connection>(), u"scott"_s,
                     u"Object variable or With block variable not set"_s),
          std::tuple(m_connection, u"o'neil"_s, u"NEIL''"_s)}) {
        ObjectBench bench(connection, user);
        QCOMPARE(bench.picker.exec(), int{QDialog::Rejected});
        bench.picker.show();
        QVERIFY(!bench.picker.isVisible());
        QCOMPARE(answers.texts.size(), 2);
        QVERIFY2(answers.texts.first().contains(message), qPrintable(answers.texts.first()));
        answers.take();

        bench.picker.setDbc(m_connection);
        bench.picker.setUserPwd(u"nobody"_s, {}, u"SANDBOX"_s);
        bench.picker.show();
        QVERIFY(bench.picker.isVisible());
        QCOMPARE(bench.cmbSchema->currentText(), u"NOBODY"_s);
        QCOMPARE(bench.lstObject->count(), 0);
        // The names are historical: these hand out.
        QString userName;
        QString tnsName;
        std::shared_ptr<Connection> used;
        bench.picker.setExtUnameTns(userName, tnsName);
        bench.picker.setExtDbC(used);
        QCOMPARE(userName + tnsName, u"nobodySANDBOX"_s);
        QCOMPARE(used, m_connection);
    }
    const auto connection = SandboxFixture::open();
    ColumnBench bench(connection);
    bench.open();
    connection->Close();
    bench.pick(bench.cmbTable, u"EMP"_s);
    QCOMPARE(answers.texts, QStringList{u"Operation is not allowed when the object is closed."_s});
    QVERIFY(!bench.picker.isVisible());
}

// Whatever is over the highest means all; the dialog stays open where there is a message.
void tst_dialogs::recordLimit()
{
    MessageAnswers answers;
    frmRecords dialog;
    for (const auto &[typed, end, limit, message] :
         {std::tuple(u" 10000 "_s, Qt::Key_Return, 10000, QString()),
          std::tuple(u"10001"_s, Qt::Key_Return, 0, QString()),
          std::tuple(u"-5"_s, Qt::Key_Return, -5, QString()),
          std::tuple(u"   "_s, Qt::Key_Return, 77, QString()),
          std::tuple(u"5"_s, Qt::Key_Escape, 77, QString()),
          std::tuple(u"many"_s, Qt::Key_Return, 77, u"Type mismatch"_s)}) {
        maxRecords = 77;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QCOMPARE(dialog.findChild<QLineEdit *>(u"txtRecords"_s)->text(), QString());
        QTest::keyClicks(dialog.focusWidget(), typed);
        QTest::keyClick(dialog.focusWidget(), end);
        QCOMPARE(answers.take().join(u'|'), message);
        QCOMPARE(dialog.isVisible(), !message.isEmpty());
        QCOMPARE(maxRecords, limit);
    }
}

QTEST_MAIN(tst_dialogs)
#include "tst_dialogs.moc"
