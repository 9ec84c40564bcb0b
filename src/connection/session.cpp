#include "connection/session.h"

#include "platform/RuntimeError.h"

std::shared_ptr<Connection> gConnection;
QString gConnectString;
QString gUserName;
QString gPassword;
QString gTnsName;
qint32 maxRecords = 0;

std::shared_ptr<Connection> requireConnection(const std::shared_ptr<Connection> &connection)
{
    if (!connection || connection->State() == adStateClosed)
        throw RuntimeError(ErrorNumber::InvalidConnection);
    return connection;
}
