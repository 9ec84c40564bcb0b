#pragma once

#include "controls/forms/formControls.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>

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

/// The two buttons that end a form, in the desktop's order; OK is the default one.
struct OkCancelButtons
{
    OkCancelButtons(QWidget *form, const QString &okName, const QString &cancelName)
        : box(new QDialogButtonBox(form))
        , ok(add(QStringLiteral("OK"), okName, QDialogButtonBox::AcceptRole, Qt::Key_O))
        , cancel(add(QStringLiteral("Cancel"), cancelName, QDialogButtonBox::RejectRole, Qt::Key_C))
    {
        ok->setDefault(true);
    }

    QDialogButtonBox *box;
    QPushButton *ok;
    QPushButton *cancel;

private:
    QPushButton *add(const QString &caption, const QString &name, QDialogButtonBox::ButtonRole role,
                     Qt::Key key)
    {
        return withAccessKey(named(box->addButton(caption, role), name), key);
    }
};
