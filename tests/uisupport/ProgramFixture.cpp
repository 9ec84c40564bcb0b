#include "uisupport/ProgramFixture.h"

#include "app/startUp.h"

ProgramFixture::ProgramFixture()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication::setQuitOnLastWindowClosed(false);
    setApplicationFolder(m_folder.path());
    keepSettingsIn(m_folder.path());
    setProgramEnd([this](int exitCode) { ends.push_back(exitCode); });
    prepareApplication();
    m_frame = std::make_unique<MDIFormQuerna>();
}

ProgramFixture::ProgramFixture(const QString &commandLine)
    : ProgramFixture()
{
    start(commandLine);
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
    control<QLineEdit>(u"txtUserName"_s)->setText(user);
    control<QLineEdit>(u"txtPassword"_s)->setText(password);
    control<QLineEdit>(u"txtDb"_s)->setText(database);
    control<QAbstractButton>(u"optPrefConn_2"_s)->click();
    QTest::mouseClick(control<QAbstractButton>(u"cmdOK"_s), Qt::LeftButton);
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

int ProgramFixture::rows() const
{
    return grid()->model()->rowCount();
}

QString ProgramFixture::cell(int row, int column) const
{
    return grid()->model()->index(row, column).data().toString();
}

QString ProgramFixture::panel(int number) const
{
    return control<QLabel>(u"sbSql_%1"_s.arg(number))->text();
}

QWidget *ProgramFixture::control(const QString &name) const
{
    return m_frame->findChild<QWidget *>(name);
}

void ProgramFixture::run(const QString &statement, int tab)
{
    control<QTabWidget>(u"tbSql"_s)->setCurrentIndex(tab);
    text()->setText(statement);
    press(u"tbrQuerna"_s, 1);
}

void ProgramFixture::press(const QString &toolBar, int index)
{
    auto *bar = control<QToolBar>(toolBar);
    QTest::mouseClick(bar->widgetForAction(bar->actions().at(index - 1)), Qt::LeftButton);
}

QAction *ProgramFixture::menuItem(const QString &name) const
{
    return m_frame->findChild<QAction *>(name);
}

QByteArray ProgramFixture::history() const
{
    return contentOf(m_folder.filePath(u"OrbekSqlHistory.txt"_s));
}
