#include "support/coreTest.h"

std::shared_ptr<Recordset> makeTable(const QList<TableColumn> &columns,
                                     const QList<QList<Value>> &rows)
{
    auto table = std::make_shared<Recordset>();
    for (const TableColumn &column : columns)
        table->appendField(column.name, column.type, column.definedSize);
    table->Open();
    for (const QList<Value> &row : rows) {
        table->AddNew();
        for (int field = 0; field < row.size(); ++field)
            table->setValue(field, row[field]);
    }
    return table;
}

QStringList fieldNames(const Recordset &rows)
{
    QStringList names;
    for (int field = 0; field < rows.fieldCount(); ++field)
        names.append(rows.fieldName(field));
    return names;
}

QString shownText(const Value &value)
{
    return value.isNull() ? u"(null)"_s : value.toText();
}

QStringList remainingRows(Recordset &rows, QChar separator)
{
    QStringList all;
    for (; !rows.Eof(); rows.MoveNext()) {
        QStringList fields;
        for (int field = 0; field < rows.fieldCount(); ++field)
            fields.append(shownText(rows.value(field)));
        all.append(fields.join(separator));
    }
    return all;
}
