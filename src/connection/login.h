#pragma once

#include "dataaccess/Connection.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <memory>

/// Driver codes of the login.
namespace LoginDriver {
inline constexpr qint16 MicrosoftOleDb = 0;
inline constexpr qint16 OracleOleDb = 1;
inline constexpr qint16 OdbcDataSource = 2;
} // namespace LoginDriver

/// Privilege codes of the login.
namespace LoginPrivilege {
inline constexpr qint16 Normal = 0;
inline constexpr qint16 Sysdba = 1;
inline constexpr qint16 Sysoper = 2;
} // namespace LoginPrivilege

/// The connection string for a login. A privileged one is always that of an ODBC data source,
/// whatever @p driver says; an unknown driver without a privilege gives an empty text. Values are
/// neither quoted nor checked: one that holds `;` or `=` breaks the string.
QString loginConnectionString(const QString &user, const QString &password, const QString &database,
                              qint16 driver, qint16 privilege);

/// The program's command line is a complete connection string, as loginConnectionString() builds
/// it, quoted or not.

/// The command line without any double quote and without blanks at its ends; what opens the
/// connection. An empty text asks for the login dialog.
QString cleanedCommandLine(const QString &commandLine);

/// Reads the names out of a cleaned command line: the text behind the first `USER ID=` and the
/// first `DATA SOURCE=`, in any letter case, up to the next `;`. One character between the key and
/// the name is taken for the equals sign, whatever it is. A name whose key or `;` is missing keeps
/// what it was.
void readLoginNames(const QString &commandLine, QString &userName, QString &tnsName);

/// Opens a new connection for a login and begins its first transaction.
///
/// Afterwards @p conn holds the new connection, open or not, in place of any other. Once it is
/// open, @p connectionString and gConnectString are the string that opened it; when it cannot be
/// opened they keep what they were. A failure, that of beginning the transaction included, is
/// shown as its description; nothing is raised.
/// @param connected  whether everything went through
void connectDb(const QString &user, const QString &password, const QString &database,
               bool &connected, std::shared_ptr<Connection> &conn, qint16 driver, qint16 privilege,
               QString &connectionString);

/// The names that databases have in Oracle's network configuration, `tnsnames.ora`.

/// The aliases that such a file's text defines, in its order, each once. A definition that is not
/// closed ends where another one begins at the start of a line.
QStringList tnsAliases(QStringView text);

/// The aliases of this user and this machine: those of `~/.tnsnames.ora` and of the first
/// tnsnames.ora in the folder that TNS_ADMIN names, in /etc and in $ORACLE_HOME/network/admin.
/// Files that cannot be read have none.
QStringList tnsAliases();
