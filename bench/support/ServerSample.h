#pragma once

#include "dataaccess/odbc/sessionParties.h"

#include <QString>

/// The sample table on the sandbox's server, for as long as this lives: the rows of sampleTable(),
/// with exact numbers among the columns.
class ServerSample
{
public:
    explicit ServerSample(const QString &connectionString);
    ~ServerSample();
    ServerSample(const ServerSample &) = delete;
    ServerSample &operator=(const ServerSample &) = delete;

    QString query() const;

private:
    ProviderSession m_provider; ///< keeps the server running
};
