#include "connection/session.h"

std::shared_ptr<Connection> gConnection;
QString gConnectString;
QString gUserName;
QString gPassword;
QString gTnsName;
qint32 maxRecords = 0;
