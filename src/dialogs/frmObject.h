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

/// Picks a column of a schema's table and writes `COLUMN ` into the editor.
class frmObjectColumn : public ObjectPicker
{
    Q_OBJECT
public:
    explicit frmObjectColumn(QWidget *parent = nullptr);

protected:
    /// Fills the tables; the columns stay until a table is picked.
    void loadSchema() override;
    QString textToInsert(const QString &entry) const override;

private slots:
    void cmbTable_Click();

private:
    QComboBox *cmbTable;
};
