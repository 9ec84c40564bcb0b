#include "dialogs/frmObjectColumn.h"

#include "sqltext/dictionary.h"

#include <QComboBox>
#include <QListWidget>

using namespace Qt::StringLiterals;

frmObjectColumn::frmObjectColumn(QWidget *parent)
    : ObjectPicker(u"frmObjectColumn"_s, u"Select Schema, Table and Column"_s, u"&Columns"_s,
                   parent)
{
    cmbTable = addCombo(u"cmbTable"_s, u"Ta&ble"_s);
    setTabOrder(cmbSchema, cmbTable);
    setTabOrder(cmbTable, lstObject);
    connect(cmbTable, &QComboBox::activated, this, &frmObjectColumn::cmbTable_Click);
}

void frmObjectColumn::loadSchema()
{
    fill(*cmbTable, tablesQuery(cmbSchema->currentText()));
}

void frmObjectColumn::cmbTable_Click()
{
    loadOrClose([this] {
        fill(*lstObject, columnsQuery(cmbSchema->currentText(), cmbTable->currentText()));
    });
}

QString frmObjectColumn::textToInsert(const QString &entry) const
{
    return entry + u" "_s;
}
