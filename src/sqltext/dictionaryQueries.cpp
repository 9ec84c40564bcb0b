#include "sqltext/dictionaryQueries.h"

using namespace Qt::StringLiterals;

QString schemasQuery()
{
    return u"SELECT username from SYS.ALL_USERS order by username"_s;
}

QString tablesQuery(const QString &schema)
{
    return u"SELECT table_name FROM SYS.ALL_TABLES where owner = '"_s + schema + u'\'';
}

// The blank at its end is a part of the query.
QString columnsQuery(const QString &schema, const QString &table)
{
    return u"SELECT column_name FROM SYS.ALL_TAB_COLUMNS where owner = '"_s + schema +
           u"' and table_name = '"_s + table + u"' "_s;
}
