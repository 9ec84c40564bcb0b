#pragma once

#include "controls/forms/formControls.h"

#include <QDialogButtonBox>
#include <QPushButton>

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
