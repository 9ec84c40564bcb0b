#include "dialogs/frmObject.h"

#include "sqltext/dictionary.h"

#include <QComboBox>
#include <QListWidget>

using namespace Qt::StringLiterals;

frmObject::frmObject(QWidget *parent)
    : ObjectPicker(u"frmObject"_s, u"Select Schema and Table"_s, u"&Tables"_s, parent)
{
}

void frmObject::loadSchema()
{
    fill(*lstObject, tablesQuery(cmbSchema->currentText()));
}

QString frmObject::textToInsert(const QString &entry) const
{
    return u" "_s + cmbSchema->currentText() + u"."_s + entry + u" "_s;
}

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
