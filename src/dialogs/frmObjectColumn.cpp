#include "dialogs/frmObjectColumn.h"

#include "dialogs/listFillers.h"

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
    fillCombo(u"SELECT table_name FROM SYS.ALL_TABLES where owner = '"_s +
                  cmbSchema->currentText() + u"'"_s,
              *cmbTable, connection());
}

void frmObjectColumn::cmbTable_Click()
{
    loadOrClose([this] {
        fillList(u"SELECT column_name FROM SYS.ALL_TAB_COLUMNS where owner = '"_s +
                     cmbSchema->currentText() + u"' and table_name = '"_s +
                     cmbTable->currentText() + u"' "_s,
                 *lstObject, connection());
    });
}

QString frmObjectColumn::textToInsert(const QString &entry) const
{
    return entry + u" "_s;
}
