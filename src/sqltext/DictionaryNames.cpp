#include "sqltext/DictionaryNames.h"

#include "platform/RuntimeError.h"
#include "sqltext/dictionary.h"

namespace {

/// A quote would end the literal that the name is put into.
bool isAskable(const QString &name)
{
    return !name.contains(u'\'');
}

} // namespace

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
