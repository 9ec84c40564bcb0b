#include "dataaccess/odbc/sessionParties.h"

#include "dataaccess/odbc/OdbcHandle.h"

namespace {

using Lister = SQLRETURN(SQL_API *)(SQLHENV, SQLUSMALLINT, SQLWCHAR *, SQLSMALLINT, SQLSMALLINT *,
                                    SQLWCHAR *, SQLSMALLINT, SQLSMALLINT *);

/// The names that a list of the driver manager has, each of which comes with a second text.
QStringList listed(Lister lister)
{
    const OdbcHandle environment(SQL_HANDLE_ENV, OdbcHandle());
    checkOdbc(SQLSetEnvAttr(environment.get(), SQL_ATTR_ODBC_VERSION,
                            reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0),
              environment);
    QStringList names;
    for (SQLUSMALLINT direction = SQL_FETCH_FIRST;; direction = SQL_FETCH_NEXT) {
        char16_t name[512] = {};
        SQLSMALLINT length = 0;
        SQLSMALLINT otherLength = 0;
        const SQLRETURN code = checkOdbc(
            lister(environment.get(), direction, reinterpret_cast<SQLWCHAR *>(name),
                   static_cast<SQLSMALLINT>(std::size(name)), &length, nullptr, 0, &otherLength),
            environment);
        if (code == SQL_NO_DATA)
            return names;
        names.append(QString::fromUtf16(name));
    }
}

} // namespace

QStringList installedDrivers()
{
    return listed(SQLDriversW);
}

QString installedDriver(QStringView part)
{
    return installedDrivers().filter(part.toString(), Qt::CaseInsensitive).value(0);
}

QStringList dataSources()
{
    return listed(SQLDataSourcesW);
}
