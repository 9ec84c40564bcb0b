#pragma once

#include "dialogs/ObjectPicker.h"

/// Picks a table of a schema and writes ` SCHEMA.TABLE ` into the editor.
class frmObject : public ObjectPicker
{
    Q_OBJECT
public:
    explicit frmObject(QWidget *parent = nullptr);

protected:
    void loadSchema() override;
    QString textToInsert(const QString &entry) const override;
};
