#pragma once

#include "controls/forms/FormDialog.h"

class QButtonGroup;
class QLineEdit;

/// Asks for user name, password, database, driver and SYS privilege, and (re)opens the process's
/// one connection with them. The entries are kept in the per-user settings.
///
/// Shown without blocking the frame; every OK and every Cancel closes it.
class frmQuernaLogin : public FormDialog
{
    Q_OBJECT
public:
    explicit frmQuernaLogin(QWidget *parent = nullptr);

signals:
    /// The log-on has been tried, whatever came of it: the editor window is to be titled with the
    /// session's names and shown. Handled before the dialog closes.
    void loggedOn();

public slots:
    void optSYS_Click(int privilege);
    void cmdOK_Click();
    void cmdCancel_Click();

protected:
    bool Form_Load() override;

private:
    void createEntries();
    void createOptions();
    void createButtons();
    QStringList databases() const;
    /// The entries become the session's names.
    void takeNames();

    QLineEdit *m_txtUserName = nullptr;
    QLineEdit *m_txtPassword = nullptr;
    QLineEdit *m_txtDb = nullptr;
    QButtonGroup *m_optPrefConn = nullptr; ///< by the driver's code
    QButtonGroup *m_optSYS = nullptr;      ///< by the privilege's
};
