#include "dataaccess/odbc/driverAdvice.h"

QString oracleDriverAdvice()
{
    return QStringLiteral("Install Oracle Instant Client with its ODBC package and register the "
                          "driver with odbcinst (or with the package's odbc_update_ini.sh).");
}

QString mariaDbDriverAdvice()
{
    return QStringLiteral("Install the package odbc-mariadb, for example with: "
                          "sudo apt install odbc-mariadb");
}
