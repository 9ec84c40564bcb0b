#include "dataaccess/odbc/driverAdvice.h"

QString oracleDriverAdvice()
{
    return QStringLiteral("Install Oracle Instant Client for 64-bit Windows with its ODBC package "
                          "and run the package's odbc_install.exe.");
}

QString mariaDbDriverAdvice()
{
    return QStringLiteral("Install MariaDB's ODBC driver for 64-bit Windows.");
}
