#pragma once

#include "dataaccess/Connection.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

/// The queries that read from the server's dictionary what there is to pick. Names are put in as
/// they stand, quotes too; the dictionary compares them exactly.

/// The schemas, in order of their names.
QString schemasQuery();

/// The tables of a schema, in whatever order the server has them.
QString tablesQuery(const QString &schema);

/// The columns of a schema's table.
QString columnsQuery(const QString &schema, const QString &table);

/// The first field of every row of a dictionary query, in the order in which the rows come.
/// @throws RuntimeError 91 without a connection, 94 for a null, otherwise the server's
QStringList namesFrom(const QString &query, const std::shared_ptr<Connection> &connection);

/// The same for a query that nobody has asked for and that may fail: it leaves the open transaction
/// as it was. Some servers refuse everything but a rollback after a statement has failed, so the
/// query gets a savepoint of its own. A server without savepoints is not asked.
QStringList namesFromUnharmed(const QString &query, const std::shared_ptr<Connection> &connection);

/// The names that a server's dictionary has, each list asked for once, when it is first needed.
///
/// After a first failure nothing more is asked: a server without such a dictionary has no names.
class DictionaryNames
{
public:
    /// Gives the first column of a query's rows. What it raises, a RuntimeError, ends the asking.
    using Ask = std::function<QStringList(const QString &query)>;

    explicit DictionaryNames(Ask ask)
        : m_ask(std::move(ask))
    {
    }

    QStringList schemas();
    /// Schemas and tables in the dictionary's own writing.
    QStringList tables(const QString &schema);
    QStringList columns(const QString &schema, const QString &table);

    /// Has the lists asked for again when they are next needed.
    void forget() { m_answers.clear(); }

private:
    QStringList answer(const QString &query);

    Ask m_ask;
    QHash<QString, QStringList> m_answers;
    bool m_failed = false;
};
