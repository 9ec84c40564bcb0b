#pragma once

#include "controls/forms/FormDialog.h"

class QLineEdit;

/// Sets the program-wide limit of records that a query returns (maxRecords in session.h).
class frmRecords : public FormDialog
{
    Q_OBJECT
public:
    explicit frmRecords(QWidget *parent = nullptr);

protected:
    bool Form_Load() override;

private slots:
    /// An empty field leaves the limit as it is; more than
    /// largestMaxRecords becomes 0, which means all.
    void cmdOK_Click();
    void cmdCancel_Click();

private:
    QLineEdit *txtRecords;
};
