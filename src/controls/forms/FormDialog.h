#pragma once

#include <QDialog>

/// A dialog that loads its contents afresh each time it is shown, before it can be seen.
class FormDialog : public QDialog
{
    Q_OBJECT
public:
    /// Shows the dialog and waits; returns Rejected at once when the loading fails.
    int exec() override;
    /// Nothing is shown when the loading fails.
    void setVisible(bool visible) override;

protected:
    /// @param name  the form's name, which is its object name
    FormDialog(const QString &name, const QString &caption, QWidget *parent);

    /// Puts the form into its initial state.
    /// @returns whether the dialog is to be shown; what is wrong otherwise has been said
    virtual bool Form_Load() = 0;

private:
    bool load();

    bool m_loaded = false;
};
