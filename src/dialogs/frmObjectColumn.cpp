#include "dialogs/frmObjectColumn.h"

#include "dialogs/listFillers.h"
#include "sqltext/dictionaryQueries.h"

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
    fillCombo(tablesQuery(cmbSchema->currentText()), *cmbTable, connection());
}

void frmObjectColumn::cmbTable_Click()
{
    loadOrClose([this] {
        fillList(columnsQuery(cmbSchema->currentText(), cmbTable->currentText()), *lstObject,
                 connection());
    });
}

QString frmObjectColumn::textToInsert(const QString &entry) const
{
    return entry + u" "_s;
}
