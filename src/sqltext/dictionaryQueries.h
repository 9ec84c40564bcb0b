#pragma once

#include <QString>

/// The queries that read from the server's dictionary what there is to pick. Names are put in as
/// they stand, quotes too; the dictionary compares them exactly.

/// The schemas, in order of their names.
QString schemasQuery();

/// The tables of a schema, in whatever order the server has them.
QString tablesQuery(const QString &schema);

/// The columns of a schema's table.
QString columnsQuery(const QString &schema, const QString &table);
