#pragma once

#include "dataaccess/Recordset.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

struct TableColumn
{
    QString name;
    DataTypeEnum type = adVariant;
    int definedSize = 0;
};

/// An open table of @p columns with @p rows, in memory. The last row is current, being edited.
std::shared_ptr<Recordset> makeTable(const QList<TableColumn> &columns,
                                     const QList<QList<Value>> &rows);

QStringList fieldNames(const Recordset &rows);

/// A value's text form; null as "(null)".
QString shownText(const Value &value);

/// The rows from the current one on, as such texts joined by @p separator.
QStringList remainingRows(Recordset &rows, QChar separator = u',');
