#include "controls/EditorControl.h"
#include "controls/uiPresenters.h"
#include "dataaccess/Recordset.h"
#include "dialogs/frmObject.h"
#include "dialogs/frmObjectColumn.h"
#include "support/DataRows.h"
#include "support/SandboxFixture.h"
#include "uisupport/ModalAnswers.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

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

    QStringList listed() const
    {
        QStringList texts;
        for (int row = 0; row < lstObject->count(); ++row)
            texts += lstObject->item(row)->text();
        return texts;
    }

    /// A click on an entry of the opened combo box.
    void pick(QComboBox *combo, const QString &text)
    {
        combo->showPopup();
        const QModelIndex entry = combo->model()->index(combo->findText(text), 0);
        combo->view()->scrollTo(entry);
        const QPoint place = combo->view()->visualRect(entry).center();
        QTest::mouseMove(combo->view()->viewport(), place);
        QTest::mouseClick(combo->view()->viewport(), Qt::LeftButton, {}, place);
        QTRY_VERIFY(!combo->view()->isVisible());
    }

    QPoint placeOf(const QString &entry) const
    {
        QListWidgetItem *item = lstObject->findItems(entry, Qt::MatchExactly).value(0);
        lstObject->scrollToItem(item);
        return lstObject->visualItemRect(item).center();
    }
    void open()
    {
        picker.show();
        QVERIFY(QTest::qWaitForWindowActive(&picker));
    }
    void click(const QString &entry)
    {
        QTest::mouseClick(lstObject->viewport(), Qt::LeftButton, {}, placeOf(entry));
    }
};

using ObjectBench = PickerBench<frmObject>;
using ColumnBench = PickerBench<frmObjectColumn>;

} // namespace

/// The object pickers on the sandbox's dictionary.
class tst_pickers : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void tablePickGoesIntoTheEditor();
    void doubleClickIsOnePick();
    void keysPickToo();
    void columnPickGoesIntoTheEditor();
    void typedSchemaIsLookedUpWhenPicked();
    void userWithoutTables();
    void failedLoadingShowsNothing_data();
    void failedLoadingShowsNothing();
    void failedLookUpCloses();

private:
    std::shared_ptr<Connection> m_connection;
};

void tst_pickers::initTestCase()
{
    installUiPresenters();
    SandboxFixture::useSharedFolder();
    m_connection = SandboxFixture::open();
}

void tst_pickers::tablePickGoesIntoTheEditor()
{
    ObjectBench bench(m_connection);
    bench.editor->setText(u"select * from where 1 = 1"_s);
    bench.editor->setSelStart(13);
    bool ran = false;
    whenModal([&](QWidget *window) {
        ran = window == &bench.picker;
        QCOMPARE(bench.picker.windowTitle(), u"Select Schema and Table"_s);
        QCOMPARE(bench.cmbSchema->currentText(), u"SCOTT"_s);
        QVERIFY(bench.cmbSchema->findText(u"SYSTEM"_s) >= 0);
        QVERIFY(bench.listed().contains(u"DEPT"_s));
        bench.click(u"EMP"_s);
        QVERIFY(bench.picker.isVisible());
        QCOMPARE(bench.editor->Text(), u"select * from SCOTT.EMP  where 1 = 1"_s);
        bench.picker.close();
    });
    bench.picker.exec();
    QVERIFY(ran);
    QCOMPARE(bench.window.focusWidget(), bench.editor);
}

void tst_pickers::doubleClickIsOnePick()
{
    ObjectBench bench(m_connection);
    bench.picker.show();
    bench.click(u"EMP"_s);
    QTest::mouseDClick(bench.lstObject->viewport(), Qt::LeftButton, {}, bench.placeOf(u"EMP"_s));
    QCOMPARE(bench.editor->Text(), u" SCOTT.EMP "_s);

    // Without an editor a pick does nothing.
    MessageAnswers answers;
    delete bench.editor;
    bench.click(u"EMP"_s);
    QVERIFY(bench.picker.isVisible());
    QVERIFY(answers.texts.isEmpty());
}

void tst_pickers::keysPickToo()
{
    ObjectBench bench(m_connection);
    bench.open();
    QTest::keyClick(bench.picker.focusWidget(), Qt::Key_Return);
    QCOMPARE(bench.editor->Text(), QString());
    QTest::keyClick(bench.picker.focusWidget(), Qt::Key_Down);
    QTest::keyClick(bench.picker.focusWidget(), Qt::Key_Return);
    QCOMPARE(bench.editor->Text(), u" SCOTT.%1 "_s.arg(bench.listed().at(0)));

    // Typing finds a table, and in a combo box replaces what stands there.
    ColumnBench columns(m_connection);
    columns.open();
    QTest::keyClicks(columns.picker.focusWidget(), u"emp"_s);
    QTest::keyClick(columns.picker.focusWidget(), Qt::Key_Return);
    QVERIFY(columns.listed().contains(u"ENAME"_s));
}

void tst_pickers::columnPickGoesIntoTheEditor()
{
    ColumnBench bench(m_connection);
    bench.picker.show();
    QCOMPARE(bench.picker.windowTitle(), u"Select Schema, Table and Column"_s);
    QCOMPARE(bench.cmbSchema->currentText(), u"SCOTT"_s);
    QCOMPARE(bench.cmbTable->currentText(), QString());
    QCOMPARE(bench.lstObject->count(), 0);

    bench.pick(bench.cmbTable, u"EMP"_s);
    QCOMPARE(bench.cmbTable->currentText(), u"EMP"_s);
    QVERIFY(bench.listed().contains(u"HIREDATE"_s));
    bench.click(u"ENAME"_s);
    QCOMPARE(bench.editor->Text(), u"ENAME "_s);

    bench.pick(bench.cmbTable, u"DEPT"_s);
    QVERIFY(bench.listed().contains(u"DNAME"_s));
    QVERIFY(!bench.listed().contains(u"ENAME"_s));
    bench.click(u"DNAME"_s);
    QCOMPARE(bench.editor->Text(), u"ENAME DNAME "_s);

    // The next opening starts afresh.
    const int schemas = bench.cmbSchema->count();
    bench.picker.close();
    bench.picker.show();
    QCOMPARE(bench.cmbSchema->count(), schemas);
    QCOMPARE(bench.cmbTable->currentText(), QString());
    QCOMPARE(bench.lstObject->count(), 0);
}

void tst_pickers::typedSchemaIsLookedUpWhenPicked()
{
    ObjectBench bench(m_connection);
    bench.open();
    const QStringList tables = bench.listed();
    bench.cmbSchema->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(bench.cmbSchema, u"SYSTEM"_s);
    QTest::keyClick(bench.cmbSchema, Qt::Key_Tab);
    QVERIFY(bench.lstObject->hasFocus());
    QCOMPARE(bench.cmbSchema->currentText(), u"SYSTEM"_s);
    QCOMPARE(bench.listed(), tables);
    bench.click(u"EMP"_s);
    QCOMPARE(bench.editor->Text(), u" SYSTEM.EMP "_s);

    bench.pick(bench.cmbSchema, u"SYSTEM"_s);
    QVERIFY(!bench.listed().contains(u"EMP"_s));
    bench.pick(bench.cmbSchema, u"SCOTT"_s);
    QCOMPARE(bench.listed(), tables);
}

void tst_pickers::userWithoutTables()
{
    ObjectBench bench(m_connection, u"nobody"_s);
    bench.picker.show();
    QVERIFY(bench.picker.isVisible());
    QCOMPARE(bench.cmbSchema->currentText(), u"NOBODY"_s);
    QCOMPARE(bench.lstObject->count(), 0);
    // The names are historical: these hand out.
    QString user;
    QString tns;
    std::shared_ptr<Connection> connection;
    bench.picker.setExtUnameTns(user, tns);
    bench.picker.setExtDbC(connection);
    QCOMPARE(user + tns, u"nobodySANDBOX"_s);
    QCOMPARE(connection, m_connection);
}

void tst_pickers::failedLoadingShowsNothing_data()
{
    const DataRows<std::shared_ptr<Connection>, QString, QString> row("connection", "user",
                                                                      "message");
    row("closed", std::make_shared<Connection>(), u"scott"_s,
        u"Operation is not allowed when the object is closed."_s);
    row("none", std::shared_ptr<Connection>(), u"scott"_s,
        u"Object variable or With block variable not set"_s);
    row("server's error", m_connection, u"o'neil"_s, u"NEIL''"_s);
}

void tst_pickers::failedLoadingShowsNothing()
{
    QFETCH(std::shared_ptr<Connection>, connection);
    QFETCH(QString, user);
    QFETCH(QString, message);
    MessageAnswers answers;
    ObjectBench bench(connection, user);
    bench.editor->setText(u"typed"_s);
    QCOMPARE(bench.picker.exec(), int{QDialog::Rejected});
    bench.picker.show();
    QVERIFY(!bench.picker.isVisible());
    QCOMPARE(answers.texts.size(), 2);
    QVERIFY2(answers.texts.first().contains(message), qPrintable(answers.texts.first()));
    QCOMPARE(bench.editor->Text(), u"typed"_s);

    bench.picker.setDbc(m_connection);
    bench.picker.setUserPwd(u"scott"_s, QString(), QString());
    bench.picker.show();
    QVERIFY(bench.picker.isVisible());
}

void tst_pickers::failedLookUpCloses()
{
    MessageAnswers answers;
    const auto connection = SandboxFixture::open();
    ColumnBench bench(connection);
    bench.picker.show();
    connection->Close();
    bench.pick(bench.cmbTable, u"EMP"_s);
    QCOMPARE(answers.texts, QStringList{u"Operation is not allowed when the object is closed."_s});
    QVERIFY(!bench.picker.isVisible());
}

QTEST_MAIN(tst_pickers)
#include "tst_pickers.moc"
