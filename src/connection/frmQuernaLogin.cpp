#include "connection/frmQuernaLogin.h"

#include "connection/login.h"
#include "connection/session.h"
#include "controls/forms/ArrowList.h"
#include "controls/forms/WaitingLoop.h"
#include "controls/forms/formControls.h"
#include "dataaccess/odbc/sessionParties.h"
#include "platform/errorTraps.h"
#include "platform/settings.h"

#include <QButtonGroup>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString settingsApplication = u"Orbek Oracle"_s;
const QString settingsSection = u"Settings"_s;

/// @param otherwise  what the entry becomes when the store cannot be read
void loadEntry(QLineEdit &entry, const QString &key, const QString &otherwise)
{
    entry.setText(otherwise);
    ignoreErrors([&] { entry.setText(getSetting(settingsApplication, settingsSection, key)); });
}

void keepSetting(const QString &key, const QString &value)
{
    ignoreErrors([&] { saveSetting(settingsApplication, settingsSection, key, value); });
}

} // namespace

frmQuernaLogin::frmQuernaLogin(QWidget *parent)
    : FormDialog(u"frmQuernaLogin"_s, u"Querna Login"_s, parent)
{
    new QVBoxLayout(this);
    createEntries();
    createOptions();
    createButtons();
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void frmQuernaLogin::createEntries()
{
    auto *banner = new QLabel(u"ORBEK"_s + QString(61, u' ') +
                              u"Application for Database Developers and DBAs"_s);
    banner->setObjectName(u"Label2"_s);
    banner->setWordWrap(true);
    QFont bannerFont = banner->font();
    bannerFont.setBold(true);
    banner->setFont(bannerFont);
    // Wide enough for its second half, so that the text breaks at the blanks between the two.
    banner->setMinimumWidth(
        QFontMetrics(bannerFont)
            .horizontalAdvance(u"Application for Database Developers and DBAs "_s));

    auto *form = new QFormLayout;
    const auto addEntry = [&](const QString &labelName, const QString &caption, const QString &name,
                              Qt::Key key) {
        auto *entry = named(new QLineEdit, name);
        auto *label = named(new QLabel(caption), labelName);
        label->setBuddy(entry);
        label->setWordWrap(true);
        form->addRow(label, entry);
        setAccessKey(entry, key, this);
        return entry;
    };
    m_txtUserName = addEntry(u"lblLabels_0"_s, u"User Name"_s, u"txtUserName"_s, Qt::Key_U);
    m_txtPassword = addEntry(u"lblLabels_1"_s, u"Password"_s, u"txtPassword"_s, Qt::Key_P);
    m_txtPassword->setEchoMode(QLineEdit::Password);
    m_txtPassword->setStyleSheet(u"QLineEdit { lineedit-password-character: 42 }"_s);
    const QString secondLine = u"(TNS Name or ODBC DSN)"_s;
    m_txtDb = addEntry(u"Label1"_s, u"Database"_s + QString(23, u' ') + secondLine, u"txtDb"_s,
                       Qt::Key_D);
    m_txtDb->setToolTip(u"Must be ODBC DSN if connecting as SYSDBA or SYSOPER"_s);
    new ArrowList(*m_txtDb, tr("Databases"), [this] { return databases(); });
    form->labelForField(m_txtDb)->setFixedWidth(fontMetrics().horizontalAdvance(secondLine + u' '));

    auto *column = static_cast<QVBoxLayout *>(layout());
    column->addWidget(banner);
    column->addLayout(form);
}

void frmQuernaLogin::createOptions()
{
    const auto makeGroup = [this](const QString &name, const QString &caption) {
        auto *frame = named(new QGroupBox(caption), name);
        new QVBoxLayout(frame);
        layout()->addWidget(frame);
        return new QButtonGroup(frame);
    };
    const auto addOption = [](QButtonGroup *group, int code, const QString &name,
                              const QString &caption, Qt::Key key, const QString &toolTip) {
        auto *option = withAccessKey(named(new QRadioButton(caption), name), key);
        option->setToolTip(toolTip);
        static_cast<QWidget *>(group->parent())->layout()->addWidget(option);
        group->addButton(option, code);
    };

    const QString tnsAbove = u"Specify TNS Name in the Database box above"_s;
    m_optPrefConn = makeGroup(u"Frame1"_s, u"Select Connection Driver"_s);
    addOption(m_optPrefConn, LoginDriver::MicrosoftOleDb, u"optPrefConn_0"_s,
              u"Microsoft OLEDB Driver for Oracle"_s, Qt::Key_M, tnsAbove);
    addOption(m_optPrefConn, LoginDriver::OracleOleDb, u"optPrefConn_1"_s,
              u"Oracle OLEDB Driver for Oracle"_s, Qt::Key_R, tnsAbove);
    addOption(m_optPrefConn, LoginDriver::OdbcDataSource, u"optPrefConn_2"_s,
              u"ODBC DSN Connection"_s, Qt::Key_B, {});

    const QString dsnAbove = u"Specify ODBC DSN in Database box above"_s;
    m_optSYS = makeGroup(u"Frame2"_s, u"SYS Privileges"_s);
    addOption(m_optSYS, LoginPrivilege::Normal, u"optSYS_0"_s, u"Normal (No SYS Privileges)"_s,
              Qt::Key_N, {});
    addOption(m_optSYS, LoginPrivilege::Sysdba, u"optSYS_1"_s, u"Connect as SYSDBA"_s, Qt::Key_S,
              dsnAbove);
    addOption(m_optSYS, LoginPrivilege::Sysoper, u"optSYS_2"_s, u"Connect as SYSOPER"_s, Qt::Key_Y,
              dsnAbove);
    connect(m_optSYS, &QButtonGroup::idClicked, this, &frmQuernaLogin::optSYS_Click);
}

/// What the chosen driver may find by name.
QStringList frmQuernaLogin::databases() const
{
    QStringList names;
    ignoreErrors([&] {
        const bool isDsn = m_optPrefConn->checkedId() == LoginDriver::OdbcDataSource;
        names = isDsn ? dataSources() : tnsAliases();
    });
    names.sort(Qt::CaseInsensitive);
    return names;
}

void frmQuernaLogin::createButtons()
{
    const OkCancelButtons buttons(this, u"cmdOK"_s, u"cmdCancel"_s);
    connect(buttons.ok, &QPushButton::clicked, this, &frmQuernaLogin::cmdOK_Click);
    connect(buttons.cancel, &QPushButton::clicked, this, &frmQuernaLogin::cmdCancel_Click);
    layout()->addWidget(buttons.box);
}

bool frmQuernaLogin::Form_Load()
{
    loadEntry(*m_txtUserName, u"Login"_s, u"system"_s);
    loadEntry(*m_txtPassword, u"Password"_s, u"lantern"_s);
    loadEntry(*m_txtDb, u"Database"_s, u"dwh"_s);
    m_optSYS->button(LoginPrivilege::Normal)->setChecked(true);
    optSYS_Click(LoginPrivilege::Normal);
    m_txtUserName->setFocus();
    return true;
}

void frmQuernaLogin::takeNames()
{
    gUserName = m_txtUserName->text();
    gTnsName = m_txtDb->text();
}

void frmQuernaLogin::optSYS_Click(int privilege)
{
    const bool privileged = privilege != LoginPrivilege::Normal;
    for (const int driver : {LoginDriver::MicrosoftOleDb, LoginDriver::OracleOleDb})
        m_optPrefConn->button(driver)->setDisabled(privileged);
    m_optPrefConn->button(privileged ? LoginDriver::OdbcDataSource : LoginDriver::MicrosoftOleDb)
        ->setChecked(true);
}

void frmQuernaLogin::cmdOK_Click()
{
    if (isWaiting())
        return;
    const HourglassPointer hourglass;
    takeNames();
    ignoreErrors([] {
        if (gConnection && gConnection->State() == adStateOpen)
            gConnection->Close();
    });
    ignoreErrors([this] {
        bool connected = false;
        QString connectionString;
        connectDb(m_txtUserName->text(), m_txtPassword->text(), m_txtDb->text(), connected,
                  gConnection, static_cast<qint16>(m_optPrefConn->checkedId()),
                  static_cast<qint16>(m_optSYS->checkedId()), connectionString);
    });
    // The entries are kept even when the log-on failed, so that they can be mended next time.
    keepSetting(u"Login"_s, m_txtUserName->text());
    keepSetting(u"Password"_s, m_txtPassword->text());
    keepSetting(u"Database"_s, m_txtDb->text());
    takeNames();
    ignoreErrors([this] { emit loggedOn(); });
    close();
}

void frmQuernaLogin::cmdCancel_Click()
{
    close();
}
