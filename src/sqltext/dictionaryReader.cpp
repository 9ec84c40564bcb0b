#include "sqltext/dictionaryReader.h"

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

} // namespace

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
