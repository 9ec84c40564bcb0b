#pragma once

#include "dataaccess/Connection.h"

#include <QString>

#include <memory>

/// The process-wide values of the one session that this program has at a time.

/// The connection that every statement runs on; null before the first log-on and after the editor
/// window has closed.
extern std::shared_ptr<Connection> gConnection;
/// The connection string that last opened gConnection. Holds the password.
extern QString gConnectString;
/// Of the log-on: user name, password, and the name of the database or of the ODBC data source.
extern QString gUserName;
extern QString gPassword;
extern QString gTnsName;

/// Most records that a result set is meant to return; defaultMaxRecords whenever an editor window
/// loads. 0 and more than largestMaxRecords mean all.
extern qint32 maxRecords;
inline constexpr qint32 defaultMaxRecords = 100;
inline constexpr qint32 largestMaxRecords = 10000;

/// @p connection, for work that cannot do without an open one.
/// @throws RuntimeError 3709 when there is none, or it is closed
std::shared_ptr<Connection>
requireConnection(const std::shared_ptr<Connection> &connection = gConnection);
