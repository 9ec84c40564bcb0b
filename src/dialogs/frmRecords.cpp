#include "dialogs/frmRecords.h"

#include "connection/session.h"
#include "controls/forms/formControls.h"
#include "platform/errorTraps.h"
#include "platform/longWait.h"
#include "platform/numberForms.h"
#include "platform/textForms.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmRecords::frmRecords(QWidget *parent)
    : FormDialog(u"frmRecords"_s, u"Record Options"_s, parent)
    , txtRecords(named(new QLineEdit(this), u"txtRecords"_s))
{
    auto *label = new QLabel(u"Set maximum number of records returned"_s, this);
    label->setBuddy(txtRecords);
    setAccessKey(txtRecords, Qt::Key_M, this);
    txtRecords->setAccessibleName(u"Maximum number of records returned"_s);

    const OkCancelButtons buttons(this, u"cmdOK"_s, u"cmdCancel"_s);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(txtRecords);
    layout->addStretch(1);
    layout->addWidget(buttons.box);

    connect(buttons.ok, &QPushButton::clicked, this, &frmRecords::cmdOK_Click);
    connect(buttons.cancel, &QPushButton::clicked, this, &frmRecords::cmdCancel_Click);
}

bool frmRecords::Form_Load()
{
    txtRecords->clear();
    txtRecords->setFocus();
    return true;
}

void frmRecords::cmdOK_Click()
{
    const bool taken = reportErrors([this] {
        const QString text = txtRecords->text();
        if (!trimBlanks(text).isEmpty()) {
            const qint32 limit = textToInteger(text);
            maxRecords = limit <= largestMaxRecords ? limit : 0;
        }
        yieldToEvents();
    });
    if (taken)
        accept();
}

void frmRecords::cmdCancel_Click()
{
    reject();
}
