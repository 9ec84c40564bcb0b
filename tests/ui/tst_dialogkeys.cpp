#include "connection/frmQuernaLogin.h"
#include "controls/EditorControl.h"
#include "controls/EditorReplaceDialog.h"
#include "controls/EditorSearch.h"
#include "controls/uiPresenters.h"
#include "dialogs/frmFind.h"
#include "dialogs/frmObject.h"
#include "dialogs/frmObjectColumn.h"
#include "dialogs/frmRecords.h"
#include "export/frmExport.h"
#include "history/frmSQLHistory.h"
#include "platform/applicationFolder.h"
#include "support/DataRows.h"
#include "support/SandboxFixture.h"
#include "uisupport/accessibleNames.h"

#include <QApplication>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using DialogMaker = std::function<std::unique_ptr<QDialog>()>;

template <typename Dialog>
std::unique_ptr<QDialog> plain()
{
    return std::make_unique<Dialog>();
}

template <typename Picker>
std::unique_ptr<QDialog> picker()
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
    for (QWidget *start = dialog.focusWidget(); names.size() < 20;) {
        names += dialog.focusWidget()->objectName();
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        if (dialog.focusWidget() == start)
            break;
    }
    return names;
}

} // namespace

Q_DECLARE_METATYPE(DialogMaker)

/// What somebody without a mouse, or without eyes, needs of every dialog.
class tst_dialogkeys : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void dialogs_data();
    void dialogs();

private:
    QTemporaryDir m_folder;
    std::unique_ptr<EditorControl> m_editor;
    std::unique_ptr<EditorSearch> m_search;
};

void tst_dialogkeys::initTestCase()
{
    installUiPresenters();
    SandboxFixture::useSharedFolder();
    setApplicationFolder(m_folder.path());
    m_editor = std::make_unique<EditorControl>();
    m_search = std::make_unique<EditorSearch>(*m_editor);
}

void tst_dialogkeys::cleanupTestCase()
{
    m_search.reset();
    m_editor.reset();
    setApplicationFolder(QString());
}

void tst_dialogkeys::dialogs_data()
{
    const DataRows<DialogMaker, QString, QString> row("make", "tabOrder", "defaultButton");
    row("frmQuernaLogin", plain<frmQuernaLogin>,
        u"txtUserName txtPassword txtDb optPrefConn_0 optSYS_0 cmdOK cmdCancel"_s, u"cmdOK"_s);
    row(
        "EditorReplaceDialog",
        [this] { return std::make_unique<EditorReplaceDialog>(*m_search, m_editor.get()); },
        u"txtSearch txtReplacement chkMatchCase chkWholeWord cmdClose"_s, u"cmdFindNext"_s);
    row("frmFind", plain<frmFind>,
        u"txtFind txtReplace chkCase cmdFindFirst cmdFindNext cmdReplace cmdReplaceAll "
        "cmdFindCancel"_s,
        u"cmdFindFirst"_s);
    row("frmRecords", plain<frmRecords>, u"txtRecords cmdOK cmdCancel"_s, u"cmdOK"_s);
    row("frmExport", plain<frmExport>, u"optExport_0 cmdExpOK cmdExpCancel"_s, u"cmdExpOK"_s);
    row("frmSQLHistory", plain<frmSQLHistory>, u"msfgSQL"_s, {});
    row("frmObject", picker<frmObject>, u"lstObject cmbSchema"_s, {});
    row("frmObjectColumn", picker<frmObjectColumn>, u"cmbTable lstObject cmbSchema"_s, {});
}

void tst_dialogkeys::dialogs()
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

QTEST_MAIN(tst_dialogkeys)
#include "tst_dialogkeys.moc"
