#pragma once

#include "controls/forms/FormDialog.h"

#include <array>

class QLineEdit;
class QRadioButton;

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
    void optSYS_Click(int index);
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
    static qint16 checkedIndex(const std::array<QRadioButton *, 3> &options);

    QLineEdit *m_txtUserName = nullptr;
    QLineEdit *m_txtPassword = nullptr;
    QLineEdit *m_txtDb = nullptr;
    std::array<QRadioButton *, 3> m_optPrefConn{};
    std::array<QRadioButton *, 3> m_optSYS{};
};
