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
