#include "support/retrieval.h"

#include "dataaccess/Connection.h"
#include "dataaccess/Recordset.h"
#include "sqltext/ResultPaging.h"

std::unique_ptr<Recordset> retrieveAll(const std::shared_ptr<Connection> &connection,
                                       const QString &query)
{
    Recordset source;
    source.setCacheSize(rowsPerBlock);
    source.Open(query, connection);
    auto rows = std::make_unique<Recordset>();
    ResultPaging::buildResultFields(source, *rows);
    for (; !source.Eof(); source.MoveNext())
        rows->addNewFrom(source);
    return rows;
}

std::unique_ptr<Recordset> retrieveAll(const QString &connectionString, const QString &query)
{
    const auto connection = std::make_shared<Connection>();
    connection->Open(connectionString);
    return retrieveAll(connection, query);
}
