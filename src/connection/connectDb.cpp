#include "connection/login.h"

#include "connection/session.h"
#include "platform/errorTraps.h"
#include "platform/textForms.h"

using namespace Qt::StringLiterals;

namespace {

void readItem(const QString &commandLine, QLatin1StringView key, QString &value)
{
    const qsizetype found = commandLine.indexOf(key, 0, Qt::CaseInsensitive);
    if (found < 0)
        return;
    const qsizetype begin = found + key.size() + 1;
    const qsizetype end = commandLine.indexOf(u';', found);
    if (end >= begin)
        value = commandLine.sliced(begin, end - begin);
}

} // namespace

QString loginConnectionString(const QString &user, const QString &password, const QString &database,
                              qint16 driver, qint16 privilege)
{
    const QString credentials = ";Uid="_L1 + user + ";Pwd="_L1 + password;
    switch (privilege) {
    case LoginPrivilege::Sysdba:
        return "DSN="_L1 + database + credentials + " AS SYSDBA"_L1;
    case LoginPrivilege::Sysoper:
        return "DSN="_L1 + database + credentials + " AS SYSOPER"_L1;
    default:
        break;
    }
    const QString oleDbItems =
        ";Data Source="_L1 + database + ";User ID="_L1 + user + ";Password="_L1 + password;
    switch (driver) {
    case LoginDriver::MicrosoftOleDb:
        return "Provider=msdaora"_L1 + oleDbItems;
    case LoginDriver::OracleOleDb:
        return "Provider=OraOLEDB.Oracle;ChunkSize=65535"_L1 + oleDbItems;
    case LoginDriver::OdbcDataSource:
        return "DSN="_L1 + database + ";ChunkSize=65535"_L1 + credentials;
    default:
        return {};
    }
}

QString cleanedCommandLine(const QString &commandLine)
{
    return trimBlanks(QString(commandLine).remove(u'"'));
}

void readLoginNames(const QString &commandLine, QString &userName, QString &tnsName)
{
    readItem(commandLine, "USER ID"_L1, userName);
    readItem(commandLine, "DATA SOURCE"_L1, tnsName);
}

void connectDb(const QString &user, const QString &password, const QString &database,
               bool &connected, std::shared_ptr<Connection> &conn, qint16 driver, qint16 privilege,
               QString &connectionString)
{
    connected = false;
    connected = reportErrors([&] {
        conn = std::make_shared<Connection>();
        const QString built = loginConnectionString(user, password, database, driver, privilege);
        conn->setCursorLocation(adUseClient);
        conn->Open(built);
        connectionString = built;
        gConnectString = built;
        conn->BeginTrans();
    });
}
