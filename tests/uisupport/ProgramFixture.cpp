#include "uisupport/ProgramFixture.h"

#include "app/MDIFormQuerna.h"
#include "app/startUp.h"
#include "connection/session.h"
#include "controls/DataGrid.h"
#include "controls/EditorControl.h"
#include "editor/frmQuerna.h"
#include "platform/applicationFolder.h"
#include "platform/mousePointer.h"
#include "platform/process.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>
#include <QToolBar>

using namespace Qt::StringLiterals;

ProgramFixture::ProgramFixture()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication::setQuitOnLastWindowClosed(false);
    setApplicationFolder(m_folder.path());
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder.filePath(u"settings"_s)));
    setProgramEnd([this](int exitCode) { ends.push_back(exitCode); });
    prepareApplication();
    m_frame = std::make_unique<MDIFormQuerna>();
}

ProgramFixture::~ProgramFixture()
{
    m_frame->close();
    m_frame.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    gConnection.reset();
    gConnectString.clear();
    gUserName.clear();
    gTnsName.clear();
    setMousePointer(MousePointer::Default);
    setProgramEnd({});
    setApplicationFolder({});
}

void ProgramFixture::start(const QString &commandLine)
{
    m_frame->Form_Load(commandLine);
    QTest::qWait(1);
    QApplication::setActiveWindow(m_frame.get());
    if (editor() != nullptr)
        text()->setFocus();
}

void ProgramFixture::logOn(const QString &user, const QString &password, const QString &database)
{
    menuItem(u"mnuChangeConnection"_s)->trigger();
    const auto *login = m_frame->findChild<QWidget *>(u"frmQuernaLogin"_s);
    login->findChild<QLineEdit *>(u"txtUserName"_s)->setText(user);
    login->findChild<QLineEdit *>(u"txtPassword"_s)->setText(password);
    login->findChild<QLineEdit *>(u"txtDb"_s)->setText(database);
    login->findChild<QAbstractButton *>(u"optPrefConn_2"_s)->click();
    QTest::mouseClick(login->findChild<QAbstractButton *>(u"cmdOK"_s), Qt::LeftButton);
    // The dialog deletes itself; the next one is another.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

frmQuerna *ProgramFixture::editor() const
{
    return m_frame->findChild<frmQuerna *>(u"frmQuerna"_s);
}

EditorControl *ProgramFixture::text() const
{
    return editor()->findChild<EditorControl *>(u"txtSQL"_s);
}

DataGrid *ProgramFixture::grid() const
{
    return editor()->findChild<DataGrid *>(u"SqlDataGrid"_s);
}

QString ProgramFixture::panel(int number) const
{
    return editor()->findChild<QLabel *>(u"sbSql_%1"_s.arg(number))->text();
}

void ProgramFixture::run(const QString &statement, int tab)
{
    editor()->findChild<QTabWidget *>(u"tbSql"_s)->setCurrentIndex(tab);
    text()->setText(statement);
    press(u"tbrQuerna"_s, 1);
}

void ProgramFixture::press(const QString &toolBar, int index)
{
    auto *bar = editor()->findChild<QToolBar *>(toolBar);
    QTest::mouseClick(bar->widgetForAction(bar->actions().at(index - 1)), Qt::LeftButton);
}

QAction *ProgramFixture::menuItem(const QString &name) const
{
    return m_frame->findChild<QAction *>(name);
}

QByteArray ProgramFixture::history() const
{
    QFile file(m_folder.filePath(u"OrbekSqlHistory.txt"_s));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString sqliteConnectionString(const QString &folder)
{
    return u"DRIVER=SQLite3;Database=%1/test.db;USER ID=scott;DATA SOURCE=dwh;"_s.arg(folder);
}
