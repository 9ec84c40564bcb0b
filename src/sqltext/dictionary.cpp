#include "sqltext/dictionary.h"

#include "dataaccess/Recordset.h"
#include "platform/RuntimeError.h"
#include "platform/errorTraps.h"

using namespace Qt::StringLiterals;

namespace {

QString textOf(const Value &value)
{
    if (value.isNull())
        throw RuntimeError(ErrorNumber::InvalidUseOfNull);
    return value.toText();
}

/// A quote would end the literal that the name is put into.
bool isAskable(const QString &name)
{
    return !name.contains(u'\'');
}

} // namespace

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

QStringList namesFrom(const QString &query, const std::shared_ptr<Connection> &connection)
{
    if (!connection)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    const auto rows = connection->Execute(query);
    QStringList texts;
    if (rows->Eof())
        return texts;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext())
        texts += textOf(rows->value(0));
    return texts;
}

QStringList namesFromUnharmed(const QString &query, const std::shared_ptr<Connection> &connection)
{
    if (!connection)
        throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
    connection->Execute(u"SAVEPOINT querna_names"_s);
    try {
        return namesFrom(query, connection);
    } catch (const RuntimeError &) {
        ignoreErrors([&] { connection->Execute(u"ROLLBACK TO SAVEPOINT querna_names"_s); });
        throw;
    }
}

QStringList DictionaryNames::schemas()
{
    return answer(schemasQuery());
}

QStringList DictionaryNames::tables(const QString &schema)
{
    return isAskable(schema) ? answer(tablesQuery(schema)) : QStringList();
}

QStringList DictionaryNames::columns(const QString &schema, const QString &table)
{
    return isAskable(schema) && isAskable(table) ? answer(columnsQuery(schema, table))
                                                 : QStringList();
}

QStringList DictionaryNames::answer(const QString &query)
{
    if (const auto known = m_answers.constFind(query); known != m_answers.constEnd())
        return *known;
    if (m_failed)
        return {};
    try {
        return *m_answers.insert(query, m_ask(query));
    } catch (const RuntimeError &) {
        m_failed = true;
        return {};
    }
}
